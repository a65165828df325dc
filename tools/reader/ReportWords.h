// What a report says, in English and Chinese. All texts are UTF-8 and safe inside HTML.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "reader/ReadingText.h"

enum class ReportLanguage : std::uint8_t { English, Chinese };

// In texts, {0} and {1} stand for what FillIn puts there.
struct ReportWords {
    std::string_view languageTag; // of HTML
    std::string_view title, in, out, total;
    std::string_view byHour, ofAllDays, byDay, byMonth; // headings; {0} days
    std::string_view hour, day, month;                  // column heads
    std::string_view counters, counter, answered;
    std::string_view chart;                     // what a picture is called: {0} is its heading
    std::string_view missing, nothingMissing;   // the heading, and what stands there alone
    std::string_view counterHours, counterHour; // {0} counters, each with its hours without an answer
    std::string_view hours;                     // without answers: {0} of them, {1} when
    std::string_view furtherTimes;              // {0} that aren't named
    std::string_view furtherRows;               // {0} rows of a table that aren't shown
    std::string_view jumps, cleared, withoutHour, withoutDay, outOfOrder, unreadable;
    std::string_view source; // {0} the file, {1} readings
};

const ReportWords& WordsOf(ReportLanguage language);

std::string FillIn(std::string_view text, std::initializer_list<std::string_view> values);

// "12,345".
std::string GroupedNumber(std::uint64_t value);

// "Thu 26 Nov 2026", "2026年11月26日 周四"; without the year; and the month with its year.
std::string DateText(std::int64_t day, ReportLanguage language);
std::string ShortDateText(std::int64_t day, ReportLanguage language);
std::string MonthText(std::int64_t day, ReportLanguage language);
// "26 Nov 09:00"
std::string DateTimeText(WallSeconds wall, ReportLanguage language);
// "09:00"
std::string TimeText(WallSeconds wall);
