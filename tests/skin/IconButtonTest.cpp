// The icon button and the round one in each state, as approved; check state, style and tips.
#include "skin/IconButton.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "framework/ResourceModule.h"
#include "Ground.h"
#include "resources/ResourceIds.h"
#include "skin/PlainIconButton.h"
#include "skin/RoundButton.h"
#include "support/Look.h"

namespace {

HICON MakeIcon(char color) {
    const CBitmap picture(MakeBitmap(Art(8, std::string(8, color))));
    const std::array<std::byte, 16> opaque{};
    const CBitmap mask(::CreateBitmap(8, 8, 1, 1, opaque.data()));
    ICONINFO info{TRUE, 0, 0, mask.GetHandle(), picture.GetHandle()};
    return ::CreateIconIndirect(&info);
}
const CRect place{10, 10, 70, 30};

// A cell of the sheet for each: image, colours, edge and caption.
TEST(IconButton, EveryKindInEveryState) {
    constexpr int columns = 20, width = 66, height = 24, rows = 13;
    const CGround ground;
    CSurface sheet(columns * width, rows * height, '.');
    int cell = 0;
    const auto draw = [&](auto& button) {
        for (const int state : {0, ODS_SELECTED, ODS_FOCUS, ODS_DISABLED, ODS_SELECTED | ODS_FOCUS}) {
            DrawButton(button, sheet, {cell % columns * width + 3, cell / columns * height + 2},
                       static_cast<UINT>(state));
            ++cell;
        }
    };
    for (int kind = 0; kind < 48; ++kind) {
        const bool flat = kind % 2 != 0, check = kind / 2 % 2 != 0, hover = kind / 4 % 2 != 0,
                   border = kind / 8 % 2 != 0;
        CIconButton button;
        Put(button, ground, "BUTTON", place, check ? BS_AUTOCHECKBOX : BS_PUSHBUTTON, kind < 40 ? "W W" : "");
        for (unsigned i = 0; i < 6; ++i) button.SetColor(i, RGB(40 * i, 7, 7), false);
        button.SetFlat(flat, false);
        button.SetDrawBorder(border, false);
        button.SetDrawFlatFocus(kind >= 32, false);
        button.SetImageAlign(kind / 16, false);
        if (hover) Mouse(button, WM_MOUSEMOVE, 5, 5);
        button.SetIconHandles(MakeIcon('A'), MakeIcon('B'));
        draw(button);
    }
    for (const bool rounded : {false, true}) {
        CPlainIconButton plate;
        Put(plate, ground, "BUTTON", place);
        plate.SetColor(CIconButton::ActiveBack, ColorOf('a'), false);
        plate.SetRounded(rounded, true);
        draw(plate);
    }
    for (const LONG style : {0L, LONG{BS_FLAT}}) {
        CRoundButton round;
        Put(round, ground, "BUTTON", {10, 20, 30, 40}, style, "WWWWWWW");
        round.focusBorder = style == 0;
        draw(round);
    }
    EXPECT_EQ(cell, columns * rows);
    ExpectApproved("sheet-icon-buttons", {columns * width, sheet.Pixels()}, ApprovedLook("sheet-icon-buttons"));
}

TEST(IconButton, ATransparentOneKeepsItsGroundUntilColoursChange) {
    const CGround ground;
    CIconButton button;
    Put(button, ground, "BUTTON", place, BS_PUSHBUTTON, "W");
    button.ShowWindow(SW_HIDE);
    PumpMessages();
    button.SetTransparent(true);
    for (const char below : {'g', 'q', 'r'}) {
        if (below != 'g') CClientDC(ground.GetHandle()).FillSolidRect(place, ColorOf(below));
        if (below == 'r') button.SendMessage(WM_SYSCOLORCHANGE);
        EXPECT_EQ(DrawButton(button)[120], ColorOf(below == 'q' ? 'g' : below));
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
