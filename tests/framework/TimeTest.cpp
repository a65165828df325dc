// Calendar time in the zone of the system: what is carried over, and what the count can't hold.
#include "framework/Time.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

constexpr int highest = std::numeric_limits<int>::max(), lowest = std::numeric_limits<int>::min();

TEST(Time, FieldsOutOfRangeAreCarriedOver) {
    const struct {
        CalendarFields given, meant;
    } rows[] = {
        {{2010, 13, 1, 12, 0, 0}, {2011, 1, 1, 12, 0, 0}},    {{2011, 0, 1, 12, 0, 0}, {2010, 12, 1, 12, 0, 0}},
        {{2010, 2, 29, 12, 0, 0}, {2010, 3, 1, 12, 0, 0}},    {{2012, 2, 29, 12, 0, 0}, {2012, 2, 29, 12, 0, 0}},
        {{2010, 3, 0, 12, 0, 0}, {2010, 2, 28, 12, 0, 0}},    {{2010, 6, 30, 36, 0, 0}, {2010, 7, 1, 12, 0, 0}},
        {{2010, 6, 30, 11, 59, 60}, {2010, 6, 30, 12, 0, 0}}, {{2099, 12, 32, 12, -1, 60}, {2100, 1, 1, 12, 0, 0}},
        {{2000, 2, 29, 12, 0, 0}, {2000, 2, 29, 12, 0, 0}},   {{2100, 2, 29, 12, 0, 0}, {2100, 3, 1, 12, 0, 0}}};
    for (const auto& row : rows) EXPECT_EQ(CTime(row.given).GetLocalFields(), row.meant);
}

TEST(Time, WhatTheCountCannotHoldIsNoTime) {
    const CalendarFields rows[] = {{1969, 12, 30, 12, 0, 0},     {2106, 2, 9, 12, 0, 0},
                                   {0, 0, 0, 0, 0, 0},           {1899, 12, 31, 0, 0, 0},
                                   {highest, 1, 1, 0, 0, 0},     {lowest, 1, 1, 0, 0, 0},
                                   {2010, highest, 1, 0, 0},     {2010, lowest, 1, 0, 0},
                                   {2010, 1, lowest, 0, 0, 0},   {2010, 1, highest, 0, 0},
                                   {2010, 1, 1, lowest, 0},      {2010, 1, 1, highest, 0},
                                   {2010, 1, 1, 0, lowest, 0},   {2010, 1, 1, 0, 0, lowest},
                                   {2010, 999'999'999, 1, 0, 0}, {lowest, lowest, lowest, lowest, lowest, lowest}};
    for (const CalendarFields& row : rows)
        EXPECT_EQ(CTime(row).GetTime(), 0U) << row.year << '-' << row.month << '-' << row.day;
    CalendarFields last = CTime(0xFFFFFFFF).GetLocalFields();
    EXPECT_EQ(last.year, 2106);
    EXPECT_EQ(CTime(last).GetTime(), 0xFFFFFFFF);
    ++last.second;
    EXPECT_EQ(CTime(last).GetTime(), 0U);
}

TEST(Time, FormatsUpTo255Bytes) {
    const CTime time(CalendarFields{2010, 10, 1, 9, 5, 7});
    EXPECT_EQ(time.Format("%Y/%m/%d %H:%M:%S"), "2010/10/01 09:05:07");
    EXPECT_EQ(time.Format(std::string(251, '.').append("%Y").c_str()).size(), 255U);
    EXPECT_EQ(time.Format(std::string(252, '.').append("%Y").c_str()), "");
}

} // namespace
