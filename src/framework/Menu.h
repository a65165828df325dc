// Menus: the object behind a platform menu, and how owner-draw messages reach it.
#pragma once

#include <memory>
#include <set>
#include <vector>

#include <windows.h>

#include "framework/Object.h"

class CWnd;

class CMenu : public CObject {
public:
    static constexpr CRuntimeClass classInfo{"CMenu", &CObject::classInfo};

    CMenu() = default;
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;
    // Destroys the platform menu that is still attached. (A derived class that overrides DestroyMenu calls it in its
    // own destructor.)
    ~CMenu() override;
    const CRuntimeClass& GetRuntimeClass() const override { return classInfo; }

    // The object attached to the handle, or a temporary wrapper that doesn't own it; null for a null handle.
    static CMenu* FromHandle(HMENU handle);
    // The attached object alone; null if there is none.
    static CMenu* FromHandlePermanent(HMENU handle);
    static std::unique_ptr<CMenu> MakeTemporary(HMENU handle);

    // Takes ownership of the platform menu. False for a null handle, or if this object holds one already.
    bool Attach(HMENU menu);
    HMENU Detach();
    bool CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
    HMENU GetHandle() const { return handle; }

    // Shows the popup and returns when it is closed. The choice arrives at the owner as a command, and the result tells
    // whether the menu was shown; with TPM_RETURNCMD the result is the chosen id, or 0. While the menu is
    // shown, its owner's WM_MEASUREITEM, WM_DRAWITEM and WM_MENUCHAR are brought to the menu object that holds the
    // item, sub-menus at any depth included.
    int TrackPopupMenu(UINT flags, int x, int y, const CWnd& owner, const RECT* rect = nullptr);

    // Destroys the platform menu; its result. The object can be attached again.
    virtual bool DestroyMenu();

    // Owner-drawn items of this menu. The base does nothing.
    virtual void DrawItem(DRAWITEMSTRUCT& item);
    virtual void MeasureItem(MEASUREITEMSTRUCT& item);
    // A key without a mnemonic in the standard form, as in WM_MENUCHAR; its result, MNC_IGNORE in the base.
    virtual LRESULT MenuChar(UINT character, UINT flags);

private:
    HMENU handle = nullptr;
    bool temporary = false;
};

// The items of a menu and of those below it, in the order of positions: an item, then those of its sub-menu. At any
// depth, and each menu once: one that is met again, be it because menus hold one another, is passed over. The walk
// begins before the first item. The menu of the present item must outlive it.
class CMenuWalk {
public:
    // Null for no items.
    explicit CMenuWalk(HMENU root) { Enter(root); }

    // Goes to the next item; false behind the last one.
    bool Next();
    HMENU GetMenu() const { return levels.back().menu; }
    int GetPosition() const { return levels.back().position; }
    // The item's sub-menu; null for none.
    HMENU GetSubMenu() const { return subMenu; }
    // Passes over the item's sub-menu.
    void SkipSubMenu() { subMenu = nullptr; }

private:
    struct Level {
        HMENU menu;
        int position;
    };

    void Enter(HMENU menu);

    std::vector<Level> levels; // the menus that are open, from the root
    std::set<HMENU> entered;
    HMENU subMenu = nullptr;
};

// The object of the menu, at `root` or below it, that holds an owner-drawn item with this item data; null for none.
// Menus without an object don't count. Items are found by their data, since the structures cut an item id to 32 bits,
// which loses part of a sub-menu's handle.
CMenu* FindMenuOfItem(HMENU root, ULONG_PTR itemData);

// What a window does by default with these messages of its menus: true if a menu object took the message.
bool RouteMenuDraw(DRAWITEMSTRUCT& item);
bool RouteMenuMeasure(HMENU windowMenu, MEASUREITEMSTRUCT& item);
