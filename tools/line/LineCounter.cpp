// A counter's clock and the people that pass beneath it.
#include "line/LineCounter.h"

#include <chrono>

namespace {

constexpr auto epoch = std::chrono::sys_days(std::chrono::year(2000) / 1 / 1);
constexpr std::int64_t secondsPerCentury = 36525LL * 24 * 60 * 60; // 2000 to 2099 has a leap day every fourth year

} // namespace

CLineCounter::CLineCounter(std::uint8_t counterAddress, const CalendarFields& date, LineTime now, std::uint64_t seed)
    : address(counterAddress), random(seed) {
    SetDate(date, now);
}

CalendarFields CLineCounter::Date(LineTime now) const {
    const auto ran = std::chrono::floor<std::chrono::seconds>(now - clockSet).count();
    const std::chrono::seconds total((clockStart + ran) % secondsPerCentury);
    const auto days = std::chrono::floor<std::chrono::days>(total);
    const std::chrono::year_month_day day(epoch + days);
    const std::chrono::hh_mm_ss time(total - days);
    return {static_cast<int>(day.year()),
            static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

void CLineCounter::SetDate(const CalendarFields& date, LineTime now) {
    const std::chrono::sys_days day(std::chrono::year(date.year) / date.month / date.day);
    const auto time = std::chrono::hours(date.hour) + std::chrono::minutes(date.minute);
    clockStart = std::chrono::seconds(day - epoch + time).count() + date.second;
    clockSet = now;
}

void CLineCounter::SetRate(int peoplePerMinute, LineTime now) {
    Advance(now);
    rate = peoplePerMinute;
    if (rate > 0) nextPerson = now + Gap();
}

void CLineCounter::Advance(LineTime now) {
    while (rate > 0 && nextPerson <= now) {
        const bool someoneInside = counts.in > counts.out;
        if (someoneInside && random.Below(2) == 0) {
            ++counts.out;
        } else {
            ++counts.in;
        }
        nextPerson += Gap();
    }
}

// Half to one and a half times the mean.
LineTime CLineCounter::Gap() {
    const auto mean = static_cast<std::uint32_t>(60'000'000 / rate);
    return LineTime(mean / 2 + random.Below(mean + 1) + 1);
}
