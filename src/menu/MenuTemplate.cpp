#include "menu/MenuTemplate.h"

#include <algorithm>

#include "framework/LittleEndian.h"

namespace {

constexpr std::uint16_t popupFlag = 0x10; // MF_POPUP
constexpr std::uint16_t endFlag = 0x80;   // MF_END: the last item of its level
// MF_BITMAP: no item of a template is one, and the platform would take the item's data for a handle.
constexpr std::uint16_t bitmapFlag = 0x04;

std::optional<MenuTemplateItem> ReadItem(CLittleEndianReader& reader, bool& last) {
    const auto flags = reader.ReadWord();
    if (!flags) return std::nullopt;
    last = (*flags & endFlag) != 0;
    const auto id = (*flags & popupFlag) != 0 ? std::uint16_t{0} : reader.ReadWord();
    if (!id) return std::nullopt;
    auto text = reader.ReadText();
    if (!text) return std::nullopt;
    const auto kept = static_cast<std::uint16_t>(*flags & ~(endFlag | bitmapFlag));
    return MenuTemplateItem{0, kept, *id, std::move(*text), 0};
}

bool IsPadding(std::span<const std::byte> rest) {
    return rest.size() < 4 && std::ranges::all_of(rest, [](std::byte each) { return each == std::byte{0}; });
}

} // namespace

std::optional<std::vector<MenuTemplateItem>> ParseMenuTemplate(std::span<const std::byte> resource) {
    CLittleEndianReader reader(resource);
    const auto version = reader.ReadWord();
    const auto headerSize = reader.ReadWord(); // of what follows these two
    if (version != 0 || !headerSize || !reader.Skip(*headerSize)) return std::nullopt;

    std::vector<MenuTemplateItem> items;
    std::vector<bool> ended{false}; // of each open level, from the top: whether its last item has been read
    while (!ended.empty()) {
        bool last = false;
        auto item = ReadItem(reader, last);
        if (!item) return std::nullopt;
        item->level = static_cast<int>(ended.size());
        if (last) ended.back() = true;
        if (item->IsPopup()) {
            if (item->level == deepestMenuLevel) return std::nullopt;
            ended.push_back(false);
        } else {
            // The last item of a pop-up that is itself the last of its level closes both, and so on upwards.
            while (!ended.empty() && ended.back()) {
                ended.pop_back();
                ++item->closedLevels;
            }
        }
        items.push_back(std::move(*item));
    }
    if (!IsPadding(reader.Rest())) return std::nullopt;
    return items;
}
