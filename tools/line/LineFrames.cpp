// Requests and replies at the counters' end of the line.
#include "line/LineFrames.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>

namespace {

constexpr std::size_t clockOffset = 3;
constexpr std::size_t sensitivityOffset = 15;
constexpr std::size_t settingsOffset = 16;

// 0 for a byte that asks for nothing.
std::size_t RequestLength(std::uint8_t code) {
    switch (static_cast<RequestCode>(code)) {
    case RequestCode::Poll:
    case RequestCode::ReadSettings:
    case RequestCode::ClearCounts:
        return 5;
    case RequestCode::SetAddress:
        return 6;
    case RequestCode::SetClock:
        return 11;
    case RequestCode::WriteSettings:
        return 19;
    }
    return 0;
}

enum class Prospect { None, Unfinished, Request };

// What the bytes from one position on may be; `length` is set for a whole request.
Prospect Judge(std::span<const std::uint8_t> bytes, std::size_t& length) {
    if (bytes[0] != frameStart) return Prospect::None;
    if (bytes.size() < 3) return Prospect::Unfinished;
    length = RequestLength(bytes[2]);
    if (length == 0) return Prospect::None;
    if (bytes.size() < length) return Prospect::Unfinished;
    const bool good = bytes[length - 1] == frameEnd && CheckFrameChecksum(bytes.data(), static_cast<int>(length));
    return good ? Prospect::Request : Prospect::None;
}

LineBytes Reply(std::uint8_t address, std::span<const std::uint8_t> body) {
    LineBytes frame(body.size() + 4);
    frame[0] = frameStart;
    frame[1] = address;
    std::ranges::copy(body, frame.begin() + 2);
    frame[frame.size() - 1] = frameEnd;
    SetFrameChecksum(frame.data(), static_cast<int>(frame.size()));
    return frame;
}

void AppendHighFirst(LineBytes& body, std::uint16_t value) {
    body.push_back(static_cast<std::uint8_t>(value >> 8));
    body.push_back(static_cast<std::uint8_t>(value & 0xFF));
}

bool IsBcd(std::uint8_t byte) {
    return (byte >> 4) <= 9 && (byte & 0x0F) <= 9;
}

} // namespace

ClockField LineRequest::Clock() const {
    ClockField clock{};
    std::copy_n(frame.begin() + clockOffset, clock.size(), clock.begin());
    return clock;
}

LineSettings LineRequest::Settings() const {
    const std::uint8_t packed = frame[settingsOffset];
    return {.english = (packed & 0x80) != 0,
            .countsIn = (packed & 0x40) != 0,
            .sdDetect = (packed & 0x20) == 0,
            .sdPeriod = static_cast<std::uint8_t>(packed & 0x1F),
            .sensitivity = frame[sensitivityOffset]};
}

std::optional<LineRequest> CRequestParser::Next() {
    std::size_t keepFrom = pending.size();
    for (std::size_t at = 0; at < pending.size(); ++at) {
        std::size_t length = 0;
        const Prospect prospect = Judge(std::span(pending).subspan(at), length);
        if (prospect == Prospect::Request) {
            const auto begin = pending.begin() + static_cast<std::ptrdiff_t>(at);
            const auto end = begin + static_cast<std::ptrdiff_t>(length);
            LineRequest request{LineBytes(begin, end)};
            pending.erase(pending.begin(), end);
            return request;
        }
        if (prospect == Prospect::Unfinished) keepFrom = std::min(keepFrom, at);
    }
    pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(keepFrom));
    return std::nullopt;
}

std::optional<CalendarFields> DateOfClockField(const ClockField& clock) {
    if (!std::all_of(clock.begin(), clock.end(), IsBcd)) return std::nullopt;
    const CalendarFields date{2000 + BcdToValue(clock[0]), BcdToValue(clock[1]), BcdToValue(clock[2]),
                              BcdToValue(clock[3]),        BcdToValue(clock[4]), BcdToValue(clock[5])};
    const std::chrono::year_month_day day{std::chrono::year(date.year),
                                          std::chrono::month(static_cast<unsigned>(date.month)),
                                          std::chrono::day(static_cast<unsigned>(date.day))};
    if (!day.ok() || date.hour > 23 || date.minute > 59 || date.second > 59) return std::nullopt;
    return date;
}

ClockField ClockFieldOfDate(const CalendarFields& date) {
    return {ValueToBcd(date.year - 2000), ValueToBcd(date.month),  ValueToBcd(date.day),
            ValueToBcd(date.hour),        ValueToBcd(date.minute), ValueToBcd(date.second)};
}

std::uint8_t SettingsByteOf(const LineSettings& settings) {
    int packed = settings.sdPeriod & 0x1F;
    if (settings.english) packed |= 0x80;
    if (settings.countsIn) packed |= 0x40;
    if (!settings.sdDetect) packed |= 0x20;
    return static_cast<std::uint8_t>(packed);
}

LineBytes StatusReply(std::uint8_t address, const ClockField& clock, const LineCounts& counts) {
    LineBytes body(clock.begin(), clock.end());
    AppendHighFirst(body, counts.in);
    AppendHighFirst(body, counts.out);
    AppendHighFirst(body, counts.extra);
    body.push_back(counts.extraByte);
    return Reply(address, body);
}

LineBytes SettingsReply(std::uint8_t address, const ClockField& clock, const LineSettings& settings) {
    LineBytes body(clock.begin(), clock.end());
    body.push_back(settings.sensitivity);
    body.push_back(SettingsByteOf(settings));
    return Reply(address, body);
}

LineBytes AcknowledgementReply(std::uint8_t address, std::uint8_t status) {
    const std::array<std::uint8_t, 1> body{status};
    return Reply(address, body);
}
