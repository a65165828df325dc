"""Small pictures from layered shapes, smoothed by sampling each pixel several times.

A shape is a function of a point that says whether the point lies inside; a paint is a function of a point that gives a
colour. Both work in a unit square with the origin at the top left, so that one description serves every picture size.
"""

import math

SAMPLES = 8  # in each direction of a pixel


def disc(cx, cy, radius):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= radius**2


def rounded_box(left, top, right, bottom, radius):
    def inside(x, y):
        dx = max(left + radius - x, x - right + radius, 0)
        dy = max(top + radius - y, y - bottom + radius, 0)
        return dx * dx + dy * dy <= radius * radius

    return inside


def box(left, top, right, bottom):
    return lambda x, y: left <= x <= right and top <= y <= bottom


def both(first, second):
    return lambda x, y: first(x, y) and second(x, y)


def flat(colour):
    return lambda x, y: colour


def blend(first, second, share):
    share = min(max(share, 0), 1)
    return tuple(a + (b - a) * share for a, b in zip(first, second))


def downward(top_colour, bottom_colour):
    return lambda x, y: blend(top_colour, bottom_colour, y)


def around(cx, cy, radius, inner_colour, outer_colour):
    """A ball of light: the inner colour at the centre, the outer one from the radius on."""
    return lambda x, y: blend(inner_colour, outer_colour, math.hypot(x - cx, y - cy) / radius)


def render(size, layers):
    """Rows of (red, green, blue, alpha), 0 to 255, of the layers (shape, paint), the last one on top."""
    return [[_pixel(size, layers, column, row) for column in range(size)] for row in range(size)]


def _pixel(size, layers, column, row):
    total = [0.0, 0.0, 0.0]
    hits = 0
    for i in range(SAMPLES * SAMPLES):
        x = (column + (i % SAMPLES + 0.5) / SAMPLES) / size
        y = (row + (i // SAMPLES + 0.5) / SAMPLES) / size
        for inside, paint in reversed(layers):
            if inside(x, y):
                total = [a + b for a, b in zip(total, paint(x, y))]
                hits += 1
                break
    if not hits:
        return (0, 0, 0, 0)
    return (*(round(c / hits) for c in total), round(255 * hits / SAMPLES**2))
