#include "skin/Theme.h"

#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "skin/SkinStatic.h"

void ShowHandCursor() {
    const char* name = MAKEINTRESOURCEA(IDC_HAND_CURSOR);
    // Shared: loaded once for each module and never destroyed.
    const HCURSOR hand = ::LoadCursorA(FindResourceModule(name, RT_GROUP_CURSOR), name);
    if (hand != nullptr) ::SetCursor(hand);
}

std::string ThemeFile(const char* name) {
    return std::string(themeFolder) + "\\" + name;
}

void DressDialogPanel(CSkinStatic& panel) {
    panel.SetBitmapFile(ThemeFile("DialogPanel.bmp"));
    panel.cornerWidth = 20;
    panel.cornerHeight = 10;
}
