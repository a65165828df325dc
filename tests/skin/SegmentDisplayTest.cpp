// The seven-segment display on a real window: lines at their pixels, colours, and that the platform's look never shows.
#include "skin/SegmentDisplay.h"

#include <gtest/gtest.h>

#include "Ground.h"

namespace {

constexpr COLORREF blue = 0xFF0000, white = 0xFFFFFF, black = 0, green = 0x00FF00;
const CRect place(10, 10, 110, 46); // 36 pixels high: lines of 2, segments of 12, a pitch of 20

class SegmentDisplay : public testing::Test {
protected:
    void Show(const char* text) {
        if (display.GetHandle() == nullptr)
            display.Create("STATIC", "Template", WS_CHILD | WS_VISIBLE | SS_CENTER, place, ground.GetHandle(), 1025);
        display.SetText(text);
        CGround::Pump();
    }
    COLORREF At(int x, int y) const { return ::GetPixel(CClientDC(display.GetHandle()).GetHandle(), x, y); }
    std::vector<COLORREF> Look() const { return ground.Pixels(place); }

    CGround ground;
    CCounted<CSegmentDisplay> display;
};

TEST_F(SegmentDisplay, UnlitSegmentsHaveAThirdOfTheColourOrOneOfTheirOwn) {
    Show("1.");
    EXPECT_EQ(At(14, 10), green);
    for (const CPoint ghost : {CPoint(8, 2), CPoint(2, 25), CPoint(28, 2), CPoint(34, 10)})
        EXPECT_EQ(At(ghost.x, ghost.y), RGB(0, 85, 0)) << ghost.x;
    EXPECT_EQ(At(25, 32), green); // the point
    EXPECT_EQ(At(48, 18), black);
    display.SetOffColor(RGB(9, 8, 7));
    CGround::Pump();
    EXPECT_EQ(At(8, 2), RGB(9, 8, 7));
    EXPECT_EQ(At(14, 10), green);
    Show("");
    EXPECT_EQ(Look(), std::vector<COLORREF>(100 * 36, black));
}

TEST_F(SegmentDisplay, FollowsTheMappingOfTheContext) {
    const CSurface small(200, 200), large(200, 200);
    ::SetMapMode(small.GetHandle(), MM_ANISOTROPIC);
    ::SetViewportExtEx(small.GetHandle(), 2, 2, nullptr);
    for (const auto& [side, surface] : {std::pair(100, &small), {200, &large}}) {
        CSegmentDisplay square;
        square.Create("STATIC", "", WS_CHILD, {0, 0, side, side}, ground.GetHandle(), 9);
        square.SetText("12");
        Print(square, *surface);
    }
    ::SetMapMode(small.GetHandle(), MM_TEXT);
    EXPECT_EQ(small.Pixels(), large.Pixels());
}

TEST_F(SegmentDisplay, DigitsKeepTheirSizeWhenTheControlGrows) {
    Show("8");
    const std::vector<COLORREF> before = Look();
    display.SetWindowPos(nullptr, 10, 10, 100, 90, SWP_NOZORDER);
    Show("8");
    EXPECT_EQ(Look(), before);
    EXPECT_EQ(At(50, 80), black);
}

TEST_F(SegmentDisplay, ThePlatformsLookNeverShows) {
    Show("42");
    const std::vector<COLORREF> look = Look();
    EXPECT_EQ(display.GetWindowText(), "42");
    const auto changes = {+[](const CWnd& each) { each.SetWindowText("foreign"); },
                          +[](const CWnd& each) { each.EnableWindow(false); },
                          +[](const CWnd& each) { each.SendMessage(WM_SETFONT, 0, TRUE); },
                          +[](const CWnd& each) { each.SendMessage(WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, 3)); }};
    for (const auto& change : changes) {
        change(display);
        EXPECT_EQ(Look(), look);
        CGround::Pump();
        EXPECT_EQ(Look(), look);
    }
}

TEST_F(SegmentDisplay, AnswersForItsColoursAndTakesTheSystems) {
    display.SetBackColor(CSegmentDisplay::systemColor);
    display.SetSegmentColor(CSegmentDisplay::systemColor);
    display.SetGhostSegments(false);
    Show("1");
    EXPECT_EQ(At(8, 2), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(At(14, 10), ::GetSysColor(COLOR_BTNTEXT));
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

TEST_F(SegmentDisplay, RestsBetweenTextsAndLosesNoHandle) {
    Show("-8:8.8");
    const int before = display.paints;
    CGround::Pump();
    EXPECT_EQ(display.paints, before);
    RecordProperty("MicrosecondsPerPaint", std::to_string(PaintOften(display)));
}

} // namespace
