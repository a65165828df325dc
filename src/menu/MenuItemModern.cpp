// The modern look: a column down the left edge, a window-coloured body, a framed selection bar in a pale highlight.
#include "menu/MenuFont.h"
#include "menu/MenuItemPainter.h"
#include "menu/MenuMemDC.h"
#include "menu/OwnerDrawMenu.h"
#include "pictures/ColorMath.h"

namespace {

MenuTintColors ModernColors() {
    const bool themed = COwnerDrawMenu::IsThemedXp();
    const COLORREF face = ::GetSysColor(COLOR_3DFACE);
    const COLORREF highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    return {0,
            themed ? face : BlendedTowardWhite(face, 0.25),
            BlendedTowardWhite(highlight, themed ? 0.7 : 0.85),
            BlendedTowardWhite(highlight, 0.85),
            highlight,
            ::GetSysColor(COLOR_3DHIGHLIGHT),
            ::GetSysColor(COLOR_3DSHADOW)};
}

COLORREF ModernTextColor(const MenuItemState& state) {
    if (!state.grayed) return ::GetSysColor(COLOR_MENUTEXT);
    const COLORREF gray = ::GetSysColor(COLOR_GRAYTEXT);
    return COwnerDrawMenu::IsThemedXp() || state.selected ? gray : BlendedTowardWhite(gray, 0.4);
}

} // namespace

void CMenuItemPainter::PaintModern(CDC& dc) {
    colors = ModernColors();
    if (!Is(ODS_GRAYED) || COwnerDrawMenu::selectDisabledModern != 0) {
        PaintModernRow(dc);
        return;
    }
    item.itemState &= ~UINT{ODS_SELECTED};
    const CFont font(MenuFontDescription());
    CMenuMemDC surface(dc, rect);
    const CSelectObject selected(surface, font.GetHandle()); // a new context has no menu font
    PaintModernRow(surface);
}

void CMenuItemPainter::PaintModernRow(CDC& dc) {
    const ModernLayout layout =
        LayOutModernItem(rect, {menu.imageWidth, menu.imageHeight}, COwnerDrawMenu::raisedImages != 0);
    const bool selected = Is(ODS_SELECTED) && !IsSeparator();
    const COLORREF highlight = ColorOf(MenuTint::Highlight);
    dc.FillSolidRect(rect, selected ? ColorOf(MenuTint::Selection) : ::GetSysColor(COLOR_WINDOW));
    if (selected) {
        dc.Draw3dRect(rect, highlight, highlight);
    } else {
        dc.FillSolidRect(layout.column, ColorOf(MenuTint::Ground));
    }
    if (IsSeparator()) {
        DrawSeparator(dc, layout.etched);
        return;
    }

    Prepare(MenuLook::Modern);
    if (state.UsesCheckImage() || state.HasImage()) {
        const MenuBox box = ModernBox(state, images.raised);
        DrawBox(dc, box, layout.imageBox, layout.imageBox, layout.image);
        // What is embossed may reach over the frame of the bar.
        if (box.picture == MenuPicture::Embossed && selected) dc.Draw3dRect(rect, highlight, highlight);
    }
    if (state.ShowsTick()) {
        const CRect& box = layout.tickBox;
        dc.FillSolidRect(box, ColorOf(MenuTint::CheckBox));
        dc.Draw3dRect(box, highlight, highlight);
        DrawMark(dc, layout.mark, layout.mark);
    }
    DrawItemText(dc, layout.text, ModernTextColor(state));
}
