// A bold serif font for any window.
#pragma once

#include "framework/Gdi.h"

class CWnd;

// Gives the window "Times New Roman", bold, in tenths of a point of the screen's resolution. `font` receives the font,
// which the caller keeps for as long as the window uses it; what it held before is deleted after the change.
void SetBoldFont(const CWnd& window, int tenthsOfPoint, CFont& font);
