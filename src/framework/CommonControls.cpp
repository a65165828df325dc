#include "framework/CommonControls.h"

#include "framework/SystemLibrary.h"

CommonControls& SystemCommonControls() {
    static CommonControls controls = [] {
        const HMODULE module = LoadSystemLibrary(L"comctl32.dll");
        CommonControls found{};
        FindFunction(module, "InitCommonControlsEx", found.initialise);
        FindFunction(module, "CreateMappedBitmap", found.createMappedBitmap);
        FindFunction(module, "ImageList_Create", found.createList);
        FindFunction(module, "ImageList_Destroy", found.destroyList);
        FindFunction(module, "ImageList_GetImageCount", found.getImageCount);
        FindFunction(module, "ImageList_GetIconSize", found.getIconSize);
        FindFunction(module, "ImageList_AddMasked", found.addMasked);
        FindFunction(module, "ImageList_ReplaceIcon", found.replaceIcon);
        FindFunction(module, "ImageList_GetIcon", found.getIcon);
        FindFunction(module, "ImageList_Draw", found.draw);
        return found;
    }();
    return controls;
}
