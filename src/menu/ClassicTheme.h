// Whether the user has chosen the classic theme, which on a themed system means the classic look of menus.
#pragma once

#include <windows.h>

// True for the path of a theme file "Windows Classic.theme", in whatever case. The text is zero-ended.
bool NamesClassicTheme(const char* themeFile);

// Reads the current theme of the user whose registry root this is. False where it can't be read.
bool ReadClassicThemeActive(HKEY userRoot);
