// A picture stretched by nine slices, with corners of 5 pixels, between two thin lines.
#pragma once

#include "skin/SkinControl.h"

class CSkinSeparator : public CSkinControl<CStatic> {
public:
    // Of the lines at the client area's left edge and just outside of its right one. No repaint.
    COLORREF lineColor = RGB(0, 0, 0);

protected:
    void PaintOn(CDC& dc) override;
};
