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
std::vector<COLORREF> Draw(CIconButton& button, UINT state = 0) {
    const CSurface surface(60, 20);
    ::SetTextColor(surface.GetHandle(), RGB(200, 1, 2)); // as a parent may have left it
    DrawButton(button, surface, state, {0, 0, 60, 20});
    return surface.Pixels();
}

TEST(IconButton, StatesChooseImageColoursAndEdge) {
    constexpr LONG check = BS_AUTOCHECKBOX, push = BS_PUSHBUTTON;
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT), shadow = ::GetSysColor(COLOR_BTNSHADOW);
    const COLORREF dark = ::GetSysColor(COLOR_3DDKSHADOW), none = 1, black = 0;
    struct Row {
        bool flat;
        LONG type;
        int check;
        bool hover;
        UINT item;
        char image;
        unsigned back, text; // of the colour table; 9: engraved
        std::size_t shift;
        COLORREF topLeft, bottomRight;
    };
    const Row rows[] = {{true, check, 0, false, 0, 'B', 2, 3, 0, none, none},
                        {true, check, 0, true, 0, 'B', 0, 1, 0, light, shadow},
                        {true, check, 0, false, ODS_SELECTED, 'A', 0, 1, 0, shadow, light},
                        {true, check, 1, false, 0, 'A', 0, 1, 0, shadow, light},
                        {true, check, 0, false, ODS_FOCUS, 'B', 4, 3, 0, none, none},
                        {true, check, 1, false, ODS_DISABLED, ' ', 0, 9, 0, shadow, light},
                        {true, push, 1, false, 0, 'B', 2, 3, 0, none, none},
                        {true, push, 0, true, ODS_FOCUS, 'A', 0, 1, 0, light, shadow},
                        {true, push, 0, false, ODS_SELECTED, 'A', 0, 1, 1, shadow, light},
                        {false, push, 0, true, 0, 'B', 2, 3, 0, light, dark},
                        {false, push, 0, false, ODS_SELECTED, 'A', 0, 1, 1, shadow, shadow},
                        {false, push, 0, false, ODS_FOCUS, 'B', 4, 3, 0, black, black},
                        {false, BS_DEFPUSHBUTTON, 0, false, 0, 'B', 2, 3, 0, black, black}};
    const CGround ground;
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        CIconButton button;
        Put(button, ground, "BUTTON", place, row.type, "W W");
        for (unsigned i = 0; i < 6; ++i) button.SetColor(i, RGB(40 * i, 7, 7), false);
        button.SetCheck(row.check, false);
        button.SetFlat(row.flat, false);
        if (row.hover) Mouse(button, WM_MOUSEMOVE, 5, 5);
        for (const int variant : {0, 1, 2}) { // two images with a border, one without
            button.SetIconHandles(MakeIcon('A'), variant == 0 ? MakeIcon('B') : nullptr);
            button.SetDrawBorder(variant != 2, false);
            const std::vector<COLORREF> look = Draw(button, row.item);
            const COLORREF image = ColorOf(variant == 0 ? row.image : 'A'), back = RGB(40 * row.back, 7, 7);
            EXPECT_EQ(look[3 * 60 + 3], back);
            for (const std::size_t at : {6U * 60 + 3, 11U * 60 + 8, 13U * 60 + 10})
                EXPECT_TRUE(row.text == 9 || look[at + 61 * row.shift] == image) << at;
            EXPECT_NE(look[(5 + row.shift) * 60 + 2 + row.shift], image);
            for (const unsigned text : {1U, 3U, 5U})
                EXPECT_EQ(std::ranges::count(look, RGB(40 * text, 7, 7)) != 0, text == row.text) << text;
            const bool edge = row.topLeft != none && (variant != 2 || !row.flat);
            EXPECT_EQ(look.front(), edge ? row.topLeft : back);
            EXPECT_EQ(look.back(), edge ? row.bottomRight : back);
            EXPECT_TRUE(edge || (std::ranges::count(look, shadow) != 0) == (row.text == 9));
        }
    }
}

TEST(IconButton, FurtherLooksAreChosenBySetters) {
    const CGround ground;
    CIconButton button;
    CPlainIconButton plate;
    Put(button, ground, "BUTTON", place, BS_PUSHBUTTON, "W");
    Put(plate, ground, "BUTTON", {10, 40, 70, 60});
    button.SetIconHandles(MakeIcon('A'), reinterpret_cast<HICON>(INT_PTR{CIconButton::grayOfFirst}));
    for (unsigned back = 0; back < 6; back += 2) button.SetColor(back, ColorOf('i'), false);
    EXPECT_EQ(button.SetImageAlign(2, true), 0);
    EXPECT_EQ(Draw(button, ODS_SELECTED)[8 * 60 + 51], ColorOf('A'));
    EXPECT_EQ(Draw(button)[8 * 60 + 51], IconGray(ColorOf('A')));
    const auto plain = Draw(button, ODS_FOCUS);
    button.SetDrawFlatFocus(true, true);
    const auto framed = Draw(button, ODS_FOCUS);
    EXPECT_EQ(std::vector(framed.begin(), framed.begin() + 180), std::vector(plain.begin(), plain.begin() + 180));
    EXPECT_NE(std::vector(framed.begin(), framed.begin() + 240), std::vector(plain.begin(), plain.begin() + 240));
    button.ShowWindow(SW_HIDE);
    PumpMessages();
    button.SetTransparent(true);
    for (const char below : {'g', 'q', 'r'}) { // the first is kept until the system's colours change
        if (below != 'g') CClientDC(ground.GetHandle()).FillSolidRect(place, ColorOf(below));
        if (below == 'r') button.SendMessage(WM_SYSCOLORCHANGE);
        EXPECT_EQ(Draw(button)[120], ColorOf(below == 'q' ? 'g' : below));
    }
    plate.SetColor(CIconButton::ActiveBack, ColorOf('a'), false);
    for (const bool rounded : {false, true}) {
        plate.SetRounded(rounded, true);
        const auto pressed = Draw(plate, ODS_SELECTED);
        for (std::size_t y = 0; y < 20; ++y) EXPECT_EQ(pressed[y * 60 + 30], y == 0 || y == 19 ? 0 : ColorOf('a')) << y;
        EXPECT_EQ(pressed[0], rounded ? ColorOf(' ') : 0U);
        EXPECT_EQ(Draw(plate), std::vector(60 * 20, ::GetSysColor(COLOR_BTNFACE)));
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
        EXPECT_EQ(button.GetStyle() & 0x1F, DWORD{BS_OWNERDRAW}) << style;
        EXPECT_EQ(button.IsDefault(), isDefault) << style;
        EXPECT_EQ(button.SendMessage(WM_GETDLGCODE) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON),
                  isDefault ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    }
    EXPECT_EQ(button.SetUrl("no such thing to open"), 0);
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(ground.commands.back(), (ReceivedCommand{7, BN_CLICKED, button.GetHandle()}));
    button.SetAlwaysTrack(false); // then it tracks while a window of the program is active, as one is
    ::SetActiveWindow(ground.GetHandle());
    ::SetWindowPos(button.GetHandle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    Mouse(button, WM_MOUSEMOVE, 5, 5);
    button.SetColor(CIconButton::ActiveBack, ColorOf('a'), true);
    EXPECT_EQ(Draw(button)[200], ColorOf('a'));
}

// What the tip is told: whether it is active.
struct TipWatch {
    static inline WNDPROC former = nullptr;
    static inline std::vector<WPARAM> activated;
    static LRESULT CALLBACK See(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == TTM_ACTIVATE) activated.push_back(wParam);
        return ::CallWindowProcA(former, window, message, wParam, lParam);
    }
};

TEST(IconButton, SettersRefuseWhatIsOutOfRangeAndTipsAreReplaced) {
    const CGround ground;
    CIconButton button;
    Put(button, ground, "BUTTON", place);
    COLORREF color = 0;
    const std::array results{button.SetColor(6, 0, true),
                             button.GetColor(6, color),
                             button.ShiftColor(6, 300, true),
                             button.SetImageAlign(3, true),
                             button.SetColor(5, RGB(10, 20, 30), true),
                             button.ShiftColor(5, 256, true),
                             button.ShiftColor(5, -15, true),
                             button.GetColor(5, color),
                             button.SetButtonCursor(9999, true),
                             button.SetIcons(IDI_LAMP_LIT, IDI_LAMP_DARK),
                             button.SetIcons(IDI_LAMP_LIT, 9999)};
    EXPECT_EQ(results, (std::array{3, 3, 3, 4, 0, 5, 0, 0, 1, 0, 0}));
    EXPECT_EQ(color, RGB(0, 10, 20));
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
    for (const int cursor : {IDC_HAND_CURSOR, 0}) {
        ::SetCursor(arrow);
        EXPECT_EQ(button.SetButtonCursor(cursor, true), 0);
        button.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(button.GetHandle()), HTCLIENT);
        EXPECT_EQ(::GetCursor() == arrow, cursor == 0);
    }
    button.SetToolTip(nullptr, true);
    button.ActivateToolTip(true);
    EXPECT_EQ(TipOf(button), "");
    button.SetToolTip("first", true);
    button.SetToolTip("second", true);
    HWND tip = nullptr;
    EXPECT_EQ(TipOf(button, &tip), "second");
    TipWatch::former =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(tip, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TipWatch::See)));
    button.SetToolTipFromResource(IDS_START, false);
    EXPECT_EQ(TipOf(button), LoadText(IDS_START));
    for (const bool on : {true, false}) button.ActivateToolTip(on);
    button.SetToolTipFromResource(59999, true); // no such text
    EXPECT_EQ(TipWatch::activated, (std::vector<WPARAM>{FALSE, TRUE, FALSE}));
    button.DestroyWindow();
    Put(button, ground, "BUTTON", place);
    EXPECT_EQ(TipOf(button), "") << "of another window";
}

TEST(IconButton, BitmapsLetTheGroundThroughAndFailuresLeaveNone) {
    const CGround ground;
    CIconButton button;
    Put(button, ground, "BUTTON", place);
    button.SetColor(CIconButton::IdleBack, ColorOf('q'), false);
    const auto look = [&](UINT state = 0) {
        const CSurface surface(60, 20);
        DrawButton(button, surface, state, {0, 0, 60, 20});
        return surface.Read()[9].substr(28, 4);
    };
    const HBITMAP inUse = MakeBitmap({"A"});
    const CMemoryDC user(nullptr);
    const HGDIOBJ former = ::SelectObject(user.GetHandle(), inUse);
    const HICON noIcon = reinterpret_cast<HICON>(INT_PTR{0x7FF1});
    const auto expect = [&](int result, int expected, const char* shown) {
        EXPECT_EQ(result, expected) << shown;
        EXPECT_EQ(look(), shown);
    };
    // The resource is a strip of three colours, of whose middle one this is.
    expect(button.SetBitmaps(401, ColorOf('c'), 401, ColorOf('a')), 0, "bbbb");
    expect(button.SetBitmaps(401, ColorOf('c'), 401, ColorOf('b')), 0, "qqqq");
    expect(button.SetBitmapHandles(MakeBitmap({"A.", "A."}), ColorOf('.'), nullptr, 0), 0, "qAqq");
    EXPECT_EQ(look(ODS_DISABLED).find('A'), std::string::npos);
    expect(button.SetBitmapHandles(MakeBitmap({"AA"}), 0, inUse, 0), 2, "qqqq");
    expect(button.SetBitmaps(9999, 0, 401, 0), 0, "qqqq");
    expect(button.SetIconHandles(MakeIcon('A'), noIcon), 1, "qqqq");
    expect(button.SetIconHandles(nullptr, MakeIcon('A')), 0, "qqqq");
    ::SelectObject(user.GetHandle(), former);
}

} // namespace
