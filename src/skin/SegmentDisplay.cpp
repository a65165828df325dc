#include "skin/SegmentDisplay.h"

#include "framework/Dc.h"

namespace {

void DrawLines(CDC& dc, const std::vector<SegmentLine>& lines, int width, COLORREF color) {
    if (lines.empty()) return;
    const CPen pen(PS_SOLID, width, color);
    const CSelectObject selected(dc, pen.GetHandle());
    for (const SegmentLine& line : lines) {
        dc.MoveTo(line.fromX, line.fromY);
        dc.LineTo(line.toX, line.toY);
    }
}

// Whether a unit may be something else than a pixel to the right and down. Lines are then drawn where they show, since
// a bitmap would be scaled.
bool IsMapped(HDC dc) {
    return ::GetMapMode(dc) != MM_TEXT || ::GetGraphicsMode(dc) != GM_COMPATIBLE;
}

} // namespace

CSegmentDisplay::CSegmentDisplay() : backBrush(RGB(0, 0, 0)) {}

const CMessageMap& CSegmentDisplay::ClassMap() {
    static constexpr std::array entries{OnReflectColor<&CSegmentDisplay::CtlColor>()};
    static const CMessageMap map{&CSkinControl::ClassMap(), entries};
    return map;
}

void CSegmentDisplay::SetBackColor(COLORREF color) {
    backColor = color == systemColor ? ::GetSysColor(COLOR_BTNFACE) : color;
    backBrush = CBrush(backColor);
    Refresh();
}

void CSegmentDisplay::SetSegmentColor(COLORREF color) {
    segmentColor = color == systemColor ? ::GetSysColor(COLOR_BTNTEXT) : color;
    Refresh();
}

void CSegmentDisplay::SetOffColor(COLORREF color) {
    offColor = color;
    offColorSet = true;
    Refresh();
}

void CSegmentDisplay::SetText(const std::string& newText) {
    text = newText;
    if (GetHandle() == nullptr) return;
    StoreCaption(text, segmentColor);
    Invalidate(false);
}

void CSegmentDisplay::SetTimeText(const char* format) {
    text = CTime::Now().Format(format);
    Refresh();
}

void CSegmentDisplay::Refresh() {
    SetText(text);
}

HBRUSH CSegmentDisplay::CtlColor(CDC& dc, UINT) {
    dc.SetTextColor(segmentColor);
    return backBrush.GetHandle();
}

COLORREF CSegmentDisplay::GhostColor() const {
    if (offColorSet) return offColor;
    return RGB(GetRValue(segmentColor) / 3, GetGValue(segmentColor) / 3, GetBValue(segmentColor) / 3);
}

void CSegmentDisplay::PaintOn(CDC& dc) {
    const CRect clientRect = GetClientRect();
    if (!metricsReady) {
        metrics = SegmentMetrics::FromHeight(clientRect.bottom);
        metricsReady = true;
    }
    if (IsMapped(dc.GetHandle())) {
        const CSavedClip saved(dc.GetHandle());
        ::IntersectClipRect(dc.GetHandle(), 0, 0, clientRect.right, clientRect.bottom);
        DrawOn(dc, clientRect);
        return;
    }
    CMemoryDC memory(dc.GetHandle());
    const CBitmap canvas(::CreateCompatibleBitmap(dc.GetHandle(), clientRect.Width(), clientRect.Height()));
    if (memory.GetHandle() == nullptr || canvas.IsEmpty()) return;
    const CSelectObject selected(memory, canvas.GetHandle());
    DrawOn(memory, clientRect);
    ::BitBlt(dc.GetHandle(), 0, 0, clientRect.Width(), clientRect.Height(), memory.GetHandle(), 0, 0, SRCCOPY);
}

void CSegmentDisplay::DrawOn(CDC& dc, const CRect& rect) const {
    dc.FillSolidRect(rect, backColor);
    for (const SegmentFigure& figure : LayOutSegments(text, metrics)) {
        if (ghostSegments) DrawLines(dc, figure.ghosts, metrics.thickness, GhostColor());
        DrawLines(dc, figure.lit, metrics.thickness, segmentColor);
    }
}
