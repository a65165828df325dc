// What is drawn for an owner-drawn menu item, by its state: which look, which of its images, in which box.
#pragma once

#include <cstdint>

enum class MenuLook : std::uint8_t { Classic, Modern };

// A palette display gets the classic look. Else the value for the system counts: 1 means modern.
MenuLook ChooseMenuLook(bool paletteDisplay, bool themedXp, std::int32_t lookOnThemedXp,
                        std::int32_t lookOnOtherSystems);

// What the record says of its own image, and what the menu has.
struct MenuItemState {
    std::int32_t iconId = -1; // after the shared store has stepped in
    std::int32_t checkSelectedId = -1;
    std::int32_t checkClearId = -1;
    bool hasCheckImages = false;
    bool selected = false;
    bool grayed = false;
    bool checked = false;

    // A checked item without an image shows a check image, if there is one for its state.
    bool UsesCheckImage() const;
    bool HasImage() const { return !UsesCheckImage() && iconId != -1; }
    // The drawn tick, or dot.
    bool ShowsTick() const { return iconId < 0 && checked && !UsesCheckImage(); }
};

// Colours by their use.
enum class MenuTint : std::uint8_t {
    None,
    Ground,    // the column's colour in the modern look, the menu's in the classic one
    Selection, // the selection bar's
    CheckBox,  // under a checked image or a tick
    Highlight, // the frame of what is selected
    Light,
    Shadow
};

enum class MenuPicture : std::uint8_t {
    None,
    Check,    // the check image of the state
    Embossed, // the disabled form
    Normal,
    Washed, // the washed-out companion
    Raised  // the shadow companion one pixel down and to the right, the image one pixel up and to the left
};

// The box round an item's image, and what it holds.
struct MenuBox {
    MenuTint fill = MenuTint::None;
    MenuTint frameTopLeft = MenuTint::None;
    MenuTint frameBottomRight = MenuTint::None;
    MenuPicture picture = MenuPicture::None;
    int shift = 0; // of the picture, both ways

    bool operator==(const MenuBox&) const = default;
};

// For an item that uses a check image or has an image. `raised`: it has companions.
MenuBox ModernBox(const MenuItemState& state, bool raised);
// `framed`: the system draws frames round the images of such items.
MenuBox ClassicBox(const MenuItemState& state, bool framed);
