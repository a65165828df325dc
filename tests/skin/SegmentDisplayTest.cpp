// The seven-segment display on a real window: colours and values that no picture shows.
#include "skin/SegmentDisplay.h"

#include <gtest/gtest.h>

#include "Ground.h"
#include "framework/Time.h"

namespace {

const CRect place(10, 10, 110, 46); // 36 pixels high: lines of 2, segments of 12, a pitch of 20

TEST(SegmentDisplay, ColoursAreItsOwnOrTheSystems) {
    const CGround ground;
    CSegmentDisplay display;
    display.SetText("1.");
    Put(display, ground, "STATIC", place);
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE), text = ::GetSysColor(COLOR_BTNTEXT);
    const std::pair<std::function<void()>, std::array<COLORREF, 3>> rows[] = {
        {[&] { display.SetSegmentColor(RGB(250, 100, 31)); }, {RGB(250, 100, 31), RGB(83, 33, 10), 0}},
        {[&] { display.SetOffColor(RGB(9, 8, 7)); }, {RGB(250, 100, 31), RGB(9, 8, 7), 0}},
        {[&] { display.SetBackColor(face + 1), display.SetSegmentColor(CSegmentDisplay::systemColor); },
         {text, RGB(9, 8, 7), face + 1}},
        {[&] { display.SetGhostSegments(false), display.SetBackColor(CSegmentDisplay::systemColor); },
         {text, face, face}}};
    for (const auto& [change, colors] : rows) {
        change();
        PumpMessages();
        const auto pixels = ground.Pixels(place);
        // The upper segment of the "1" and the point are lit, its other segments aren't.
        for (const auto& [x, y, color] : {std::tuple(14U, 10U, 0U),
                                          {25U, 32U, 0U},
                                          {8U, 2U, 1U},
                                          {2U, 25U, 1U},
                                          {28U, 2U, 1U},
                                          {34U, 10U, 1U},
                                          {48U, 18U, 2U}})
            EXPECT_EQ(pixels[y * 100 + x], colors[color]) << &change - &rows[0].first << " " << x;
    }
}

TEST(SegmentDisplay, ShowsTextsAndTheTimeInTheSizeOfItsFirstPaint) {
    const CGround ground;
    CSegmentDisplay display;
    Put(display, ground, "STATIC", place);
    const auto look = [&] { return PumpMessages(), ground.Pixels({10, 10, 110, 100}); };
    display.SetWindowPos(nullptr, 10, 10, 100, 90, SWP_NOZORDER);
    display.SetText("8");
    const auto eight = look();
    EXPECT_EQ(std::vector(eight.begin() + 3600, eight.end()), std::vector<COLORREF>(5400, 0));
    display.SetText("");
    EXPECT_EQ(look(), std::vector<COLORREF>(9000, 0));
    display.text = "8";
    display.Refresh();
    EXPECT_EQ(look(), eight);
    for (std::string before, after = "-"; before != after;) { // the minute may change meanwhile
        before = CTime::Now().Format("%d %H:%M");
        display.SetTimeText("%d %H:%M");
        after = CTime::Now().Format("%d %H:%M");
        EXPECT_TRUE(before != after || (display.text == before && display.GetWindowText() == before)) << before;
    }
    EXPECT_NE(look(), eight);
}

} // namespace
