// Calendar time: what round trips, what is carried over, and what the count can't hold.
#include "framework/Time.h"

#include <limits>

#include <gtest/gtest.h>

#include "framework/Text.h"

namespace {

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr std::uint32_t latest = 0xFFFFFFFF; // in 2106

// Fields, not counts: in the hour that the end of summer time repeats, two counts share their fields.
TEST(Time, FieldsSurviveTheCountOverTheWholeRange) {
    constexpr std::uint32_t step = 1'123'477; // 13 days and some odd hours, minutes and seconds
    for (std::uint32_t count = step; count < latest - step; count += step) {
        const CalendarFields fields = CTime(count).GetLocalFields();
        ASSERT_EQ(CTime(fields).GetLocalFields(), fields) << count;
    }
}

TEST(Time, FieldsOutOfRangeAreCarriedOver) {
    const struct {
        CalendarFields given, meant;
    } cases[] = {
        {{2010, 13, 1, 12, 0, 0}, {2011, 1, 1, 12, 0, 0}},    {{2011, 0, 1, 12, 0, 0}, {2010, 12, 1, 12, 0, 0}},
        {{2010, 2, 29, 12, 0, 0}, {2010, 3, 1, 12, 0, 0}},    {{2012, 2, 29, 12, 0, 0}, {2012, 2, 29, 12, 0, 0}},
        {{2010, 3, 0, 12, 0, 0}, {2010, 2, 28, 12, 0, 0}},    {{2010, 6, 30, 36, 0, 0}, {2010, 7, 1, 12, 0, 0}},
        {{2010, 6, 30, 11, 59, 60}, {2010, 6, 30, 12, 0, 0}}, {{2099, 12, 32, 12, -1, 60}, {2100, 1, 1, 12, 0, 0}},
    };
    for (const auto& each : cases) EXPECT_EQ(CTime(each.given).GetLocalFields(), each.meant);
}

TEST(Time, WhatTheCountCannotHoldIsNoTime) {
    const CalendarFields cases[] = {
        {1969, 12, 30, 12, 0, 0},        {2106, 2, 9, 12, 0, 0},
        {2107, 1, 1, 0, 0, 0},           {0, 0, 0, 0, 0, 0},
        {1899, 12, 31, 0, 0, 0},         {highest, 1, 1, 0, 0, 0},
        {lowest, 1, 1, 0, 0, 0},         {2010, highest, 1, 0, 0, 0},
        {2010, lowest, 1, 0, 0, 0},      {2010, 1, lowest, 0, 0, 0},
        {2010, 1, highest, 0, 0, 0},     {2010, 1, 1, lowest, 0, 0},
        {2010, 1, 1, 0, 0, lowest},      {2010, 999'999'999, 1, 0, 0, 0},
        {2010, 1, 999'999'999, 0, 0, 0}, {lowest, lowest, lowest, lowest, lowest, lowest},
    };
    for (const CalendarFields& each : cases) {
        EXPECT_EQ(CTime(each).GetTime(), 0U) << each.year << '-' << each.month << '-' << each.day;
    }
    CalendarFields last = CTime(latest).GetLocalFields();
    EXPECT_EQ(last.year, 2106);
    EXPECT_EQ(CTime(last).GetTime(), latest);
    ++last.second;
    EXPECT_EQ(CTime(last).GetTime(), 0U);
}

TEST(Time, Formats) {
    const CTime time(CalendarFields{2010, 10, 1, 9, 5, 7});
    EXPECT_EQ(time.Format("%Y/%m/%d %H:%M:%S"), "2010/10/01 09:05:07");
    EXPECT_EQ(time.Format(""), "");
    EXPECT_EQ(time.Format(std::string(250, '.').append("%Y").c_str()).size(), 254U);
    EXPECT_EQ(time.Format(std::string(252, '.').append("%Y").c_str()), "");
}

TEST(FormatText, HasAnyLength) {
    EXPECT_EQ(FormatText("%d %s %02X", -7, "x", 0xAU), "-7 x 0A");
    EXPECT_EQ(FormatText("%s", ""), "");
    EXPECT_EQ(FormatText("%5000d|", 1).size(), 5001U);
}

} // namespace
