// The classic look: flat in the system's menu colour, with a raised or sunken frame round an item's image.
#include "menu/MenuItemPainter.h"
#include "menu/OwnerDrawMenu.h"
#include "pictures/ColorMath.h"

namespace {

MenuTintColors ClassicColors() {
    const COLORREF back = ::GetSysColor(COwnerDrawMenu::IsThemedXp() ? COLOR_3DFACE : COLOR_MENU);
    // An image that is embossed stands on the menu's colour in a selected item too.
    return {0,
            back,
            back,
            BlendedTowardWhite(back, 0.6),
            ::GetSysColor(COLOR_HIGHLIGHT),
            ::GetSysColor(COLOR_3DHIGHLIGHT),
            ::GetSysColor(COLOR_3DSHADOW)};
}

} // namespace

void CMenuItemPainter::PaintClassic(CDC& dc) {
    colors = ClassicColors();
    const COLORREF back = ColorOf(MenuTint::Ground);
    const ClassicLayout layout = LayOutClassicItem(rect, {menu.imageWidth, menu.imageHeight});
    if (Is(ODS_GRAYED) && COwnerDrawMenu::selectDisabledClassic == 0) item.itemState &= ~UINT{ODS_SELECTED};
    if (IsSeparator()) {
        dc.FillSolidRect(rect, back);
        DrawSeparator(dc, layout.etched);
        return;
    }

    Prepare(MenuLook::Classic);
    const bool hasBox = state.UsesCheckImage() || state.HasImage();
    if (state.selected) {
        dc.FillSolidRect(hasBox || state.checked ? layout.bar : rect, ColorOf(MenuTint::Highlight));
    } else {
        dc.FillSolidRect(rect, back);
    }
    if (hasBox) {
        dc.Draw3dRect(layout.inner, back, back);
        DrawBox(dc, ClassicBox(state, COwnerDrawMenu::HasNewShell()), layout.inner, layout.box, layout.image);
    }
    if (state.ShowsTick()) {
        CRect box = layout.tickBox;
        dc.FillSolidRect(box, ColorOf(state.selected ? MenuTint::Ground : MenuTint::CheckBox));
        if (COwnerDrawMenu::HasNewShell()) ::DrawEdge(dc.GetHandle(), &box, BDR_SUNKENOUTER, BF_RECT);
        DrawMark(dc, layout.tick, layout.dot);
    }
    PaintClassicText(dc, layout.text);
}

void CMenuItemPainter::PaintClassicText(CDC& dc, const CRect& place) const {
    if (!state.grayed) {
        DrawItemText(dc, place, ::GetSysColor(state.selected ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
    } else if (state.selected) {
        DrawItemText(dc, place, ColorOf(MenuTint::Ground));
    } else {
        // Engraved.
        DrawItemText(dc, place.Moved(1, 1), ColorOf(MenuTint::Light));
        DrawItemText(dc, place, ::GetSysColor(COLOR_GRAYTEXT));
    }
}
