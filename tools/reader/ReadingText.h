// The words and figures of a reading, as every format has them: ASCII, the same in every locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "reader/Reading.h"

// "ok", "silent", "spoilt", "doubled", "not_asked"; and back, none for any other word.
std::string_view AnswerWord(Answer answer);
std::optional<Answer> AnswerOfWord(std::string_view word);

// A date and a time of day without a zone, as seconds since 1970-01-01 00:00:00 of the same calendar.
using WallSeconds = std::int64_t;

// Local time at the moment.
WallSeconds WallOf(const Moment& moment);
// What a counter's clock shows; none if it shows no date (`deviceTime` 0).
std::optional<WallSeconds> WallOfClock(std::uint32_t deviceTime);

// "2026-11-26T10:00:00"; `separator` stands between date and time. Years beyond 0 to 9999 come out as they wrap.
std::string WallText(WallSeconds wall, char separator = 'T');
// "2026-11-26T10:00:00.123+01:00": local time to the millisecond, and its offset.
std::string MomentText(const Moment& moment);

// "99.9 %", rounded down, so that 100 % means all; of nothing 0.
std::string ShareText(std::uint64_t part, std::uint64_t whole);

// A counter's settings by name, in the order in which the formats have them.
struct SettingsWords {
    std::string sensitivity;                        // "0" to "255"
    std::string_view language, direction, sdDetect; // "en" "zh", "in" "out", "yes" "no"
    std::string sdPeriod;                           // "0" to "31"
};
SettingsWords WordsOfSettings(const CounterRecord& settings);
