// An icon button without a border, whose ground while hovered or pressed is a plate with a thin black edge.
#pragma once

#include "skin/IconButton.h"

class CPlainIconButton : public CIconButton {
public:
    // Whether the plate has rounded corners. Always Done.
    int SetRounded(bool on, bool redraw);

protected:
    int OnDrawBackground(CDC& dc, const CRect& rect) override;
    int OnDrawBorder(CDC& dc, const CRect& rect) override;

private:
    bool rounded = false;
};
