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
    const bool sized = !toolbar || (toolbar->imageWidth > 0 && toolbar->imageHeight > 0);
    return sized && (!toolbar || 8 + 2 * toolbar->ids.size() <= resource.size()) ? "" : "size";
}
