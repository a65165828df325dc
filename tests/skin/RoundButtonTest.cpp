// The round button: its shape on a window, and the looks that it has only for a while.
#include "skin/RoundButton.h"

#include <gtest/gtest.h>

#include "Ground.h"

namespace {

// Points on the ring of a radius, upper left and lower right.
TEST(RoundButton, IsACircleWhoseRingsShowPressAndFocus) {
    const CGround ground;
    CRoundButton button;
    Put(button, ground, "BUTTON", {10, 20, 40, 60}, 0, "WWWWWWW");
    EXPECT_EQ(PlaceText(button.GetHandle()), "10,20,30,30");
    const CRgn shape(::CreateRectRgn(0, 0, 0, 0)), circle(::CreateEllipticRgn(0, 0, 30, 30));
    EXPECT_NE(::GetWindowRgn(button.GetHandle(), shape.GetHandle()), ERROR);
    EXPECT_EQ(::CombineRgn(shape.GetHandle(), shape.GetHandle(), circle.GetHandle(), RGN_XOR), NULLREGION);
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT), dark = ::GetSysColor(COLOR_3DDKSHADOW), black = 0;
    for (const auto& [state, style, focusBorder, upper, lower] : {std::tuple(0U, 0U, true, light, dark),
                                                                  {ODS_SELECTED, 0U, true, dark, light},
                                                                  {ODS_FOCUS, 0U, true, black, black},
                                                                  {ODS_FOCUS, 0U, false, light, dark},
                                                                  {ODS_SELECTED, DWORD{BS_FLAT}, true, black, black}}) {
        button.ModifyStyle(BS_FLAT, style);
        button.focusBorder = focusBorder;
        const auto look = DrawButton(button, state, 30, 30);
        EXPECT_NEAR(GetRValue(look[5 * 30 + 5]), GetRValue(upper), 1) << state << focusBorder;
        EXPECT_NEAR(GetRValue(look[25 * 30 + 25]), GetRValue(lower), 1) << state << focusBorder;
    }
}

} // namespace
