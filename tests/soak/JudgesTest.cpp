// What the judges of a soak let pass, and what they catch.
#include <gtest/gtest.h>

#include "soak/LogJudge.h"
#include "soak/MachineWaits.h"
#include "soak/WireJudge.h"
#include "support/Hex.h"

namespace {

using namespace std::chrono_literals;

std::string Judged(CWireJudge& judge, const std::string& body, LineTime now) {
    return judge.Judge(LineRequest{FrameOf(body)}, now);
}

TEST(WireJudge, AFrameNeedsItsPress) {
    const std::string update = "ff 88 12 07 02 16 21 20 00 00 00 00 00 00 15 e4";
    CWireJudge judge;
    EXPECT_NE(Judged(judge, "00 81", 1s), "");
    judge.SeePolling(1s);
    EXPECT_EQ(Judged(judge, "00 81", 2s), "");
    EXPECT_EQ(Judged(judge, "00 82", 2s), "");
    EXPECT_NE(Judged(judge, "01 82", 2s), "") << "not polled";
    judge.Disturb(2s);
    EXPECT_EQ(Judged(judge, "01 82", 3s), "") << "polled, perhaps, while the port was closed";
    EXPECT_NE(Judged(judge, "06 81", 2s), "") << "no counter's address";
    EXPECT_NE(Judged(judge, "00 81", 4s), "") << "long after the last polling";
    judge.PressClear(10s);
    EXPECT_EQ(Judged(judge, "03 87", 11s), "");
    EXPECT_NE(Judged(judge, "03 87", 11s), "") << "one press, two frames";
    judge.PressUpdate(20s, UpdateForm{{0x12, 0x07, 0x02, 0x16, 0x21, 0x20}, 0x15, 0xE4, 3});
    EXPECT_EQ(Judged(judge, update, 21s), "");
    EXPECT_NE(Judged(judge, update, 21s), "");
    EXPECT_NE(Judged(judge, "ff 89 04", 21s), "") << "the window reads 3";
    judge.PressUpdate(24s, UpdateForm{{0x12, 0x07, 0x02, 0x16, 0x21, 0x20}, 0x15, 0xE4, 5});
    EXPECT_EQ(Judged(judge, "ff 89 05", 25s), "") << "the first press had no address to send";
    judge.PressClear(30s);
    EXPECT_NE(Judged(judge, "03 87", 31s), "") << "an Update goes to all, and so do the Clears behind it";
    judge.PressUpdate(40s, UpdateForm{{0x12, 0x07, 0x02, 0x16, 0x21, 0x20}, 0x16, 0xE4, 3});
    EXPECT_NE(Judged(judge, update, 41s), "") << "another sensitivity";
    judge.PressClear(50s);
    EXPECT_NE(Judged(judge, "ff 87", 56s), "") << "too late";
}

// Two polls and their answers on the wire, and what a log has of them.
std::string Judged(const std::vector<std::string>& log, bool disturbed) {
    CLogJudge judge;
    judge.Hear(FrameOf("00 81"), 10s);
    judge.Speak(BytesOf("01 02 03 04 05"), 10s);
    judge.Hear(FrameOf("01 81"), 11s);
    judge.Speak(BytesOf("06 07 08 09 0a"), 11s);
    if (disturbed) judge.Disturb(11s);
    std::string text;
    for (const std::string& line : log) text += "2026/11/26 10:00:00: " + line + "\r\n";
    const std::string wrong = judge.Read(text, 12s);
    return wrong.empty() ? judge.Read("", 20s) : wrong;
}

TEST(LogJudge, EachByteHasItsPlace) {
    const std::string first = "TX-->02 00 81 81 03 ", second = "TX-->02 01 81 82 03 ";
    const std::string one = "RX-->01 02 03 04 05 ", two = "RX-->06 07 08 09 0a ", none = "RX-->";
    const struct {
        std::vector<std::string> log;
        bool passes, passesDisturbed;
    } rows[] = {{{first, one, second, two}, true, true},
                {{first, none, second, "RX-->01 02 03 04 05 06 07 08 09 0a "}, true, true},
                {{first, one, second, "RX-->06 08 09 0a "}, false, true},
                {{first, one, second, "RX-->06 07 08 09 0b "}, false, false},
                {{first, two, second, one}, false, false},
                {{first, one}, false, false},                                     // on the wire and not in the log
                {{first, one, second, two, "TX-->02 02 81 83 03 "}, false, true}, // never on the wire
                {{second, one, first, two}, false, false},
                {{first, one, one, second, two}, false, false},
                {{first, one, "TX-->02 00 82 82 03", none, second, two}, false, true},
                {{first, one, second, "RX-->0 "}, false, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.log));
        EXPECT_EQ(Judged(row.log, false).empty(), row.passes) << Judged(row.log, false);
        EXPECT_EQ(Judged(row.log, true).empty(), row.passesDisturbed) << Judged(row.log, true);
    }
}

// Of two answers that are the same only one may have got lost.
TEST(LogJudge, WhatCameMayLookLikeWhatGotLost) {
    CLogJudge judge;
    judge.Disturb(10s);
    judge.Hear(FrameOf("00 81"), 10s);
    judge.Speak(BytesOf("02 00 00 00 03 02 05 00 05 03"), 10s);
    judge.Hear(FrameOf("01 81"), 12s);
    judge.Speak(BytesOf("02 05 00 05 03 02 05 00 05 03"), 12s);
    const std::string time = "2026/11/26 10:00:00: ";
    const std::string both = time + "RX-->02 05 00 05 03 02 05 00 05 03 \r\n";
    EXPECT_EQ(judge.Read(time + "TX-->02 00 81 81 03 \r\n" + time + "RX-->02 00 00 00 03 02 05 00 05 03 \r\n" + time +
                             "TX-->02 01 81 82 03 \r\n" + both,
                         13s),
              "");
    EXPECT_NE(judge.Read(time + "TX-->02 02 81 83 03 \r\n" + both, 13s), "") << "said once";
}

// An answer that comes in lumps while it is no longer doubtful that it comes.
TEST(LogJudge, ALumpMayHoldAnyNumberOfBytes) {
    for (const int lump : {1, 2, 3, 4}) {
        CLogJudge judge;
        judge.Disturb(10s);
        judge.Hear(FrameOf("00 81"), 10900ms);
        const LineBytes answer = BytesOf("02 00 05 07 03");
        judge.Speak({answer.begin(), answer.end() - lump}, 10900ms);
        judge.Speak({answer.end() - lump, answer.end()}, 11100ms);
        const std::string time = "2026/11/26 10:00:00: ";
        EXPECT_EQ(judge.Read(time + "TX-->02 00 81 81 03 \r\n" + time + "RX-->02 00 05 07 03 \r\n", 12s), "") << lump;
    }
}

TEST(MachineWaits, OnlyWhatLiesWithinTheQuestionCountsAndNothingOfAMachineWithTime) {
    const struct {
        MachineWait sample;
        LineTime wanted;
    } rows[] = {{{110ms, 121ms, 1ms}, 0ms},    {{110ms, 140ms, 20ms}, 19ms},  {{20ms, 90ms, 60ms}, 0ms},
                {{20ms, 105ms, 75ms}, 5ms},    {{190ms, 400ms, 200ms}, 10ms}, {{210ms, 300ms, 80ms}, 0ms},
                {{50ms, 1000ms, 940ms}, 100ms}};
    std::vector<MachineWait> all;
    LineTime sum{};
    for (const auto& [sample, wanted] : rows) {
        EXPECT_EQ(WaitsWithin({&sample, 1}, 100ms, 200ms), wanted) << sample.begin.count();
        all.push_back(sample);
        sum += wanted;
    }
    EXPECT_EQ(WaitsWithin(all, 100ms, 200ms), sum);
}

} // namespace
