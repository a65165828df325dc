#include "panel/TrafficText.h"

#include "framework/Text.h"

std::string FormatHexBytes(std::span<const std::uint8_t> bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
        text += ' ';
    }
    return text;
}

std::string FormatLogLine(CTime moment, const std::string& text) {
    return moment.Format("%Y/%m/%d %H:%M:%S") + ": " + text;
}

std::string FormatTotals(const std::string& sentName, std::int32_t sent, const std::string& receivedName,
                         std::int32_t received) {
    return FormatText("%s%6d    %s%6d", sentName.c_str(), sent, receivedName.c_str(), received);
}
