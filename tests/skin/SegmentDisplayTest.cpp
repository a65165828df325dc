// The seven-segment display on a real window: its colours and values, and drawing to other scales.
#include "skin/SegmentDisplay.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "Ground.h"
#include "framework/Time.h"

namespace {

constexpr COLORREF blue = 0xFF0000, white = 0xFFFFFF, black = 0, green = 0x00FF00;
const CRect place(10, 10, 110, 46); // 36 pixels high: lines of 2, segments of 12, a pitch of 20

class SegmentDisplay : public testing::Test {
protected:
    SegmentDisplay() {
        display.Create("STATIC", "Template", WS_CHILD | WS_VISIBLE | SS_CENTER, place, ground.GetHandle(), 1025);
    }
    std::vector<COLORREF> Look() const {
        PumpMessages();
        return ground.Pixels(place);
    }
    // A "1": its upper segment is lit, the top one isn't; between the segments is ground.
    void ExpectColors(COLORREF lit, COLORREF ghost, COLORREF back) {
        const std::vector<COLORREF> look = Look();
        const auto at = [&](std::size_t x, std::size_t y) { return look[y * 100 + x]; };
        EXPECT_EQ(at(14, 10), lit);
        for (const auto& [x, y] : {std::pair(8, 2), {2, 25}, {28, 2}, {34, 10}})
            EXPECT_EQ(at(static_cast<std::size_t>(x), static_cast<std::size_t>(y)), ghost) << x;
        EXPECT_EQ(at(25, 32), lit); // the point
        EXPECT_EQ(at(48, 18), back);
        for (const COLORREF color : look) EXPECT_TRUE(color == lit || color == ghost || color == back) << color;
    }

    CGround ground;
    CCounted<CSegmentDisplay> display;
};

TEST_F(SegmentDisplay, ColoursAreItsOwnOrTheSystems) {
    display.SetText("1.");
    ExpectColors(green, RGB(0, 85, 0), black);
    display.SetSegmentColor(RGB(250, 100, 31));
    ExpectColors(RGB(250, 100, 31), RGB(83, 33, 10), black);
    display.SetOffColor(RGB(9, 8, 7));
    display.SetBackColor(blue);
    ExpectColors(RGB(250, 100, 31), RGB(9, 8, 7), blue);
    display.SetGhostSegments(false);
    display.SetBackColor(CSegmentDisplay::systemColor);
    display.SetSegmentColor(CSegmentDisplay::systemColor);
    ExpectColors(::GetSysColor(COLOR_BTNTEXT), ::GetSysColor(COLOR_BTNFACE), ::GetSysColor(COLOR_BTNFACE));
    display.SetBackColor(blue);
    display.SetSegmentColor(white);
    const CSurface surface(1, 1);
    const LRESULT brush = ground.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(surface.GetHandle()),
                                             reinterpret_cast<LPARAM>(display.GetHandle()));
    LOGBRUSH description{};
    ::GetObjectA(reinterpret_cast<HGDIOBJ>(brush), sizeof description, &description);
    EXPECT_EQ(description.lbColor, blue);
    EXPECT_EQ(::GetTextColor(surface.GetHandle()), white);
}

TEST_F(SegmentDisplay, ShowsTextsAndTheTimeInTheSizeOfItsFirstPaint) {
    display.SetText("8");
    const std::vector<COLORREF> look = Look();
    display.SetWindowPos(nullptr, 10, 10, 100, 90, SWP_NOZORDER);
    EXPECT_EQ(Look(), look);
    for (const COLORREF below : ground.Pixels({10, 46, 110, 100})) EXPECT_EQ(below, black);
    display.SetText("");
    EXPECT_EQ(Look(), std::vector<COLORREF>(100 * 36, black));
    display.text = "8";
    display.Refresh();
    EXPECT_EQ(Look(), look);
    std::string shown;
    for (std::string before, after = "-"; before != after;) { // the minute may change meanwhile
        before = CTime::Now().Format("%d %H:%M");
        display.SetTimeText("%d %H:%M");
        shown = display.GetWindowText();
        after = CTime::Now().Format("%d %H:%M");
        EXPECT_TRUE(before != after || shown == before) << shown;
    }
    EXPECT_NE(Look(), look);
    EXPECT_EQ(display.text, shown);
}

TEST_F(SegmentDisplay, FollowsTheMappingOfTheContext) {
    const CSurface small(200, 200), large(200, 200);
    ::SetMapMode(small.GetHandle(), MM_ANISOTROPIC);
    ::SetViewportExtEx(small.GetHandle(), 2, 2, nullptr);
    for (const auto& [side, surface] : {std::pair(100, &small), {200, &large}}) {
        CSegmentDisplay square;
        square.Create("STATIC", "", WS_CHILD, {0, 0, side, side}, ground.GetHandle(), 9);
        square.SetText("12345678"); // more than there is room for
        Print(square, *surface);
    }
    ::SetMapMode(small.GetHandle(), MM_TEXT);
    EXPECT_EQ(small.Pixels(), large.Pixels());
}

} // namespace
