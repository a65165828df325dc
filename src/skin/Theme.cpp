#include "skin/Theme.h"

#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"

void ShowHandCursor() {
    const char* name = MAKEINTRESOURCEA(IDC_HAND_CURSOR);
    // Shared: loaded once for each module and never destroyed.
    const HCURSOR hand = ::LoadCursorA(FindResourceModule(name, RT_GROUP_CURSOR), name);
    if (hand != nullptr) ::SetCursor(hand);
}
