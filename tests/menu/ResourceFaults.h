// What can be wrong with what was read from a menu or toolbar resource of any bytes; empty for nothing. What is
// accepted forms a tree: levels open at a pop-up and close at a last item, one at a time.
#pragma once

#include <string>

#include "menu/MenuTemplate.h"
#include "menu/ToolbarResource.h"

inline std::string FaultOfMenu(std::span<const std::byte> resource) {
    const auto items = ParseMenuTemplate(resource);
    std::size_t size = 4;
    int level = 1;
    for (const MenuTemplateItem& item : items.value_or(std::vector<MenuTemplateItem>())) {
        if (level < 1 || level > deepestMenuLevel || item.level != level) return "level";
        if ((item.flags & 0x84) != 0 || (item.IsPopup() && (item.id != 0 || item.closedLevels != 0))) return "flags";
        if (item.text.find(u'\0') != std::u16string::npos) return "text";
        level += (item.IsPopup() ? 1 : 0) - item.closedLevels;
        size += (item.IsPopup() ? 4 : 6) + 2 * item.text.size();
    }
    return items && (level != 0 || size > resource.size()) ? "end" : "";
}

inline std::string FaultOfToolbar(std::span<const std::byte> resource) {
    const auto toolbar = ParseToolbarResource(resource);
    if (!toolbar) return {};
    if (toolbar->imageWidth < 1 || toolbar->imageHeight < 1 || 8 + 2 * toolbar->ids.size() > resource.size())
        return "size";
    for (const std::uint16_t id : toolbar->ids) {
        const int button = toolbar->ButtonIndex(id);
        if ((id == 0) != (button < 0) || toolbar->ImageIndex(button) > button) return "button";
    }
    return {};
}
