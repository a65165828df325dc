#include "framework/DialogTemplate.h"

#include <cstring>
#include <type_traits>

namespace {

constexpr std::uint32_t visibleStyle = 0x10000000; // WS_VISIBLE
constexpr std::size_t extendedStyleOffset = 12; // DLGTEMPLATEEX: version, signature, help id, extended style come first

// Little-endian, as all resources are.
template <class Value>
Value ReadAt(std::span<const std::byte> bytes, std::size_t offset) {
    Value value = 0;
    for (std::size_t i = 0; i < sizeof(Value); ++i) {
        value = static_cast<Value>(value | (std::to_integer<std::uint32_t>(bytes[offset + i]) << (8 * i)));
    }
    return value;
}

} // namespace

bool HideDialogTemplate(std::span<std::byte> dialogTemplate) {
    if (dialogTemplate.size() < 4) return false;
    const bool extended = ReadAt<std::uint32_t>(dialogTemplate, 0) == 0xFFFF0001;
    const std::size_t offset = extended ? extendedStyleOffset : 0;
    if (dialogTemplate.size() < offset + 4) return false;
    const std::size_t highByte = offset + 3;
    dialogTemplate[highByte] &= ~std::byte{visibleStyle >> 24};
    return true;
}

std::vector<DialogInitEntry> ParseDialogInit(std::span<const std::byte> list) {
    constexpr std::size_t headerSize = 8; // control id, message, 32-bit length of the data
    std::vector<DialogInitEntry> entries;
    while (list.size() >= headerSize) {
        const auto controlId = ReadAt<std::uint16_t>(list, 0);
        const auto message = ReadAt<std::uint16_t>(list, 2);
        const auto length = ReadAt<std::uint32_t>(list, 4);
        if (controlId == 0 || length > list.size() - headerSize) break;
        entries.push_back({controlId, message, list.subspan(headerSize, length)});
        list = list.subspan(headerSize + length);
    }
    return entries;
}
