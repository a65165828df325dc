#include "framework/Archive.h"

namespace {

constexpr std::uint16_t longCount = 0xFFFF;

std::optional<std::uint32_t> TakeCount(CLittleEndianReader& reader) {
    const auto count = reader.ReadWord();
    return count == longCount ? reader.ReadDword() : std::optional<std::uint32_t>(count);
}

} // namespace

void CArchive::WriteDword(std::uint32_t value) {
    WriteWord(value & 0xFFFF);
    WriteWord(value >> 16);
}

void CArchive::WriteCount(std::uint32_t count) {
    if (count < longCount) {
        WriteWord(count);
    } else {
        WriteWord(longCount);
        WriteDword(count);
    }
}

std::optional<std::uint32_t> CArchive::ReadCount() {
    CLittleEndianReader ahead = reader;
    const auto count = TakeCount(ahead);
    if (count) reader = ahead;
    return count;
}

void CArchive::WriteWord(std::uint32_t value) {
    stored.push_back(static_cast<std::byte>(value & 0xFF));
    stored.push_back(static_cast<std::byte>(value >> 8));
}
