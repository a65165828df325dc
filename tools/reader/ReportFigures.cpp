#include "reader/ReportFigures.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::int64_t secondsPerHour = 3600, hoursPerDay = 24, secondsOfDay = 86'400;
constexpr std::int64_t longestSpan = 3653 * secondsOfDay;
// A reading an hour comes a little late now and then; one a day too, on the day that has 25 hours.
constexpr std::int64_t hourlyStep = 3'900, dailyStep = 26 * secondsPerHour;

std::int64_t FloorHour(WallSeconds wall) {
    return wall / secondsPerHour - (wall % secondsPerHour < 0 ? 1 : 0);
}
std::int64_t DayOfHour(std::int64_t hour) {
    return hour / hoursPerDay - (hour % hoursPerDay < 0 ? 1 : 0);
}
int HourOfDay(std::int64_t hour) {
    return static_cast<int>(hour - DayOfHour(hour) * hoursPerDay);
}

} // namespace

void CSilentHours::Take(std::int64_t hour, bool answered) {
    if (current && *current == hour) {
        if (answered && isSilent) --count;
        isSilent = isSilent && !answered;
        return;
    }
    current = hour;
    isSilent = !answered;
    if (isSilent) ++count;
}

void PeopleSum::Add(const CountPair& people) {
    in += static_cast<std::uint64_t>(people.in);
    out += static_cast<std::uint64_t>(people.out);
}

bool CReportFigures::Take(const ReadingRow& row) {
    const WallSeconds wall = WallOf(row.time);
    if (first && std::max(*last, wall) - std::min(*first, wall) > longestSpan) return false;
    first = std::min(first.value_or(wall), wall);
    last = std::max(last.value_or(wall), wall);
    const std::int64_t hour = FloorHour(wall);
    askedHours |= 1U << HourOfDay(hour);
    days[DayOfHour(hour)];
    CounterFigures& counter = counters[row.address];
    ++counter.readings;
    counter.hours.Take(hour, row.counts.has_value());
    if (row.counts) TakeCounts(counter, row);
    return true;
}

void CReportFigures::TakeCounts(CounterFigures& counter, const ReadingRow& row) {
    ++counter.answered;
    NoteAnswered(row.time);
    if (counter.last && counter.last->microseconds > row.time.microseconds) {
        ++outOfOrder;
        counter.people.Forget();
    }
    const auto step = counter.people.Take(*row.counts);
    if (step) TakeStep(*step, *counter.last, row.time);
    counter.last = row.time;
}

void CReportFigures::TakeStep(const CountStep& step, const Moment& from, const Moment& to) {
    const std::int64_t duration = (to.microseconds - from.microseconds) / 1'000'000;
    const std::int64_t hour = FloorHour(WallOf(to) - duration / 2);
    total.Add(step.people);
    if (duration <= dailyStep)
        days[DayOfHour(hour)].Add(step.people);
    else
        withoutDay.Add(step.people);
    if (duration <= hourlyStep)
        hours.at(static_cast<std::size_t>(HourOfDay(hour))).Add(step.people);
    else
        withoutHour.Add(step.people);
}

void CReportFigures::NoteAnswered(const Moment& time) {
    const std::int64_t hour = FloorHour(WallOf(time));
    answeredHours[DayOfHour(hour)] |= 1U << HourOfDay(hour);
    // The hour that the beginning of summer time skips has no answers, and none are missing.
    if (lastAnswer && lastAnswer->offset < time.offset) {
        const std::int64_t pause = (time.microseconds - lastAnswer->microseconds) / 1'000'000;
        const std::int64_t from = FloorHour(WallOf(*lastAnswer));
        for (std::int64_t skipped = hour - 1; pause <= hourlyStep && skipped > from && skipped > hour - 3; --skipped) {
            answeredHours[DayOfHour(skipped)] |= 1U << HourOfDay(skipped);
        }
    }
    lastAnswer = time;
}

std::uint64_t CReportFigures::Count(StepKind kind) const {
    std::uint64_t sum = 0;
    for (const auto& [address, counter] : counters) sum += counter.people.Count(kind);
    return sum;
}

std::optional<HourRun> CReportFigures::Span() const {
    if (!first) return std::nullopt;
    return HourRun{*first, *last};
}

std::pair<int, int> CReportFigures::AskedHours() const {
    if (askedHours == 0) return {0, 23};
    return {std::countr_zero(askedHours), 31 - std::countl_zero(askedHours)};
}

std::vector<HourRun> CReportFigures::MissingHours() const {
    std::vector<HourRun> runs;
    if (!first) return runs;
    for (std::int64_t hour = FloorHour(*first); hour <= FloorHour(*last); ++hour) {
        const auto day = answeredHours.find(DayOfHour(hour));
        if (day != answeredHours.end() && (day->second >> HourOfDay(hour) & 1) != 0) continue;
        const WallSeconds begin = hour * secondsPerHour;
        if (runs.empty() || runs.back().end != begin) runs.push_back({begin, begin});
        runs.back().end = begin + secondsPerHour;
    }
    return runs;
}
