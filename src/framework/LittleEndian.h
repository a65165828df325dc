// A cursor over the bytes of a resource: 16-bit little-endian values in turn, never beyond the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

class CLittleEndianReader {
public:
    explicit CLittleEndianReader(std::span<const std::byte> bytes) : rest(bytes) {}

    // Nothing at the end, or where half a value is left.
    std::optional<std::uint16_t> ReadWord() {
        if (rest.size() < 2) return std::nullopt;
        const auto low = std::to_integer<unsigned>(rest[0]);
        const auto high = std::to_integer<unsigned>(rest[1]);
        rest = rest.subspan(2);
        return static_cast<std::uint16_t>(low | high << 8);
    }
    // False, with nothing skipped, if fewer bytes are left.
    bool Skip(std::size_t count) {
        if (count > rest.size()) return false;
        rest = rest.subspan(count);
        return true;
    }
    std::span<const std::byte> Rest() const { return rest; }

private:
    std::span<const std::byte> rest;
};
