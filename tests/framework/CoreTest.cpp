// What the rest stands on: handles, local time, formatted text, and the archive.
#include <array>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

#include "framework/Archive.h"
#include "framework/Handle.h"
#include "framework/Text.h"
#include "framework/Time.h"

namespace {

// Notes each handle that is closed, with the letter of where it came from.
struct NotingTraits {
    using Type = int;
    static constexpr Type Empty() { return -1; }
    void Close(int handle) const { *closed += origin + std::to_string(handle) + ' '; }
    std::string* closed = nullptr;
    char origin = '?';
};

TEST(Handle, IsClosedOnceByTheCallOfItsOrigin) {
    using CNoted = CHandle<NotingTraits>;
    std::string closed;
    {
        CNoted first(0, {&closed, 'a'}), second(1, {&closed, 'b'}), kept(2, {&closed, 'c'});
        first.Attach(3);
        EXPECT_EQ(closed, "a0 ");
        CNoted moved(std::move(first));
        moved = std::move(second);
        EXPECT_EQ(closed, "a0 a3 ");
        CNoted& same = moved;
        moved = std::move(same);
        EXPECT_EQ(moved.GetHandle(), 1);
        *moved.Receive() = 4;
        EXPECT_EQ(closed, "a0 a3 b1 ");
        EXPECT_EQ(kept.Detach(), 2);
    }
    EXPECT_EQ(closed, "a0 a3 b1 b4 ");
}

TEST(Time, FieldsOutOfRangeAreCarriedOverAndWhatTheCountCannotHoldIsNoTime) {
    using Pair = std::array<CalendarFields, 2>;
    for (const auto& [given, meant] : {Pair{{{2010, 13, 1, 12, 0, 0}, {2011, 1, 1, 12, 0, 0}}},
                                       Pair{{{2011, 0, 1, 12, 0, 0}, {2010, 12, 1, 12, 0, 0}}},
                                       Pair{{{2010, 2, 29, 12, 0, 0}, {2010, 3, 1, 12, 0, 0}}},
                                       Pair{{{2012, 3, 0, 12, 0, 0}, {2012, 2, 29, 12, 0, 0}}},
                                       Pair{{{2099, 12, 32, 36, -1, 60}, {2100, 1, 2, 12, 0, 0}}}})
        EXPECT_EQ(CTime(given).GetLocalFields(), meant);
    const auto expectNone = [](const CalendarFields& fields) {
        EXPECT_EQ(CTime(fields).GetTime(), 0U) << fields.year << '-' << fields.month << '-' << fields.day;
    };
    for (const auto& [year, month, day] : {std::array{1969, 12, 30}, {2106, 2, 9}, {0, 0, 0}, {2010, 1, 1'000'000'000}})
        expectNone({year, month, day, 12, 0, 0});
    using Fields = CalendarFields;
    for (int Fields::*field : {&Fields::year, &Fields::month, &Fields::day, &Fields::hour, &Fields::minute}) {
        for (const int value : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), -999'999'999}) {
            Fields fields{2010, 1, 1, 12, 0, 0};
            fields.*field = value;
            expectNone(fields);
        }
    }
    CalendarFields last = CTime(0xFFFFFFFF).GetLocalFields();
    EXPECT_EQ(CTime(last).GetTime(), 0xFFFFFFFF);
    ++last.second;
    EXPECT_EQ(CTime(last).GetTime(), 0U);
}

TEST(Text, HasAnyLengthButTimesTakeUpTo255Bytes) {
    EXPECT_EQ(FormatText("%d %s %02X", -7, "x", 0xAU) + FormatText("%s", ""), "-7 x 0A");
    EXPECT_EQ(FormatText("%5000d|", 1).size(), 5001U);
    const CTime time(CalendarFields{2010, 10, 1, 9, 5, 7});
    EXPECT_EQ(time.Format("%Y/%m/%d %H:%M:%S"), "2010/10/01 09:05:07");
    EXPECT_EQ(time.Format(std::string(251, '.').append("%Y").c_str()).size(), 255U);
    EXPECT_EQ(time.Format(std::string(252, '.').append("%Y").c_str()), "");
}

TEST(Archive, ACountBeyondAWordFollowsAMark) {
    for (const auto& [count, words] : {std::pair(0xFFFEU, std::vector<unsigned>{0xFFFE}),
                                       {0xFFFFU, {0xFFFF, 0xFFFF, 0}},
                                       {0x1234'5678U, {0xFFFF, 0x5678, 0x1234}}}) {
        CArchive storing;
        storing.WriteCount(count);
        const std::vector<std::byte>& stored = storing.GetStored();
        ASSERT_EQ(stored.size(), 2 * words.size());
        for (std::size_t i = 0; i < stored.size(); ++i)
            EXPECT_EQ(std::to_integer<unsigned>(stored[i]), words[i / 2] >> 8 * (i % 2) & 0xFF) << count;
        CArchive whole(stored), cut({stored.data(), stored.size() - 1});
        EXPECT_TRUE(storing.IsStoring() && !whole.IsStoring());
        EXPECT_EQ(whole.ReadCount(), count);
        EXPECT_EQ(cut.ReadCount(), std::nullopt);
        EXPECT_EQ(cut.GetRest(), stored.size() - 1);
    }
}

#ifdef _WIN32
TEST(Time, TheZoneMayChangeMeanwhile) {
    const char* const former = std::getenv("TZ");
    const std::string zone = former != nullptr ? former : "";
    for (const auto& [name, hour] : {std::pair("ABC-3", 3), std::pair("ABC-7", 7), std::pair("ABC0", 0)}) {
        _putenv_s("TZ", name);
        EXPECT_EQ(CTime(86400).GetLocalFields(), (CalendarFields{1970, 1, 2, hour, 0, 0}));
        EXPECT_EQ(CTime(CalendarFields{1970, 1, 2, hour, 0, 0}).GetTime(), 86400U);
    }
    _putenv_s("TZ", zone.c_str());
}
#else
// Against a calendar that goes through all days one by one, in zones with odd distances and summer time.
TEST(Time, EveryDayIsThatOfThePlainCalendar) {
    struct Zone {
        const char* name;         // as the system reads it
        int offset, summerOffset; // minutes east
        int start, end;           // on the first of these months at 2 o'clock summer time begins and ends; 0: never
    };
    for (const Zone& zone : {Zone{"UTC0", 0, 0, 0, 0}, Zone{"XST-5:45", 345, 345, 0, 0},
                             Zone{"XST3:30XDT,J60,J305", -210, -150, 3, 11}, Zone{"XST-1XDT,J91,J274", 60, 120, 4, 10},
                             Zone{"XST-10:30XDT-11,J274,J91", 630, 660, 10, 4}}) { // the last in the south
        ::setenv("TZ", zone.name, 1);
        ::tzset();
        bool summer = zone.start > zone.end;
        CalendarFields date;
        for (int day = 0; date.year < 2106; ++day) {
            const auto expect = [&](int second, bool inSummer) {
                const CalendarFields fields{date.year,     date.month,       date.day,
                                            second / 3600, second / 60 % 60, second % 60};
                const std::int64_t offset = 60 * (inSummer ? zone.summerOffset : zone.offset);
                const auto count = static_cast<std::uint32_t>(std::int64_t{86400} * day + second - offset);
                ASSERT_EQ(CTime(count).GetLocalFields(), fields) << zone.name << ' ' << count;
                // In the hour that the end of summer time repeats, two counts share their fields.
                ASSERT_EQ(CTime(fields, inSummer ? 1 : 0).GetTime(), count) << zone.name;
                ASSERT_EQ(CTime(fields).GetLocalFields(), fields) << zone.name << ' ' << count;
            };
            if (date.day == 1 && date.month == (summer ? zone.end : zone.start)) {
                expect(7199, summer);
                expect(7200 + (summer ? -1 : 1) * 60 * (zone.summerOffset - zone.offset), !summer);
                summer = !summer;
            }
            if (day % 5 == 1) expect(86399 - day % 3600, summer);
            const bool leap = date.year % 4 == 0 && date.year != 2100;
            constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
            if (++date.day > days[date.month - 1] + (leap && date.month == 2)) date = {date.year, date.month + 1};
            if (date.month > 12) date = {date.year + 1};
        }
    }
    ::unsetenv("TZ");
    ::tzset();
}
#endif

} // namespace
