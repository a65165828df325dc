// The round button: its shape on a window, its pixels in each state on a surface.
#include "skin/RoundButton.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "Ground.h"

namespace {

constexpr int side = 30, middle = 15;
constexpr COLORREF black = 0;

COLORREF System(int color) {
    return ::GetSysColor(color);
}

class RoundButton : public testing::Test {
protected:
    RoundButton() {
        button.Create("BUTTON", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {10, 20, 40, 60}, ground.GetHandle(), 7);
        CGround::Pump();
    }
    std::vector<COLORREF> Draw(UINT state, const char* text = "") {
        button.SetWindowText(text);
        CSurface surface(side, side);
        surface.SetTextColor(black);
        DRAWITEMSTRUCT item{};
        item.itemState = state;
        item.hDC = surface.GetHandle();
        item.rcItem = {0, 0, side, side};
        button.DrawItem(item);
        return surface.Pixels();
    }
    static std::size_t Index(int x, int y) { return static_cast<std::size_t>(y * side + x); }

    CGround ground;
    CCounted<CRoundButton> button;
};

struct Ring {
    int radius;
    COLORREF light, dark;
    bool dotted = false;
};

TEST_F(RoundButton, BecomesRoundAtItsUpperLeftCorner) {
    CRect place = button.GetWindowRect();
    ::MapWindowPoints(nullptr, ground.GetHandle(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place, CRect(10, 20, 40, 50));
    const CRgn shape(::CreateRectRgn(0, 0, 0, 0)), circle(::CreateEllipticRgn(0, 0, side, side));
    EXPECT_NE(::GetWindowRgn(button.GetHandle(), shape.GetHandle()), ERROR);
    EXPECT_EQ(::CombineRgn(shape.GetHandle(), shape.GetHandle(), circle.GetHandle(), RGN_XOR), NULLREGION);
    button.SendMessage(WM_KEYDOWN, VK_SPACE);
    button.SendMessage(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(ground.commands, (std::vector<ReceivedCommand>{{7, BN_CLICKED, button.GetHandle()}}));
    RecordProperty("MicrosecondsPerPaint", std::to_string(PaintOften(button)));
}

TEST_F(RoundButton, StatesChooseTheRings) {
    const COLORREF highlight = System(COLOR_BTNHIGHLIGHT), dark = System(COLOR_3DDKSHADOW);
    const COLORREF light = System(COLOR_3DLIGHT), shadow = System(COLOR_BTNSHADOW);
    struct Row {
        UINT state;
        DWORD style;
        bool focusBorder;
        std::vector<Ring> rings;
    };
    const Ring focusRing{14, black, black}, dots{9, black, black, true};
    const Row rows[] = {{0, 0, true, {{14, highlight, dark}, {13, light, shadow}}},
                        {ODS_SELECTED, 0, true, {{14, dark, highlight}, {13, shadow, light}}},
                        {ODS_FOCUS, 0, true, {focusRing, {13, highlight, dark}, {12, light, shadow}, dots}},
                        {ODS_FOCUS, 0, false, {{14, highlight, dark}, {13, light, shadow}}},
                        {ODS_SELECTED, BS_FLAT, true, {{14, black, black}, {13, highlight, highlight}}},
                        {ODS_FOCUS, BS_FLAT, true, {focusRing, {13, black, black}, {12, highlight, highlight}, dots}}};
    for (const Row& row : rows) {
        button.ModifyStyle(BS_FLAT, row.style);
        button.focusBorder = row.focusBorder;
        CSurface expected(side, side);
        expected.FillSolidRect({0, 0, side, side}, System(COLOR_BTNFACE));
        for (const Ring& ring : row.rings) {
            if (ring.light == ring.dark) {
                CRoundButton::DrawCircle(expected, middle, middle, ring.radius, ring.dark, ring.dotted);
            } else {
                CRoundButton::DrawShadedCircle(expected, middle, middle, ring.radius, ring.light, ring.dark);
            }
        }
        EXPECT_EQ(Draw(row.state), expected.Pixels()) << "row " << &row - rows;
    }
}

TEST_F(RoundButton, CaptionStaysInsideAndFollowsThePress) {
    const std::vector<COLORREF> up = Draw(0, "i"), down = Draw(ODS_SELECTED, "i");
    EXPECT_NE(up, Draw(0));
    for (int y = 8; y < 22; ++y) {
        for (int x = 8; x < 22; ++x) EXPECT_EQ(up[Index(x, y)], down[Index(x + 1, y + 1)]) << x << "," << y;
    }
    const std::vector<COLORREF> bare = Draw(0), wide = Draw(0, "WWWWWWW\xE4\xB8\xAD");
    EXPECT_NE(bare, wide);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            if (std::hypot(x - middle, y - middle) <= 12.5) continue;
            EXPECT_EQ(wide[Index(x, y)], bare[Index(x, y)]) << x << "," << y;
        }
    }
    const std::vector<COLORREF> engraved = Draw(ODS_DISABLED, "&i");
    EXPECT_NE(engraved, bare);
    EXPECT_EQ(std::count(engraved.begin(), engraved.end(), black), std::count(bare.begin(), bare.end(), black));
}

} // namespace
