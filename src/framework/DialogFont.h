// The font in which a dialog shows its text.
#pragma once

#include "framework/Gdi.h"

struct DialogFont;

// The described font, `height` pixels high, a line with its room included. For a character set that the described face
// may not have, the face that every system with this set has; where that is missing too, the platform finds one by
// character set and height. The point size plays no part.
CFont MakeDialogFont(const DialogFont& described, int height);
