// What the small dialogs share of the theme.
#pragma once

#include <string>

class CSkinStatic;

// A picture of the theme, relative to the current directory.
std::string DialogThemeFile(const char* name);

// Gives a dialog's ground its picture.
void DressDialogPanel(CSkinStatic& panel);
