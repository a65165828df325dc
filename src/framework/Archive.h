// A small archive: values in turn, as little-endian bytes. It either stores, to its end, or loads from bytes that
// outlive it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "framework/LittleEndian.h"

class CArchive {
public:
    // Stores.
    CArchive() = default;
    // Loads.
    explicit CArchive(std::span<const std::byte> bytes) : storing(false), reader(bytes) {}

    bool IsStoring() const { return storing; }

    // Storing. A count takes 16 bits; from 0xFFFF on, these are 0xFFFF and the count follows in 32 bits.
    void WriteDword(std::uint32_t value);
    void WriteCount(std::uint32_t count);
    const std::vector<std::byte>& GetStored() const { return stored; }

    // Loading. Nothing, with nothing taken, where less is left than the value needs.
    std::optional<std::uint32_t> ReadDword() { return reader.ReadDword(); }
    std::optional<std::uint32_t> ReadCount();
    // How many bytes are left to load.
    std::size_t GetRest() const { return reader.Rest().size(); }

private:
    void WriteWord(std::uint32_t value);

    bool storing = true;
    std::vector<std::byte> stored;
    CLittleEndianReader reader{{}};
};
