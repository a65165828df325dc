// Calendar time in zones with summer time and odd distances, against a calendar that counts days one by one.
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include "framework/Time.h"

namespace {

// Day `day` (0: Sunday) of week `week` in a month, 5 for the last; at what local time, in minutes.
struct Change {
    int month, week, day, minutes;
};

struct Zone {
    const char* name;         // as the system reads it
    int offset, summerOffset; // minutes east
    Change start, end;        // of summer time, each by the clock that it ends
};

constexpr Zone zones[] = {
    {"UTC0", 0, 0, {}, {}},
    {"NPT-5:45", 345, 345, {}, {}},
    {"EST5EDT,M3.2.0,M11.1.0", -300, -240, {3, 2, 0, 120}, {11, 1, 0, 120}},
    {"NST3:30NDT,M3.2.0/0:01,M11.1.0/0:01", -210, -150, {3, 2, 0, 1}, {11, 1, 0, 1}},
    {"CET-1CEST,M3.5.0,M10.5.0/3", 60, 120, {3, 5, 0, 120}, {10, 5, 0, 180}},
    {"LHST-10:30LHDT-11,M10.1.0,M4.1.0", 630, 660, {10, 1, 0, 120}, {4, 1, 0, 120}}}; // the southern summer

int DaysOf(int year, int month) {
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return days[month - 1] + (month == 2 && leap ? 1 : 0);
}

// Days from the beginning of 1970 to that of the month.
int DaysBefore(int year, int month) {
    int days = 0;
    for (int each = 1970; each < year; ++each) days += DaysOf(each, 2) == 29 ? 366 : 365;
    for (int each = 1; each < month; ++each) days += DaysOf(year, each);
    return days;
}

// When a change comes, in minutes from the beginning of 1970 by the local clock.
std::int64_t MinutesOf(const Change& change, int year) {
    const int before = DaysBefore(year, change.month), days = DaysOf(year, change.month);
    int at = (change.day - (before + 4) % 7 + 7) % 7; // the first such day; 1970 began on a Thursday
    for (int week = 1; week < change.week && at + 7 < days; ++week) at += 7;
    return std::int64_t{1440} * (before + at) + change.minutes;
}

bool IsSummer(const Zone& zone, std::int64_t count) {
    if (zone.summerOffset == zone.offset) return false;
    int year = 1970;
    while (std::int64_t{86400} * DaysBefore(year + 1, 1) <= count + std::int64_t{60} * zone.offset) ++year;
    const std::int64_t start = 60 * (MinutesOf(zone.start, year) - zone.offset);
    const std::int64_t end = 60 * (MinutesOf(zone.end, year) - zone.summerOffset);
    return start < end ? count >= start && count < end : count >= start || count < end;
}

CalendarFields FieldsOf(std::int64_t local) {
    CalendarFields fields{1970, 1, static_cast<int>(local / 86400) + 1, 0, 0, 0};
    while (fields.day > DaysOf(fields.year, fields.month)) {
        fields.day -= DaysOf(fields.year, fields.month);
        if (++fields.month > 12) fields = {fields.year + 1, 1, fields.day, 0, 0, 0};
    }
    const int second = static_cast<int>(local % 86400);
    return {fields.year, fields.month, fields.day, second / 3600, second / 60 % 60, second % 60};
}

void ExpectTime(const Zone& zone, std::uint32_t count) {
    const bool summer = IsSummer(zone, count);
    const auto local = [&](std::int64_t at) {
        return FieldsOf(at + std::int64_t{60} * (IsSummer(zone, at) ? zone.summerOffset : zone.offset));
    };
    const CalendarFields fields = local(count);
    ASSERT_EQ(CTime(count).GetLocalFields(), fields) << zone.name << ' ' << count;
    // In the hour that the end of summer time repeats, two counts share their fields.
    ASSERT_EQ(CTime(fields, summer ? 1 : 0).GetTime(), count) << zone.name;
    ASSERT_EQ(CTime(CTime(fields).GetLocalFields()).GetLocalFields(), fields) << zone.name << ' ' << count;
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", fields.year, fields.month, fields.day,
                  fields.hour, fields.minute, fields.second);
    ASSERT_EQ(CTime(count).Format("%Y-%m-%d %H:%M:%S"), text) << zone.name;
}

class TimeZone : public testing::Test {
protected:
    ~TimeZone() override { Set(former.c_str()); }
    static void Set(const char* zone) {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    std::string former = std::getenv("TZ") != nullptr ? std::getenv("TZ") : ":/etc/localtime";
};

TEST_F(TimeZone, ChangesOfSummerTimeComeInTheirSecond) {
    for (const Zone& zone : zones) {
        Set(zone.name);
        for (const int year : {1970, 2000, 2026, 2037, 2038, 2099, 2100, 2105}) {
            for (const auto& [change, offset] : {std::pair{zone.start, zone.offset}, {zone.end, zone.summerOffset}}) {
                if (change.month == 0) continue;
                const auto at = static_cast<std::uint32_t>(60 * (MinutesOf(change, year) - offset));
                for (const std::uint32_t count : {at - 1, at, at + 1799, at + 1800, at + 3599, at + 3600})
                    ExpectTime(zone, count);
            }
        }
    }
}

RC_GTEST_FIXTURE_PROP(TimeZone, AnyTimeIsThatOfThePlainCalendar, ()) {
    const Zone& zone = zones[*rc::gen::inRange<std::size_t>(0, std::size(zones))];
    Set(zone.name);
    ExpectTime(zone, *rc::gen::inRange<std::uint32_t>(86'400, 0xFFFFFFFF - 86'400));
    RC_ASSERT(!testing::Test::HasFailure());
}

} // namespace
