// A toolbar as the source of menu images: the commands of a toolbar resource, and which image of its strip each has.
// It is no window.
#pragma once

#include <windows.h>

#include "menu/ToolbarResource.h"

class CMenuToolBar {
public:
    // From the module in force or the program's own, by the low 16 bits of the number. False, with the toolbar left as
    // it was, if the toolbar resource or the bitmap resource of the same number is missing, or the first is malformed.
    bool LoadToolBar(UINT resourceId);

    int GetButtonCount() const { return static_cast<int>(resource.ids.size()); }
    // 0 for a separator and for an index outside.
    UINT GetItemID(int button) const;
    // -1 if the command isn't on the toolbar.
    int CommandToIndex(UINT commandId) const { return resource.ButtonIndex(commandId); }
    // The place of the button's image in the strip; -1 for a separator and for an index outside.
    int GetStripImage(int button) const { return resource.ImageIndex(button); }
    // From where in the strip a whole menu takes this button's image: the place of the image, or of the button where
    // that is the first.
    int GetMenuImage(int button) const;

    int imageWidth = 0; // pixels; 0 until loaded
    int imageHeight = 0;

private:
    ToolbarResource resource{};
};
