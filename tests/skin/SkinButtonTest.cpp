// The skin button on a real window: its frames, shape and captions, and what it does besides following the mouse.
#include "skin/SkinButton.h"

#include <gtest/gtest.h>

#include "Ground.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"

namespace {

const CRect buttonPlace(10, 10, 16, 14);

// Frames of 6 x 4; each has an outline of its own, and none the top left corner.
const Art strip{".1111..22222.3333..4444.", "111111222222333333444444", "111111222222333333444444",
                ".1111.222222.3333..4444."};
// On the screen, with the ground outside the outline.
const Art normal{"g1111g", "111111", "111111", "g1111g"};
const Art over{"g22222", "222222", "222222", "222222"};
const Art down{"g3333g", "333333", "333333", "g3333g"};
const Art disabled{"g4444g", "444444", "444444", "g4444g"};

class SkinButton : public testing::Test {
protected:
    SkinButton() { Make(button, buttonPlace, strip); }

    void Make(CSkinButton& made, const CRect& rect, const Art& art) {
        const CBitmap picture(MakeBitmap(art)), former(made.SetBitmapHandle(picture.GetHandle()));
        EXPECT_TRUE(former.IsEmpty());
        Put(made, ground, "BUTTON", rect);
    }
    Art Look() const { return ground.Look(buttonPlace); }
    int ShapeKind() const { return ::GetWindowRgn(button.GetHandle(), CRgn(::CreateRectRgn(0, 0, 0, 0)).GetHandle()); }

    CGround ground;
    CSkinButton button;
};

TEST_F(SkinButton, EachFrameIsItsShapeInWhichAloneTheMouseIsFelt) {
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
    const HCURSOR hand = ::LoadCursorA(ProgramModule(), MAKEINTRESOURCEA(IDC_HAND_CURSOR));
    ASSERT_NE(hand, nullptr);
    bool held = false;
    for (const auto& [message, x, y, look, felt] : {std::tuple(WM_MOUSEMOVE, 0, 0, &normal, false),
                                                    {WM_MOUSEMOVE, 3, 0, &over, true},
                                                    {WM_MOUSEMOVE, 5, 3, &over, true},
                                                    {WM_MOUSEMOVE, 0, 0, &normal, false},
                                                    {WM_LBUTTONDOWN, 3, 2, &down, false},
                                                    {WM_MOUSEMOVE, 5, 3, &normal, false},
                                                    {WM_MOUSEMOVE, 3, 2, &down, true},
                                                    {WM_MOUSEMOVE, 6, 2, &normal, false}}) {
        ::SetCursor(arrow);
        held = held || message == WM_LBUTTONDOWN;
        Mouse(button, static_cast<UINT>(message), x, y, held ? MK_LBUTTON : 0);
        EXPECT_EQ(Look(), *look) << x << y;
        EXPECT_EQ(::GetCursor(), felt ? hand : arrow);
        for (const int column : {0, 1, 5}) {
            POINT upper{buttonPlace.left + column, buttonPlace.top};
            ::ClientToScreen(ground.GetHandle(), &upper);
            EXPECT_EQ(::WindowFromPoint(upper) == button.GetHandle(),
                      (*look)[0].at(static_cast<std::size_t>(column)) != 'g');
        }
        PumpMessages();
    }
    button.EnableWindow(false);
    PumpMessages();
    EXPECT_EQ(Look(), disabled);
    button.EnableWindow(true);
    ::SetWindowRgn(button.GetHandle(), nullptr, FALSE); // taken away by somebody
    button.Invalidate();
    PumpMessages();
    EXPECT_EQ(ShapeKind(), COMPLEXREGION);
}

TEST_F(SkinButton, WithoutAPictureItWorksByItsRectangle) {
    EXPECT_FALSE(button.SetBitmapFile("no such.bmp"));
    button.SetCaption("Unseen", 5, 0);
    button.Invalidate();
    ground.Invalidate();
    PumpMessages();
    EXPECT_EQ(Look(), Art(4, "gggggg"));
    EXPECT_EQ(ShapeKind(), ERROR);
    Mouse(button, WM_MOUSEMOVE, 0, 0); // where the corner was
    EXPECT_EQ(::GetCapture(), button.GetHandle());
    EXPECT_FALSE(button.SetBitmapResource(9999));
    ::ReleaseCapture();
    button.drawMode = 4; // neither strip nor picture
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}) Mouse(button, message, 5, 5);
    EXPECT_TRUE(ground.commands.empty());
    EXPECT_NE(::GetCapture(), button.GetHandle());
}

TEST_F(SkinButton, AClickMayEndTheButton) {
    auto mortal = std::make_unique<CSkinButton>();
    Make(*mortal, {30, 30, 36, 34}, strip);
    ground.atCommand = [&] { mortal.reset(); };
    const HWND window = mortal->GetHandle();
    Mouse(*mortal, WM_MOUSEMOVE, 3, 2);
    ::SendMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(3, 2));
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(ground.commands.size(), 1U);
}

} // namespace
