#include "reader/ReadingText.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "framework/Time.h"

namespace {

constexpr std::array<std::string_view, 5> answerWords{"ok", "silent", "spoilt", "doubled", "not_asked"};

constexpr std::int64_t microsecondsPerSecond = 1'000'000;

std::int64_t FloorQuotient(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Digits at the end of `text`, with zeros in front.
void AppendPadded(std::string& text, std::int64_t value, int width) {
    std::int64_t power = 1;
    for (int digit = 1; digit < width; ++digit) power *= 10;
    for (; power > 0; power /= 10) text += static_cast<char>('0' + value / power % 10);
}

} // namespace

std::string_view AnswerWord(Answer answer) {
    return answerWords.at(static_cast<std::size_t>(answer));
}

std::optional<Answer> AnswerOfWord(std::string_view word) {
    const auto found = std::ranges::find(answerWords, word);
    if (found == answerWords.end()) return std::nullopt;
    return static_cast<Answer>(found - answerWords.begin());
}

WallSeconds WallOf(const Moment& moment) {
    return FloorQuotient(moment.microseconds, microsecondsPerSecond) + moment.offset;
}

std::optional<WallSeconds> WallOfClock(std::uint32_t deviceTime) {
    if (deviceTime == 0) return std::nullopt;
    const CalendarFields local = CTime(deviceTime).GetLocalFields();
    const std::chrono::sys_days day(std::chrono::year(local.year) / local.month / local.day);
    return (std::chrono::sys_seconds(day) + std::chrono::hours(local.hour) + std::chrono::minutes(local.minute))
               .time_since_epoch()
               .count() +
           local.second;
}

std::string WallText(WallSeconds wall, char separator) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(wall)};
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss time(moment - midnight);
    std::string text;
    AppendPadded(text, std::max(0, static_cast<int>(date.year())), 4);
    text += '-';
    AppendPadded(text, static_cast<unsigned>(date.month()), 2);
    text += '-';
    AppendPadded(text, static_cast<unsigned>(date.day()), 2);
    text += separator;
    AppendPadded(text, time.hours().count(), 2);
    text += ':';
    AppendPadded(text, time.minutes().count(), 2);
    text += ':';
    AppendPadded(text, time.seconds().count(), 2);
    return text;
}

std::string MomentText(const Moment& moment) {
    std::string text = WallText(WallOf(moment));
    const std::int64_t seconds = FloorQuotient(moment.microseconds, microsecondsPerSecond);
    text += '.';
    AppendPadded(text, (moment.microseconds - seconds * microsecondsPerSecond) / 1000, 3);
    text += moment.offset < 0 ? '-' : '+';
    const std::int32_t minutes = (moment.offset < 0 ? -moment.offset : moment.offset) / 60;
    AppendPadded(text, minutes / 60, 2);
    text += ':';
    AppendPadded(text, minutes % 60, 2);
    return text;
}

std::string ShareText(std::uint64_t part, std::uint64_t whole) {
    const std::uint64_t tenths = whole == 0 ? 0 : part * 1000 / whole;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " %";
}

SettingsWords WordsOfSettings(const CounterRecord& settings) {
    return {std::to_string(settings.sensitivity), settings.language == 0 ? "en" : "zh",
            settings.direction == 0 ? "in" : "out", settings.sdDetect == 0 ? "yes" : "no",
            std::to_string(settings.sdPeriod)};
}
