// The skin button on a real window: its frames, shape and captions, and what it does besides following the mouse.
#include "skin/SkinButton.h"

#include <gtest/gtest.h>

#include "Ground.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"

namespace {

constexpr UINT buttonId = 1024;
constexpr UINT captionFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
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
        made.Create("BUTTON", "Window text", WS_CHILD | WS_VISIBLE | WS_TABSTOP, rect, ground.GetHandle(), buttonId);
        const CBitmap picture(MakeBitmap(art)), former(made.SetBitmapHandle(picture.GetHandle()));
        EXPECT_TRUE(former.IsEmpty());
        PumpMessages();
    }
    Art Look() const { return ground.Look(buttonPlace); }
    int ShapeKind() const {
        return ::GetWindowRgn(button.GetHandle(), CRgn(::CreateRectRgn(0, 0, 0, 0)).GetHandle());
    }

    CGround ground;
    CCounted<CSkinButton> button;
};

TEST_F(SkinButton, EachFrameIsItsShapeInWhichAloneTheMouseIsFelt) {
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
    const HCURSOR hand = ::LoadCursorA(ProgramModule(), MAKEINTRESOURCEA(IDC_HAND_CURSOR));
    ASSERT_NE(hand, nullptr);
    bool held = false;
    struct Row {
        UINT message;
        int x, y;
        const Art& look;
        int paints;
        bool hand;
    };
    for (const Row& row : {Row{WM_MOUSEMOVE, 5, 3, normal, 0, false}, Row{WM_MOUSEMOVE, 3, 0, over, 1, true},
                           Row{WM_MOUSEMOVE, 5, 3, over, 0, true}, Row{WM_MOUSEMOVE, 0, 0, normal, 1, false},
                           Row{WM_LBUTTONDOWN, 3, 2, down, 1, false}, Row{WM_MOUSEMOVE, 5, 3, normal, 1, false},
                           Row{WM_MOUSEMOVE, 3, 2, down, 1, true}, Row{WM_MOUSEMOVE, 6, 2, normal, 1, false}}) {
        ::SetCursor(arrow);
        const int before = button.paints;
        held = held || row.message == WM_LBUTTONDOWN;
        Mouse(button, row.message, row.x, row.y, held ? MK_LBUTTON : 0);
        EXPECT_EQ(Look(), row.look);
        EXPECT_EQ(::GetCursor(), row.hand ? hand : arrow);
        for (int x = 0; x < 6; ++x) {
            POINT corner{buttonPlace.left + x, buttonPlace.top};
            ::ClientToScreen(ground.GetHandle(), &corner);
            EXPECT_EQ(::WindowFromPoint(corner) == button.GetHandle(), row.look[0][static_cast<std::size_t>(x)] != 'g');
        }
        PumpMessages();
        EXPECT_EQ(button.paints - before, row.paints) << row.x << "," << row.y;
    }
    button.EnableWindow(false);
    PumpMessages();
    EXPECT_EQ(Look(), disabled);
    button.EnableWindow(true);
    for (const char* change : {"none", "shape taken away", "frames without a shape"}) {
        if (change[0] == 's') ::SetWindowRgn(button.GetHandle(), nullptr, FALSE);
        if (change[0] == 'f') {
            const CBitmap none(MakeBitmap({"........", "........"})), former(button.SetBitmapHandle(none.GetHandle()));
        }
        button.Invalidate();
        PumpMessages();
        const int before = button.paints;
        PumpMessages();
        EXPECT_EQ(button.paints, before) << change;
        EXPECT_EQ(ShapeKind(), change[0] == 'f' ? NULLREGION : COMPLEXREGION);
    }
}

TEST_F(SkinButton, TheCaptionStandsInTheMiddleOfTheFrameAndOutlivesTheWindow) {
    CSkinButton large;
    Make(large, {30, 30, 90, 50}, Art(20, std::string(60, '1') + std::string(180, '2')));
    large.SetCaption("&Go", 5, RGB(0, 0, 255));
    EXPECT_EQ(large.GetCaption(), "&Go");
    for (const COLORREF color : {RGB(0, 0, 255), RGB(80, 80, 80)}) {
        large.SetTextColor(color);
        EXPECT_TRUE(large.Shows("&Go", color) && !large.Shows("&Go", 1) && !large.Shows("Go", color));
        CSurface drawn(60, 20), expected(60, 20, '1');
        Print(large, drawn);
        DrawExpected(expected, ground, "&Go", color, {0, 0, 60, 20}, captionFormat);
        EXPECT_EQ(drawn.Pixels(), expected.Pixels());
        large.DestroyWindow();
        ground.fontsAsked = 0;
        large.Create("BUTTON", "Template", WS_CHILD | WS_VISIBLE, {30, 30, 90, 50}, ground.GetHandle(), buttonId);
        EXPECT_EQ(large.GetWindowText(), "&Go");
        PumpMessages();
        EXPECT_EQ(ground.fontsAsked, 1) << "a font of the former window";
    }
    large.SetCaption("", 5, 0);
    CSurface drawn(60, 20);
    Print(large, drawn);
    EXPECT_EQ(drawn.Pixels(), CSurface(60, 20, '1').Pixels());
}

// Noise larger than the window is cut to it; as large as the window, it loses the holes inside of its outline.
TEST_F(SkinButton, AStripOfNoiseHasAShapeToo) {
    Art noise(256);
    for (std::size_t y = 0; y < noise.size(); ++y)
        for (std::size_t x = 0; x < 1024; ++x) noise[y] += (x + y) % 2 == 1 ? static_cast<char>('1' + x / 256) : '.';
    const CPictureFile file("noise.bmp", BitmapFileOf(noise));
    ASSERT_TRUE(button.SetBitmapFile(file.name));
    ::SetWindowPos(ground.GetHandle(), nullptr, 0, 0, 300, 300, SWP_NOMOVE);
    for (const auto& [width, height, hole] : {std::tuple(74, 22, 'g'), {256, 256, '.'}}) {
        button.SetWindowPos(nullptr, 0, 0, width, height, SWP_NOZORDER);
        button.Invalidate();
        ground.Invalidate();
        PumpMessages();
        Mouse(button, WM_MOUSEMOVE, 3, 2);
        EXPECT_EQ(ground.Look({0, 0, 3, 1})[0], (std::string{'g', '2', hole}));
        EXPECT_EQ(ground.Look({width - 2, height - 2, width, height - 1})[0], (std::string{hole, '2'}));
        Mouse(button, WM_MOUSEMOVE, -1, 2);
    }
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
    Mouse(button, WM_LBUTTONUP, 0, 0);
    EXPECT_EQ(ground.commands.size(), 1U);
    EXPECT_FALSE(button.SetBitmapResource(9999));
}

TEST_F(SkinButton, InPictureModeItStandsOnItsParentsGround) {
    CSkinButton tool;
    const CRect place(30, 30, 90, 50);
    Make(tool, place, {"pp....", "pp..qq", "pp....", "pp...."});
    tool.drawMode = CSkinButton::pictureMode;
    tool.SetCaption("Open", 5, RGB(9, 9, 9));
    const COLORREF dark = ::GetSysColor(COLOR_3DDKSHADOW), light = ::GetSysColor(COLOR_3DHIGHLIGHT);
    struct Row {
        UINT message;
        int x, y;
        const COLORREF *topLeft, *bottomRight;
    };
    for (const Row& row : {Row{WM_PAINT, 0, 0, nullptr, nullptr}, Row{WM_MOUSEMOVE, 0, 0, &light, &dark}, // no shape
                           Row{WM_LBUTTONDOWN, 0, 0, &dark, &light}, Row{WM_MOUSEMOVE, 60, 0, nullptr, nullptr},
                           Row{WM_MOUSEMOVE, 59, 19, &dark, &light}}) {
        tool.Invalidate();
        Mouse(tool, row.message, row.x, row.y);
        CSurface expected(60, 20, 'g');
        if (row.topLeft != nullptr) expected.Draw3dRect({1, 1, 59, 19}, *row.topLeft, *row.bottomRight);
        // 8 pixels down, half of what the height leaves, and as many to the right.
        expected.FillSolidRect({8, 8, 10, 12}, ColorOf('p'));
        expected.FillSolidRect({12, 9, 14, 10}, ColorOf('q'));
        DrawExpected(expected, ground, "Open", RGB(9, 9, 9), {14, 0, 60, 20}, captionFormat);
        EXPECT_EQ(ground.Pixels(place), expected.Pixels()) << row.x;
        CSurface printed(60, 20, 'g');
        Print(tool, printed);
        EXPECT_EQ(printed.Pixels(), expected.Pixels());
        const RECT part{9, 9, 12, 11}; // the ground is painted whole, so the button must be, too
        ::InvalidateRect(tool.GetHandle(), &part, TRUE);
        PumpMessages();
        EXPECT_EQ(ground.Pixels(place), expected.Pixels()) << row.x;
    }
    tool.drawMode = 4; // neither strip nor picture
    Mouse(tool, WM_LBUTTONUP, 5, 5);
    EXPECT_TRUE(ground.commands.empty());
    CSurface printed(60, 20, 'g');
    Print(tool, printed);
    EXPECT_EQ(printed.Read(), Art(20, std::string(60, 'g')));
    tool.SendMessage(WM_CANCELMODE);
    ground.SetFocus();
    Mouse(tool, WM_MOUSEMOVE, 5, 5);
    Mouse(tool, WM_LBUTTONDOWN, 5, 5);
    EXPECT_NE(::GetCapture(), tool.GetHandle());
    EXPECT_NE(::GetFocus(), tool.GetHandle());
}

TEST_F(SkinButton, AClickMayDisableOrEndTheButton) {
    ground.atCommand = [&] { button.EnableWindow(false); };
    Mouse(button, WM_MOUSEMOVE, 3, 2);
    Mouse(button, WM_LBUTTONUP, 3, 2);
    PumpMessages();
    EXPECT_EQ(Look(), disabled);

    auto mortal = std::make_unique<CSkinButton>();
    Make(*mortal, {30, 30, 36, 34}, strip);
    ground.atCommand = [&] { mortal.reset(); };
    const HWND window = mortal->GetHandle();
    for (const UINT key : {WM_KEYDOWN, WM_KEYUP}) ::SendMessageA(window, key, VK_RIGHT, 0); // not its key
    mortal->SendMessage(BM_CLICK);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(ground.commands.size(), 2U);
}

} // namespace
