// Requests and replies byte by byte, and the pace at which they pass.
#include <array>

#include "LineFixture.h"

namespace {

using namespace std::chrono_literals;

struct Exchange {
    std::string_view name;
    std::string_view request;
    std::string_view reply;
};

TEST_F(LineTest, AnswersRequestsWithExactBytes) {
    line.Find(0, now)->SetCounts({.in = 100, .out = 50});
    line.Find(3, now)->SetCounts({.in = 0x0180, .out = 0x00FF, .extra = 0xFFFE, .extraByte = 0x7F});
    line.Find(3, now)->SetSettings(
        {.english = false, .countsIn = false, .sdDetect = true, .sdPeriod = 31, .sensitivity = 200});
    // In this order: each one finds what those before have left. All of it happens within the clock's first second.
    constexpr std::array<Exchange, 14> exchanges{{
        {"poll", "02 00 81 81 03", "02 00 12 07 02 16 21 20 00 64 00 32 00 00 00 08 03"},
        {"high counts", "02 03 81 84 03", "02 03 12 07 02 16 21 20 01 80 00 FF FF FE 7F 71 03"},
        {"nobody there", "02 02 81 83 03", ""},
        {"settings", "02 00 82 82 03", "02 00 12 07 02 16 21 20 15 E4 6B 03"},
        {"other settings", "02 03 82 85 03", "02 03 12 07 02 16 21 20 C8 1F 5C 03"},
        {"clear one", "02 03 87 8A 03", "02 03 00 03 03"},
        {"cleared, the byte stays", "02 03 81 84 03", "02 03 12 07 02 16 21 20 00 00 00 00 00 00 7F F4 03"},
        {"the other one isn't", "02 00 81 81 03", "02 00 12 07 02 16 21 20 00 64 00 32 00 00 00 08 03"},
        {"clear all", "02 FF 87 86 03", "02 00 00 00 03 02 01 00 01 03 02 03 00 03 03"},
        {"address of one", "02 01 89 04 8E 03", "02 04 00 04 03"},
        {"its old address", "02 01 81 82 03", ""},
        {"its new address", "02 04 82 86 03", "02 04 12 07 02 16 21 20 15 E4 6F 03"},
        {"address 255 is refused", "02 04 89 FF 8C 03", "02 04 01 05 03"},
        {"address of all", "02 FF 89 03 8B 03", "02 03 00 03 03 02 03 00 03 03 02 03 00 03 03"},
    }};
    for (const Exchange& each : exchanges) {
        EXPECT_EQ(Ask(each.request), each.reply) << each.name;
    }
}

TEST_F(LineTest, WriteSettingsSetsSettingsAndClockOfAll) {
    // Sensitivity 99 and, in 0x2A, Chinese, OUT, no detection, period 10; the clock at the end of a leap day.
    EXPECT_EQ(Ask("02 FF 88 24 02 29 23 59 58 00 00 00 00 00 00 63 2A 37 03"),
              "02 00 00 00 03 02 01 00 01 03 02 03 00 03 03");
    for (CLineCounter& counter : line.Counters(now)) {
        EXPECT_EQ(counter.Settings(), (LineSettings{false, false, false, 10, 99}));
    }
    now += 3s;
    EXPECT_EQ(Ask("02 01 82 83 03"), "02 01 24 03 01 00 00 01 63 2A B7 03");
}

TEST_F(LineTest, SetClockSetsTheClockAloneAndItRunsOn) {
    EXPECT_EQ(Ask("02 00 8A 99 12 31 23 59 59 3B 03"), "02 00 00 00 03");
    EXPECT_EQ(line.Find(0, now)->Date(now), (CalendarFields{2099, 12, 31, 23, 59, 59}));
    EXPECT_EQ(line.Find(0, now)->Date(now + 1s), (CalendarFields{2000, 1, 1, 0, 0, 0}));
    EXPECT_EQ(line.Find(1, now)->Date(now + 24h * 366), (CalendarFields{2013, 7, 3, 16, 21, 20}));
    EXPECT_EQ(line.Find(0, now)->Settings(), LineSettings{});
}

TEST_F(LineTest, RefusesAClockThatIsNoDate) {
    constexpr std::array<Exchange, 4> exchanges{{
        {"no decimal digit", "02 00 8A 12 07 02 16 21 2A 06 03", "02 00 01 01 03"},
        {"month 0", "02 00 8A 12 00 02 16 21 20 F5 03", "02 00 01 01 03"},
        {"29 February 2023", "02 00 8A 23 02 29 16 21 20 2F 03", "02 00 01 01 03"},
        {"hour 24, with settings", "02 00 88 12 07 02 24 21 20 00 00 00 00 00 00 63 2A 95 03", "02 00 01 01 03"},
    }};
    for (const Exchange& each : exchanges) {
        EXPECT_EQ(Ask(each.request), each.reply) << each.name;
    }
    EXPECT_EQ(Ask("02 00 82 82 03"), "02 00 12 07 02 16 21 20 15 E4 6B 03");
}

TEST_F(LineTest, FindsRequestsAmongGarbage) {
    constexpr std::string_view acknowledged = "02 00 00 00 03";
    constexpr std::array<Exchange, 7> exchanges{{
        {"noise around", "FF 02 02 03 02 00 87 87 03 13", acknowledged},
        {"torn start of a long frame before", "02 01 88 12 02 00 87 87 03", acknowledged},
        {"wrong checksum", "02 00 87 88 03", ""},
        {"wrong end", "02 00 87 87 02", ""},
        {"no such request", "02 00 83 83 03", ""},
        {"two at once", "02 00 87 87 03 02 03 87 8A 03", "02 00 00 00 03 02 03 00 03 03"},
        {"a reply", "02 00 00 00 03", ""},
    }};
    for (const Exchange& each : exchanges) {
        EXPECT_EQ(Ask(each.request), each.reply) << each.name;
    }
    for (const std::uint8_t byte : Bytes("02 00 87 87")) {
        line.Feed(std::array{byte}, now);
        EXPECT_EQ(Listen(), "");
    }
    EXPECT_EQ(Ask("03"), acknowledged) << "byte by byte";
}

// 4800 baud: 2083 us a byte. The request takes 5 bytes, then there is 1 ms before the reply.
TEST_F(LineTest, KeepsThePaceOfTheLine) {
    const LineTime asked = now;
    Feed("02 00 82 82 03");
    EXPECT_EQ(line.NextDue(), asked + 5 * 2083us + 1ms + 2083us);
    for (int byte = 1; byte <= 12; ++byte) {
        const LineTime due = asked + (5 + byte) * 2083us + 1ms;
        EXPECT_TRUE(line.TakeDue(due - 1us).empty());
        EXPECT_EQ(line.TakeDue(due).size(), 1U) << byte;
    }
    EXPECT_EQ(line.NextDue(), std::nullopt);
}

TEST_F(LineTest, RequestsInARowAreAnsweredInARow) {
    Feed("02 00 87 87 03");
    Feed("02 03 87 8A 03");
    const LineTime first = now + 10 * 2083us + 1ms;
    const LineTime second = first + 1ms + 5 * 2083us;
    EXPECT_EQ(Hex(line.TakeDue(first)), "02 00 00 00 03") << "it follows the first request, not both";
    EXPECT_EQ(Hex(line.TakeDue(second - 1us)), "02 03 00 03");
    EXPECT_EQ(Hex(line.TakeDue(second)), "03");
}

// Its bytes have taken their time when they come, and take it again after they are handed over.
TEST_F(LineTest, APortWithAPaceOfItsOwnGetsRepliesWhole) {
    line.LeavePaceToPort(true);
    Feed("02 FF 81 80 03");
    for (int turn = 0; turn < 3; ++turn) {
        const LineTime due = now + 1ms + turn * (17 * 2083us + 1ms);
        EXPECT_TRUE(line.TakeDue(due - 1us).empty());
        EXPECT_EQ(line.TakeDue(due).size(), 17U) << turn;
    }
}

TEST_F(LineTest, CountersOnOneAddressSpeakOverEachOther) {
    line = CCounterLine({.addresses = {3, 0, 3}}, now);
    const std::string alone = Ask("02 00 87 87 03");
    const std::string both = Ask("02 03 87 8A 03");
    EXPECT_EQ(both.size(), alone.size());
    EXPECT_NE(both, "02 03 00 03 03");
    const std::string all = Ask("02 FF 87 86 03");
    EXPECT_EQ(all.size(), 2 * alone.size() + 1) << "a turn for each address";
    EXPECT_EQ(all.substr(alone.size() + 1), alone);
    Control("fault silent 3 1");
    EXPECT_EQ(Ask("02 03 87 8A 03"), "02 03 00 03 03") << "one of the two is silent";
}

TEST_F(LineTest, WithoutABaudRateAllIsDueAtOnce) {
    line = CCounterLine({.baudRate = 0, .turnaround = LineTime(0)}, now);
    Feed("02 FF 81 80 03");
    EXPECT_EQ(line.TakeDue(now).size(), 3U * 17U);
}

TEST_F(LineTest, APulledCableLosesWhatWasUnderWay) {
    Feed("02 00 81 81 03");
    EXPECT_EQ(line.TakeDue(now + 25ms).size(), 6U);
    Feed("02 00 87");
    EXPECT_EQ(Control("pull"), "ok");
    EXPECT_EQ(line.NextDue(), std::nullopt);
    EXPECT_EQ(Ask("02 00 81 81 03"), "");
    EXPECT_EQ(Control("send 55"), "ok");
    EXPECT_EQ(Listen(), "");
    EXPECT_EQ(Control("plug"), "ok");
    EXPECT_EQ(Ask("87 03"), "") << "the half before the pull is forgotten";
    EXPECT_EQ(Ask("02 00 87 87 03"), "02 00 00 00 03");
}

TEST_F(LineTest, PeoplePassAtTheRate) {
    line = CCounterLine({.peoplePerMinute = 60, .seed = 7}, now);
    CCounterLine same({.peoplePerMinute = 60, .seed = 7}, now);
    for (int minute = 1; minute <= 100; ++minute) {
        now += 1min;
        for (const CLineCounter& counter : line.Counters(now)) {
            EXPECT_GE(counter.Counts().in, counter.Counts().out) << "nobody goes out who didn't come in";
        }
    }
    for (const CLineCounter& counter : line.Counters(now)) {
        const LineCounts counts = counter.Counts();
        EXPECT_NEAR(counts.in + counts.out, 6000, 300);
        EXPECT_GT(counts.out, 2000);
        EXPECT_EQ(counts, same.Find(counter.Address(), now)->Counts()) << "however often it is looked at";
    }
    EXPECT_NE(line.Find(0, now)->Counts(), line.Find(1, now)->Counts());
}

} // namespace
