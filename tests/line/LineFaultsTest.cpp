// Each fault as the program meets it, and the words that bring faults and settings about.
#include <array>

#include "LineFixture.h"
#include "line/LineOptions.h"
#include "line/LineWords.h"

namespace {

using namespace std::chrono_literals;

constexpr std::string_view poll = "02 00 81 81 03";
constexpr std::string_view status = "02 00 12 07 02 16 21 20 00 00 00 00 00 00 00 72 03";
constexpr std::string_view clear = "02 00 87 87 03";
constexpr std::string_view acknowledged = "02 00 00 00 03";

struct FaultRow {
    std::string_view fault;
    std::string_view request;
    std::string_view reply;
};

TEST_F(LineTest, FaultsChangeReplies) {
    constexpr std::array<FaultRow, 19> rows{{
        {"silent", poll, ""},
        {"refuse", clear, "02 00 01 01 03"},
        {"refuse=255", clear, "02 00 FF FF 03"},
        {"refuse", poll, status},
        {"torn", poll, "02 00 12 07 02 16 21 20"},
        {"torn=16", poll, "02 00 12 07 02 16 21 20 00 00 00 00 00 00 00 72"},
        {"torn=4", clear, "02 00 00 00"},
        {"torn=99", clear, acknowledged},
        {"checksum", clear, "02 00 00 01 03"},
        {"checksum", poll, "02 00 12 07 02 16 21 20 00 00 00 00 00 00 00 73 03"},
        {"stranger", clear, "02 09 00 09 03"},
        {"stranger=3", poll, "02 03 12 07 02 16 21 20 00 00 00 00 00 00 00 75 03"},
        {"twice", clear, "02 00 00 00 03 02 00 00 00 03"},
        {"garbledate", poll, "02 00 FF AB 3F F4 6A FF 00 00 00 00 00 00 00 46 03"},
        {"garbledate", "02 00 82 82 03", "02 00 FF AB 3F F4 6A FF 15 E4 3F 03"},
        {"garbledate", clear, acknowledged},
        {"nodate", poll, "02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 03"},
        {"echo", clear, "02 00 87 87 03 02 00 00 00 03"},
        {"late=60000", clear, acknowledged},
    }};
    for (const FaultRow& row : rows) {
        now = LineTime(5'000'000);
        line = CCounterLine({}, now);
        EXPECT_EQ(Control("fault " + std::string(row.fault)), "ok");
        EXPECT_EQ(Ask(row.request), row.reply) << row.fault;
        Control("clear");
        line.Find(0, now)->SetDate({2012, 7, 2, 16, 21, 20}, now);
        EXPECT_EQ(Ask(poll), status) << "after " << row.fault;
    }
}

TEST_F(LineTest, AFaultyCommandIsNotObeyed) {
    for (const std::string_view fault : {"silent", "refuse"}) {
        line.Find(0, now)->SetCounts({.in = 5});
        Control("fault " + std::string(fault));
        Ask(clear);
        Ask("02 00 89 02 8B 03");
        ASSERT_NE(line.Find(0, now), nullptr) << fault;
        EXPECT_EQ(line.Find(0, now)->Counts().in, 5) << fault;
        Control("clear");
    }
}

TEST_F(LineTest, NoiseStandsAroundEachRecord) {
    Control("fault noise=3 *");
    Control("fault twice 0");
    const std::string one(acknowledged);
    const std::string heard = Ask(clear);
    ASSERT_EQ(Bytes(heard).size(), 3U + 5 + 3 + 5 + 3);
    EXPECT_EQ(heard.substr(9, one.size()), one);
    EXPECT_EQ(heard.substr(33, one.size()), one);
    EXPECT_NE(heard.substr(0, 8), heard.substr(24, 8)) << "another noise each time";

    EXPECT_EQ(Bytes(Ask("02 FF 87 86 03")).size(), 19U + 11 + 11) << "each of all";
}

TEST_F(LineTest, LateAndSplitRepliesKeepTheirTimes) {
    Control("fault late=200 0 1");
    Feed(clear);
    const LineTime usual = now + 10 * 2083us + 1ms;
    EXPECT_TRUE(line.TakeDue(usual + 200ms - 4 * 2083us - 1us).empty());
    Feed("02 03 87 8A 03");
    EXPECT_EQ(Listen(), "02 03 00 03 03 02 00 00 00 03") << "whoever is in time comes first";

    now = LineTime(9'000'000);
    Control("fault split=120");
    Feed(clear);
    const LineTime again = now + 10 * 2083us + 1ms;
    EXPECT_EQ(Hex(line.TakeDue(again + 120ms - 2 * 2083us - 1us)), "02 00");
    EXPECT_EQ(Hex(line.TakeDue(again + 120ms)), "00 00 03");
}

TEST_F(LineTest, ALatencyHandsBytesOverInLumps) {
    now = 8s; // a multiple of the latency
    Control("fault latency * 1");
    Feed(poll);
    std::size_t taken = 0;
    for (const std::size_t lump : {2, 7, 8}) { // the first byte has passed after 13.5 ms, the last one after 46.8 ms
        now += 16ms;
        EXPECT_TRUE(line.TakeDue(now - 1us).empty());
        EXPECT_EQ(line.TakeDue(now).size(), lump) << taken;
        taken += lump;
    }
    EXPECT_EQ(taken, 17U);
}

TEST_F(LineTest, FaultsReachWhomTheyAreForAsOftenAsTheySay) {
    constexpr std::string_view clearAll = "02 FF 87 86 03";
    Control("fault stranger=7 3");
    Control("fault refuse=2 * 4");
    Control("fault refuse=5 1 1");
    EXPECT_EQ(Ask(clearAll), "02 00 02 02 03 02 01 05 06 03 02 07 02 09 03");
    EXPECT_EQ(Ask(poll), status) << "a poll uses up no refusal";
    EXPECT_EQ(Ask(clearAll), "02 00 02 02 03 02 01 02 03 03 02 07 00 07 03");
    Control("fault stranger=8 3");
    EXPECT_EQ(Ask(clearAll), "02 00 00 00 03 02 01 00 01 03 02 08 00 08 03") << "the newer one has taken the place";
    Control("fault torn");
    Control("clear stranger");
    EXPECT_EQ(Ask("02 03 87 8A 03"), "02 03");
}

TEST_F(LineTest, ControlLinesChangeCountersAndSpeak) {
    EXPECT_EQ(Control("counts * 40 30"), "ok");
    EXPECT_EQ(Control("counts 1 65535 0\r"), "ok");
    EXPECT_EQ(Control("settings 3 language=chinese direction=out detect=yes period=31 sensitivity=255"), "ok");
    EXPECT_EQ(Control("  # a remark"), "");
    EXPECT_EQ(Control("status"),
              "0: 40 in 30 out, 2012-07-02 16:21:20, English IN detect NO period 4 sensitivity 21\n"
              "1: 65535 in 0 out, 2012-07-02 16:21:20, English IN detect NO period 4 sensitivity 21\n"
              "3: 40 in 30 out, 2012-07-02 16:21:20, Chinese OUT detect YES period 31 sensitivity "
              "255");
    EXPECT_EQ(Control("send 02 ff 7"), "ok");
    EXPECT_EQ(Listen(), "02 FF 07");
    EXPECT_EQ(Control("rate 0 6000"), "ok");
    EXPECT_GT(line.Find(0, now + 60s)->Counts().in, 1000);
    EXPECT_TRUE(RunControlLine(line, "quit", now).quit);
}

TEST_F(LineTest, WrongControlLinesChangeNothing) {
    const std::string before = Control("status");
    for (const std::string_view text :
         {"fault", "fault torm", "fault torn=x", "fault silent=1", "fault torn 255", "fault torn 1 2 3", "counts 2 1 1",
          "counts 0 1", "rate 0 fast", "settings 0 period=32", "settings 0 colour=red", "send 0g", "pull 1",
          "traffic loud", "launch"}) {
        EXPECT_EQ(Control(text).substr(0, 6), "error:") << text;
    }
    EXPECT_EQ(Control("counts 0 65536 1"), "error: \"65536\" is no number from 0 to 65535");
    EXPECT_EQ(Control("status"), before);
    EXPECT_EQ(Ask("02 FF 87 86 03"), "02 00 00 00 03 02 01 00 01 03 02 03 00 03 03");
}

TEST(LineOptionsTest, TakesOptionsAndRefusesWrongOnes) {
    LineOptions options;
    std::string error;
    constexpr std::array good{"--counters", "5,2",    "--rate", "0",      "--baud", "0",       "--fault",
                              "late=20 2",  "--link", "/x/y",   "--seed", "9",      "--fault", "twice"};
    ASSERT_TRUE(ParseLineOptions(good, {"--link"}, options, error)) << error;
    EXPECT_EQ(options.own["--link"], "/x/y");
    CCounterLine line = StartLine(options, {2020, 1, 2, 3, 4, 5}, LineTime(0));
    line.Feed(Bytes("02 FF 87 86 03"), LineTime(0));
    EXPECT_EQ(Hex(line.TakeDue(10ms)), "02 05 00 05 03 02 05 00 05 03");
    EXPECT_EQ(line.TakeDue(1s).size(), 10U);
    EXPECT_EQ(line.Find(2, 1s)->Date(1s), (CalendarFields{2020, 1, 2, 3, 4, 6}));

    constexpr std::array<std::array<const char*, 2>, 9> wrong{{{"--pace", "fast"},
                                                               {"--counters", "0,1,2,3,4,5,6"},
                                                               {"--counters", "255"},
                                                               {"--counters", ""},
                                                               {"--rate", "-1"},
                                                               {"--baud", "fast"},
                                                               {"--fault", "torm"},
                                                               {"--port", "COM2"},
                                                               {"--wire", ""}}};
    for (const auto& each : wrong) {
        LineOptions untouched;
        EXPECT_FALSE(ParseLineOptions(each, {"--link"}, untouched, error)) << each[0] << ' ' << each[1];
        EXPECT_TRUE(error.starts_with(each[0]) || each[0] == std::string_view("--port")) << error;
    }
    EXPECT_FALSE(ParseLineOptions(std::array{"--link"}, {"--link"}, options, error));
}

TEST(LineWordsTest, NamesComPortsAsUsersWriteThem) {
    for (const char* const word : {"COM12", "com12", "Com12", "12"}) EXPECT_EQ(ComPortName(word), "COM12") << word;
    for (const char* const word : {"COM257", "com", "LPT1", ""}) EXPECT_EQ(ComPortName(word), std::nullopt) << word;
}

} // namespace
