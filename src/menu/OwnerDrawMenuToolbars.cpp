// Item images from toolbars: each command gets the image of its button.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>

#include "menu/MenuToolBar.h"
#include "menu/PlatformMenu.h"

namespace {

bool HoldsCommand(COwnerDrawMenu& menu, UINT id) {
    int position = -1;
    return id != 0 && menu.LocateItem(id, position) != nullptr;
}

// The menu and those of its class below it.
std::vector<const COwnerDrawMenu*> MenusOf(const COwnerDrawMenu& root) {
    std::vector<const COwnerDrawMenu*> menus{&root};
    for (COwnerDrawMenuWalk walk(root.GetHandle()); walk.Next();) {
        if (const COwnerDrawMenu* subMenu = walk.GetSubMenu()) menus.push_back(subMenu);
    }
    return menus;
}

} // namespace

bool COwnerDrawMenu::LookUpToolbarImage(UINT commandId, UINT toolbarId, int& index) {
    CMenuToolBar toolbar;
    if (!toolbar.LoadToolBar(toolbarId)) return false;
    const int button = toolbar.CommandToIndex(commandId);
    if (button < 0) return false;
    const int image = toolbar.GetStripImage(button);
    if (image > 0) index = image;
    return true;
}

bool COwnerDrawMenu::LoadToolbarImages(UINT toolbarId) {
    CMenuToolBar toolbar;
    if (!toolbar.LoadToolBar(toolbarId)) return false;
    imageWidth = std::max(imageWidth, toolbar.imageWidth);
    imageHeight = std::max(imageHeight, toolbar.imageHeight);
    const CImageList images = LoadStrip(static_cast<WORD>(toolbarId), {toolbar.imageWidth, toolbar.imageHeight});
    if (images.IsEmpty()) return false;
    for (int button = 0; button < toolbar.GetButtonCount(); ++button) {
        const UINT id = toolbar.GetItemID(button);
        if (HoldsCommand(*this, id))
            ModifyItem(static_cast<const wchar_t*>(nullptr), id, &images, toolbar.GetMenuImage(button));
    }
    return true;
}

bool COwnerDrawMenu::LoadToolbarImageSet(const UINT* toolbarIds, int count) {
    bool allLoaded = true;
    for (int i = 0; i < count; ++i) allLoaded = LoadToolbarImages(toolbarIds[i]) && allLoaded;
    return allLoaded;
}

void COwnerDrawMenu::AddToolbarImages(const CMenuToolBar& toolbar, int bitmapId) {
    const CImageList images = LoadStrip(bitmapId, {toolbar.imageWidth, toolbar.imageHeight});
    if (images.IsEmpty()) return;
    for (int button = 0; button < toolbar.GetButtonCount(); ++button) {
        const UINT id = toolbar.GetItemID(button);
        if (!HoldsCommand(*this, id)) continue;
        for (const COwnerDrawMenu* menu : MenusOf(*this)) {
            for (const auto& record : menu->itemRecords) {
                if (record->id != id || (record->flags & MF_POPUP) != 0) continue;
                record->imageList = std::make_unique<CImageList>();
                record->iconId = record->imageIndex = 0;
                CopyImageToList(&images, toolbar.GetMenuImage(button), *record->imageList);
            }
        }
    }
}
