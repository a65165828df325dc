// What the menu classes read from a platform menu.
#pragma once

#include <string>

#include <windows.h>

#include "framework/Menu.h"

class CMenuItemRecord;
class COwnerDrawMenu;

// The caption that the platform keeps, at most 255 bytes of it; empty for an owner-drawn item.
std::string PlatformCaption(HMENU menu, int position);

// What the `id` of the item's record is: its command, the handle of its sub-menu, or 0 for a separator.
UINT_PTR PlatformItemKey(HMENU menu, int position);

// As ModifyMenuA by position, but the item keeps its check mark, its greying and its highlight, whoever has set them.
bool ModifyPlatformItem(HMENU menu, int position, UINT flags, UINT_PTR id, const char* text);

// The data of an item; 0 if there is no such item.
ULONG_PTR PlatformItemData(HMENU menu, int position);
void SetPlatformItemData(HMENU menu, int position, const CMenuItemRecord& record);

// The object of this class that is attached to the handle; null for none and for a plain menu object.
COwnerDrawMenu* OwnerDrawMenuOf(HMENU menu);

// The items of a menu and of those of this class below it, as CMenuWalk goes through them. Plain sub-menus are passed
// over, with all that is below them.
class COwnerDrawMenuWalk {
public:
    explicit COwnerDrawMenuWalk(HMENU root) : walk(root) {}

    bool Next();
    COwnerDrawMenu* GetMenu() const { return OwnerDrawMenuOf(walk.GetMenu()); }
    int GetPosition() const { return walk.GetPosition(); }
    bool IsPopup() const { return popup; }
    // The item's sub-menu; null for a plain one too.
    COwnerDrawMenu* GetSubMenu() const { return OwnerDrawMenuOf(walk.GetSubMenu()); }

private:
    CMenuWalk walk;
    bool popup = false;
};

// A sub-menu's handle in the place of an item's id, and back.
inline UINT_PTR IdOfSubMenu(HMENU menu) {
    return reinterpret_cast<UINT_PTR>(menu);
}
inline HMENU SubMenuOfId(UINT_PTR id) {
    return reinterpret_cast<HMENU>(id);
}
