// The font and the window by which menus are measured.
#pragma once

#include <windows.h>

// The system's menu font of this moment.
LOGFONTW MenuFontDescription();

// The window whose context serves for measuring and for compatible bitmaps: the program's main window. Null, which
// stands for the screen, while there is none.
HWND MenuContextWindow();
