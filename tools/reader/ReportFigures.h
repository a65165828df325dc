// People by hour and by day, from readings in the order in which they were made.
//
// People of a step between two readings belong to the middle of it, by local time as the rows have it. A step that
// takes much longer than an hour belongs to no hour, one longer than a day to no day; the totals have them all.
//
// Memory depends on the days from the first reading to the last alone, of which ten years are taken.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "reader/PeopleTally.h"
#include "reader/ReadingRow.h"
#include "reader/ReadingText.h"

struct PeopleSum {
    std::uint64_t in = 0, out = 0;

    void Add(const CountPair& people);
    bool IsEmpty() const { return in == 0 && out == 0; }
    bool operator==(const PeopleSum&) const = default;
};

// Hours in which a counter was asked and never answered, from readings in order.
class CSilentHours {
public:
    // `hour` since 1970, in local time.
    void Take(std::int64_t hour, bool answered);
    std::uint64_t Count() const { return count; }

private:
    std::optional<std::int64_t> current;
    bool isSilent = false; // the current one, up to now
    std::uint64_t count = 0;
};

struct CounterFigures {
    CSilentHours hours;
    CPeopleTally people;
    std::uint64_t readings = 0, answered = 0;
    std::optional<Moment> last; // whole answer
};

// Hours of local time in one piece: from the beginning of the first to the end of the last.
struct HourRun {
    WallSeconds begin = 0, end = 0;

    bool operator==(const HourRun&) const = default;
};

class CReportFigures {
public:
    // False for a row with which all would span more than ten years: it isn't taken.
    bool Take(const ReadingRow& row);

    // By the hour of the day, over all days; by the day, in days since 1970-01-01. Days without people are in it if
    // somebody was asked on them.
    const std::array<PeopleSum, 24>& Hours() const { return hours; }
    const std::map<std::int64_t, PeopleSum>& Days() const { return days; }
    const std::map<std::int32_t, CounterFigures>& Counters() const { return counters; } // by address
    PeopleSum Total() const { return total; }
    // What of the total is in no hour, and in no day.
    PeopleSum WithoutHour() const { return withoutHour; }
    PeopleSum WithoutDay() const { return withoutDay; }
    std::uint64_t Count(StepKind kind) const; // of all counters
    // Readings older than the one before, with which counting began anew.
    std::uint64_t OutOfOrder() const { return outOfOrder; }

    // From the first reading to the last, in local time; none before the first.
    std::optional<HourRun> Span() const;
    // The hours of the day in which somebody was asked, on whatever day: the first and the last.
    std::pair<int, int> AskedHours() const;
    // Hours between the first reading and the last in which no counter gave a whole answer, in order.
    std::vector<HourRun> MissingHours() const;

private:
    void TakeCounts(CounterFigures& counter, const ReadingRow& row);
    void TakeStep(const CountStep& step, const Moment& from, const Moment& to);
    void NoteAnswered(const Moment& time);

    std::array<PeopleSum, 24> hours{};
    std::map<std::int64_t, PeopleSum> days;
    std::map<std::int64_t, std::uint32_t> answeredHours; // by day, a bit for each hour
    std::uint32_t askedHours = 0;                        // a bit for each hour
    std::map<std::int32_t, CounterFigures> counters;
    PeopleSum total, withoutHour, withoutDay;
    std::uint64_t outOfOrder = 0;
    std::optional<WallSeconds> first, last;
    std::optional<Moment> lastAnswer; // of any counter
};
