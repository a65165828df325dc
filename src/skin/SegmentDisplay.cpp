#include "skin/SegmentDisplay.h"

#include "framework/Dc.h"

const CMessageMap& CSegmentDisplay::ClassMap() {
    static constexpr std::array entries{On<WM_PAINT, &CSegmentDisplay::OnPaint>()};
    static const CMessageMap map{&CStatic::ClassMap(), entries};
    return map;
}

void CSegmentDisplay::SetBackColor(COLORREF color) {
    backColor = color;
    Invalidate(false);
}

void CSegmentDisplay::SetSegmentColor(COLORREF color) {
    segmentColor = color;
    Invalidate(false);
}

void CSegmentDisplay::SetText(const std::string& newText) {
    if (text != newText) SetWindowText(newText);
    text = newText;
    Invalidate(false);
}

void CSegmentDisplay::OnPaint() {
    CPaintDC dc(*this);
    const CRect rect = GetClientRect();
    LOGFONTA description{};
    description.lfHeight = -rect.Height();
    description.lfWeight = FW_BOLD;
    description.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    const CFont font(description);
    const CSavedDC saved(dc);
    dc.FillSolidRect(rect, backColor);
    ::SelectObject(dc.GetHandle(), font.GetHandle());
    dc.SetTextColor(segmentColor);
    dc.SetBkMode(TRANSPARENT);
    CRect place = rect;
    dc.DrawText(text, place, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
}
