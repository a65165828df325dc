// A picture that is out of use: its dark parts in the shadow colour, with a light copy one pixel down and to the right.
#pragma once

#include "framework/Geometry.h"

// Draws the part of `bitmap` from `source` on, as large as `place`, over `ground`. Dark is what becomes black in one
// bit. Draws nothing if memory is short. The context's state is as before afterwards.
void DrawEmbossed(HDC dc, const CRect& place, HBITMAP bitmap, CPoint source, COLORREF ground);
