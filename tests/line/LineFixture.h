// A line on a time of its own, spoken to in hex.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "line/CounterLine.h"
#include "line/LineControl.h"

inline LineBytes Bytes(std::string_view hex) {
    LineBytes bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 3) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(std::string(hex.substr(at, 2)), nullptr, 16)));
    }
    return bytes;
}

inline std::string Hex(const LineBytes& bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) text += ' ';
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

// Counters 0, 1 and 3 whose clocks start at 2012-07-02 16:21:20, without people.
class LineTest : public testing::Test {
protected:
    void Feed(std::string_view hex) { line.Feed(Bytes(hex), now); }

    // Lets time pass until the line is silent.
    std::string Listen() {
        LineBytes heard;
        while (const auto due = line.NextDue()) {
            now = std::max(now, *due);
            const LineBytes bytes = line.TakeDue(now);
            heard.insert(heard.end(), bytes.begin(), bytes.end());
        }
        return Hex(heard);
    }

    std::string Ask(std::string_view hex) {
        Feed(hex);
        return Listen();
    }

    std::string Control(std::string_view text) { return RunControlLine(line, text, now).text; }

    LineTime now{5'000'000};
    CCounterLine line{LineConfiguration{}, now};
};
