// The skin button on a real window: mouse states, shape, frames, captions, and that the platform's look never shows.
#include "skin/SkinButton.h"

#include <chrono>
#include <map>
#include <tuple>

#include <gtest/gtest.h>

#include "Ground.h"
#include "TimeFactor.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"

namespace {

constexpr UINT buttonId = 1024;
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
    SkinButton() { Make(button, buttonPlace); }

    void Make(CSkinButton& made, const CRect& rect) {
        made.Create("BUTTON", "Window text", WS_CHILD | WS_VISIBLE | WS_TABSTOP, rect, ground.GetHandle(), buttonId);
        const CBitmap picture(MakeBitmap(strip));
        const CBitmap former(made.SetBitmapHandle(picture.GetHandle()));
        EXPECT_TRUE(former.IsEmpty());
        CGround::Pump();
    }

    // i, o, c: move inside, outside, into the corner; m: move inside although the mouse button came up elsewhere;
    // d, u, D: left down, up, double click; l: the pointer has left; x: somebody else takes the capture; k: all modes
    // are cancelled; e, h: disabled, hidden, and back; f: the focus comes and goes; b, B: the whole window is disabled,
    // enabled.
    void Play(const std::string& script) {
        constexpr LPARAM inside = MAKELPARAM(3, 2), outside = MAKELPARAM(-5, 200), corner = MAKELPARAM(0, 0);
        WPARAM keys = 0;
        const auto send = [this](UINT message, WPARAM held, LPARAM at) { button.SendMessage(message, held, at); };
        const std::map<char, std::function<void()>> steps{
            {'i', [&] { send(WM_MOUSEMOVE, keys, inside); }},
            {'I', [&] { send(WM_MOUSEMOVE, MK_LBUTTON, inside); }},
            {'o', [&] { send(WM_MOUSEMOVE, keys, outside); }},
            {'c', [&] { send(WM_MOUSEMOVE, keys, corner); }},
            {'m', [&] { send(WM_MOUSEMOVE, keys = 0, inside); }},
            {'d', [&] { send(WM_LBUTTONDOWN, keys = MK_LBUTTON, inside); }},
            {'D', [&] { send(WM_LBUTTONDBLCLK, keys = MK_LBUTTON, inside); }},
            {'u', [&] { send(WM_LBUTTONUP, keys = 0, inside); }},
            {'l', [&] { send(WM_MOUSELEAVE, 0, 0); }},
            {'x', [&] { ::SetCapture(ground.GetHandle()); }},
            {'k', [&] { send(WM_CANCELMODE, 0, 0); }},
            {'e', [&] { button.EnableWindow(!button.EnableWindow(false)); }},
            {'h', [&] { button.ShowWindow(SW_HIDE), button.ShowWindow(SW_SHOW); }},
            {'f', [&] { button.SetFocus(), ground.SetFocus(); }},
            {'b', [&] { ground.EnableWindow(false); }},
            {'B', [&] { ground.EnableWindow(true); }}};
        for (const char step : script) steps.at(step)();
        // The pointer isn't really there, and the button would be told so soon.
        TRACKMOUSEEVENT untold{sizeof untold, TME_CANCEL | TME_LEAVE, button.GetHandle(), 0};
        ::TrackMouseEvent(&untold);
    }

    Art Look() const { return ground.Look(buttonPlace); }

    CGround ground;
    CCounted<CSkinButton> button;
};

TEST_F(SkinButton, EveryMouseState) {
    struct Case {
        const char* script;
        Art look;
        bool captured;
        std::size_t clicks;
    };
    const Case cases[] = {{"", normal, false, 0},
                          {"i", over, true, 0},
                          {"ii", over, true, 0},
                          {"io", normal, false, 0},
                          {"ic", normal, false, 0},
                          {"d", down, false, 0},
                          {"di", down, true, 0},
                          {"id", down, true, 0},
                          {"idi", down, true, 0},
                          {"iu", normal, false, 1},
                          {"idu", normal, false, 1},
                          {"du", normal, false, 1},
                          {"idui", over, true, 1},
                          {"ido", normal, true, 0},
                          {"idc", normal, true, 0},
                          {"idoo", normal, true, 0},
                          {"idoi", down, true, 0},
                          {"idou", normal, false, 0},
                          {"idoiu", normal, false, 1},
                          {"iduDu", normal, false, 1},
                          {"iduDiu", normal, false, 2},
                          {"u", normal, false, 0},
                          {"ou", normal, false, 0},
                          // The pointer jumps into another program; with the mouse button held it may come back.
                          {"il", normal, false, 0},
                          {"ili", over, true, 0},
                          {"idl", normal, true, 0},
                          {"idlu", normal, false, 0},
                          {"idoli", down, true, 0},
                          {"dl", normal, false, 0},
                          {"dli", over, true, 0},
                          // Pressed before any move: where it came up wasn't seen.
                          {"dm", over, true, 0},
                          {"dmo", normal, false, 0}};
    for (const Case& each : cases) {
        ground.commands.clear();
        Play(each.script);
        EXPECT_EQ(Look(), each.look) << each.script;
        EXPECT_EQ(::GetCapture() == button.GetHandle(), each.captured) << each.script;
        EXPECT_EQ(ground.commands, std::vector(each.clicks, ReceivedCommand{buttonId, BN_CLICKED, button.GetHandle()}))
            << each.script;
        // Back to the start.
        ::ReleaseCapture();
        Play("uio");
    }
}

TEST_F(SkinButton, WhatTakesTheMouseAwayEndsHoverAndPress) {
    for (const std::string end : {"x", "k", "e", "h", "f", "bi", "bd", "bu", "ho", "xo"}) {
        for (const std::string begin : {"i", "id", "ido", "d"}) {
            if (end[0] == 'x' && begin == "d") continue; // has no capture yet
            Play(begin + end);
            EXPECT_NE(::GetCapture(), button.GetHandle()) << begin << end;
            ::ReleaseCapture();
            Play("B");
            button.UpdateWindow();
            EXPECT_EQ(Look(), normal) << begin << end;
            const bool pressed = begin.find('d') != std::string::npos;
            Play(pressed ? "Iu" : "u"); // the pointer moves on, its button still down
            EXPECT_EQ(ground.commands.size(), 0U) << begin << end;
            Play("o");
            ground.commands.clear();
        }
    }
}

TEST_F(SkinButton, APointerThatJumpsIntoAnotherProgramLeavesIt) {
    CPoint point(3, 2);
    ::ClientToScreen(button.GetHandle(), &point);
    CGround::RestCursorAt(point.x, point.y);
    button.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(3, 2));
    EXPECT_EQ(Look(), over);
    CGround::RestCursorElsewhere();
    for (const DWORD begun = ::GetTickCount(); Look() != normal && ::GetTickCount() - begun < 3000;) CGround::Pump();
    EXPECT_EQ(Look(), normal);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(SkinButton, ThePressTakesTheFocusAndTheMoveShowsTheHand) {
    const HCURSOR hand = ::LoadCursorA(ProgramModule(), MAKEINTRESOURCEA(IDC_HAND_CURSOR));
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
    ASSERT_NE(hand, nullptr);
    for (const char* script : {"i", "i"}) { // at every move
        ::SetCursor(arrow);
        Play(script);
        EXPECT_EQ(::GetCursor(), hand);
    }
    ::SetCursor(arrow);
    Play("o");
    EXPECT_EQ(::GetCursor(), arrow);
    Play("d");
    EXPECT_EQ(::GetFocus(), button.GetHandle());
}

TEST_F(SkinButton, TheMouseIsFeltOnlyInTheShape) {
    const auto windowAt = [this](int x, int y) { // whom the platform would tell of the mouse
        POINT point{buttonPlace.left + x, buttonPlace.top + y};
        ::ClientToScreen(ground.GetHandle(), &point);
        return ::WindowFromPoint(point);
    };
    EXPECT_EQ(windowAt(3, 0), button.GetHandle());
    EXPECT_NE(windowAt(0, 0), button.GetHandle());
    EXPECT_NE(windowAt(5, 3), button.GetHandle());
    Play("i");
    EXPECT_EQ(windowAt(5, 3), button.GetHandle());
    EXPECT_NE(windowAt(0, 0), button.GetHandle());
}

TEST_F(SkinButton, AtRestNothingIsPainted) {
    struct Counts {
        int paints, reshapes;
        bool operator==(const Counts&) const = default;
    };
    const auto countsOf = [this](const std::function<void()>& change) {
        button.paints = button.reshapes = 0;
        change();
        for (int i = 0; i < 5; ++i) CGround::Pump();
        return Counts{button.paints, button.reshapes};
    };
    EXPECT_EQ(countsOf([] {}), (Counts{0, 0}));
    EXPECT_EQ(countsOf([this] { button.Invalidate(); }), (Counts{1, 0}));
    EXPECT_EQ(countsOf([this] { button.SetCaption("x", 5, 0); }), (Counts{0, 0}));
    EXPECT_EQ(countsOf([this] { Play("i"); }), (Counts{1, 1})); // another outline
    EXPECT_EQ(countsOf([this] { Play("ii"); }), (Counts{0, 0}));
    EXPECT_EQ(countsOf([this] { Play("d"); }), (Counts{1, 1}));
    const auto showNothing = [this] { // an outline around nothing
        const CBitmap none(MakeBitmap({"........", "........"}));
        const CBitmap former(button.SetBitmapHandle(none.GetHandle()));
        button.Invalidate();
    };
    EXPECT_EQ(countsOf(showNothing), (Counts{1, 1}));
    EXPECT_EQ(countsOf([this] { button.Invalidate(); }).reshapes, 0);
}

TEST_F(SkinButton, ThePlatformsLookNeverShows) {
    const HWND window = button.GetHandle();
    struct Case {
        const char* name;
        std::function<void()> act;
        Art after;
    };
    const Case cases[] = {
        {"text", [&] { ::SetWindowTextA(window, "Other"); }, normal},
        {"caption", [&] { button.SetCaption("", 5, 0); }, normal},
        {"disabled", [&] { ::EnableWindow(window, FALSE); }, disabled},
        {"text while disabled", [&] { ::SetWindowTextA(window, "Third"); }, disabled},
        {"enabled", [&] { ::EnableWindow(window, TRUE); }, normal},
        {"state", [&] { button.SendMessage(BM_SETSTATE, TRUE); }, normal},
        {"default mark", [&] { button.SendMessage(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE); }, normal},
        {"style", [&] { button.ModifyStyle(0, WS_DISABLED); }, disabled},
        {"style back", [&] { button.ModifyStyle(WS_DISABLED, 0); }, normal},
        {"keyboard cues", [&] { button.SendMessage(WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL)); }, normal},
        {"font", [&] { button.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(ground.font), TRUE); }, normal},
        {"focus", [&] { button.SetFocus(); }, normal},
        {"space down", [&] { button.SendMessage(WM_KEYDOWN, VK_SPACE); }, normal},
        {"space up", [&] { button.SendMessage(WM_KEYUP, VK_SPACE); }, normal},
        {"focus gone", [&] { ::SetFocus(nullptr); }, normal},
        {"colours", [&] { button.SendMessage(WM_SYSCOLORCHANGE); }, normal},
        {"click by message", [&] { button.SendMessage(BM_CLICK); }, normal}};
    for (const Case& each : cases) {
        const Art before = Look();
        each.act();
        const Art atOnce = Look();
        EXPECT_TRUE(atOnce == before || atOnce == each.after) << each.name << testing::PrintToString(atOnce);
        CGround::Pump();
        EXPECT_EQ(Look(), each.after) << each.name;
    }
    EXPECT_EQ(button.GetWindowText(), "Third");
    EXPECT_EQ(ground.commands.size(), 2U); // of the space bar and of the message
}

TEST_F(SkinButton, AnotherWindowFindsNothingOfTheFormerOne) {
    button.SetCaption("Go", 5, RGB(0, 0, 255));
    Play("id");
    button.DestroyWindow();
    ground.fontsAsked = 0;
    button.Create("BUTTON", "Template", WS_CHILD | WS_VISIBLE, buttonPlace, ground.GetHandle(), buttonId);
    CGround::Pump();
    EXPECT_EQ(ground.fontsAsked, 1);
    EXPECT_EQ(button.GetWindowText(), "Go");
    button.SetCaption("", 5, 0);
    for (const bool shaped : {true, false}) { // with the shape that it got, and when somebody has taken that away
        if (!shaped) ::SetWindowRgn(button.GetHandle(), nullptr, FALSE);
        button.Invalidate();
        CGround::Pump();
        EXPECT_EQ(Look(), normal);
        EXPECT_EQ(::GetWindowRgn(button.GetHandle(), CRgn(::CreateRectRgn(0, 0, 0, 0)).GetHandle()), COMPLEXREGION);
    }
    Play("u");
    EXPECT_TRUE(ground.commands.empty());
}

TEST_F(SkinButton, TheCaptionStandsInTheMiddleOfTheFrame) {
    Art wide(20, std::string(60, '1') + std::string(180, '2'));
    CSkinButton large;
    Make(large, {30, 30, 90, 50});
    const CBitmap picture(MakeBitmap(wide));
    const CBitmap former(large.SetBitmapHandle(picture.GetHandle()));
    large.SetCaption("&Go", 5, RGB(0, 0, 255));
    EXPECT_EQ(large.GetWindowText(), "&Go");
    for (const COLORREF color : {RGB(0, 0, 255), RGB(80, 80, 80)}) {
        large.SetTextColor(color);
        CSurface drawn(60, 20), expected(60, 20, '1');
        Print(large, drawn);
        DrawExpected(expected, ground, "&Go", color, {0, 0, 60, 20}, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        EXPECT_EQ(drawn.Pixels(), expected.Pixels());
    }
    large.SetCaption("", 5, 0);
    CSurface drawn(60, 20);
    Print(large, drawn);
    EXPECT_EQ(drawn.Pixels(), CSurface(60, 20, '1').Pixels());
}

// Noise larger than the window is cut to it; as large as the window, it loses the holes inside of its outline.
TEST_F(SkinButton, AStripOfNoiseDelaysNothing) {
    Art noise(512);
    for (std::size_t y = 0; y < noise.size(); ++y)
        for (std::size_t x = 0; x < 1024; ++x) noise[y] += (x + y) % 2 == 1 ? static_cast<char>('1' + x / 256) : '.';
    const CPictureFile file("noise.bmp", BitmapFileOf(noise));
    ::SetWindowPos(ground.GetHandle(), nullptr, 0, 0, 300, 600, SWP_NOMOVE);
    for (const auto& [width, height, hole] : {std::tuple(74, 22, 'g'), {256, 512, '.'}}) {
        button.SetWindowPos(nullptr, 0, 0, width, height, SWP_NOZORDER);
        ASSERT_TRUE(button.SetBitmapFile(file.name));
        button.Invalidate();
        ground.Invalidate();
        CGround::Pump();
        const auto start = std::chrono::steady_clock::now();
        Play("i");
        CGround::Pump();
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50) * TimeFactor()) << width;
        EXPECT_EQ(ground.Look({0, 0, 3, 1})[0], (std::string{'g', '2', hole}));
        EXPECT_EQ(ground.Look({width - 2, height - 2, width, height - 1})[0], (std::string{hole, '2'}));
        Play("o");
    }
}

TEST_F(SkinButton, WithoutAPictureItWorksByItsRectangle) {
    EXPECT_FALSE(button.SetBitmapFile("no such.bmp"));
    button.SetCaption("Unseen", 5, 0);
    button.Invalidate();
    ground.Invalidate();
    CGround::Pump();
    EXPECT_EQ(Look(), Art(4, "gggggg"));
    CRgn shape(::CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(::GetWindowRgn(button.GetHandle(), shape.GetHandle()), ERROR);
    Play("cu"); // where the corner was
    EXPECT_EQ(ground.commands.size(), 1U);
    EXPECT_FALSE(button.SetBitmapResource(9999));
}

TEST_F(SkinButton, InPictureModeItStandsOnItsParentsGround) {
    CSkinButton tool;
    const CRect place(30, 30, 90, 50);
    Make(tool, place);
    const CBitmap picture(MakeBitmap({"pp....", "pp..qq", "pp....", "pp...."}));
    const CBitmap former(tool.SetBitmapHandle(picture.GetHandle()));
    tool.drawMode = CSkinButton::pictureMode;
    tool.SetCaption("Open", 5, RGB(9, 9, 9));
    const auto expectLook = [&](const COLORREF* topLeft, const COLORREF* bottomRight) {
        CSurface expected(60, 20, 'g');
        if (topLeft != nullptr) expected.Draw3dRect({1, 1, 59, 19}, *topLeft, *bottomRight);
        // 8 pixels down, half of what the height leaves, and as many to the right.
        expected.FillSolidRect({8, 8, 10, 12}, ColorOf('p'));
        expected.FillSolidRect({12, 9, 14, 10}, ColorOf('q'));
        DrawExpected(expected, ground, "Open", RGB(9, 9, 9), {14, 0, 60, 20}, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        EXPECT_EQ(ground.Pixels(place), expected.Pixels());
    };
    const COLORREF dark = ::GetSysColor(COLOR_3DDKSHADOW), light = ::GetSysColor(COLOR_3DHIGHLIGHT);
    tool.Invalidate();
    CGround::Pump();
    expectLook(nullptr, nullptr);
    tool.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(0, 0)); // no shape: the corner is inside
    expectLook(&light, &dark);
    tool.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(0, 0));
    expectLook(&dark, &light);
    tool.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(60, 0));
    expectLook(nullptr, nullptr);
    const RECT part{9, 9, 12, 11}; // the ground is painted whole, so the button must be, too
    ::InvalidateRect(tool.GetHandle(), &part, TRUE);
    CGround::Pump();
    expectLook(nullptr, nullptr);
    tool.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(59, 19));
    tool.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(59, 19));
    EXPECT_EQ(ground.commands.size(), 1U);

    tool.drawMode = 4; // neither strip nor picture
    tool.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    tool.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    tool.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(ground.commands.size(), 1U);
    EXPECT_NE(::GetCapture(), tool.GetHandle());
}

TEST_F(SkinButton, DisabledOrHiddenItPassesTheFocusOn) {
    CWnd next, heir;
    next.Create("BUTTON", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {40, 0, 60, 20}, ground.GetHandle(), 1);
    heir.Create("BUTTON", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {70, 0, 90, 20}, ground.GetHandle(), 2);
    const auto focusAfterDisabling = [&](const CWnd& focused) {
        button.EnableWindow(true);
        focused.SetFocus();
        button.EnableWindow(false);
        return ::GetFocus();
    };
    EXPECT_EQ(focusAfterDisabling(button), next.GetHandle());
    button.focusHeir = heir.GetHandle();
    EXPECT_EQ(focusAfterDisabling(button), heir.GetHandle());
    EXPECT_EQ(focusAfterDisabling(next), next.GetHandle());
    button.EnableWindow(true);
    for (const bool byPosition : {true, false}) { // the two ways of hiding
        button.ShowWindow(SW_SHOW);
        button.SetFocus();
        if (byPosition) button.SetWindowPos(nullptr, 10, 10, 6, 4, SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
        button.ShowWindow(SW_HIDE);
        EXPECT_EQ(::GetFocus(), heir.GetHandle()) << byPosition;
    }
    button.ShowWindow(SW_SHOW);
    heir.EnableWindow(false);
    EXPECT_EQ(focusAfterDisabling(button), next.GetHandle());
}

TEST_F(SkinButton, AClickMayDisableOrEndTheButton) {
    ground.atCommand = [&] { button.EnableWindow(false); };
    Play("idu");
    CGround::Pump();
    EXPECT_EQ(Look(), disabled);

    auto mortal = std::make_unique<CSkinButton>();
    Make(*mortal, {30, 30, 36, 34});
    ground.atCommand = [&] { mortal.reset(); };
    const HWND window = mortal->GetHandle();
    mortal->SendMessage(BM_CLICK);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(ground.commands.size(), 2U);
}

TEST_F(SkinButton, SpaceClicksUnlessTheFocusLeaves) {
    const auto clicksOf = [this](const std::function<void()>& between) {
        ground.commands.clear();
        button.SetFocus();
        button.SendMessage(WM_KEYDOWN, VK_SPACE);
        between();
        button.SendMessage(WM_KEYUP, VK_SPACE);
        return ground.commands.size();
    };
    EXPECT_EQ(clicksOf([] {}), 1U);
    EXPECT_EQ(clicksOf([this] { button.SendMessage(WM_KEYDOWN, VK_SPACE, 1 << 30); }), 1U); // held
    for (const char* end : {"f", "k", "e", "h"}) EXPECT_EQ(clicksOf([&] { Play(end); }), 0U) << end;
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(SkinButton, ManyPaintsKeepNoHandle) {
    button.SetCaption("Start", 5, RGB(0, 0, 255));
    RecordProperty("microseconds", static_cast<int>(PaintOften(button)));
}

} // namespace
