#include "menu/SkinMenu.h"

#include <string_view>

#include "framework/Dc.h"
#include "menu/MenuFont.h"
#include "pictures/ColorMath.h"

namespace {

constexpr int rowHeight = 28;
constexpr int stripeWidth = 28;
constexpr int textLeft = 31; // in the menu's coordinates

const char* TextOf(ULONG_PTR itemData) {
    return itemData != 0 ? reinterpret_cast<const char*>(itemData) : "";
}

void Frame(CDC& dc, const CRect& rect, COLORREF color) {
    dc.Draw3dRect(rect, color, color);
}

HFONT MainWindowFont() {
    const HWND window = MenuContextWindow();
    return window != nullptr ? reinterpret_cast<HFONT>(::SendMessageA(window, WM_GETFONT, 0, 0)) : nullptr;
}

} // namespace

COLORREF CSkinMenu::BlendColors(COLORREF first, COLORREF second, BYTE weight) {
    return MixedColor(first, second, weight);
}

void CSkinMenu::MeasureItem(MEASUREITEMSTRUCT& item) {
    const CClientDC dc(MenuContextWindow());
    item.itemWidth = static_cast<UINT>(dc.GetTextExtent(std::string_view(TextOf(item.itemData))).cx + stripeWidth);
    item.itemHeight = rowHeight;
}

void CSkinMenu::DrawItem(DRAWITEMSTRUCT& item) {
    CDC dc(item.hDC);
    const CSavedDC saved(dc);
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    CRect rect = item.rcItem;
    CRect stripe = rect;
    stripe.right = stripe.left + stripeWidth;
    dc.FillSolidRect(rect, backColor);
    dc.FillSolidRect(stripe, stripeColor);
    dc.SetBkMode(TRANSPARENT);
    if (selected && (item.itemAction & (ODA_DRAWENTIRE | ODA_SELECT)) != 0) {
        rect.Inflate(-1, -1);
        Frame(dc, rect, frameColor);
        rect.Inflate(-1, -1);
        dc.FillSolidRect(rect, selectColor);
    }
    if ((item.itemState & ODS_CHECKED) != 0) DrawCheckSign(dc, stripe, selected);
    dc.SetTextColor(selected ? selectTextColor : RGB(0, 0, 0));
    rect.left = textLeft;
    const CSelectObject font(dc, MainWindowFont());
    dc.DrawText(std::string_view(TextOf(item.itemData)), rect, DT_VCENTER | DT_SINGLELINE);
}

void CSkinMenu::DrawCheckSign(CDC& dc, CRect stripe, bool selected) const {
    constexpr BYTE tintWeight = 140;
    COLORREF color = BlendColors(selectColor, backColor, tintWeight);
    if (selected) color = BlendColors(selectColor, color, tintWeight);
    stripe.Inflate(-3, -3);
    dc.SetTextColor(RGB(0, 0, 0));
    Frame(dc, stripe, frameColor);
    stripe.Inflate(-1, -1);
    dc.FillSolidRect(stripe, color);
    constexpr std::wstring_view checkSign = L"\u221A"; // bytes A1 CC of GB2312, which few code pages know
    dc.DrawText(checkSign, stripe, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_EXPANDTABS);
}
