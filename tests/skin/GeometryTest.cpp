// Rings and rows: each against the plain way to say the same, over random inputs.
#include <algorithm>
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

RC_GTEST_PROP(StripLayout, FramesAreCountedRoundedDown, (std::uint8_t width)) {
    const int frame = Among(-1, 9);
    RC_ASSERT(FrameCount(width, frame) == (frame > 0 ? width / frame : 0));
}

RC_GTEST_PROP(StripLayout, SlotsAndButtonsLieSideBySide, (const std::vector<std::uint8_t>& lengths)) {
    const int y = *rc::gen::oneOf(rc::gen::inRange(-3, 180), rc::gen::element(-1, 175, 176)),
              height = Among(0, 20) * Among(0, 21), width = Among(1, 50), average = Among(0, 9);
    std::optional<int> slot;
    for (int each = 0; each < 176; ++each)
        if (y >= 0 && y < 176 && y >= each * (height / 4) && y < (each + 1) * (height / 4)) slot = each;
    RC_ASSERT(SlotAt(y, height) == slot);
    RC_ASSERT(SlotRect(y, width, height) == CRect::Sized(0, y * height, width, height));
    const std::vector<int> texts(lengths.begin(), lengths.end());
    const std::vector<CRect> row = ButtonRow(static_cast<int>(texts.size()), width, height);
    const std::vector<CRect> widened = WidenRow(row, texts, average);
    RC_ASSERT(row.size() == texts.size() && widened.size() == texts.size());
    for (int i = 0, left = 30; i < static_cast<int>(texts.size()); ++i) {
        const auto at = static_cast<std::size_t>(i);
        RC_ASSERT(row[at] == CRect::Sized(30 + i * width, 2, width, height));
        RC_ASSERT(widened[at] == CRect::Sized(left, 2, width + texts[at] * average, height));
        left += widened[at].Width();
    }
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
