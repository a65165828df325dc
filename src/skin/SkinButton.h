// The push button of the panel: a face with a coloured caption.
#pragma once

#include <string>

#include "framework/Controls.h"

class CSkinButton : public CButton {
public:
    // Stores text and colour and makes the text the window's own, which names the button to a screen reader. The left
    // offset has no effect on a button, whose caption is centred. A caller that changes a visible button invalidates
    // it.
    void SetCaption(const std::string& text, int leftOffset, COLORREF color);
    void SetTextColor(COLORREF color) { textColor = color; }
    const std::string& GetCaption() const { return caption; }

    void DrawItem(DRAWITEMSTRUCT& item) override;

protected:
    void PreSubclassWindow() override;

private:
    std::string caption;
    COLORREF textColor = RGB(0, 0, 0);
};
