#include "skin/RoundButton.h"

#include <algorithm>
#include <string>
#include <utility>

#include "framework/Text.h"
#include "skin/RoundShading.h"

namespace {

constexpr COLORREF black = RGB(0, 0, 0);

void DrawEngraved(const CDC& dc, CPoint place, const std::string& text) {
    const std::wstring wide = ToWide(text);
    ::DrawStateW(dc.GetHandle(), nullptr, nullptr, reinterpret_cast<LPARAM>(wide.c_str()), 0, place.x, place.y, 0, 0,
                 DST_PREFIXTEXT | DSS_DISABLED);
}

} // namespace

void CRoundButton::DrawCircle(const CDC& dc, int centerX, int centerY, int radius, COLORREF color, bool dotted) {
    for (const CirclePoint& point : CirclePoints(centerX, centerY, radius, dotted))
        ::SetPixelV(dc.GetHandle(), point.x, point.y, color);
}

void CRoundButton::DrawShadedCircle(const CDC& dc, int centerX, int centerY, int radius, COLORREF light,
                                    COLORREF dark) {
    for (const CirclePoint& point : CirclePoints(centerX, centerY, radius))
        ::SetPixelV(dc.GetHandle(), point.x, point.y, AngleColor(point.angle, light, dark));
}

COLORREF CRoundButton::AngleColor(double angle, COLORREF light, COLORREF dark) {
    return ::AngleColor(angle, light, dark);
}

void CRoundButton::PreSubclassWindow() {
    CInputControl::PreSubclassWindow();
    ModifyStyle(0, BS_OWNERDRAW);
    const CRect client = GetClientRect();
    const LONG side = std::min(client.Width(), client.Height());
    CRect square(0, 0, side, side);
    center = {side / 2, side / 2};
    radius = static_cast<int>(side / 2 - 1);
    ::SetWindowRgn(GetHandle(), nullptr, FALSE);
    CRgn shape(::CreateEllipticRgnIndirect(&square));
    if (::SetWindowRgn(GetHandle(), shape.GetHandle(), TRUE) != 0) shape.Detach(); // the window's from now on
    ::MapWindowPoints(GetHandle(), ::GetParent(GetHandle()), reinterpret_cast<POINT*>(&square), 2);
    MoveWindow(square);
}

void CRoundButton::DrawItem(DRAWITEMSTRUCT& item) {
    CDC dc(item.hDC);
    const CSavedDC saved(dc);
    ::SelectObject(item.hDC, ::GetStockObject(NULL_BRUSH));
    dc.FillSolidRect(item.rcItem, ::GetSysColor(COLOR_BTNFACE));
    const bool showsFocus = (item.itemState & ODS_FOCUS) != 0 && focusBorder;
    if (showsFocus) DrawCircle(dc, center.x, center.y, radius, black);
    const int outer = showsFocus ? radius - 1 : radius;
    DrawRings(dc, outer, (item.itemState & ODS_SELECTED) != 0);
    const int inner = outer - 2;
    DrawCaption(dc, inner, item.itemState);
    if (showsFocus) DrawCircle(dc, center.x, center.y, inner - 2, black, true);
}

void CRoundButton::DrawRings(CDC& dc, int outerRadius, bool pressed) const {
    const COLORREF highlight = ::GetSysColor(COLOR_BTNHIGHLIGHT);
    if ((GetStyle() & BS_FLAT) != 0) {
        DrawCircle(dc, center.x, center.y, outerRadius, black);
        DrawCircle(dc, center.x, center.y, outerRadius - 1, highlight);
        return;
    }
    COLORREF outerLight = highlight;
    COLORREF outerDark = ::GetSysColor(COLOR_3DDKSHADOW);
    COLORREF innerLight = ::GetSysColor(COLOR_3DLIGHT);
    COLORREF innerDark = ::GetSysColor(COLOR_BTNSHADOW);
    if (pressed) {
        std::swap(outerLight, outerDark);
        std::swap(innerLight, innerDark);
    }
    DrawShadedCircle(dc, center.x, center.y, outerRadius, outerLight, outerDark);
    DrawShadedCircle(dc, center.x, center.y, outerRadius - 1, innerLight, innerDark);
}

void CRoundButton::DrawCaption(CDC& dc, int clipRadius, UINT state) const {
    const std::string text = GetWindowText();
    if (text.empty()) return;
    const CSavedDC unclipped(dc);
    const CRgn clip(::CreateEllipticRgn(center.x - clipRadius, center.y - clipRadius, center.x + clipRadius,
                                        center.y + clipRadius));
    ::SelectClipRgn(dc.GetHandle(), clip.GetHandle());
    const CSize size = dc.GetTextExtent(text);
    const LONG shift = (state & ODS_SELECTED) != 0 ? 1 : 0;
    const CPoint place(center.x - size.cx / 2 + shift, center.y - size.cy / 2 + shift);
    dc.SetBkMode(TRANSPARENT);
    if ((state & ODS_DISABLED) != 0) {
        DrawEngraved(dc, place, text);
    } else {
        dc.TextOut(place.x, place.y, text);
    }
}
