// The wire log.
#include "line/WireLog.h"

#include <string_view>

std::string HexOfBytes(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += ' ';
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

std::string WireLogLine(WireDirection direction, std::span<const std::uint8_t> bytes, LineTime now) {
    return std::to_string(now.count()) + ' ' + static_cast<char>(direction) + HexOfBytes(bytes) + '\n';
}

bool CWireLog::Open(const std::string& path) {
    file.Attach(std::fopen(path.c_str(), "wb"));
    return !file.IsEmpty();
}

bool CWireLog::Note(WireDirection direction, std::span<const std::uint8_t> bytes, LineTime now) {
    if (file.IsEmpty() || bytes.empty()) return true;
    const bool put = std::fputs(WireLogLine(direction, bytes, now).c_str(), file.GetHandle()) >= 0;
    // Whoever measures reads along, and an end by force must not cost the last lines.
    if (put && std::fflush(file.GetHandle()) == 0) return true;
    file.Close();
    return false;
}
