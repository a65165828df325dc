#include "skin/SkinStatic.h"

#include "framework/Dc.h"

namespace {

// A light caption wants a dark ground, a dark one the face of the dialog.
COLORREF GroundFor(COLORREF text) {
    const bool light = GetRValue(text) + GetGValue(text) + GetBValue(text) > 3 * 0xC0;
    return light ? RGB(0x50, 0x50, 0x50) : ::GetSysColor(COLOR_BTNFACE);
}

bool IsEtched(DWORD style) {
    const DWORD type = style & SS_TYPEMASK;
    return type == SS_ETCHEDHORZ || type == SS_ETCHEDVERT || type == SS_ETCHEDFRAME;
}

} // namespace

const CMessageMap& CSkinStatic::ClassMap() {
    static constexpr std::array entries{On<WM_PAINT, &CSkinStatic::OnPaint>()};
    static const CMessageMap map{&CStatic::ClassMap(), entries};
    return map;
}

void CSkinStatic::SetCaption(const std::string& text, int leftOffset, COLORREF color) {
    captionLeft = leftOffset;
    textColor = color;
    if (caption == text) return;
    caption = text;
    SetWindowText(text);
}

bool CSkinStatic::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (const CWnd* parent = GetParent()) parent->SendMessage(WM_COMMAND, wParam, lParam);
    return CStatic::OnCommand(wParam, lParam);
}

void CSkinStatic::OnPaint() {
    if (IsEtched(GetStyle())) {
        Default();
        return;
    }
    CPaintDC dc(*this);
    const CSavedDC saved(dc);
    CRect rect = GetClientRect();
    dc.FillSolidRect(rect, GroundFor(textColor));
    if (caption.empty()) return;
    if (CWnd* parent = GetParent())
        ::SelectObject(dc.GetHandle(), reinterpret_cast<HFONT>(parent->SendMessage(WM_GETFONT)));
    dc.SetTextColor(textColor);
    dc.SetBkMode(TRANSPARENT);
    rect.left = captionLeft;
    dc.DrawText(caption, rect, DT_VCENTER | DT_SINGLELINE);
}
