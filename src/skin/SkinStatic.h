// The labels and grounds of the panel: a static with one line of coloured caption, which hands the commands of its
// children on to its parent.
#pragma once

#include <string>

#include "framework/Controls.h"

class CSkinStatic : public CStatic {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // Stores text, left edge in pixels and colour, and makes the text the window's own, which names the control to a
    // screen reader. A caller that changes a visible static invalidates it. The text of the dialog template never
    // shows.
    void SetCaption(const std::string& text, int leftOffset, COLORREF color);

protected:
    // Sends the command to the parent first, so that a control at any depth reaches the dialog.
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    void OnPaint();

    std::string caption;
    int captionLeft = 0;
    COLORREF textColor = RGB(0, 0, 0);
};
