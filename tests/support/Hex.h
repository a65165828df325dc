// Bytes as the traffic log writes them, and whole frames from what they carry.
#pragma once

#include <cstdint>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// "02 1f 03": two lower-case digits for each byte, blanks between them.
inline std::string HexOf(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t each : bytes) {
        if (!text.empty()) text += ' ';
        text += digits[each >> 4];
        text += digits[each & 0x0F];
    }
    return text;
}

// The bytes of such a text; digits may be of either case.
inline std::vector<std::uint8_t> BytesOf(std::string_view hex) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 3) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(std::string(hex.substr(at, 2)), nullptr, 16)));
    }
    return bytes;
}

// Start byte, what is given, the low byte of its sum as checksum, end byte.
inline std::vector<std::uint8_t> Frame(std::vector<std::uint8_t> body) {
    const auto sum = std::accumulate(body.begin(), body.end(), 0);
    body.insert(body.begin(), 0x02);
    body.insert(body.end(), {static_cast<std::uint8_t>(sum), 0x03});
    return body;
}
inline std::vector<std::uint8_t> FrameOf(std::string_view hex) {
    return Frame(BytesOf(hex));
}
