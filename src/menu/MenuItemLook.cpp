#include "menu/MenuItemLook.h"

MenuLook ChooseMenuLook(bool paletteDisplay, bool themedXp, std::int32_t lookOnThemedXp,
                        std::int32_t lookOnOtherSystems) {
    if (paletteDisplay) return MenuLook::Classic;
    return (themedXp ? lookOnThemedXp : lookOnOtherSystems) == 1 ? MenuLook::Modern : MenuLook::Classic;
}

bool MenuItemState::UsesCheckImage() const {
    if (!checked || iconId >= 0) return false;
    return (selected && checkSelectedId > 0) || checkClearId > 0;
}

MenuBox ModernBox(const MenuItemState& state, bool raised) {
    using enum MenuTint;
    if (state.UsesCheckImage() && state.hasCheckImages) return {Ground, None, None, MenuPicture::Check, 0};
    if (state.HasImage() && state.grayed) return {None, None, None, MenuPicture::Embossed, 0};
    if (state.HasImage() && state.selected) {
        if (state.checked) return {Selection, Highlight, Highlight, MenuPicture::Normal, -1};
        return {Selection, None, None, raised ? MenuPicture::Raised : MenuPicture::Normal, 0};
    }
    if (state.checked) return {CheckBox, Highlight, Highlight, MenuPicture::Normal, -1};
    return {Ground, Ground, Ground, raised ? MenuPicture::Washed : MenuPicture::Normal, 0};
}

MenuBox ClassicBox(const MenuItemState& state, bool framed) {
    using enum MenuTint;
    if (state.UsesCheckImage() && state.hasCheckImages) return {Ground, Ground, Ground, MenuPicture::Check, 0};
    if (state.HasImage() && state.grayed) return {None, Ground, Ground, MenuPicture::Embossed, 0};
    const MenuTint light = framed ? Light : None;
    const MenuTint shadow = framed ? Shadow : None;
    if (state.HasImage() && state.selected) {
        const bool sunken = state.checked;
        return {Ground, sunken ? shadow : light, sunken ? light : shadow, MenuPicture::Normal, 0};
    }
    if (state.checked) return {CheckBox, shadow, light, MenuPicture::Normal, 0};
    return {Ground, Ground, Ground, MenuPicture::Normal, 0};
}
