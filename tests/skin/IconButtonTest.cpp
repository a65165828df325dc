// The icon button: images, colours, edges and captions in each state, drawn on a surface; check state, style and tips.
#include "skin/IconButton.h"

#include <algorithm>
#include <memory>

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
const HICON grayOfFirst = reinterpret_cast<HICON>(INT_PTR{CIconButton::grayOfFirst});

class IconButton : public testing::Test {
protected:
    // 60 x 20 pixels: an image of 8 x 8 has its upper left corner at (3, 6) beside a caption, at (26, 6) alone.
    template <class Button = CIconButton>
    std::unique_ptr<Button> Make(DWORD type, const char* text = "") {
        auto made = std::make_unique<Button>();
        made->Create("BUTTON", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | type, {10, 10, 70, 30}, ground.GetHandle(),
                     1030);
        PumpMessages();
        return made;
    }
    static void Draw(CIconButton& button, const CSurface& surface, UINT state = 0) {
        ::SetTextColor(surface.GetHandle(), RGB(200, 1, 2)); // as a parent may have left it
        DrawButton(button, surface, state, {0, 0, 60, 20});
    }
    static bool Shows(const CSurface& surface, COLORREF color) {
        return std::ranges::count(surface.Pixels(), color) != 0;
    }

    CGround ground;
};

TEST_F(IconButton, StatesChooseImageColoursAndEdge) {
    constexpr DWORD check = BS_AUTOCHECKBOX, push = BS_PUSHBUTTON;
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT), shadow = ::GetSysColor(COLOR_BTNSHADOW);
    const COLORREF dark = ::GetSysColor(COLOR_3DDKSHADOW), none = 1, black = 0;
    struct Row {
        bool flat;
        DWORD type;
        int check;
        bool hover;
        UINT item;
        char image;
        unsigned back, text; // of the colour table; 9: engraved
        int shift;
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
                        {false, push, 0, false, 0, 'B', 2, 3, 0, light, dark},
                        {false, push, 0, true, 0, 'B', 2, 3, 0, light, dark},
                        {false, push, 0, false, ODS_SELECTED, 'A', 0, 1, 1, shadow, shadow},
                        {false, push, 0, false, ODS_FOCUS, 'B', 4, 3, 0, black, black},
                        {false, BS_DEFPUSHBUTTON, 0, false, 0, 'B', 2, 3, 0, black, black}};
    for (const Row& row : rows) {
        const auto button = Make(row.type, "W W");
        for (unsigned i = 0; i < 6; ++i) EXPECT_EQ(button->SetColor(i, RGB(40 * i, 7, 7), false), 0);
        button->SetCheck(row.check, false);
        button->SetFlat(row.flat, false);
        if (row.hover) Mouse(*button, WM_MOUSEMOVE, 5, 5);
        for (const HICON second : {MakeIcon('B'), HICON{}}) {
            SCOPED_TRACE(&row - rows);
            EXPECT_EQ(button->SetIconHandles(MakeIcon('A'), second), 0);
            for (const bool border : {true, false}) {
                button->SetDrawBorder(border, false);
                const CSurface surface(60, 20);
                Draw(*button, surface, row.item);
                const COLORREF image = ColorOf(second != nullptr ? row.image : 'A'), back = RGB(40 * row.back, 7, 7);
                EXPECT_EQ(surface.Pixel(3, 3), back);
                if (row.item != ODS_DISABLED) {
                    EXPECT_EQ(surface.Pixel(3, 6) == image, row.shift == 0);
                    EXPECT_EQ(surface.Pixel(11, 14) == image, row.shift != 0);
                    EXPECT_EQ(surface.Pixel(7, 10), image);
                }
                for (const unsigned text : {1U, 3U, 5U})
                    EXPECT_EQ(Shows(surface, RGB(40 * text, 7, 7)), text == row.text) << text;
                const bool edge = row.topLeft != none && (border || !row.flat);
                EXPECT_EQ(surface.Pixel(0, 0), edge ? row.topLeft : back);
                EXPECT_EQ(surface.Pixel(59, 19), edge ? row.bottomRight : back);
                EXPECT_TRUE(edge || Shows(surface, shadow) == (row.text == 9));
            }
        }
    }
}

TEST_F(IconButton, FurtherLooksAreChosenBySetters) {
    const auto button = Make(BS_PUSHBUTTON, "W");
    button->SetIconHandles(MakeIcon('A'), grayOfFirst);
    for (unsigned back = 0; back < 6; back += 2) button->SetColor(back, ColorOf('i'), false);
    const auto draw = [&](UINT state) {
        const CSurface surface(60, 20);
        Draw(*button, surface, state);
        return surface.Read();
    };
    EXPECT_EQ(button->SetImageAlign(2, true), 0);
    const Art right = draw(ODS_SELECTED), plain = draw(ODS_FOCUS);
    EXPECT_EQ(right[7].substr(50, 8), "AAAAAAAA");
    const CSurface gray(60, 20);
    Draw(*button, gray);
    EXPECT_EQ(gray.Pixel(50, 8), IconGray(ColorOf('A')));
    button->SetDrawFlatFocus(true, true);
    EXPECT_NE(draw(ODS_FOCUS)[3], plain[3]);
    EXPECT_EQ(draw(ODS_FOCUS)[2], plain[2]);
    EXPECT_EQ(draw(ODS_SELECTED), right);
    button->SetAlwaysTrack(false);
    const HWND active = ::GetActiveWindow();
    for (const bool tracked : {true, false}) {
        if (!tracked) ::SetForegroundWindow(::GetDesktopWindow());
        button->SendMessage(WM_MOUSELEAVE);
        Mouse(*button, WM_MOUSEMOVE, 5, 5);
        EXPECT_EQ(draw(0)[7][55] == 'A', ::GetActiveWindow() != nullptr);
    }
    ::SetForegroundWindow(active);
    button->ShowWindow(SW_HIDE);
    PumpMessages();
    button->SetTransparent(true);
    EXPECT_EQ(draw(ODS_FOCUS)[10].substr(0, 3), "ggg");
    CClientDC(ground.GetHandle()).FillSolidRect({10, 10, 70, 30}, ColorOf('q'));
    EXPECT_EQ(draw(ODS_FOCUS)[10].substr(0, 3), "ggg") << "kept";
    button->SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(draw(ODS_FOCUS)[10].substr(0, 3), "qqq");
}

TEST_F(IconButton, PressedAPlainOneIsAPlateWithoutABorder) {
    const auto button = Make<CPlainIconButton>(BS_PUSHBUTTON);
    button->SetColor(CIconButton::ActiveBack, ColorOf('a'), false);
    button->SetColor(CIconButton::IdleBack, ColorOf('i'), false);
    for (const bool rounded : {false, true}) {
        EXPECT_EQ(button->SetRounded(rounded, true), 0);
        CSurface rest(60, 20), pressed(60, 20), expected(60, 20);
        Draw(*button, rest);
        EXPECT_EQ(rest.Read(), Art(20, std::string(60, 'i')));
        Draw(*button, pressed, ODS_SELECTED);
        expected.FillSolidRect({0, 0, 60, 20}, 0);
        expected.FillSolidRect({1, 1, 59, 19}, ColorOf('a'));
        for (const int x : {8, 30, 51}) { // beside the corners
            for (int y = 0; y < 20; ++y) EXPECT_EQ(pressed.Pixel(x, y), expected.Pixel(x, y)) << x << "," << y;
        }
        EXPECT_EQ(pressed.Pixel(0, 0), rounded ? ColorOf(' ') : 0U);
    }
}

TEST_F(IconButton, ClicksFlipACheckBoxBeforeTheParentHears) {
    const auto box = Make(BS_AUTOCHECKBOX), plain = Make(BS_PUSHBUTTON);
    std::vector<int> heard;
    ground.atCommand = [&] { heard.push_back(box->GetCheck()); };
    for (const UINT down : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_LBUTTONDOWN}) {
        Mouse(*box, down, 5, 5, MK_LBUTTON);
        Mouse(*box, WM_LBUTTONUP, 5, 5);
    }
    EXPECT_EQ(heard, (std::vector<int>{1, 0, 1}));
    for (const auto& [value, check] : {std::pair{0, 0}, {1, 1}, {3, 0}, {2, 1}}) {
        EXPECT_EQ(box->SendMessage(BM_SETCHECK, static_cast<WPARAM>(value)), 0);
        EXPECT_EQ(box->SendMessage(BM_GETCHECK), check) << value;
        plain->SendMessage(BM_SETCHECK, static_cast<WPARAM>(value));
        EXPECT_EQ(plain->GetCheck(), 0);
    }
    EXPECT_EQ(plain->SetUrl("no such thing to open"), 0);
    plain->SendMessage(BM_CLICK);
    EXPECT_EQ(ground.commands.back(), (ReceivedCommand{1030, BN_CLICKED, plain->GetHandle()}));
}

TEST_F(IconButton, StaysOwnerDrawnWhateverTheDialogMakesOfIt) {
    const auto button = Make(BS_PUSHBUTTON);
    for (const auto& [style, isDefault] : {std::pair{1, true}, {2, true}, {0, false}, {0x16, false}, {1, true}}) {
        button->SendMessage(BM_SETSTYLE, static_cast<WPARAM>(style), TRUE);
        EXPECT_EQ(button->GetStyle() & 0x1F, DWORD{BS_OWNERDRAW}) << style;
        EXPECT_EQ(button->IsDefault(), isDefault) << style;
        EXPECT_EQ(button->SendMessage(WM_GETDLGCODE) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON),
                  isDefault ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    }
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

TEST_F(IconButton, SettersRefuseWhatIsOutOfRangeAndTipsAreReplaced) {
    const auto button = Make(BS_PUSHBUTTON);
    COLORREF color = 0;
    const int results[] = {button->SetColor(6, 0, true),
                           button->GetColor(6, color),
                           button->ShiftColor(6, 300, true),
                           button->SetImageAlign(3, true),
                           button->SetColor(5, RGB(10, 20, 30), true),
                           button->ShiftColor(5, 256, true),
                           button->ShiftColor(5, -15, true),
                           button->GetColor(5, color),
                           button->SetButtonCursor(IDC_HAND_CURSOR, true),
                           button->SetButtonCursor(9999, true),
                           button->SetIcons(IDI_LAMP_LIT, IDI_LAMP_DARK),
                           button->SetIcons(IDI_LAMP_LIT, 9999)};
    EXPECT_EQ(std::vector(std::begin(results), std::end(results)),
              (std::vector{3, 3, 3, 4, 0, 5, 0, 0, 0, 1, 0, 0}));
    EXPECT_EQ(color, RGB(0, 10, 20));
    for (const int cursor : {IDC_HAND_CURSOR, 0}) {
        const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
        ::SetCursor(arrow);
        button->SetButtonCursor(cursor, true);
        button->SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(button->GetHandle()), HTCLIENT);
        EXPECT_EQ(::GetCursor() == arrow, cursor == 0);
    }
    button->SetToolTip(nullptr, true);
    button->ActivateToolTip(true);
    EXPECT_EQ(TipOf(*button), "");
    EXPECT_EQ(button->SetToolTip("first", true) + button->SetToolTip("second", true), 0);
    std::string text;
    const HWND tip = FindTip(*button, text);
    EXPECT_EQ(text, "second");
    TipWatch::former = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrA(tip, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TipWatch::See)));
    button->SetToolTipFromResource(IDS_START, false);
    EXPECT_EQ(TipOf(*button), LoadText(IDS_START));
    button->ActivateToolTip(true);
    button->ActivateToolTip(false);
    button->SetToolTipFromResource(59999, true); // no such text
    EXPECT_EQ(TipWatch::activated, (std::vector<WPARAM>{FALSE, TRUE, FALSE}));
    // The next window has a tip of its own.
    button->DestroyWindow();
    button->Create("BUTTON", "", WS_CHILD, {10, 10, 70, 30}, ground.GetHandle(), 1);
    EXPECT_EQ(TipOf(*button), "");
}

TEST_F(IconButton, BitmapsLetTheGroundThroughAndFailuresLeaveNone) {
    const auto button = Make(BS_PUSHBUTTON);
    button->SetColor(CIconButton::IdleBack, ColorOf('q'), false);
    const auto look = [&](UINT state = 0) {
        const CSurface surface(60, 20);
        Draw(*button, surface, state);
        return surface.Read()[9].substr(28, 4);
    };
    EXPECT_EQ(button->SetBitmapHandles(MakeBitmap({"A.", "A."}), ColorOf('.'), nullptr, 0), 0);
    EXPECT_EQ(look(), "qAqq");
    EXPECT_EQ(look(ODS_DISABLED).find('A'), std::string::npos);
    for (const char hidden : {'a', 'b'}) { // a strip of three colours, of whose middle one this is
        EXPECT_EQ(button->SetBitmaps(401, ColorOf('c'), 401, ColorOf(hidden)), 0);
        EXPECT_EQ(look(), hidden == 'b' ? "qqqq" : "bbbb");
    }
    EXPECT_EQ(button->SetBitmaps(9999, 0, 401, 0), 0);
    EXPECT_EQ(look(), "qqqq");
    const HBITMAP inUse = MakeBitmap({"A"});
    const CMemoryDC user(nullptr);
    const HGDIOBJ former = ::SelectObject(user.GetHandle(), inUse);
    EXPECT_EQ(button->SetBitmapHandles(MakeBitmap({"AA"}), 0, inUse, 0), 2);
    ::SelectObject(user.GetHandle(), former);
    ::DeleteObject(inUse);
    EXPECT_EQ(look(), "qqqq");
    EXPECT_EQ(button->SetIconHandles(MakeIcon('A'), reinterpret_cast<HICON>(INT_PTR{0x7FF1})), 1);
    EXPECT_EQ(look(), "qqqq");
    EXPECT_EQ(button->SetIconHandles(nullptr, MakeIcon('A')), 0);
    EXPECT_EQ(look(), "qqqq");
}

} // namespace
