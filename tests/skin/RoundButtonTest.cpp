// The round button: its shape on a window, its caption and rings in each state on a surface.
#include "skin/RoundButton.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "Ground.h"

namespace {

// Two rings, below a black one of the focus, lit from the upper left; their colours as the platform's by number.
TEST(RoundButton, StatesChooseTheRingsAroundTheCaption) {
    constexpr int side = 30, middle = 15;
    const CGround ground;
    CRoundButton button;
    Put(button, ground, "BUTTON", {10, 20, 40, 60});
    EXPECT_EQ(PlaceText(button.GetHandle()), "10,20,30,30");
    const CRgn shape(::CreateRectRgn(0, 0, 0, 0)), circle(::CreateEllipticRgn(0, 0, side, side));
    EXPECT_NE(::GetWindowRgn(button.GetHandle(), shape.GetHandle()), ERROR);
    EXPECT_EQ(::CombineRgn(shape.GetHandle(), shape.GetHandle(), circle.GetHandle(), RGN_XOR), NULLREGION);
    struct Row {
        UINT state;
        DWORD style;
        bool focusBorder;
        std::vector<std::pair<int, int>> rings; // from outside: upper left, lower right
    };
    constexpr int bright = COLOR_BTNHIGHLIGHT, dark = COLOR_3DDKSHADOW, light = COLOR_3DLIGHT, shadow = COLOR_BTNSHADOW;
    const Row rows[] = {{0, 0, true, {{bright, dark}, {light, shadow}}},
                        {ODS_SELECTED, 0, true, {{dark, bright}, {shadow, light}}},
                        {ODS_FOCUS, 0, true, {{-1, -1}, {bright, dark}, {light, shadow}}},
                        {ODS_FOCUS, 0, false, {{bright, dark}, {light, shadow}}},
                        {ODS_SELECTED, BS_FLAT, true, {{-1, -1}, {bright, bright}}},
                        {ODS_FOCUS | ODS_DISABLED, BS_FLAT, true, {{-1, -1}, {-1, -1}, {bright, bright}}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        button.ModifyStyle(BS_FLAT, row.style);
        button.focusBorder = row.focusBorder;
        const auto draw = [&](const char* text) {
            button.SetWindowText(text);
            const CSurface surface(side, side);
            ::SetTextColor(surface.GetHandle(), ColorOf('T'));
            DrawButton(button, surface, row.state, {0, 0, side, side});
            return surface.Pixels();
        };
        const std::vector<COLORREF> bare = draw(""), wide = draw("WWWWWWW\xE4\xB8\xAD");
        const auto at = [&](int x, int y) { return bare[static_cast<std::size_t>(y * side + x)]; };
        const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
        EXPECT_EQ(std::ranges::count(wide, ColorOf('T')) == 0, (row.state & ODS_DISABLED) != 0) << "engraved";
        EXPECT_NE(wide, bare);
        std::size_t dots = 0;
        for (int i = 0; i < side * side; ++i) {
            const double distance = std::hypot(i % side - middle, i / side - middle);
            const COLORREF color = bare[static_cast<std::size_t>(i)];
            EXPECT_TRUE(distance < 12.5 || wide[static_cast<std::size_t>(i)] == color) << i << ": cut to the rings";
            const bool dotted = distance > 8 && distance < 10;
            dots += dotted && color == 0 ? 1 : 0;
            EXPECT_TRUE((distance > 11 && distance < 14.8) || (dotted && color == 0) || color == face) << i;
        }
        EXPECT_EQ(dots > 10 && dots < 50, row.rings.size() == 3) << dots;
        for (int radius = 14; const auto& [upper, lower] : row.rings) {
            const int step = static_cast<int>(std::lround(radius * std::sqrt(0.5)));
            if (radius == 12) break; // has no pixel on the diagonal
            EXPECT_NEAR(GetRValue(at(middle - step, middle - step)), upper < 0 ? 0 : GetRValue(::GetSysColor(upper)),
                        1);
            EXPECT_NEAR(GetRValue(at(middle + step, middle + step)), lower < 0 ? 0 : GetRValue(::GetSysColor(lower)),
                        1);
            EXPECT_TRUE(at(middle - radius, middle) != face && at(middle + radius, middle) != face) << radius;
            --radius;
        }
    }
}

} // namespace
