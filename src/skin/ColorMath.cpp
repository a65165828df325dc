#include "skin/ColorMath.h"

#include <algorithm>
#include <numeric>

std::uint8_t GrayOf(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return static_cast<std::uint8_t>((30 * red + 59 * green + 11 * blue) / 100);
}

std::uint16_t GrayOf555(std::uint16_t pixel) {
    const auto field = [pixel](int shift) { return static_cast<std::uint8_t>((pixel >> shift) & 0x1F); };
    const std::uint8_t gray = GrayOf(field(10), field(5), field(0));
    return static_cast<std::uint16_t>(gray << 10 | gray << 5 | gray);
}

std::vector<std::size_t> KeptColors(std::span<const std::uint32_t> uses) {
    const std::size_t tooMany = uses.size() > reducedPaletteSize ? uses.size() - reducedPaletteSize : 0;
    std::vector<std::size_t> dropped(tooMany);
    std::iota(dropped.begin(), dropped.end(), std::size_t{0});
    std::vector<bool> isDropped(uses.size(), false);
    std::fill_n(isDropped.begin(), tooMany, true);
    for (std::size_t index = 0; index < uses.size(); ++index) {
        if (isDropped[index]) continue;
        const auto place = std::find_if(dropped.begin(), dropped.end(),
                                        [&](std::size_t listed) { return uses[listed] > uses[index]; });
        if (place == dropped.end()) continue;
        isDropped[*place] = false;
        isDropped[index] = true;
        *place = index;
    }
    std::vector<std::size_t> kept;
    for (std::size_t index = 0; index < uses.size(); ++index) {
        if (!isDropped[index]) kept.push_back(index);
    }
    return kept;
}
