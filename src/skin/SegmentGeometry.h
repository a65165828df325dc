// How a text looks on a seven-segment display: sizes from the control's height, and the lines of each character.
#pragma once

#include <string_view>
#include <vector>

// Worked out once from the height of the display in pixels.
struct SegmentMetrics {
    int thickness = 1;     // width of a line, and the unit of the margins; 0.06 of the height, at least 1
    int segmentLength = 1; // 0.35 of the height, at least 1

    static SegmentMetrics FromHeight(int height);
};

struct SegmentLine {
    int fromX;
    int fromY;
    int toX;
    int toY;

    bool operator==(const SegmentLine&) const = default;
};

// One character at its place. `ghosts` are the seven segments of a digit, lit or not; empty for a colon. `lit` is empty
// for a character that a display can't show.
struct SegmentFigure {
    std::vector<SegmentLine> ghosts;
    std::vector<SegmentLine> lit;
};

// Left to right from x = 0. Known are the digits, "-", "." and ":"; every other character takes a cell and lights
// nothing.
std::vector<SegmentFigure> LayOutSegments(std::string_view text, const SegmentMetrics& metrics);
