// A circular push button without pictures: two rings of pixels, lit from the upper left, around its caption.
//
// Put in front of a button of a dialog, or created, it makes its window square and round: the side is the smaller of
// the client's, the upper left corner stays. This is done once, so a later change of size isn't followed. Clicks and
// keys are those of the platform's owner-drawn button. User-interface thread only.
#pragma once

#include "framework/Dc.h"
#include "skin/InputControl.h"

class CRoundButton : public CInputControl<CButton> {
public:
    void DrawItem(DRAWITEMSTRUCT& item) override;

    // Whether the focus shows, as a black ring outside and a dotted one around the caption. No repaint.
    bool focusBorder = true;

    // One-pixel circles around (centerX, centerY); a radius below 0 draws nothing. A dotted one leaves every other step
    // out, a shaded one is lit from the upper left. Angles are in radians, from the right, clockwise.
    static void DrawCircle(const CDC& dc, int centerX, int centerY, int radius, COLORREF color, bool dotted = false);
    static void DrawShadedCircle(const CDC& dc, int centerX, int centerY, int radius, COLORREF light, COLORREF dark);
    static COLORREF AngleColor(double angle, COLORREF light, COLORREF dark);

protected:
    void PreSubclassWindow() override;

private:
    void DrawRings(CDC& dc, int outerRadius, bool pressed) const;
    void DrawCaption(CDC& dc, int clipRadius, UINT state) const;

    // In client pixels.
    CPoint center;
    int radius = 0;
};
