// Text from a fuzzer's bytes: a small one stands for a whole token, so that lines with a meaning come up at all.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

inline std::string TokenText(std::span<const std::uint8_t> bytes, std::span<const std::string_view> tokens) {
    std::string text;
    for (const std::uint8_t each : bytes) {
        if (each < tokens.size())
            text += tokens[each];
        else
            text += static_cast<char>(each);
    }
    return text;
}
