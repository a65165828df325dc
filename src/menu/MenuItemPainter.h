// Paints one item of an owner-drawn menu. It lives for one WM_DRAWITEM.
#pragma once

#include <array>

#include <windows.h>

#include "framework/Dc.h"
#include "framework/ImageList.h"
#include "menu/MenuItemLook.h"
#include "menu/MenuLayout.h"

class CMenuItemRecord;
class COwnerDrawMenu;

// The colour of each MenuTint.
using MenuTintColors = std::array<COLORREF, 7>;

class CMenuItemPainter {
public:
    // All three outlive the painter. It may take the selection out of `drawn`.
    CMenuItemPainter(const COwnerDrawMenu& itemMenu, const CMenuItemRecord& itemRecord, DRAWITEMSTRUCT& drawn);

    void Paint(CDC& dc, MenuLook look);

private:
    // Where an item's pictures are.
    struct Images {
        const CImageList* list; // null for none
        int normal;
        int washed;
        int shadow;
        bool raised; // the companions are there
    };

    bool Is(UINT stateBit) const { return (item.itemState & stateBit) != 0; }
    bool IsSeparator() const;
    // Finds images and state; the item's own image goes before the shared one of its command.
    void Prepare(MenuLook look);
    COLORREF ColorOf(MenuTint tint) const { return colors[static_cast<std::size_t>(tint)]; }

    void PaintModern(CDC& dc);
    void PaintModernRow(CDC& dc);
    void PaintClassic(CDC& dc);
    void PaintClassicText(CDC& dc, const CRect& place) const;
    void DrawSeparator(CDC& dc, CRect etched) const;
    void DrawBox(CDC& dc, const MenuBox& box, const CRect& filled, const CRect& framed, CPoint place) const;
    void DrawPicture(CDC& dc, MenuPicture picture, int x, int y) const;
    void DrawEmbossed(CDC& dc, int x, int y) const;
    void DrawMark(CDC& dc, CPoint tick, CPoint dot) const;
    // The text at its place, the accelerator flush right.
    void DrawItemText(CDC& dc, CRect place, COLORREF color) const;

    const COwnerDrawMenu& menu;
    const CMenuItemRecord& record;
    DRAWITEMSTRUCT& item;
    CRect rect;
    MenuTintColors colors{};
    Images images{};
    MenuItemState state;
};
