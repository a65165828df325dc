// The rings of a round button: the pixels of a circle, and the colour that each has when light falls on the ring from
// the upper left. Angles are in radians, from the right, clockwise (y grows downward); colours are of 8 bits a channel,
// red in the low byte.
#pragma once

#include <cstdint>
#include <vector>

struct CirclePoint {
    int x;
    int y;
    double angle; // as seen from the centre

    bool operator==(const CirclePoint&) const = default;
};

// The midpoint circle around (centerX, centerY), eight mirrored points a step, in the order of plotting; points on the
// axes and diagonals come twice. A dotted circle leaves every other step out. A radius of 0 is the centre alone, a
// negative one nothing.
std::vector<CirclePoint> CirclePoints(int centerX, int centerY, int radius, bool dotted = false);

// Between the light colour, in force at the upper left, and the dark one at the opposite point; each channel truncated.
std::uint32_t AngleColor(double angle, std::uint32_t light, std::uint32_t dark);
