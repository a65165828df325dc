// The coloured combo box, the plain icon button and the bold font.
#include "skin/ColorCombo.h"

#include <algorithm>
#include <initializer_list>

#include <gtest/gtest.h>

#include "ControlGround.h"
#include "skin/BoldFont.h"
#include "skin/PlainIconButton.h"

namespace {

constexpr COLORREF red = 0x0000FF, pale = 0xC8ECE0;

class ColorCombo : public testing::Test {
protected:
    ColorCombo() {
        combo.Create("COMBOBOX", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, {10, 10, 110, 150}, ground.GetHandle(),
                     1044);
        parts.cbSize = sizeof parts;
        ::GetComboBoxInfo(combo.GetHandle(), &parts);
        combo.SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("COM3"));
        combo.SetWindowText("COM1");
        CGround::Pump();
    }
    static void ExpectColors(HWND window) {
        const CClientDC dc(window);
        const std::vector<COLORREF> pixels = ReadPixels(dc.GetHandle(), CWnd::FromHandle(window)->GetClientRect());
        EXPECT_TRUE(std::ranges::find(pixels, red) != pixels.end());
        EXPECT_GT(std::ranges::count(pixels, pale), static_cast<std::ptrdiff_t>(pixels.size() / 2));
    }

    CControlGround ground;
    CColorCombo combo;
    COMBOBOXINFO parts{};
};

TEST_F(ColorCombo, EditFieldAndOpenListLookAlike) {
    ExpectColors(parts.hwndItem);
    combo.SendMessage(CB_SHOWDROPDOWN, TRUE);
    CGround::Pump();
    ExpectColors(parts.hwndList);
}

TEST(PlainIconButton, PressedItIsAPlateWithoutABorder) {
    CControlGround ground;
    CCounted<CPlainIconButton> button;
    button.Create("BUTTON", "", WS_CHILD | WS_VISIBLE, {10, 10, 40, 30}, ground.GetHandle(), 7);
    button.SetColor(CIconButton::ActiveBack, ColorOf('a'), false);
    button.SetColor(CIconButton::IdleBack, ColorOf('i'), false);
    CGround::Pump();
    struct Row {
        UINT state;
        bool rounded;
        COLORREF corner, edge, inside;
    };
    for (const Row& row : {Row{0, false, ColorOf('i'), ColorOf('i'), ColorOf('i')},
                           Row{0, true, ColorOf('i'), ColorOf('i'), ColorOf('i')},
                           Row{ODS_SELECTED, false, RGB(0, 0, 0), RGB(0, 0, 0), ColorOf('a')},
                           Row{ODS_SELECTED, true, ColorOf(' '), RGB(0, 0, 0), ColorOf('a')}}) {
        EXPECT_EQ(button.SetRounded(row.rounded, false), 0);
        const CSurface surface(30, 20);
        DRAWITEMSTRUCT item{};
        item.itemState = row.state;
        item.hDC = surface.GetHandle();
        item.rcItem = {0, 0, 30, 20};
        button.DrawItem(item);
        EXPECT_EQ(surface.Pixel(0, 0), row.corner) << row.state << row.rounded;
        EXPECT_EQ(surface.Pixel(15, 0), row.edge);
        EXPECT_EQ(surface.Pixel(29, 10), row.edge);
        EXPECT_EQ(surface.Pixel(15, 1), row.inside);
        EXPECT_EQ(surface.Pixel(15, 10), row.inside);
    }
    for (const bool redraw : {false, true}) {
        const int before = button.paints;
        button.SetRounded(true, redraw);
        CGround::Pump();
        EXPECT_EQ(button.paints - before, redraw ? 1 : 0);
    }
    button.SendMessage(BM_SETSTATE, TRUE);
    PaintOften(button);
}

TEST(BoldFont, IsTheWindowsFontAndReplacesAFormerOne) {
    const CGround ground;
    CWnd window;
    window.Create("EDIT", "Bold", WS_CHILD | WS_VISIBLE, {10, 10, 90, 40}, ground.GetHandle(), 7);
    CFont font;
    HGDIOBJ former = nullptr;
    const int dpi = ::GetDeviceCaps(CClientDC(nullptr).GetHandle(), LOGPIXELSY);
    for (const int size : {105, 240}) {
        SetBoldFont(window, size, font);
        LOGFONTW description{};
        ::GetObjectW(font.GetHandle(), sizeof description, &description);
        EXPECT_STREQ(description.lfFaceName, L"Times New Roman");
        EXPECT_EQ(description.lfWeight, 700);
        EXPECT_EQ(description.lfHeight, -(dpi * size / 720));
        EXPECT_EQ(window.SendMessage(WM_GETFONT), reinterpret_cast<LRESULT>(font.GetHandle()));
        EXPECT_EQ(::GetObjectType(former), 0U);
        former = font.GetHandle();
    }
}

} // namespace
