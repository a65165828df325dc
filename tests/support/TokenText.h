// Text from a fuzzer's bytes: a small one stands for a whole token, so that lines with a meaning come up at all.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

// The lines of such a text: the words of a command line.
inline std::vector<std::string> TokenLines(std::span<const std::uint8_t> bytes,
                                           std::span<const std::string_view> tokens) {
    std::vector<std::string> lines(1);
    for (const char each : TokenText(bytes, tokens)) {
        if (each == '\n')
            lines.emplace_back();
        else if (each != '\0')
            lines.back() += each;
    }
    return lines;
}

// As `main` gets them, with the program's name in front; they point into `words`.
inline std::vector<const char*> Arguments(const char* program, const std::vector<std::string>& words) {
    std::vector<const char*> arguments{program};
    for (const std::string& word : words) arguments.push_back(word.c_str());
    return arguments;
}
