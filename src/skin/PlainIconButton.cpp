#include "skin/PlainIconButton.h"

int CPlainIconButton::SetRounded(bool on, bool redraw) {
    rounded = on;
    if (redraw) Invalidate();
    return Done;
}

int CPlainIconButton::OnDrawBackground(CDC& dc, const CRect& rect) {
    if (!IsActive()) return CIconButton::OnDrawBackground(dc, rect);
    const CBrush ground(TableColor(ActiveBack));
    const CPen edge(PS_SOLID, 1, RGB(0, 0, 0));
    const CSelectObject groundSelected(dc, ground.GetHandle());
    const CSelectObject edgeSelected(dc, edge.GetHandle());
    if (rounded) {
        constexpr int corner = 8;
        ::RoundRect(dc.GetHandle(), rect.left, rect.top, rect.right, rect.bottom, corner, corner);
    } else {
        ::Rectangle(dc.GetHandle(), rect.left, rect.top, rect.right, rect.bottom);
    }
    return Done;
}

int CPlainIconButton::OnDrawBorder(CDC&, const CRect&) {
    return Done;
}
