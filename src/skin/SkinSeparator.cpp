#include "skin/SkinSeparator.h"

#include <initializer_list>

#include "framework/Dc.h"

void CSkinSeparator::PaintOn(CDC& dc) {
    constexpr int corner = 5;
    const CRect client = GetClientRect();
    bitmap.DrawNineSlice(dc.GetHandle(), client, corner, corner);
    const CPen pen(PS_SOLID, 1, lineColor);
    const CSelectObject selected(dc, pen.GetHandle());
    for (const LONG x : {client.left, client.right}) {
        dc.MoveTo(x, client.top);
        dc.LineTo(x, client.bottom);
    }
}
