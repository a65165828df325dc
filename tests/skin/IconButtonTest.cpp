// The icon button: images, colours, edges and captions in each state, drawn on a surface; check state, style and tips.
#include "skin/IconButton.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "Ground.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "skin/PlainIconButton.h"

namespace {

HICON MakeIcon(char color) {
    const CBitmap picture(MakeBitmap(Art(8, std::string(8, color))));
    const std::array<std::byte, 16> opaque{};
    const CBitmap mask(::CreateBitmap(8, 8, 1, 1, opaque.data()));
    ICONINFO info{TRUE, 0, 0, mask.GetHandle(), picture.GetHandle()};
    return ::CreateIconIndirect(&info);
}
// 60 x 20 pixels: an image of 8 x 8 has its upper left corner at (3, 6) beside a caption.
const CRect place{10, 10, 70, 30};

TEST(IconButton, StatesChooseImageColoursAndEdge) {
    constexpr LONG check = BS_AUTOCHECKBOX, push = BS_PUSHBUTTON;
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT), shadow = ::GetSysColor(COLOR_BTNSHADOW);
    const COLORREF dark = ::GetSysColor(COLOR_3DDKSHADOW), none = 1;
    // Flat, type, hover, state; image, ground and text (of the colour table), shift, edge at the upper left and lower
    // right.
    const std::tuple<bool, LONG, bool, UINT, char, unsigned, unsigned, std::size_t, COLORREF, COLORREF> rows[] = {
        {true, check, true, 0, 'B', 0, 1, 0, light, shadow},
        {true, check, false, ODS_SELECTED, 'A', 0, 1, 0, shadow, light},
        {true, check, false, ODS_FOCUS, 'B', 4, 3, 0, none, none},
        {true, push, true, ODS_FOCUS, 'A', 0, 1, 0, light, shadow},
        {true, push, false, ODS_SELECTED, 'A', 0, 1, 1, shadow, light},
        {false, push, true, 0, 'B', 2, 3, 0, light, dark},
        {false, push, false, ODS_SELECTED, 'A', 0, 1, 1, shadow, shadow},
        {false, push, false, ODS_FOCUS, 'B', 4, 3, 0, 0, 0}};
    const CGround ground;
    for (const auto& [flat, type, hover, item, image, backIndex, text, shift, topLeft, bottomRight] : rows) {
        SCOPED_TRACE(std::to_string(flat) + std::to_string(type) + std::to_string(hover) + std::to_string(item));
        CIconButton button;
        Put(button, ground, "BUTTON", place, type, "W W");
        for (unsigned i = 0; i < 6; ++i) button.SetColor(i, RGB(40 * i, 7, 7), false);
        button.SetFlat(flat, false);
        if (hover) Mouse(button, WM_MOUSEMOVE, 5, 5);
        button.SetIconHandles(MakeIcon('A'), MakeIcon('B'));
        const std::vector<COLORREF> look = DrawButton(button, item);
        const COLORREF back = RGB(40 * backIndex, 7, 7);
        EXPECT_EQ(look[3 * 60 + 3], back);
        EXPECT_TRUE(look[6 * 60 + 3 + 61 * shift] == ColorOf(image) &&
                    look[13 * 60 + 10 + 61 * shift] == ColorOf(image));
        EXPECT_NE(look[(5 + shift) * 60 + 2 + shift], ColorOf(image));
        for (const unsigned each : {1U, 3U, 5U})
            EXPECT_EQ(std::ranges::count(look, RGB(40 * each, 7, 7)) != 0, each == text) << each;
        EXPECT_TRUE(look.front() == (topLeft != none ? topLeft : back) &&
                    look.back() == (topLeft != none ? bottomRight : back));
        button.SetDrawBorder(false, false);
        EXPECT_EQ(DrawButton(button, item).front(), flat ? back : topLeft);
    }
}

TEST(IconButton, FurtherLooksAreChosenBySetters) {
    const CGround ground;
    CIconButton button;
    CPlainIconButton plate;
    Put(button, ground, "BUTTON", place, BS_PUSHBUTTON, "W");
    Put(plate, ground, "BUTTON", {10, 40, 70, 60});
    const auto plain = DrawButton(button, ODS_FOCUS);
    button.SetDrawFlatFocus(true, true);
    EXPECT_NE(DrawButton(button, ODS_FOCUS), plain);
    button.ShowWindow(SW_HIDE);
    PumpMessages();
    button.SetTransparent(true);
    for (const char below : {'g', 'q', 'r'}) { // the first is kept until the system's colours change
        if (below != 'g') CClientDC(ground.GetHandle()).FillSolidRect(place, ColorOf(below));
        if (below == 'r') button.SendMessage(WM_SYSCOLORCHANGE);
        EXPECT_EQ(DrawButton(button)[120], ColorOf(below == 'q' ? 'g' : below));
    }
    plate.SetColor(CIconButton::ActiveBack, ColorOf('a'), false);
    for (const bool rounded : {false, true}) {
        plate.SetRounded(rounded, true);
        const auto pressed = DrawButton(plate, ODS_SELECTED);
        for (std::size_t y = 0; y < 20; ++y) EXPECT_EQ(pressed[y * 60 + 30], y == 0 || y == 19 ? 0 : ColorOf('a')) << y;
        EXPECT_EQ(pressed[0], rounded ? ColorOf(' ') : 0U);
    }
}

TEST(IconButton, StyleAndCheckStateAreItsOwn) {
    CGround ground;
    CIconButton box, button;
    Put(box, ground, "BUTTON", place, BS_AUTOCHECKBOX);
    Put(button, ground, "BUTTON", place, BS_DEFPUSHBUTTON);
    EXPECT_TRUE(button.IsDefault());
    std::vector<int> heard;
    ground.atCommand = [&] { heard.push_back(box.GetCheck()); };
    for (int click = 0; click < 3; ++click) box.SendMessage(BM_CLICK);
    EXPECT_EQ(heard, (std::vector<int>{1, 0, 1})) << "flipped before the parent hears";
    for (const auto& [value, check] : {std::pair{0, 0}, {1, 1}, {3, 0}, {2, 1}}) {
        for (CIconButton* const each : {&box, &button}) {
            each->SendMessage(BM_SETCHECK, static_cast<WPARAM>(value));
            EXPECT_EQ(each->SendMessage(BM_GETCHECK), each == &box ? check : 0) << value;
        }
    }
    for (const auto& [style, isDefault] : {std::pair{2, true}, {0, false}, {0x16, false}, {1, true}}) {
        button.SendMessage(BM_SETSTYLE, static_cast<WPARAM>(style), TRUE);
        EXPECT_TRUE((button.GetStyle() & 0x1F) == BS_OWNERDRAW && button.IsDefault() == isDefault) << style;
        EXPECT_EQ(button.SendMessage(WM_GETDLGCODE) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON),
                  isDefault ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    }
    button.SetUrl("no such thing to open");
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(ground.commands.back(), (ReceivedCommand{7, BN_CLICKED, button.GetHandle()}));
    button.SetAlwaysTrack(false); // then it tracks while a window of the program is active, as one is
    ::SetActiveWindow(ground.GetHandle());
    ::SetWindowPos(button.GetHandle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    Mouse(button, WM_MOUSEMOVE, 5, 5);
    button.SetColor(CIconButton::ActiveBack, ColorOf('a'), true);
    EXPECT_EQ(DrawButton(button)[200], ColorOf('a'));
}

TEST(IconButton, SettersRefuseWhatIsOutOfRangeAndTipsAreReplaced) {
    const CGround ground;
    CIconButton button;
    Put(button, ground, "BUTTON", place);
    COLORREF color = 0;
    // clang-format off
    const std::array results{
        button.SetColor(6, 0, true), button.GetColor(6, color), button.ShiftColor(6, 300, true),
        button.SetImageAlign(3, true), button.SetColor(5, RGB(10, 20, 30), true), button.ShiftColor(5, 256, true),
        button.ShiftColor(5, -15, true), button.GetColor(5, color), button.SetButtonCursor(9999, true)};
    // clang-format on
    EXPECT_TRUE(results == (std::array{3, 3, 3, 4, 0, 5, 0, 0, 1}) && color == RGB(0, 10, 20));
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
    for (const int cursor : {IDC_HAND_CURSOR, 0}) {
        ::SetCursor(arrow);
        EXPECT_EQ(button.SetButtonCursor(cursor, true), 0);
        button.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(button.GetHandle()), HTCLIENT);
        EXPECT_EQ(::GetCursor() == arrow, cursor == 0);
    }
    button.SetToolTip(nullptr, true);
    button.ActivateToolTip(true);
    for (const char* text : {"first", "second"}) button.SetToolTip(text, true);
    EXPECT_EQ(TipOf(button), "second");
    button.SetToolTipFromResource(IDS_START, false);
    button.SetToolTipFromResource(59999, true); // no such text
    button.ActivateToolTip(true);
    EXPECT_EQ(TipOf(button), LoadText(IDS_START));
    button.DestroyWindow();
    Put(button, ground, "BUTTON", place);
    EXPECT_EQ(TipOf(button), "") << "of another window";
}

TEST(IconButton, BitmapsLetTheGroundThroughAndFailuresLeaveNone) {
    const CGround ground;
    CIconButton button;
    Put(button, ground, "BUTTON", place);
    button.SetColor(CIconButton::IdleBack, ColorOf('q'), false);
    const HBITMAP inUse = MakeBitmap({"A"});
    const CMemoryDC user(nullptr);
    const HGDIOBJ former = ::SelectObject(user.GetHandle(), inUse);
    const HICON noIcon = reinterpret_cast<HICON>(INT_PTR{0x7FF1});
    const auto expect = [&](int result, int expected, const char* shown) {
        EXPECT_EQ(result, expected) << shown;
        const auto look = DrawButton(button);
        for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(look[9 * 60 + 28 + i], ColorOf(shown[i])) << shown;
    };
    // The resource is a strip of three colours, of whose middle one this is.
    expect(button.SetBitmaps(401, ColorOf('c'), 401, ColorOf('a')), 0, "bbbb");
    expect(button.SetBitmaps(401, ColorOf('c'), 401, ColorOf('b')), 0, "qqqq");
    expect(button.SetBitmapHandles(MakeBitmap({"A.", "A."}), ColorOf('.'), nullptr, 0), 0, "qAqq");
    EXPECT_EQ(std::ranges::count(DrawButton(button, ODS_DISABLED), ColorOf('A')), 0);
    expect(button.SetBitmapHandles(MakeBitmap({"AA"}), 0, inUse, 0), 2, "qqqq");
    expect(button.SetBitmaps(9999, 0, 401, 0), 0, "qqqq");
    expect(button.SetIconHandles(MakeIcon('A'), noIcon), 1, "qqqq");
    expect(button.SetIconHandles(nullptr, MakeIcon('A')), 0, "qqqq");
    ::SelectObject(user.GetHandle(), former);
}

} // namespace
