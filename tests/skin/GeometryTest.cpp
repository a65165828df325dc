// Rings and what is stored of rows: each against the plain way to say the same, over random inputs.
#include <algorithm>
#include <array>
#include <cmath>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "skin/RoundShading.h"
#include "skin/StripLayout.h"

namespace {

int Among(int from, int end) {
    return *rc::gen::inRange(from, end);
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

TEST(StripLayout, SlotsEndAtTheLimitAndAPictureWithoutRoomHasNone) {
    constexpr int rows[][3] = {{0, 176, 0},   {43, 176, 0},   {44, 176, 1}, {175, 40, 17},
                               {-1, 176, -1}, {176, 800, -1}, {0, 3, -1},   {0, 0, -1}};
    for (const auto& [y, height, slot] : rows) EXPECT_EQ(SlotAt(y, height).value_or(-1), slot) << y << " of " << height;
}

TEST(StripLayout, ButtonsStandSideBySideWithRoomForTheirTexts) {
    const std::vector<CRect> wide{{30, 2, 67, 23}, {67, 2, 99, 23}};
    EXPECT_TRUE(WidenRow(ButtonRow(2, 32, 21), std::array{1, 0}, 5) == wide);
    EXPECT_TRUE(FrameCount(100, 33) == 3 && FrameCount(100, 0) == 0);
}

// Any four edges come back; what is cut off anywhere is refused, with nothing taken.
RC_GTEST_PROP(StripLayout, StoredRectanglesComeBackWhole, (const std::vector<std::array<std::int32_t, 4>>& edges)) {
    std::vector<CRect> rects;
    std::vector<std::byte> plain;
    const auto put = [&](std::uint32_t value, int bytes) {
        for (; bytes > 0; --bytes, value >>= 8) plain.push_back(static_cast<std::byte>(value & 0xFF));
    };
    put(static_cast<std::uint32_t>(edges.size()), 2);
    for (const auto& each : edges) {
        std::array<std::uint32_t, 4> all{};
        std::copy(each.begin(), each.end(), all.begin());
        rects.push_back({each[0], each[1], each[2], each[3]});
        for (const std::uint32_t edge : all) put(edge, 4);
    }
    CArchive storing;
    StoreRects(storing, rects);
    RC_ASSERT(storing.GetStored() == plain);
    const std::span all(storing.GetStored());
    CArchive whole(all), cut(all.first(static_cast<std::size_t>(Among(0, static_cast<int>(all.size())))));
    const std::size_t rest = cut.GetRest();
    RC_ASSERT(LoadRects(whole) == rects && whole.GetRest() == 0);
    RC_ASSERT(LoadRects(cut) == std::nullopt && cut.GetRest() == rest);
}

} // namespace
