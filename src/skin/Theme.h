// What controls and dialogs share of the theme.
#pragma once

#include <string>

#include <windows.h>

class CSkinStatic;

// Relative to the current directory.
inline constexpr char themeFolder[] = "Themes\\DefaultTheme";

// One of its pictures.
std::string ThemeFile(const char* name);

// Gives the ground of a dialog its picture.
void DressDialogPanel(CSkinStatic& panel);

// Captions, and the ground of the displays.
inline constexpr COLORREF themeBlue = RGB(0, 0, 255);

// The program's hand cursor, which tells that a click does something here: shown until the platform asks for a cursor
// again. Without the resource the present cursor stays.
void ShowHandCursor();
