// The large display of a count.
#pragma once

#include <string>

#include "framework/Controls.h"

class CSegmentDisplay : public CStatic {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    void SetBackColor(COLORREF color);
    void SetSegmentColor(COLORREF color);
    // Stores the text, makes it the window's own and repaints without erasing.
    void SetText(const std::string& newText);

private:
    void OnPaint();

    std::string text = "0";
    COLORREF backColor = RGB(0, 0, 0);
    COLORREF segmentColor = RGB(0, 255, 0);
};
