// Fuzzes the readers of dialog templates and initialisation lists.
#include <algorithm>
#include <cstdlib>

#include "framework/DialogTemplate.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    const auto layout = ReadDialogLayout(bytes);
    std::vector<std::byte> hidden(bytes.begin(), bytes.end());
    const bool isHidden = HideDialogTemplate(hidden);
    if (layout) {
        // What is hidden is the same dialog but for one bit.
        const auto again = ReadDialogLayout(hidden);
        if (!isHidden || !again || again->style != (layout->style & ~0x10000000U)) std::abort();
        if (again->items != layout->items || again->font != layout->font) std::abort();
        if (24 + 24 * layout->items.size() > size) std::abort();
        const auto leaves = [](const DialogItem& item) { return item.id % 2 != 0; };
        std::vector<std::byte> rest(bytes.begin(), bytes.end());
        RemoveDialogItems(rest, leaves);
        const auto readRest = ReadDialogLayout(rest);
        const auto stays = std::ranges::count_if(layout->items, std::not_fn(leaves));
        if (!readRest || static_cast<std::ptrdiff_t>(readRest->items.size()) != stays) std::abort();
    }
    std::size_t used = 0;
    for (const DialogInitEntry& entry : ParseDialogInit(bytes)) {
        used += 8 + entry.data.size();
        if (entry.controlId == 0 || entry.data.data() + entry.data.size() != bytes.data() + used) std::abort();
    }
    if (used > size) std::abort();
    return 0;
}
