// Little-endian values among the bytes of files and resources: at a place, or in turn by a cursor that never goes
// beyond the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

// The value that begins at `offset`; the bytes, be they std::byte or numbers, must reach as far as its end.
template <class Byte>
std::uint16_t WordAt(std::span<Byte> bytes, std::size_t offset) {
    const auto low = static_cast<unsigned>(bytes[offset]), high = static_cast<unsigned>(bytes[offset + 1]);
    return static_cast<std::uint16_t>(low | high << 8);
}
template <class Byte>
std::uint32_t DwordAt(std::span<Byte> bytes, std::size_t offset) {
    return WordAt(bytes, offset) | std::uint32_t{WordAt(bytes, offset + 2)} << 16;
}

class CLittleEndianReader {
public:
    explicit CLittleEndianReader(std::span<const std::byte> bytes) : rest(bytes) {}

    // Nothing, with nothing taken, where less is left than the value needs.
    std::optional<std::uint16_t> ReadWord() {
        const auto bytes = rest;
        if (!Skip(2)) return std::nullopt;
        return WordAt(bytes, 0);
    }
    std::optional<std::uint32_t> ReadDword() {
        const auto bytes = rest;
        if (!Skip(4)) return std::nullopt;
        return DwordAt(bytes, 0);
    }
    // A text in UTF-16 up to its zero, which is taken too. Nothing where no zero ends it: then all is taken.
    std::optional<std::u16string> ReadText() {
        std::u16string text;
        while (const auto character = ReadWord()) {
            if (*character == 0) return text;
            text.push_back(static_cast<char16_t>(*character));
        }
        return std::nullopt;
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
