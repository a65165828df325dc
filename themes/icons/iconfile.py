"""Icon and cursor files: a directory, then for each picture a bitmap header, its colours, its pixels and its mask.

Rows are stored from bottom to top and padded to four bytes. The header counts pixels and mask together, so its height
is twice the picture's. All pictures here are square.
"""

import struct


def true_colour(pixels):
    """A picture of 32 bits a pixel with its alpha channel; the mask repeats what is fully transparent."""
    rows = [b"".join(bytes((b, g, r, a)) for r, g, b, a in row) for row in pixels]
    mask = [[a == 0 for _, _, _, a in row] for row in pixels]
    return _picture(32, [], rows, mask)


def indexed(pixels, palette, bits):
    """A picture of 1 or 4 bits a pixel in the nearest colours of the palette, with hard edges.

    The first colour is black: a transparent pixel has index 0, and any other colour would be mixed into the screen.
    """
    mask = [[a < 128 for _, _, _, a in row] for row in pixels]
    rows = [[0 if a < 128 else _nearest((r, g, b), palette) for r, g, b, a in row] for row in pixels]
    unused = [(0, 0, 0)] * ((1 << bits) - len(palette))
    return _picture(bits, palette + unused, [_pack(row, bits) for row in rows], mask)


def icon_file(pictures):
    return _file(1, pictures, lambda picture: (1, _depth(picture)))


def cursor_file(picture, hot_x, hot_y):
    return _file(2, [picture], lambda picture: (hot_x, hot_y))


def _picture(bits, colours, rows, mask):
    size = len(mask)
    table = b"".join(struct.pack("<4B", b, g, r, 0) for r, g, b in colours)
    image = b"".join(_padded(row) for row in reversed(rows))
    mask_image = b"".join(_padded(_pack(row, 1)) for row in reversed(mask))
    header = struct.pack("<3I2H6I", 40, size, 2 * size, 1, bits, 0, len(image) + len(mask_image), 0, 0, 0, 0)
    return header + table + image + mask_image


def _file(kind, pictures, words):
    """`words` gives the two fields of an entry whose meaning the kind decides: planes and depth, or the hot spot."""
    offset = 6 + 16 * len(pictures)
    directory = struct.pack("<3H", 0, kind, len(pictures))
    for picture in pictures:
        size = struct.unpack_from("<I", picture, 4)[0]
        colours = 1 << _depth(picture) if _depth(picture) < 8 else 0
        directory += struct.pack("<4B2H2I", size, size, colours, 0, *words(picture), len(picture), offset)
        offset += len(picture)
    return directory + b"".join(pictures)


def _depth(picture):
    return struct.unpack_from("<H", picture, 14)[0]


def _nearest(pixel, palette):
    return min(range(len(palette)), key=lambda i: sum((a - b) ** 2 for a, b in zip(pixel, palette[i])))


def _pack(values, bits):
    """Whole bytes of the values, the leftmost in the highest bits."""
    packed = bytearray((len(values) * bits + 7) // 8)
    for i, value in enumerate(values):
        position = i * bits
        packed[position // 8] |= int(value) << (8 - bits - position % 8)
    return bytes(packed)


def _padded(row):
    return row + bytes(-len(row) % 4)
