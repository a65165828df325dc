#include "skin/SkinButton.h"

#include "framework/Dc.h"

void CSkinButton::PreSubclassWindow() {
    ModifyStyle(BS_TYPEMASK, BS_OWNERDRAW);
}

void CSkinButton::SetCaption(const std::string& text, int, COLORREF color) {
    textColor = color;
    if (caption == text) return;
    caption = text;
    SetWindowText(text);
}

void CSkinButton::DrawItem(DRAWITEMSTRUCT& item) {
    CDC dc(item.hDC);
    const CSavedDC saved(dc);
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    CRect rect(item.rcItem);
    ::DrawFrameControl(item.hDC, &rect, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed || disabled ? DFCS_PUSHED : 0U));
    dc.SetTextColor(textColor);
    dc.SetBkMode(TRANSPARENT);
    if (pressed) rect.Offset(1, 1);
    dc.DrawText(caption, rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    if ((item.itemState & ODS_FOCUS) != 0) {
        rect.Inflate(-3, -3);
        ::DrawFocusRect(item.hDC, &rect);
    }
}
