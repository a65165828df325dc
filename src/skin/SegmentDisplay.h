// A large seven-segment display, drawn with plain lines. A number stands at the left edge; what doesn't fit is cut off
// at the right one.
//
// The size of the digits follows from the control's height at the first paint and stays. Setters may be called before
// the window exists.
#pragma once

#include <string>

#include "framework/Gdi.h"
#include "skin/SegmentGeometry.h"
#include "skin/SkinControl.h"

class CSegmentDisplay : public CSkinControl<CStatic> {
public:
    CSegmentDisplay();

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // In place of a colour: the system's face colour for the ground, its text colour for the segments.
    static constexpr COLORREF systemColor = 0xFFFFFFFF;

    void SetBackColor(COLORREF color);
    void SetSegmentColor(COLORREF color);
    // The colour of unlit segments; without it they have a third of the segments' colour.
    void SetOffColor(COLORREF color);
    // Whether unlit segments show at all. Repaints nothing.
    void SetGhostSegments(bool show) { ghostSegments = show; }

    // Shows the text, repaints without erasing, and makes it the window's own, which a screen reader reads.
    void SetText(const std::string& newText);
    // Shows the present local time by a format of strftime, for instance "%H:%M:%S".
    void SetTimeText(const char* format);
    void Refresh();

    // What is shown. A caller that writes it invalidates the window.
    std::string text = "0";

protected:
    void PaintOn(CDC& dc) override;

private:
    HBRUSH CtlColor(CDC& dc, UINT kind);
    void DrawOn(CDC& dc, const CRect& rect) const;
    COLORREF GhostColor() const;

    bool ghostSegments = true;
    bool metricsReady = false;
    bool offColorSet = false;
    SegmentMetrics metrics;
    COLORREF backColor = RGB(0, 0, 0);
    COLORREF segmentColor = RGB(0, 255, 0);
    COLORREF offColor = RGB(0, 0, 0);
    CBrush backBrush;
};
