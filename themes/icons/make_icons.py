"""Draws the program's icons and its hand cursor: make_icons.py DIRECTORY.

    quorvane.ico    the application: a person in the beam between two door posts; 16, 32 and 48 pixels, true colour
    lamp_lit.ico    the lamp of a checked address button; 16 pixels, 16 colours
    lamp_dark.ico   the same lamp switched off
    hand.cur        the pointing hand over skin buttons; 32 pixels, black and white, the hot spot at the finger tip
"""

import pathlib
import sys

from canvas import around, blend, both, box, disc, downward, flat, render, rounded_box
from iconfile import cursor_file, icon_file, indexed, true_colour

BLACK = (0, 0, 0)
WHITE = (255, 255, 255)
HAND_SIZE = 32
HAND_TIP = (5, 0)
RIM_LIGHT = (186, 186, 186)
RIM_DARK = (92, 92, 92)
LIT = ((40, 255, 40), (0, 178, 0))  # the glow in the middle of the glass, and its edge
DARK = ((0, 128, 0), (0, 56, 0))


def application_layers():
    tile = rounded_box(0.0, 0.0, 1.0, 1.0, 0.19)
    shoulders = rounded_box(0.3125, 0.47, 0.6875, 1.3, 0.17)
    return [
        (tile, flat((10, 30, 92))),
        (rounded_box(0.03, 0.03, 0.97, 0.97, 0.165), downward((72, 134, 240), (20, 56, 158))),
        (box(0.125, 0.1875, 0.25, 0.875), flat((214, 224, 240))),
        (box(0.75, 0.1875, 0.875, 0.875), flat((214, 224, 240))),
        (box(0.1875, 0.5625, 0.8125, 0.625), flat((64, 226, 82))),
        (both(shoulders, box(0, 0, 1, 0.875)), flat(WHITE)),
        (disc(0.5, 0.3, 0.135), flat(WHITE)),
    ]


def lamp_layers(glow, edge):
    return [
        (disc(0.5, 0.5, 0.49), downward(RIM_LIGHT, RIM_DARK)),
        (disc(0.5, 0.5, 0.4), downward(RIM_DARK, RIM_LIGHT)),
        (disc(0.5, 0.5, 0.355), around(0.45, 0.43, 0.42, glow, edge)),
        (disc(0.385, 0.375, 0.1), flat(WHITE)),
    ]


def lamp_palette(glow, edge):
    """Sixteen colours: the ramps of rim, light and glint, and what lies between rim and light."""
    rim = [blend(RIM_DARK, RIM_LIGHT, i / 4) for i in range(5)]
    light = [blend(edge, glow, i / 4) for i in range(5)]
    glint = [blend(glow, WHITE, share) for share in (0.3, 0.65)]
    between = [blend(edge, RIM_DARK, 0.5), blend(edge, RIM_LIGHT, 0.3)]
    return [BLACK, WHITE] + [tuple(round(c) for c in colour) for colour in rim + light + glint + between]


def lamp(glow, edge):
    return icon_file([indexed(render(16, lamp_layers(glow, edge)), lamp_palette(glow, edge), 4)])


def hand(art):
    """The picture in text: `#` black, `o` white, anything else transparent; what is missing to 32 pixels is too."""
    ink = {"#": (*BLACK, 255), "o": (*WHITE, 255)}
    lines = art.splitlines() + [""] * HAND_SIZE
    pixels = [[ink.get(c, (0, 0, 0, 0)) for c in line.ljust(HAND_SIZE)] for line in lines[:HAND_SIZE]]
    return cursor_file(indexed(pixels, [BLACK, WHITE], 1), *HAND_TIP)


def main():
    target = pathlib.Path(sys.argv[1])
    target.mkdir(parents=True, exist_ok=True)
    art = pathlib.Path(__file__).with_name("hand.txt").read_text(encoding="ascii")
    application = [true_colour(render(size, application_layers())) for size in (16, 32, 48)]
    (target / "quorvane.ico").write_bytes(icon_file(application))
    (target / "lamp_lit.ico").write_bytes(lamp(*LIT))
    (target / "lamp_dark.ico").write_bytes(lamp(*DARK))
    (target / "hand.cur").write_bytes(hand(art))


if __name__ == "__main__":
    main()
