#include "menu/ToolbarResource.h"

#include <algorithm>

#include "framework/LittleEndian.h"

int ToolbarResource::ButtonIndex(unsigned id) const {
    const auto found = std::ranges::find(ids, id);
    return id == 0 || found == ids.end() ? -1 : static_cast<int>(found - ids.begin());
}

int ToolbarResource::ImageIndex(int button) const {
    if (button < 0 || static_cast<std::size_t>(button) >= ids.size()) return -1;
    const auto position = ids.begin() + button;
    if (*position == 0) return -1;
    return static_cast<int>(std::count_if(ids.begin(), position, [](std::uint16_t id) { return id != 0; }));
}

namespace {

bool IsImageSize(int pixels) {
    return pixels > 0 && pixels <= largestToolbarImage;
}

} // namespace

std::optional<ToolbarResource> ParseToolbarResource(std::span<const std::byte> resource) {
    CLittleEndianReader reader(resource);
    const auto version = reader.ReadWord();
    const auto width = reader.ReadWord();
    const auto height = reader.ReadWord();
    const auto count = reader.ReadWord();
    if (version != 1 || !width || !height || !count || reader.Rest().size() / 2 < *count) return std::nullopt;
    if (!IsImageSize(*width) || !IsImageSize(*height)) return std::nullopt;
    ToolbarResource toolbar{*width, *height, {}};
    toolbar.ids.reserve(*count);
    for (int i = 0; i < *count; ++i) toolbar.ids.push_back(reader.ReadWord().value_or(0));
    return toolbar;
}
