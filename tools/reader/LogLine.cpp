#include "reader/LogLine.h"

#include <chrono>

namespace {

constexpr std::string_view datePattern = "dddd/dd/dd dd:dd:dd: ";
constexpr std::size_t minuteLength = 17;

bool IsDigit(char each) {
    return each >= '0' && each <= '9';
}

int NumberAt(std::string_view digits, std::size_t at, std::size_t count) {
    int value = 0;
    for (const char each : digits.substr(at, count)) value = value * 10 + (each - '0');
    return value;
}

std::chrono::year_month_day DateOf(std::string_view text) {
    return std::chrono::year(NumberAt(text, 0, 4)) / NumberAt(text, 5, 2) / NumberAt(text, 8, 2);
}

bool HasDate(std::string_view text) {
    if (text.size() < datePattern.size()) return false;
    for (std::size_t at = 0; at < datePattern.size(); ++at) {
        if (datePattern[at] == 'd' ? !IsDigit(text[at]) : text[at] != datePattern[at]) return false;
    }
    return DateOf(text).ok() && NumberAt(text, 11, 2) < 24 && NumberAt(text, 14, 2) < 60 && NumberAt(text, 17, 2) < 60;
}

// The value of a hexadecimal digit by its character; 16 for any other.
constexpr auto digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(16);
    for (unsigned value = 0; value < 16; ++value) {
        values.at(static_cast<unsigned char>("0123456789abcdef"[value])) = static_cast<std::uint8_t>(value);
        values.at(static_cast<unsigned char>("0123456789ABCDEF"[value])) = static_cast<std::uint8_t>(value);
    }
    return values;
}();

std::uint8_t DigitValue(char digit) {
    return digitValues[static_cast<unsigned char>(digit)];
}

bool ParseHex(std::string_view text, LogLine& line) {
    line.length = 0;
    while (!text.empty()) {
        if (text.size() < 2 || line.length == line.buffer.size()) return false;
        const std::uint8_t high = DigitValue(text[0]), low = DigitValue(text[1]);
        if ((high | low) > 15 || (text.size() > 2 && text[2] != ' ')) return false;
        line.buffer[line.length++] = static_cast<std::uint8_t>(high << 4 | low);
        text.remove_prefix(text.size() > 2 ? 3 : 2);
    }
    return true;
}

} // namespace

bool ParseLogLine(std::string_view text, LogLine& line) {
    constexpr std::string_view sent = "TX-->", received = "RX-->";
    if (!HasDate(text)) return false;
    line.minute = text.substr(0, minuteLength);
    line.second = NumberAt(text, minuteLength, 2);
    text.remove_prefix(datePattern.size());
    line.isSent = text.starts_with(sent);
    return (line.isSent || text.starts_with(received)) && ParseHex(text.substr(sent.size()), line);
}

std::int64_t WallOfLogMinute(std::string_view minute) {
    const std::chrono::sys_seconds day = std::chrono::sys_days(DateOf(minute));
    return (day + std::chrono::hours(NumberAt(minute, 11, 2)) + std::chrono::minutes(NumberAt(minute, 14, 2)))
        .time_since_epoch()
        .count();
}
