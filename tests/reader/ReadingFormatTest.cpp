// Every format byte for byte.
#include "reader/ReadingFormat.h"

#include <clocale>

#include <gtest/gtest.h>

#include "framework/Time.h"
#include "reader/PromFormat.h"
#include "reader/ReadingText.h"

namespace {

// A whole answer with settings, one without a date, a silent counter.
std::vector<Reading> Round() {
    const Moment time{1'795'683'600'007'999, 3600};
    const CounterRecord status{.deviceTime = CTime(CalendarFields{2026, 11, 26, 9, 59, 58}).GetTime(),
                               .address = 0,
                               .inCount = 65535,
                               .outCount = 7};
    const CounterRecord settings{.language = 1, .direction = 1, .sdDetect = 1, .sdPeriod = 31, .sensitivity = 255};
    return {{time, 0, Answer::Whole, status, settings},
            {{-1, -12600}, 5, Answer::Whole, CounterRecord{.address = 5}, std::nullopt},
            {{0, 0}, 3, Answer::Silent, std::nullopt, std::nullopt}};
}

std::string TextOf(const RowFormat& format) {
    std::string text = RowHeader(format);
    for (const Reading& reading : Round()) AppendRow(text, reading, format);
    return text;
}

TEST(ReadingFormat, RowsAreExactToTheByte) {
    std::setlocale(LC_ALL, ""); // whatever the machine's is
    EXPECT_EQ(TextOf({RowKind::Csv, false}), "time,address,in,out,clock,answer\r\n"
                                             "2026-11-26T10:00:00.007+01:00,0,65535,7,2026-11-26T09:59:58,ok\r\n"
                                             "1969-12-31T20:29:59.999-03:30,5,0,0,,ok\r\n"
                                             "1970-01-01T00:00:00.000+00:00,3,,,,silent\r\n");
    EXPECT_EQ(TextOf({RowKind::Csv, true}),
              "time,address,in,out,clock,answer,sensitivity,language,direction,sd_detect,sd_period\r\n"
              "2026-11-26T10:00:00.007+01:00,0,65535,7,2026-11-26T09:59:58,ok,255,zh,out,no,31\r\n"
              "1969-12-31T20:29:59.999-03:30,5,0,0,,ok,,,,,\r\n"
              "1970-01-01T00:00:00.000+00:00,3,,,,silent,,,,,\r\n");
    EXPECT_EQ(
        TextOf({RowKind::JsonLines, false}),
        R"({"time":"2026-11-26T10:00:00.007+01:00","address":0,"in":65535,"out":7,)"
        R"("clock":"2026-11-26T09:59:58","answer":"ok"})"
        "\n"
        R"({"time":"1969-12-31T20:29:59.999-03:30","address":5,"in":0,"out":0,"clock":null,"answer":"ok"})"
        "\n"
        R"({"time":"1970-01-01T00:00:00.000+00:00","address":3,"in":null,"out":null,"clock":null,"answer":"silent"})"
        "\n");
    EXPECT_TRUE(TextOf({RowKind::JsonLines, true}).starts_with(RowFront({RowKind::JsonLines, true})));
    EXPECT_EQ(TextOf({RowKind::Table, true}),
              "time                     address      in     out  clock                answer     sensitivity  language"
              "  direction  sd_detect  sd_period\n"
              "2026-11-26 10:00:00.007        0   65535       7  2026-11-26 09:59:58  ok                 255  zh      "
              "  out        no                31\n"
              "1969-12-31 20:29:59.999        5       0       0                       ok\n"
              "1970-01-01 00:00:00.000        3                                       silent\n");
}

TEST(ReadingFormat, ACollectorGetsNoCountsOfASilentCounter) {
    const std::vector<Reading> round = Round();
    const std::string clock = std::to_string(round[0].status->deviceTime);
    EXPECT_NE(PromText(round, "a\"b\\c\nd").find(R"(in_total{port="a\"b\\c\nd",address="5"} 0)"), std::string::npos);
    std::string text = PromText(std::array{round[0], round[2]}, "COM3");
    std::erase(text, '"'); // for the eye
    EXPECT_EQ(text,
              "# HELP quorvane_people_in_total People counted in; after 65535 comes 0.\n"
              "# TYPE quorvane_people_in_total counter\n"
              "quorvane_people_in_total{port=COM3,address=0} 65535\n"
              "# HELP quorvane_people_out_total People counted out; after 65535 comes 0.\n"
              "# TYPE quorvane_people_out_total counter\n"
              "quorvane_people_out_total{port=COM3,address=0} 7\n"
              "# HELP quorvane_sensor_clock_seconds The counter's own clock, in Unix time.\n"
              "# TYPE quorvane_sensor_clock_seconds gauge\n"
              "quorvane_sensor_clock_seconds{port=COM3,address=0} " +
                  clock +
                  "\n"
                  "# HELP quorvane_sensor_up Whether the counter gave a whole answer.\n"
                  "# TYPE quorvane_sensor_up gauge\n"
                  "quorvane_sensor_up{port=COM3,address=0} 1\n"
                  "quorvane_sensor_up{port=COM3,address=3} 0\n"
                  "# HELP quorvane_sensor_answer What the counter answered: 1 for what it was, 0 for the others.\n"
                  "# TYPE quorvane_sensor_answer gauge\n"
                  "quorvane_sensor_answer{port=COM3,address=0,answer=ok} 1\n"
                  "quorvane_sensor_answer{port=COM3,address=0,answer=silent} 0\n"
                  "quorvane_sensor_answer{port=COM3,address=0,answer=spoilt} 0\n"
                  "quorvane_sensor_answer{port=COM3,address=0,answer=doubled} 0\n"
                  "quorvane_sensor_answer{port=COM3,address=0,answer=not_asked} 0\n"
                  "quorvane_sensor_answer{port=COM3,address=3,answer=ok} 0\n"
                  "quorvane_sensor_answer{port=COM3,address=3,answer=silent} 1\n"
                  "quorvane_sensor_answer{port=COM3,address=3,answer=spoilt} 0\n"
                  "quorvane_sensor_answer{port=COM3,address=3,answer=doubled} 0\n"
                  "quorvane_sensor_answer{port=COM3,address=3,answer=not_asked} 0\n"
                  "# HELP quorvane_sensor_settings_info The counter's settings, as labels.\n"
                  "# TYPE quorvane_sensor_settings_info gauge\n"
                  "quorvane_sensor_settings_info{port=COM3,address=0,sensitivity=255,language=zh,"
                  "direction=out,sd_detect=no,sd_period=31} 1\n"
                  "# HELP quorvane_round_timestamp_seconds When the last counter of the round was asked.\n"
                  "# TYPE quorvane_round_timestamp_seconds gauge\n"
                  "quorvane_round_timestamp_seconds{port=COM3} 1795683600\n");
}

} // namespace
