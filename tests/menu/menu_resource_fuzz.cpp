// Fuzzes the readers of menu and toolbar resources. What is accepted forms a tree: levels open at a pop-up and close at
// a last item, one at a time.
#include <cstdlib>

#include "menu/MenuTemplate.h"
#include "menu/ToolbarResource.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void CheckMenu(std::span<const std::byte> resource) {
    const auto items = ParseMenuTemplate(resource);
    if (!items) return;
    std::size_t size = 4;
    int level = 1;
    for (const MenuTemplateItem& item : *items) {
        Require(level >= 1 && level <= deepestMenuLevel && item.level == level);
        Require((item.flags & 0x84) == 0 && item.closedLevels >= 0);
        Require(!item.IsPopup() || (item.id == 0 && item.closedLevels == 0));
        Require(item.text.find(u'\0') == std::u16string::npos);
        level += (item.IsPopup() ? 1 : 0) - item.closedLevels;
        size += (item.IsPopup() ? 4 : 6) + 2 * item.text.size();
    }
    Require(level == 0 && size <= resource.size());
}

void CheckToolbar(std::span<const std::byte> resource) {
    const auto toolbar = ParseToolbarResource(resource);
    if (!toolbar) return;
    for (const int size : {toolbar->imageWidth, toolbar->imageHeight})
        Require(size >= 1 && size <= largestToolbarImage);
    Require(8 + 2 * toolbar->ids.size() <= resource.size());
    for (const std::uint16_t id : toolbar->ids) {
        const int button = toolbar->ButtonIndex(id);
        Require((id == 0) == (button < 0));
        Require(toolbar->ImageIndex(button) <= button);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto resource = std::as_bytes(std::span(data, size));
    CheckMenu(resource);
    CheckToolbar(resource);
    return 0;
}
