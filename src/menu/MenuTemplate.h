// Menu resources as bytes. The standard form of RT_MENU is read: version 0, with 16-bit flags, a 16-bit id unless the
// item is a pop-up, and a zero-ended UTF-16 text for each item. The extended form (version 1) is refused.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// Deeper than any menu that a user could find the way through. The top level is level 1.
inline constexpr int deepestMenuLevel = 16;

struct MenuTemplateItem {
    int level;           // 1 for an item of the top level
    std::uint16_t flags; // MF_ flags, without the mark of a last item
    std::uint16_t id;    // 0 for a pop-up
    std::u16string text; // empty for a separator
    int closedLevels;    // how many levels, the innermost first, this item is the last one of

    bool IsPopup() const { return (flags & 0x10) != 0; } // MF_POPUP
};

// The items in the order of the template: those of a pop-up follow it, one level further down. Nothing for a template
// that is cut off, lacks an end mark, goes on behind its last one, or is deeper than deepestMenuLevel. Never reads
// beyond the bytes. Up to three zero bytes may follow, as padding.
std::optional<std::vector<MenuTemplateItem>> ParseMenuTemplate(std::span<const std::byte> resource);
