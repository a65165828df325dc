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
    CMemoryDC memory(dc.GetHandle());
    const CBitmap canvas(::CreateCompatibleBitmap(dc.GetHandle(), clientRect.Width(), clientRect.Height()));
    if (memory.GetHandle() == nullptr || canvas.IsEmpty()) return;
    const CSelectObject selected(memory, canvas.GetHandle());
    memory.FillSolidRect(clientRect, backColor);
    if (!metricsReady) {
        metrics = SegmentMetrics::FromHeight(clientRect.bottom);
        metricsReady = true;
    }
    DrawFigures(memory);
    ::BitBlt(dc.GetHandle(), 0, 0, clientRect.Width(), clientRect.Height(), memory.GetHandle(), 0, 0, SRCCOPY);
}

void CSegmentDisplay::DrawFigures(CDC& dc) const {
    for (const SegmentFigure& figure : LayOutSegments(text, metrics)) {
        if (ghostSegments) DrawLines(dc, figure.ghosts, metrics.thickness, GhostColor());
        DrawLines(dc, figure.lit, metrics.thickness, segmentColor);
    }
}
