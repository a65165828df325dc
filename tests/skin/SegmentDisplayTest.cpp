// The seven-segment display on a real window: colours, sizes and texts that no picture shows.
#include "skin/SegmentDisplay.h"

#include <gtest/gtest.h>

#include "Ground.h"
#include "framework/Time.h"

namespace {

TEST(SegmentDisplay, ShowsTextsAndTheTimeInItsColoursAndTheSizeOfItsFirstPaint) {
    const CGround ground;
    CSegmentDisplay display;
    Put(display, ground, "STATIC", {10, 10, 110, 46}); // lines of 2 pixels, segments of 12, a pitch of 20
    const auto look = [&] { return PumpMessages(), ground.Pixels({10, 10, 110, 100}); };
    display.SetWindowPos(nullptr, 10, 10, 100, 90, SWP_NOZORDER);
    display.SetSegmentColor(RGB(250, 100, 31));
    display.SetText("1");
    const auto one = look(); // its upper segment is lit, that at the left isn't
    EXPECT_EQ(one[10 * 100 + 14], RGB(250, 100, 31));
    EXPECT_EQ(one[10 * 100 + 2], RGB(83, 33, 10));
    EXPECT_EQ(std::vector(one.begin() + 3600, one.end()), std::vector<COLORREF>(5400, 0));
    display.SetText("");
    EXPECT_EQ(look(), std::vector<COLORREF>(9000, 0));
    display.text = "1";
    display.Refresh();
    EXPECT_EQ(look(), one);
    display.SetOffColor(RGB(9, 8, 7));
    display.SetSegmentColor(CSegmentDisplay::systemColor);
    EXPECT_EQ(look()[10 * 100 + 14], ::GetSysColor(COLOR_BTNTEXT));
    EXPECT_EQ(look()[10 * 100 + 2], RGB(9, 8, 7));
    display.SetBackColor(CSegmentDisplay::systemColor);
    EXPECT_EQ(look()[8999], ::GetSysColor(COLOR_BTNFACE));
    for (std::string before, after = "-"; before != after;) { // the minute may change meanwhile
        before = CTime::Now().Format("%d %H:%M");
        display.SetTimeText("%d %H:%M");
        after = CTime::Now().Format("%d %H:%M");
        EXPECT_TRUE(before != after || display.GetWindowText() == before) << before;
    }
}

} // namespace
