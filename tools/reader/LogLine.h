// A line of the traffic log.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "link/CounterFrame.h"

// "2026/11/26 10:00:00: TX-->02 00 81 81 03 ", taken apart.
struct LogLine {
    std::string_view minute; // "2026/11/26 10:00:", of the text that was read; a date that there is
    std::int32_t second = 0;
    bool isSent = false; // TX, else RX
    std::array<std::uint8_t, replyCapacity> buffer;
    std::size_t length = 0;

    std::span<const std::uint8_t> Bytes() const { return std::span(buffer).first(length); }
};

// The longest line that the program writes, without its line end.
inline constexpr std::size_t longestLogLine = 26 + replyCapacity * 3;

// `text` without its line end; a blank behind the last byte may be missing, as editors take it away. False, with `line`
// undefined, for what is no line of a log.
bool ParseLogLine(std::string_view text, LogLine& line);

// Local time at the beginning of a minute as LogLine has it.
std::int64_t WallOfLogMinute(std::string_view minute);
