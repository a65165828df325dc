#include "menu/MenuToolBar.h"

#include <utility>

#include "framework/ResourceModule.h"

bool CMenuToolBar::LoadToolBar(UINT resourceId) {
    const char* toolbarType = MAKEINTRESOURCEA(241); // RT_TOOLBAR
    const char* name = MAKEINTRESOURCEA(static_cast<WORD>(resourceId));
    auto loaded = ParseToolbarResource(LoadResourceBytes(name, toolbarType));
    if (!loaded || LoadResourceBytes(name, RT_BITMAP).empty()) return false;
    resource = std::move(*loaded);
    imageWidth = resource.imageWidth;
    imageHeight = resource.imageHeight;
    return true;
}

UINT CMenuToolBar::GetItemID(int button) const {
    return button >= 0 && button < GetButtonCount() ? resource.ids[static_cast<std::size_t>(button)] : 0;
}

int CMenuToolBar::GetMenuImage(int button) const {
    const int image = resource.ImageIndex(button);
    return image > 0 ? image : button;
}
