#include "skin/SegmentGeometry.h"

#include <algorithm>
#include <array>

namespace {

// Bits of a pattern, from the top segment around to the middle one.
enum Segment : unsigned {
    Top = 128,
    UpperRight = 64,
    LowerRight = 32,
    Bottom = 16,
    LowerLeft = 8,
    UpperLeft = 4,
    Middle = 2
};
constexpr std::array<unsigned, 7> segments{Top, UpperRight, LowerRight, Bottom, LowerLeft, UpperLeft, Middle};
constexpr unsigned allSegments = 254;

constexpr std::array<unsigned, 10> digitPatterns{252, 96, 218, 242, 102, 182, 190, 224, 254, 246};

unsigned PatternOf(char character) {
    if (character >= '0' && character <= '9') return digitPatterns[static_cast<std::size_t>(character - '0')];
    return character == '-' ? unsigned{Middle} : 0U;
}

SegmentLine LineOf(unsigned segment, int x, const SegmentMetrics& metrics) {
    const int m = metrics.thickness;
    const int l = metrics.segmentLength;
    switch (segment) {
    case Top:
        return {x + 2 * m, m, x + l, m};
    case UpperRight:
        return {x + m + l, 2 * m, x + m + l, l + 2 * m};
    case LowerRight:
        return {x + m + l, l + 4 * m, x + m + l, 2 * l + 3 * m};
    case Bottom:
        return {x + 2 * m, 2 * l + 4 * m, x + l, 2 * l + 4 * m};
    case LowerLeft:
        return {x + m, l + 4 * m, x + m, 2 * l + 3 * m};
    case UpperLeft:
        return {x + m, 2 * m, x + m, l + 2 * m};
    default:
        return {x + 2 * m, l + 3 * m, x + l, l + 3 * m};
    }
}

std::vector<SegmentLine> LinesOf(unsigned pattern, int x, const SegmentMetrics& metrics) {
    std::vector<SegmentLine> lines;
    for (const unsigned segment : segments) {
        if ((pattern & segment) != 0) lines.push_back(LineOf(segment, x, metrics));
    }
    return lines;
}

std::vector<SegmentLine> LitLines(char character, int x, const SegmentMetrics& metrics) {
    const int m = metrics.thickness;
    const int l = metrics.segmentLength;
    if (character == '.') return {{x + 2 * m, 2 * l + 4 * m, x + l / 2, 2 * l + 4 * m}};
    if (character == ':') {
        return {{x + 4 * m, l, x + l / 2 + 2 * m, l}, {x + 4 * m, 2 * l + m, x + l / 2 + 2 * m, 2 * l + m}};
    }
    return LinesOf(PatternOf(character), x, metrics);
}

// A colon stands closer to its neighbours than digits do.
int Advance(char former, char next, const SegmentMetrics& metrics) {
    if (next == ':') return metrics.thickness + metrics.segmentLength;
    if (former == ':') return metrics.segmentLength + 1;
    return metrics.segmentLength + 4 * metrics.thickness;
}

} // namespace

SegmentMetrics SegmentMetrics::FromHeight(int height) {
    return {std::max(1, static_cast<int>(height * 0.06)), std::max(1, static_cast<int>(height * 0.35))};
}

std::vector<SegmentFigure> LayOutSegments(std::string_view text, const SegmentMetrics& metrics) {
    std::vector<SegmentFigure> figures;
    int x = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i > 0) x += Advance(text[i - 1], text[i], metrics);
        SegmentFigure figure;
        if (text[i] != ':') figure.ghosts = LinesOf(allSegments, x, metrics);
        figure.lit = LitLines(text[i], x, metrics);
        figures.push_back(std::move(figure));
    }
    return figures;
}
