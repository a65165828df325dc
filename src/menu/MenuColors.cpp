#include "menu/MenuColors.h"

namespace {

template <class Change>
std::uint32_t EachChannel(std::uint32_t color, Change change) {
    std::uint32_t result = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const auto channel = static_cast<int>(color >> shift & 0xFF);
        result |= static_cast<std::uint32_t>(change(channel, shift)) << shift;
    }
    return result;
}

bool IsBlendFactor(double factor) {
    return factor > 0 && factor <= 1;
}

} // namespace

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
        return (c * (255 - weight) + static_cast<int>(second >> shift & 0xFF) * weight) / 255;
    });
}
