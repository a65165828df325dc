// From the text of a CSV file to the figures of a report.
#include <gtest/gtest.h>

#include "reader/BarChart.h"
#include "reader/ReportNotes.h"
#include "reader/ReportPage.h"
#include "reader/ReportReader.h"

namespace {

TEST(CsvReader, TakesRowsInPiecesOfAnySize) {
    const std::pair<std::string, const char*> cases[] = {
        {"a,b\r\nc,d", "a|b|\nc|d|\n"},
        {",\n\n\r\n\"\",x\n", "||\n|x|\n"},
        {"\"a,\"\"b\"\"\r\nc\",d\n", "a,\"b\"\r\nc|d|\n"},
        {"a\"b,\"c\"d\"\n", "a\"b|cd\"|\n"},
        {"a,\"torn", "a|torn|\n"},
        {std::string(300, 'x') + ",y\n" + std::string(100, ',') + "\n", nullptr}};
    for (const auto& [text, expected] : cases) {
        for (const std::size_t size : {std::size_t{1}, std::size_t{3}, text.size()}) {
            std::string rows;
            std::size_t most = 0;
            CCsvReader reader([&](std::span<const std::string> fields) {
                for (const std::string& field : fields) rows += field + '|';
                rows += '\n';
                most = std::max(most, fields.size());
            });
            for (std::size_t at = 0; at < text.size(); at += size) reader.Feed(std::string_view(text).substr(at, size));
            reader.Finish();
            const std::string bounded = std::string(255, 'x') + "|y|\n" + std::string(64, '|') + '\n';
            EXPECT_EQ(rows, expected != nullptr ? expected : bounded) << text;
        }
    }
}

TEST(ReadingRow, TakesInstantsWithTheirOffsetAlone) {
    const std::pair<const char*, std::optional<Moment>> cases[] = {
        {"1970-01-01T00:00:00Z", Moment{0, 0}},
        {"2026-11-26T10:00:00.0071+01:00", Moment{1'795'683'600'007'100, 3600}},
        {"1969-12-31 20:29:59.999999999-03:30", Moment{-1, -12600}},
        {"2024-02-29T23:59:59.+00:00", Moment{1'709'251'199'000'000, 0}},
        {"2026-02-29T00:00:00Z", std::nullopt},
        {"2026-11-26T24:00:00Z", std::nullopt},
        {"2026-11-26T10:00:00", std::nullopt},
        {"2026-11-26T10:00:00+1:00", std::nullopt},
        {"2026-11-26T10:00:00Zx", std::nullopt},
        {"2026-11-26T+1:00:00Z", std::nullopt},
        {"", std::nullopt}};
    for (const auto& [text, moment] : cases) EXPECT_EQ(MomentOfText(text), moment) << text;
}

std::string FiguresOf(const std::string& csv) {
    CReportReader reader;
    reader.Feed(csv);
    reader.Finish();
    const CReportFigures& figures = reader.Figures();
    std::string text;
    for (std::size_t hour = 0; hour < 24; ++hour) {
        const PeopleSum& people = figures.Hours().at(hour);
        if (!people.IsEmpty())
            text += std::to_string(hour) + "h " + std::to_string(people.in) + '/' + std::to_string(people.out) + ' ';
    }
    for (const auto& [day, people] : figures.Days()) {
        text += ShortDateText(day, ReportLanguage::English) + ' ' + std::to_string(people.in) + '/' +
                std::to_string(people.out) + ' ';
    }
    text += "total " + std::to_string(figures.Total().in) + '/' + std::to_string(figures.Total().out);
    for (const std::string& note : MissingNotes(figures, reader.Unreadable(), ReportLanguage::English))
        text += "\n" + note;
    return text;
}

TEST(ReportFigures, PutPeopleWhereTheyBelongAndSayWhatIsMissing) {
    const std::string head = "time,address,in,out,clock,answer\r\n", day = "2026-11-26T";
    const std::pair<std::string, std::string> cases[] = {
        // Hourly readings a little after the hour: the hour before.
        {head + day + "09:00:05+01:00,0,10,20,,ok\n" + day + "10:00:05+01:00,0,15,21,,ok\n",
         "9h 5/1 Thu 26 Nov 5/1 total 5/1"},
        // Two counters, one of them silent in an hour; the header again with columns in between; a torn row.
        {head + day + "09:00:00Z,0,10,20,,ok\r\n" + day + "09:00:01Z,1,65535,0,,ok\n" + day +
             "09:59:00Z,0,11,20,,ok\n" + "\xEF\xBB\xBFtime,more,address,answer,in,out\n" + day +
             "10:30:00Z,\",\",1,ok,1,0\n" + day + "11:30:00Z,,1,silent,,\n" + day + "11:40:00Z,,0,ok,13,20\n" + day +
             "11:50:00Z,,1,o",
         "9h 1/0 Thu 26 Nov 5/0 total 5/0\n"
         "Hours without an answer by counter: no. 1: 1.\n"
         "Passed in pauses of more than an hour: 4 in, 0 out. They are in the totals, but in no hour.\n"
         "Rows that are no readings, and were left out: 1."},
        // A night without readings, cleared meanwhile; a jump; a row from before; rows ten years away and without
        // header.
        {"x,y\n" + head + day + "22:59:00Z,0,500,400,,ok\n" + "2026-11-28T01:30:00Z,0,3,2,,ok\n" +
             "2026-11-28T01:40:00Z,0,60000,2,,ok\n" + "2026-11-28T01:35:00Z,0,60000,2,,ok\n" +
             "2037-11-28T01:35:00Z,0,60000,2,,ok\n" + "2020-11-28T01:35:00Z,0,60000,2,,ok\n" +
             "2014-11-28T01:35:00Z,0,60000,2,,ok\n",
         "Sat 28 Nov 0/0 Thu 26 Nov 0/0 Sat 28 Nov 0/0 total 3/2\n"
         "Hours in which no counter answered: 52,582 (28 Nov 02:00–26 Nov 22:00; 26 Nov 23:00–28 Nov 01:00).\n"
         "Jumps of a count that may be a clearing, another counter or a long pause: 1. They are not counted.\n"
         "Counters cleared: 1. Who passed after the last reading before a clearing is not counted.\n"
         "Passed in pauses of more than an hour: 3 in, 2 out. They are in the totals, but in no hour.\n"
         "Passed in pauses of more than a day: 3 in, 2 out. They are in the totals, but in no day.\n"
         "Readings older than the one before: 2. Counting begins anew there.\n"
         "Rows that are no readings, and were left out: 3."},
        // Summer time begins: no hour is missing.
        {head + "2026-03-29T01:59:00+01:00,0,1,1,,ok\n" + "2026-03-29T03:01:00+02:00,0,3,1,,ok\n",
         "3h 2/0 Sun 29 Mar 2/0 total 2/0"},
        // It ends, and the hour comes twice.
        {head + "2026-10-25T02:10:00+02:00,0,1,1,,ok\n" + "2026-10-25T02:10:00+01:00,0,3,1,,ok\n",
         "1h 2/0 Sun 25 Oct 2/0 total 2/0"},
    };
    for (const auto& [csv, expected] : cases) EXPECT_EQ(FiguresOf(csv), expected) << csv;
}

TEST(BarChart, ScalesEndAboveTheGreatestInRoundSteps) {
    const std::pair<std::uint64_t, ChartScale> cases[] = {{0, {1, 1}},      {1, {1, 1}},       {5, {5, 1}},
                                                          {6, {6, 2}},      {11, {15, 5}},     {50, {50, 10}},
                                                          {164, {200, 50}}, {501, {600, 200}}, {65536, {80000, 20000}}};
    for (const auto& [greatest, scale] : cases) EXPECT_EQ(ScaleOf(greatest), scale) << greatest;
}

} // namespace
