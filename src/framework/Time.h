// Calendar time: a count of seconds with the local calendar behind it.
//
// The count is unsigned and 32 bits wide in every build, so that a record which holds one has the same layout on 32-bit
// and 64-bit Windows; the calendar itself is always computed with the 64-bit functions of the C runtime. Times from
// 1970-01-01 00:00:00 UTC to the year 2106 fit. 0 stands for "no time": what the calendar can't represent becomes 0.
#pragma once

#include <cstdint>
#include <string>

// A broken-down local time. Ranges are those of a valid date when it comes from CTime::GetLocalFields; a caller that
// fills one by hand may hold anything.
struct CalendarFields {
    int year = 1970;
    int month = 1;  // 1 to 12
    int day = 1;    // 1 to 31
    int hour = 0;   // 0 to 23
    int minute = 0; // 0 to 59
    int second = 0; // 0 to 59

    bool operator==(const CalendarFields&) const = default;
};

class CTime {
public:
    CTime() = default;
    explicit CTime(std::uint32_t secondsSinceEpoch) : seconds(secondsSinceEpoch) {}

    // From local time. `daylightSaving` is as in the C runtime's tm_isdst: -1 lets the platform decide whether summer
    // time applies. Fields out of range are carried over (month 13 is January of the next year); a result that can't be
    // represented gives 0.
    explicit CTime(const CalendarFields& local, int daylightSaving = -1);

    // The present moment.
    static CTime Now();

    std::uint32_t GetTime() const { return seconds; }

    // Local calendar fields; those of 1970-01-01 00:00:00 when the platform can't break the count down.
    CalendarFields GetLocalFields() const;

    // strftime over the local time, for instance "%Y/%m/%d %H:%M:%S". Longer results than 255 bytes come out empty.
    std::string Format(const char* format) const;

    bool operator==(const CTime&) const = default;

private:
    std::uint32_t seconds = 0;
};
