#include "pictures/ColorMath.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace {

constexpr std::array channelShifts{0U, 8U, 16U};

int ChannelOf(std::uint32_t color, unsigned shift) {
    return static_cast<int>(color >> shift & 0xFF);
}

template <class Change>
std::uint32_t EachChannel(std::uint32_t color, Change change) {
    std::uint32_t result = 0;
    for (const unsigned shift : channelShifts)
        result |= static_cast<std::uint32_t>(change(ChannelOf(color, shift), shift)) << shift;
    return result;
}

bool IsBlendFactor(double factor) {
    return factor > 0 && factor <= 1;
}

} // namespace

std::uint8_t GrayOf(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return static_cast<std::uint8_t>((30 * red + 59 * green + 11 * blue) / 100);
}

std::uint16_t GrayOf555(std::uint16_t pixel) {
    const auto field = [pixel](int shift) { return static_cast<std::uint8_t>((pixel >> shift) & 0x1F); };
    const std::uint8_t gray = GrayOf(field(10), field(5), field(0));
    return static_cast<std::uint16_t>(gray << 10 | gray << 5 | gray);
}

std::uint32_t IconGray(std::uint32_t color) {
    const double red = ChannelOf(color, 0), green = ChannelOf(color, 8), blue = ChannelOf(color, 16);
    const auto gray = static_cast<int>(0.299 * red + 0.587 * green + 0.114 * blue);
    return EachChannel(color, [gray](int, unsigned) { return gray; });
}

std::optional<std::uint32_t> ShiftedColor(std::uint32_t color, int shade) {
    if (shade < -255 || shade > 255) return std::nullopt;
    std::array<int, channelShifts.size()> parts{};
    std::ranges::transform(channelShifts, parts.begin(), [color](unsigned shift) { return ChannelOf(color, shift); });
    const auto [lowest, highest] = std::ranges::minmax(parts);
    const int cut = std::clamp(shade, -lowest, 255 - highest);
    return EachChannel(color, [cut](int c, unsigned) { return c + cut; });
}

std::uint32_t BlendedTowardWhite(std::uint32_t color, double factor) {
    if (!IsBlendFactor(factor)) return color;
    return EachChannel(color, [factor](int c, unsigned) { return static_cast<int>((255 - c) * factor + c); });
}

std::uint32_t BlendedTowardBlack(std::uint32_t color, double factor) {
    if (!IsBlendFactor(factor)) return color;
    return EachChannel(color, [factor](int c, unsigned) { return static_cast<int>(c - c * factor); });
}

std::uint32_t MixedColor(std::uint32_t first, std::uint32_t second, std::uint8_t weight) {
    return EachChannel(first, [second, weight](int c, unsigned shift) {
        return (c * (255 - weight) + ChannelOf(second, shift) * weight) / 255;
    });
}

std::uint32_t SharedColor(std::uint32_t first, std::uint32_t second, double share) {
    return EachChannel(first, [second, share](int c, unsigned shift) {
        return static_cast<int>(c * share + ChannelOf(second, shift) * (1 - share));
    });
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
