// A font in which a text fits into a control that can't be wider.
#pragma once

#include <string_view>

#include <windows.h>

#include "framework/Gdi.h"

class CWnd;

// The control's font, at the largest of its sizes below the present one in which the text is at most `width` pixels
// wide; empty if it is so at the present size, or at none of 8 pixels or more. The control's font stays as it is.
CFont MakeFittingFont(const CWnd& control, std::string_view text, LONG width);
