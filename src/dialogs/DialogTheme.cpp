#include "dialogs/DialogTheme.h"

#include "skin/SkinStatic.h"
#include "skin/Theme.h"

std::string DialogThemeFile(const char* name) {
    return std::string(themeFolder) + "\\" + name;
}

void DressDialogPanel(CSkinStatic& panel) {
    panel.SetBitmapFile(DialogThemeFile("DialogPanel.bmp"));
    panel.cornerWidth = 20;
    panel.cornerHeight = 10;
}
