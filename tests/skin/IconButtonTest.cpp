// The icon button: images, colours and captions in each state, drawn on a surface; clicks, focus and hover on a window.
#include "skin/IconButton.h"

#include <algorithm>
#include <memory>

#include <gtest/gtest.h>

#include "ControlGround.h"
#include "Repeats.h"
#include "resources/ResourceIds.h"

namespace {

using CButtonUnderTest = CCounted<CIconButton>;

HICON MakeIcon(char color) {
    const CBitmap picture(MakeBitmap(Art(8, std::string(8, color))));
    const std::array<std::byte, 16> opaque{};
    const CBitmap mask(::CreateBitmap(8, 8, 1, 1, opaque.data()));
    ICONINFO info{TRUE, 0, 0, mask.GetHandle(), picture.GetHandle()};
    return ::CreateIconIndirect(&info);
}

class IconButton : public testing::Test {
protected:
    // 60 x 20 pixels: without a caption, an image of 8 x 8 fills (26, 6) to (34, 14).
    std::unique_ptr<CButtonUnderTest> Make(DWORD type, const char* text = "", int row = 0) {
        CGround::RestCursorElsewhere();
        auto made = std::make_unique<CButtonUnderTest>();
        made->Create("BUTTON", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | type, {10, 10 + 30 * row, 70, 30 + 30 * row},
                     ground.GetHandle(), static_cast<UINT>(1030 + row));
        CGround::Pump();
        return made;
    }
    static void Hover(const CIconButton& button) {
        POINT place{5, 5};
        ::ClientToScreen(button.GetHandle(), &place);
        ::SetCursorPos(place.x, place.y); // the platform tells at once when the pointer isn't there
        button.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    }
    static void Draw(CIconButton& button, const CSurface& surface, UINT state) {
        DRAWITEMSTRUCT item{};
        item.itemState = state;
        item.hDC = surface.GetHandle();
        item.rcItem = {0, 0, 60, 20};
        ::SetTextColor(item.hDC, RGB(200, 1, 2)); // as a parent may have left it
        button.DrawItem(item);
    }
    static bool Shows(const CSurface& surface, COLORREF color) {
        const std::vector<COLORREF> pixels = surface.Pixels();
        return std::find(pixels.begin(), pixels.end(), color) != pixels.end();
    }

    CControlGround ground;
};

struct State {
    DWORD type;
    int check;
    UINT item;
    bool hover;
};

TEST_F(IconButton, StatesChooseTheImageAndAPressMovesThatOfAPlainButton) {
    struct Row {
        State state;
        char image;
        int shift;
    };
    const Row rows[] = {{{BS_AUTOCHECKBOX, 0, 0, false}, 'B', 0},
                        {{BS_AUTOCHECKBOX, 0, 0, true}, 'B', 0},
                        {{BS_AUTOCHECKBOX, 0, ODS_SELECTED, false}, 'A', 0},
                        {{BS_AUTOCHECKBOX, 1, 0, false}, 'A', 0},
                        {{BS_CHECKBOX, 1, ODS_FOCUS, true}, 'A', 0},
                        {{BS_PUSHBUTTON, 1, 0, false}, 'B', 0},
                        {{BS_PUSHBUTTON, 0, 0, true}, 'A', 0},
                        {{BS_DEFPUSHBUTTON, 0, ODS_SELECTED, false}, 'A', 1}};
    for (const Row& row : rows) {
        const auto button = Make(row.state.type);
        button->SetCheck(row.state.check, false);
        if (row.state.hover) Hover(*button);
        for (const HICON second : {MakeIcon('B'), HICON{}}) {
            EXPECT_EQ(button->SetIconHandles(MakeIcon('A'), second), 0);
            const CSurface surface(60, 20);
            Draw(*button, surface, row.state.item);
            const COLORREF image = ColorOf(second != nullptr ? row.image : 'A');
            const bool moved = row.shift != 0;
            EXPECT_EQ(surface.Pixel(26, 6) == image, !moved) << &row - rows;
            EXPECT_EQ(surface.Pixel(34, 14) == image, moved) << &row - rows;
            EXPECT_EQ(surface.Pixel(30, 10), image) << &row - rows;
        }
    }
}

TEST_F(IconButton, StatesChooseTheColours) {
    enum : unsigned { Engraved = 9 };
    struct Row {
        State state;
        unsigned back, text;
    };
    const Row rows[] = {{{BS_CHECKBOX, 0, 0, false}, 2, 3},
                        {{BS_CHECKBOX, 1, 0, false}, 0, 1},
                        {{BS_CHECKBOX, 0, 0, true}, 0, 1},
                        {{BS_CHECKBOX, 0, ODS_FOCUS, false}, 4, 3},
                        {{BS_PUSHBUTTON, 0, ODS_FOCUS, true}, 0, 1},
                        {{BS_PUSHBUTTON, 0, ODS_SELECTED, false}, 0, 1},
                        {{BS_CHECKBOX, 1, ODS_DISABLED, false}, 0, Engraved}};
    for (const Row& row : rows) {
        const auto button = Make(row.state.type, "W W");
        for (unsigned i = 0; i < 6; ++i) EXPECT_EQ(button->SetColor(i, RGB(40 * i, 7, 7), false), 0);
        button->SetCheck(row.state.check, false);
        button->SetDrawBorder(false, false);
        if (row.state.hover) Hover(*button);
        const CSurface surface(60, 20);
        Draw(*button, surface, row.state.item);
        EXPECT_EQ(surface.Pixel(3, 3), RGB(40 * row.back, 7, 7)) << &row - rows;
        for (const unsigned text : {1U, 3U, 5U}) {
            EXPECT_EQ(Shows(surface, RGB(40 * text, 7, 7)), text == row.text) << &row - rows << ": " << text;
        }
        EXPECT_EQ(Shows(surface, ::GetSysColor(COLOR_BTNSHADOW)), row.text == Engraved) << &row - rows;
    }
}

TEST_F(IconButton, StatesChooseTheEdge) {
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT), shadow = ::GetSysColor(COLOR_BTNSHADOW);
    const COLORREF dark = ::GetSysColor(COLOR_3DDKSHADOW), face = RGB(7, 7, 7);
    struct Row {
        bool flat, hover;
        UINT item;
        COLORREF topLeft, bottomRight;
    };
    const Row rows[] = {{true, false, ODS_FOCUS, face, face},         {true, true, 0, light, shadow},
                        {true, false, ODS_SELECTED, shadow, light},   {false, false, 0, light, dark},
                        {false, false, ODS_SELECTED, shadow, shadow}, {false, false, ODS_FOCUS, 0, 0}};
    for (const Row& row : rows) {
        const auto button = Make(BS_PUSHBUTTON);
        for (const unsigned back : {0U, 2U, 4U}) button->SetColor(back, face, false);
        button->SetFlat(row.flat, false);
        if (row.hover) Hover(*button);
        const CSurface surface(60, 20);
        Draw(*button, surface, row.item);
        EXPECT_EQ(surface.Pixel(0, 0), row.topLeft) << &row - rows;
        EXPECT_EQ(surface.Pixel(59, 19), row.bottomRight) << &row - rows;
    }
}

TEST_F(IconButton, ClicksFlipACheckBoxBeforeTheParentHears) {
    const auto box = Make(BS_AUTOCHECKBOX);
    std::vector<int> heard;
    ground.atCommand = [&] { heard.push_back(box->GetCheck()); };
    for (const UINT down : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_LBUTTONDOWN}) {
        box->SendMessage(down, MK_LBUTTON, MAKELPARAM(5, 5));
        box->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    EXPECT_EQ(heard, (std::vector<int>{1, 0, 1}));
    EXPECT_EQ(ground.commands.at(0), (ReceivedCommand{1030, BN_CLICKED, box->GetHandle()}));
    EXPECT_EQ(::GetFocus(), box->GetHandle());
    for (const auto& [value, check] : {std::pair{0, 0}, {1, 1}, {3, 0}, {2, 1}}) {
        EXPECT_EQ(box->SendMessage(BM_SETCHECK, static_cast<WPARAM>(value)), 0);
        EXPECT_EQ(box->SendMessage(BM_GETCHECK), check) << value;
    }
    const auto plain = Make(BS_PUSHBUTTON, "", 1);
    plain->SendMessage(BM_SETCHECK, 1);
    EXPECT_EQ(plain->GetCheck(), 0);
}

TEST_F(IconButton, StaysOwnerDrawnWhateverTheDialogMakesOfIt) {
    const auto button = Make(BS_PUSHBUTTON);
    for (const auto& [style, isDefault] : {std::pair{1, true}, {2, true}, {0, false}, {0x16, false}, {1, true}}) {
        button->SendMessage(BM_SETSTYLE, static_cast<WPARAM>(style), TRUE);
        EXPECT_EQ(button->GetStyle() & 0x1F, DWORD{BS_OWNERDRAW}) << style;
        EXPECT_EQ(button->IsDefault(), isDefault) << style;
        const LRESULT code = button->SendMessage(WM_GETDLGCODE);
        EXPECT_EQ(code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON),
                  isDefault ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    }
    EXPECT_TRUE(Make(BS_DEFPUSHBUTTON, "", 1)->IsDefault());
}

TEST_F(IconButton, ADisabledButtonPassesTheFocusOn) {
    const auto first = Make(BS_PUSHBUTTON), second = Make(BS_PUSHBUTTON, "", 1), third = Make(BS_PUSHBUTTON, "", 2);
    second->focusHeir = third->GetHandle();
    second->SetFocus();
    second->ShowWindow(SW_HIDE);
    EXPECT_EQ(::GetFocus(), third->GetHandle()) << "its heir, when it is hidden";
    first->SetFocus();
    second->EnableWindow(false);
    EXPECT_EQ(::GetFocus(), first->GetHandle());
    first->EnableWindow(false);
    EXPECT_EQ(::GetFocus(), third->GetHandle());
    third->EnableWindow(false);
    EXPECT_EQ(::GetFocus(), ground.GetHandle());
}

TEST_F(IconButton, WhatTakesTheMouseAwayEndsHoverAndPress) {
    const std::pair<const char*, std::function<void(const CIconButton&)>> ends[] = {
        {"modes", [](const CIconButton& button) { button.SendMessage(WM_CANCELMODE); }},
        {"focus", [this](const CIconButton&) { ground.SetFocus(); }},
        {"disabled", [](const CIconButton& button) { button.EnableWindow(!button.EnableWindow(false)); }},
        {"hidden", [](const CIconButton& button) { button.ShowWindow(SW_HIDE); }},
        {"disabled window", [this](const CIconButton& button) {
             ground.EnableWindow(false);
             button.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 5));
             ground.EnableWindow(true);
         }}};
    for (const auto& [name, end] : ends) {
        const auto button = Make(BS_PUSHBUTTON);
        button->SetColor(CIconButton::ActiveBack, ColorOf('a'), false);
        Hover(*button);
        button->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        end(*button);
        EXPECT_NE(::GetCapture(), button->GetHandle()) << name;
        const CSurface surface(60, 20);
        Draw(*button, surface, 0);
        EXPECT_FALSE(Shows(surface, ColorOf('a'))) << name;
        button->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_TRUE(ground.commands.empty()) << name;
    }
}

TEST_F(IconButton, AnotherWindowFindsNothingOfTheFormerOne) {
    const auto button = Make(BS_AUTOCHECKBOX);
    button->SetCheck(1, false);
    button->SetToolTip("former", true);
    Hover(*button);
    CWnd second;
    second.Create("BUTTON", "", WS_CHILD | WS_VISIBLE, {10, 40, 70, 60}, ground.GetHandle(), 1);
    const HWND window = second.UnsubclassWindow();
    button->UnsubclassWindow();
    button->SetColor(CIconButton::ActiveBack, ColorOf('a'), false);
    ASSERT_TRUE(button->SubclassWindow(window));
    const CSurface surface(60, 20);
    Draw(*button, surface, 0);
    EXPECT_FALSE(Shows(surface, ColorOf('a')));
    button->SetCheck(1, false);
    EXPECT_EQ(button->GetCheck(), 0) << "a plain button";
    button->SetToolTip("present", true);
    EXPECT_EQ(TipOf(*button), "present");
}

TEST_F(IconButton, SettersRefuseWhatIsOutOfRange) {
    const auto button = Make(BS_PUSHBUTTON);
    COLORREF color = 0;
    EXPECT_EQ(button->SetColor(6, 0, true), 3);
    EXPECT_EQ(button->GetColor(6, color), 3);
    EXPECT_EQ(button->ShiftColor(6, 300, true), 3);
    EXPECT_EQ(button->SetImageAlign(3, true), 4);
    EXPECT_EQ(button->SetImageAlign(2, true), 0);
    EXPECT_EQ(button->SetColor(5, RGB(10, 20, 30), true), 0);
    EXPECT_EQ(button->ShiftColor(5, 256, true), 5);
    EXPECT_EQ(button->ShiftColor(5, -15, true), 0);
    EXPECT_EQ(button->GetColor(5, color), 0);
    EXPECT_EQ(color, RGB(0, 10, 20));
    EXPECT_EQ(button->SetButtonCursor(IDC_HAND_CURSOR, true), 0);
    EXPECT_EQ(button->SetButtonCursor(9999, true), 1);
    EXPECT_EQ(button->SetIcons(IDI_LAMP_LIT, IDI_LAMP_DARK), 0);
    EXPECT_EQ(button->SetIcons(IDI_LAMP_LIT, 9999), 0) << "no second image";
    EXPECT_EQ(button->SetToolTip("first", true) + button->SetToolTip("second", true), 0);
    EXPECT_EQ(TipOf(*button), "second");
}

TEST_F(IconButton, BitmapsLetTheGroundThroughAndFailuresLeaveNone) {
    const auto button = Make(BS_PUSHBUTTON);
    button->SetColor(CIconButton::IdleBack, ColorOf('q'), false);
    const auto look = [&](UINT state) {
        const CSurface surface(60, 20);
        Draw(*button, surface, state);
        return std::string{surface.Read()[9][29], surface.Read()[9][30]};
    };
    EXPECT_EQ(button->SetBitmapHandles(MakeBitmap({"A.", "A."}), ColorOf('.'), nullptr, 0), 0);
    EXPECT_EQ(look(0), "Aq");
    EXPECT_EQ(look(ODS_DISABLED).find('A'), std::string::npos);
    const HBITMAP inUse = MakeBitmap({"A"});
    const CMemoryDC user(nullptr);
    const HGDIOBJ former = ::SelectObject(user.GetHandle(), inUse);
    EXPECT_EQ(button->SetBitmapHandles(MakeBitmap({"AA"}), 0, inUse, 0), 2);
    ::SelectObject(user.GetHandle(), former);
    ::DeleteObject(inUse);
    EXPECT_EQ(look(0), "qq");
    const HICON noIcon = reinterpret_cast<HICON>(INT_PTR{0x7FF1});
    EXPECT_EQ(button->SetIconHandles(MakeIcon('A'), noIcon), 1);
    EXPECT_EQ(look(0), "qq");

    // The second icon made of the first, in grey.
    EXPECT_EQ(button->SetIconHandles(MakeIcon('A'), reinterpret_cast<HICON>(INT_PTR{CIconButton::grayOfFirst})), 0);
    const CSurface surface(60, 20);
    Draw(*button, surface, 0);
    EXPECT_EQ(surface.Pixel(30, 10), IconGray(ColorOf('A')));
}

TEST_F(IconButton, OneHoverPaintsThatButtonAloneAndRestPaintsNone) {
    const auto hovered = Make(BS_CHECKBOX), other = Make(BS_CHECKBOX, "", 1);
    const int before = hovered->paints, others = other->paints;
    Hover(*hovered);
    CGround::Pump();
    Hover(*hovered);
    CGround::Pump();
    EXPECT_EQ(hovered->paints, before + 1);
    hovered->SendMessage(WM_MOUSELEAVE);
    CGround::Pump();
    hovered->SetButtonCursor(0, true);
    CGround::Pump();
    EXPECT_EQ(hovered->paints, before + 2);
    EXPECT_EQ(other->paints, others);
}

TEST_F(IconButton, PaintingLosesNoHandle) {
    const auto button = Make(BS_PUSHBUTTON, "Caption");
    button->SetFlat(false, false);
    button->SetBitmapHandles(MakeBitmap({"A.", "A."}), ColorOf('.'), nullptr, 0);
    RecordProperty("MicrosecondsPerPaint", std::to_string(PaintOften(*button)));
    const CSurface surface(60, 20);
    const std::size_t before = FreeGdiObjects();
    for (int round = 0; round < Repeats(500); ++round) Draw(*button, surface, ODS_DISABLED);
    EXPECT_NEAR(static_cast<double>(FreeGdiObjects()), static_cast<double>(before), 8);
}

} // namespace
