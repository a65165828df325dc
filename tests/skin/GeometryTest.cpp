// Slices, frames, runs, rings and rows: each against the plain way to say the same, over random inputs.
#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "SlowNineSlice.h"
#include "skin/ColorMath.h"
#include "skin/IconLayout.h"
#include "skin/NineSlice.h"
#include "skin/RegionRuns.h"
#include "skin/RoundShading.h"
#include "skin/StripLayout.h"

namespace {

int Among(int from, int end) {
    return *rc::gen::inRange(from, end);
}

void ExpectSlices(SlowSize target, SlowSize picture, SlowSize corner) {
    const Box place{5, 6, target.width, target.height}, whole{3, 4, picture.width, picture.height};
    const auto cells = NineSliceCells(place, whole, corner.width, corner.height);
    std::map<std::pair<int, int>, std::pair<int, int>> painted;
    bool isFilled = true;
    for (const auto& [to, from] : cells) {
        ASSERT_FALSE(to.IsEmpty() || from.IsEmpty());
        for (int y = 0; y < to.height; ++y) {
            for (int x = 0; x < to.width; ++x) {
                const std::pair at{to.x + x, to.y + y};
                isFilled = isFilled && !painted.contains(at) && std::min(at.first, at.second) >= 0 &&
                           at.first < target.width && at.second < target.height;
                painted[at] = {from.x + x * from.width / to.width, from.y + y * from.height / to.height};
            }
        }
    }
    for (int y = 0; y < target.height; ++y) {
        for (int x = 0; x < target.width; ++x) {
            const auto found = painted.find({x, y});
            const auto source = found != painted.end() ? found->second : std::pair{-1, -1};
            isFilled = isFilled && std::min(source.first, source.second) >= 0 && source.first < picture.width &&
                       source.second < picture.height;
            ASSERT_EQ(source, SlowNineSlice(x, y, target, picture, corner)) << x << ' ' << y;
        }
    }
    EXPECT_EQ(CellsFill(cells, place, whole), isFilled);
}

TEST(NineSlice, CellsPaintWhatEachPixelIsToldToShow) {
    for (int i = 0; i < 6 * 6 * 5 * 5 * 4 * 4; ++i) {
        const SlowSize target{i % 6 + 1, i / 6 % 6 + 1}, picture{i / 36 % 5 + 1, i / 180 % 5 + 1};
        const SlowSize corner{i / 900 % 4, i / 3600};
        ExpectSlices(target, picture, corner);
        ASSERT_FALSE(testing::Test::HasFailure())
            << target.width << 'x' << target.height << " from " << picture.width << 'x' << picture.height << " with "
            << corner.width << ", " << corner.height;
    }
}

RC_GTEST_PROP(FrameCell, IsTheGridsCellRoundedDown, (std::uint8_t width, std::uint8_t height)) {
    const int columns = Among(-1, 9), rows = Among(-1, 9), column = Among(1, 10), row = Among(1, 10);
    const auto divided = [](int all, int by) {
        int share = 0;
        while ((share + 1) * by <= all) ++share;
        return share;
    };
    const bool none = columns <= 0 || rows <= 0;
    const Box expected = none ? Box{}
                              : Box{divided(width * (column - 1), columns), divided(height * (row - 1), rows),
                                    divided(width, columns), divided(height, rows)};
    RC_ASSERT(FrameCell(width, height, column, row, columns, rows) == expected);
    RC_ASSERT(FrameCount(width, columns) == (columns > 0 ? divided(width, columns) : 0));
}

// Noise of pixels near the edges of the transparent range; where rows repeat, there is something to join.
RC_GTEST_PROP(RegionRuns, AreTheOpaquePixels, (std::uint32_t color, std::uint32_t tolerance, unsigned seed)) {
    const int width = Among(1, 130), height = Among(1, 130), repeated = Among(1, 4), limit = Among(1, 10);
    std::minstd_rand random(seed);
    const std::size_t stride = static_cast<std::size_t>(width) * 4 + 4; // memory beyond a row is no part of it
    std::vector<std::uint8_t> bytes(stride * static_cast<std::size_t>(height), 0xA5);
    std::vector<std::vector<bool>> opaque(static_cast<std::size_t>(height));
    std::size_t runs = 0;
    for (int y = 0; y < height; ++y) {
        std::uint8_t* const row = &bytes[static_cast<std::size_t>(height - 1 - y) * stride];
        if (y % repeated != 0) std::copy_n(row + stride, stride, row);
        for (int x = 0; x < width; ++x) {
            bool within = true;
            for (unsigned part = 0; part < 3; ++part) {
                const int low = color >> (8 * part) & 0xFF, more = tolerance >> (8 * part) & 0xFF;
                const int high = std::min(low + more, 255);
                const int edges[] = {low, high, low - 1, high + 1, static_cast<int>(random() % 256)};
                std::uint8_t& byte = row[x * 4 + static_cast<int>(part)];
                const bool edge = static_cast<int>(random() % 10) < limit;
                if (y % repeated == 0) byte = static_cast<std::uint8_t>(edges[edge ? random() % 2 : random() % 5]);
                within = within && byte >= low && byte <= high;
            }
            runs += !within && (x == 0 || !opaque[static_cast<std::size_t>(y)].back()) ? 1 : 0;
            opaque[static_cast<std::size_t>(y)].push_back(!within);
        }
    }
    const PixelRows rows{bytes, width, height, stride};
    const TransparentRange range = TransparentRange::From(color, tolerance);
    std::vector<Box> ordered;
    std::vector<std::size_t> sizes;
    ForEachRunBatch(rows, range, [&](const std::vector<Box>& batch) {
        sizes.push_back(batch.size());
        ordered.insert(ordered.end(), batch.begin(), batch.end());
    });
    std::vector<std::size_t> batches(runs / 2000, 2000);
    batches.push_back(runs % 2000);
    RC_ASSERT(sizes == batches);
    RC_ASSERT(std::is_sorted(ordered.begin(), ordered.end(),
                             [](const Box& a, const Box& b) { return std::pair(a.y, a.x) < std::pair(b.y, b.x); }));
    const auto painted = [&](const std::vector<Box>& boxes) {
        auto picture = std::vector(opaque.size(), std::vector<bool>(static_cast<std::size_t>(width)));
        for (const Box& box : boxes)
            for (int y = box.y; y < box.y + box.height; ++y)
                for (int x = box.x; x < box.x + box.width; ++x)
                    picture[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)].flip(); // twice would show
        return picture;
    };
    RC_ASSERT(painted(ordered) == opaque);
    const auto joined = [&] {
        std::size_t boxes = 0;
        for (std::size_t y = 0; y < opaque.size(); ++y) {
            const auto& row = opaque[y];
            for (std::size_t x = 0; x < row.size(); ++x)
                boxes += row[x] && (x == 0 || !row[x - 1]) && (y == 0 || row != opaque[y - 1]) ? 1 : 0;
        }
        return boxes;
    };
    const std::vector<Box> outline = OutlineRuns(rows, range);
    if (joined() > 1000) {
        for (auto& row : opaque) {
            const auto last = std::find(row.rbegin(), row.rend(), true).base();
            std::fill(std::find(row.begin(), last, true), last, true);
        }
    }
    RC_ASSERT(painted(outline) == opaque);
    RC_ASSERT(outline.size() == joined());
}

// The edge of "very many", which noise won't meet.
TEST(RegionRuns, AnOutlineKeepsItsGapsUpToAThousandBoxes) {
    for (const int gaps : {999, 1000}) {
        std::vector<std::uint8_t> bytes;
        for (int x = 0; x <= 2 * gaps; ++x) bytes.insert(bytes.end(), 4, static_cast<std::uint8_t>(x % 2));
        const PixelRows row{bytes, 2 * gaps + 1, 1, bytes.size()};
        EXPECT_EQ(OutlineRuns(row, TransparentRange::From(0x010101, 0)).size(), gaps == 999 ? 1000U : 1U);
    }
}

// In each row of the first octant the pixel that is nearest to the circle, and its mirror images.
RC_GTEST_PROP(RoundShading, CirclesAreTheNearestPixels, (bool dotted)) {
    const int radius = Among(-1, 60), centerX = Among(-99, 99), centerY = Among(-99, 99);
    std::vector<std::pair<int, int>> expected, found;
    for (int y = 0; y <= radius; ++y) {
        int x = radius;
        while (x > 0 && x * (x - 1) >= radius * radius - y * y) --x;
        if (y > x) break;
        if (dotted && y % 2 != 0) continue;
        for (const auto& [dx, dy] : {std::pair{x, y}, {y, x}})
            for (const int across : {dx, -dx})
                for (const int down : {dy, -dy}) expected.emplace_back(centerX + across, centerY + down);
    }
    for (const CirclePoint& point : CirclePoints(centerX, centerY, radius, dotted)) {
        found.emplace_back(point.x, point.y);
        const double angle = std::atan2(point.y - centerY, point.x - centerX);
        if (radius > 0) RC_ASSERT(std::abs(std::remainder(point.angle - angle, 2 * std::acos(-1.0))) < 1e-6);
        RC_ASSERT(std::abs(point.angle) < 3.1416);
    }
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    RC_ASSERT(found == expected);
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
    const int shade = Among(-258, 259);
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

RC_GTEST_PROP(StripLayout, SlotsAndButtonsLieSideBySide, (const std::vector<std::uint8_t>& lengths)) {
    const int y = Among(-3, 180), height = Among(0, 400), width = Among(1, 50), average = Among(0, 9);
    std::optional<int> slot;
    for (int each = 0; each < 176; ++each)
        if (y >= 0 && y < 176 && y >= each * (height / 4) && y < (each + 1) * (height / 4)) slot = each;
    RC_ASSERT(SlotAt(y, height) == slot);
    RC_ASSERT(SlotBox(y, width, height) == (Box{0, y * height, width, height}));
    const std::vector<int> texts(lengths.begin(), lengths.end());
    const std::vector<Box> row = ButtonRow(static_cast<int>(texts.size()), width, height);
    const std::vector<Box> widened = WidenRow(row, texts, average);
    RC_ASSERT(row.size() == texts.size() && widened.size() == texts.size());
    for (int i = 0, left = 30; i < static_cast<int>(texts.size()); ++i) {
        const auto at = static_cast<std::size_t>(i);
        RC_ASSERT(row[at] == (Box{30 + i * width, 2, width, height}));
        RC_ASSERT(widened[at] == (Box{left, 2, width + texts[at] * average, height}));
        left += widened[at].width;
    }
}

// Any four edges come back; what is cut off anywhere is refused, with nothing taken.
RC_GTEST_PROP(StripLayout, StoredRectanglesComeBackWhole, (const std::vector<std::array<std::int32_t, 4>>& edges)) {
    std::vector<Box> boxes;
    CArchive plain, storing;
    plain.WriteCount(static_cast<std::uint32_t>(edges.size()));
    for (const auto& [left, top, right, bottom] : edges) {
        const auto length = [](int from, int to) {
            return static_cast<int>(static_cast<std::uint32_t>(to) - static_cast<std::uint32_t>(from));
        };
        boxes.push_back({left, top, length(left, right), length(top, bottom)});
        for (const int edge : {left, top, right, bottom}) plain.WriteDword(static_cast<std::uint32_t>(edge));
    }
    StoreBoxes(storing, boxes);
    RC_ASSERT(storing.GetStored() == plain.GetStored());
    const std::span all(storing.GetStored());
    CArchive whole(all), cut(all.first(static_cast<std::size_t>(Among(0, static_cast<int>(all.size())))));
    const std::size_t rest = cut.GetRest();
    RC_ASSERT(LoadBoxes(whole) == boxes && whole.GetRest() == 0);
    RC_ASSERT(LoadBoxes(cut) == std::nullopt && cut.GetRest() == rest);
}

} // namespace
