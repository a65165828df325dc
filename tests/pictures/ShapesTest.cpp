// Slices, frames, runs of a region and colours: each against the plain way to say the same, over random inputs.
#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "pictures/ColorMath.h"
#include "pictures/NineSlice.h"
#include "pictures/RegionRuns.h"
#include "pictures/SlowNineSlice.h"

namespace {

int Among(int from, int end) {
    return *rc::gen::inRange(from, end);
}

TEST(NineSlice, CellsPaintWhatEachPixelIsToldToShow) {
    using Point = std::pair<int, int>;
    const auto isInside = [](Point at, SlowSize size) {
        return std::min(at.first, at.second) >= 0 && at.first < size.width && at.second < size.height;
    };
    for (int i = 0; i < 6 * 6 * 5 * 5 * 4 * 4; ++i) {
        const SlowSize target{i % 6 + 1, i / 6 % 6 + 1}, picture{i / 36 % 5 + 1, i / 180 % 5 + 1};
        const SlowSize corner{i / 900 % 4, i / 3600};
        const CRect place = CRect::Sized(5, 6, target.width, target.height),
                    whole = CRect::Sized(3, 4, picture.width, picture.height);
        const auto cells = NineSliceCells(place, whole, corner.width, corner.height);
        std::map<Point, Point> painted;
        bool fills = true;
        for (const auto& [to, from] : cells) {
            for (int pixel = 0; pixel < to.Width() * to.Height(); ++pixel) {
                const int x = pixel % to.Width(), y = pixel / to.Width();
                const Point at{to.left + x, to.top + y};
                fills = fills && isInside(at, target) && !painted.contains(at);
                painted[at] = {from.left + x * from.Width() / to.Width(), from.top + y * from.Height() / to.Height()};
            }
        }
        for (int pixel = 0; pixel < target.width * target.height; ++pixel) {
            const Point at{pixel % target.width, pixel / target.width};
            const Point source = painted.contains(at) ? painted[at] : Point{-1, -1};
            fills = fills && isInside(source, picture);
            ASSERT_EQ(source, SlowNineSlice(at.first, at.second, target, picture, corner)) << i;
        }
        ASSERT_EQ(CellsFill(cells, place, whole), fills) << i;
    }
}

RC_GTEST_PROP(FrameCell, IsTheGridsCellRoundedDown, (std::uint8_t width, std::uint8_t height)) {
    const int columns = Among(-1, 9), rows = Among(-1, 9), column = Among(1, 10), row = Among(1, 10);
    const auto divided = [](int all, int by) { return static_cast<int>(std::floor(1.0 * all / by)); };
    const CRect expected = columns <= 0 || rows <= 0
                               ? CRect{}
                               : CRect::Sized(divided(width * (column - 1), columns), divided(height * (row - 1), rows),
                                              divided(width, columns), divided(height, rows));
    RC_ASSERT(FrameCell(width, height, column, row, columns, rows) == expected);
}

using Rows = std::vector<std::string>; // '#' is opaque

Rows Painted(const std::vector<CRect>& boxes, std::size_t width, std::size_t height) {
    Rows rows(height, std::string(width, '.'));
    for (const CRect& box : boxes)
        for (LONG y = box.top; y < box.bottom; ++y)
            for (LONG x = box.left; x < box.right; ++x)
                rows.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x)) ^= '.' ^ '#'; // twice would show
    return rows;
}

std::size_t RunsIn(const std::string& row) {
    std::size_t runs = 0;
    for (std::size_t x = 0; x < row.size(); ++x) runs += row[x] == '#' && (x == 0 || row[x - 1] != '#') ? 1 : 0;
    return runs;
}

// Noise of pixels near the edges of the transparent range; where rows repeat, there is something to join.
RC_GTEST_PROP(RegionRuns, AreTheOpaquePixels, (std::uint32_t color, std::uint32_t tolerance, unsigned seed)) {
    const int width = Among(1, 130), height = Among(1, 130), repeated = Among(1, 4), limit = Among(1, 10);
    const auto blank = static_cast<std::size_t>(Among(0, 9)); // a row that is transparent
    std::minstd_rand random(seed);
    const std::size_t stride = static_cast<std::size_t>(width) * 4 + 4; // memory beyond a row is no part of it
    std::vector<std::uint8_t> bytes(stride * static_cast<std::size_t>(height), 0xA5);
    Rows opaque(static_cast<std::size_t>(height));
    std::size_t runs = 0, joined = 0;
    for (std::size_t y = 0; y < opaque.size(); ++y) {
        std::uint8_t* const row = &bytes[(opaque.size() - 1 - y) * stride];
        const bool repeats = y % static_cast<std::size_t>(repeated) != 0;
        for (int x = 0; x < width; ++x) {
            bool within = true;
            for (int part = 0; part < 3; ++part) {
                const int low = color >> (8 * part) & 0xFF, more = tolerance >> (8 * part) & 0xFF;
                const int high = std::min(low + more, 255), at = x * 4 + part;
                const int edges[] = {low, high, low - 1, high + 1, static_cast<int>(random() % 256)};
                const int edge = edges[y == blank ? 0 : random() % (static_cast<int>(random() % 10) < limit ? 2 : 5)];
                row[at] = repeats ? row[stride + static_cast<std::size_t>(at)] : static_cast<std::uint8_t>(edge);
                within = within && row[at] >= low && row[at] <= high;
            }
            opaque[y] += within ? '.' : '#';
        }
        runs += RunsIn(opaque[y]);
        joined += y > 0 && opaque[y] == opaque[y - 1] ? 0 : RunsIn(opaque[y]);
    }
    const PixelRows rows{bytes, width, height, stride};
    const TransparentRange range = TransparentRange::From(color, tolerance);
    std::vector<CRect> found;
    std::vector<std::size_t> sizes, batches(runs / 2000, 2000);
    batches.push_back(runs % 2000);
    ForEachRunBatch(rows, range, [&](const std::vector<CRect>& batch) {
        sizes.push_back(batch.size());
        found.insert(found.end(), batch.begin(), batch.end());
    });
    RC_ASSERT(sizes == batches);
    RC_ASSERT(std::ranges::is_sorted(found, {}, [](const CRect& box) { return std::pair(box.top, box.left); }));
    RC_ASSERT(Painted(found, opaque[0].size(), opaque.size()) == opaque);
    if (joined > 1000) { // very many: without the gaps in each row
        joined = 0;
        for (std::size_t y = 0; y < opaque.size(); ++y) {
            const std::size_t first = opaque[y].find('#'), last = opaque[y].rfind('#');
            if (first != std::string::npos) opaque[y].replace(first, last + 1 - first, last + 1 - first, '#');
            joined += y > 0 && opaque[y] == opaque[y - 1] ? 0 : RunsIn(opaque[y]);
        }
    }
    const std::vector<CRect> outline = OutlineRuns(rows, range);
    RC_ASSERT(Painted(outline, opaque[0].size(), opaque.size()) == opaque);
    RC_ASSERT(outline.size() == joined);
}

TEST(Colors, Blends) {
    const auto each = [](std::uint32_t color, auto change) {
        return change(color & 0xFF, 0U) | change(color >> 8 & 0xFF, 8U) << 8 | change(color >> 16, 16U) << 16;
    };
    for (std::uint32_t from = 0; from < 256; ++from) {
        const std::uint32_t color = from | from * 7 % 256 << 8 | (255 - from) << 16, other = color * 5 & 0xFFFFFF;
        for (const double factor :
             {0.25, 0.3, 0.7, 0.85, 1.0, 0.0, 1.0001, -0.1, std::numeric_limits<double>::quiet_NaN()}) {
            const double part = factor > 0 && factor <= 1 ? factor : 0;
            const auto white = [&](unsigned c, unsigned) { return static_cast<unsigned>((255 - c) * part + c); };
            const auto black = [&](unsigned c, unsigned) { return static_cast<unsigned>(c - c * part); };
            ASSERT_EQ(BlendedTowardWhite(color, factor), each(color, white)) << color << ' ' << factor;
            ASSERT_EQ(BlendedTowardBlack(color, factor), each(color, black)) << color << ' ' << factor;
        }
        for (unsigned weight = 0; weight < 256; weight += 5) {
            const auto mix = [&](unsigned c, unsigned at) {
                return (c * (255 - weight) + (other >> at & 0xFF) * weight) / 255;
            };
            ASSERT_EQ(MixedColor(color, other, static_cast<std::uint8_t>(weight)), each(color, mix)) << weight;
        }
    }
}

RC_GTEST_PROP(Colors, GreyIsTheWeightedMeanRoundedDown, (std::uint8_t red, std::uint8_t green, std::uint8_t blue)) {
    const int gray = GrayOf(red, green, blue), weighed = 30 * red + 59 * green + 11 * blue;
    RC_ASSERT(100 * gray <= weighed && weighed < 100 * (gray + 1));
    const int r = red % 32, g = green % 32, b = blue % 32, gray5 = GrayOf(red % 32, green % 32, blue % 32);
    const auto pixel = static_cast<std::uint16_t>((red & 0x80) << 8 | r << 10 | g << 5 | b);
    RC_ASSERT(GrayOf555(pixel) == gray5 * (1024 + 32 + 1));
    const auto icon = IconGray(static_cast<std::uint32_t>(red | green << 8 | blue << 16));
    const unsigned exact = 299U * red + 587U * green + 114U * blue, part = icon & 0xFF;
    RC_ASSERT(icon == part * 0x010101);
    RC_ASSERT(part * 1000 <= exact && exact <= (part + 1) * 1000); // floating-point sums may fall short by a hair
}

// Step by step, until one of the parts can go no further.
RC_GTEST_PROP(Colors, ShadesKeepTheHue, (std::uint8_t red, std::uint8_t green, std::uint8_t blue)) {
    const int shade = *rc::gen::oneOf(rc::gen::inRange(-258, 259), rc::gen::element(-256, 256));
    int parts[] = {red, green, blue};
    const int step = shade < 0 ? -1 : 1, end = shade < 0 ? 0 : 255;
    for (int i = 0; i != shade && std::count(parts, parts + 3, end) == 0; i += step)
        for (int& part : parts) part += step;
    const auto found = ShiftedColor(static_cast<std::uint32_t>(red | green << 8 | blue << 16), shade);
    RC_ASSERT(found.has_value() == (std::abs(shade) <= 255));
    if (found) RC_ASSERT(*found == static_cast<std::uint32_t>(parts[0] | parts[1] << 8 | parts[2] << 16));
}

RC_GTEST_PROP(Colors, RareOnesGiveWayInAReducedPalette, ()) {
    const auto uses = *rc::gen::container<std::vector<std::uint32_t>>(static_cast<std::size_t>(Among(230, 257)),
                                                                      rc::gen::inRange<std::uint32_t>(0, 40));
    std::vector<std::size_t> dropped, kept;
    for (std::size_t i = 0; i < uses.size(); ++i) {
        if (i + 236 < uses.size()) {
            dropped.push_back(i);
            continue;
        }
        const auto place =
            std::find_if(dropped.begin(), dropped.end(), [&](std::size_t d) { return uses[d] > uses[i]; });
        if (place != dropped.end()) *place = i;
    }
    for (std::size_t i = 0; i < uses.size(); ++i)
        if (std::count(dropped.begin(), dropped.end(), i) == 0) kept.push_back(i);
    RC_ASSERT(KeptColors(uses) == kept);
}

} // namespace
