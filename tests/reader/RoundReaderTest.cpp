// Rounds over a simulated line whose time is a number: a day of failing counters, and lines that don't let go.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <set>

#include <gtest/gtest.h>

#include "line/CounterLine.h"
#include "line/LineControl.h"
#include "reader/LineCheck.h"
#include "reader/OutputFile.h"
#include "reader/RoundReader.h"
#include "reader/RoundTargets.h"
#include "support/Hex.h"
#include "support/Seed.h"

namespace {

using namespace std::chrono_literals;

constexpr std::int64_t wallBegin = 1'700'000'000'000'000; // at the time 0

// Port, clocks and target in one; `beforeRequest` says what goes wrong with it.
struct CSimulatedGround final : CReaderGround, CLinePort, CRoundTarget {
    CLinePort& Port() override { return *this; }
    LineTime Now() override { return now; }
    Moment WallTime() override { return {wallBegin + now.count(), 3600}; }
    bool AwaitInput(LineTime until) override {
        const auto due = floods ? std::optional(now + 100us) : line.NextDue();
        now = due ? std::clamp(*due, now, until) : until;
        return now < end;
    }
    bool Rest(LineTime until) override { return (now = std::max(now, until)) < end; }
    void Say(const std::string& text) override { said += text + '|'; }

    bool Open(std::string& error) override { return error = "away", isOpen = !isAway(now); }
    void Close() override { isOpen = false; }
    bool IsOpen() const override { return isOpen; }
    std::string Name() const override { return "COM3"; }
    bool KeepsPace() const override { return false; }
    bool Read(LineBytes& bytes) override {
        bytes = floods ? LineBytes(512, 0x02) : line.TakeDue(now);
        return !isAway(now);
    }
    bool Write(std::span<const std::uint8_t> bytes) override {
        sent.insert(HexOf(bytes));
        beforeRequest(bytes[1]);
        line.Feed(bytes, now);
        asked = line.Find(bytes[1], now)->Counts();
        now += stall;
        return true;
    }

    bool TakeReading(const Reading& reading) override { return afterReading(reading), true; }
    bool EndRound(std::span<const Reading> round, bool isWhole) override { return rounds += isWhole, !round.empty(); }

    LineTime now{}, end = LineTime::max();
    LineTime stall{}; // of this program when it has sent
    CCounterLine line{{.addresses = {0, 1, 2, 3, 4, 5}, .peoplePerMinute = 60}, LineTime(0)};
    std::function<bool(LineTime)> isAway = [](LineTime) { return false; };
    std::function<void(std::uint8_t)> beforeRequest = [](std::uint8_t) {};
    std::function<void(const Reading&)> afterReading = [](const Reading&) {};
    std::set<std::string> sent;
    LineCounts asked; // what the counter that was asked last had then
    std::string said;
    int rounds = 0;
    bool isOpen = false, floods = false;
};

struct RoundReader : testing::Test {
    RoundsResult Run(const RoundPlan& plan) {
        std::string error;
        EXPECT_TRUE(inquiry.Start(error)) << error;
        return CRoundReader(ground, inquiry, ground).Run(plan);
    }
    CSimulatedGround ground;
    CLineInquiry inquiry{ground, 4800};
    const std::vector<std::uint8_t> all{0, 1, 2, 3, 4, 5};
};

TEST_F(RoundReader, ADayOfFailingCountersGivesEveryRow) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    using enum Answer;
    const std::pair<const char*, Answer> faults[] = {{"silent", Silent},     {"torn", Spoilt},    {"checksum", Spoilt},
                                                     {"stranger=9", Spoilt}, {"twice", Doubled},  {"echo", Whole},
                                                     {"noise=3", Whole},     {"late=130", Silent}};
    // Away for some whole minutes, from half a minute to half a minute, so that no round sees both.
    ground.isAway = [](LineTime time) { return (time + 30s) / 1min % 100 >= 97; };
    Answer expected = NotAsked;
    bool isLate = false; // into the pause of the next one, which is to answer in peace
    ground.beforeRequest = [&](std::uint8_t address) {
        expected = Whole;
        if (std::exchange(isLate, false) || random() % 4 != 0) return;
        const auto& [fault, answer] = faults[random() % std::size(faults)];
        const std::string control = std::string("fault ") + fault + ' ' + std::to_string(address) + " 1";
        ASSERT_EQ(RunControlLine(ground.line, control, ground.now).text, "ok");
        expected = answer, isLate = *fault == 'l';
    };
    int row = 0, missing = 0;
    ground.afterReading = [&](const Reading& reading) {
        ASSERT_EQ(reading.answer, std::exchange(expected, NotAsked)) << "row " << row << ": " << reading.address;
        ASSERT_EQ(reading.address, row % 6);
        ASSERT_EQ(reading.status.has_value(), reading.answer == Whole);
        if (const auto& status = reading.status) {
            EXPECT_TRUE(status->inCount == ground.asked.in && status->outCount == ground.asked.out) << "row " << row;
        }
        if (reading.answer == NotAsked) ++missing;
        const std::int64_t grid = wallBegin + row / 6 * 60'000'000LL;
        EXPECT_TRUE(row++ % 6 != 0 || reading.time.microseconds == grid)
            << row << " is late by " << reading.time.microseconds - grid;
    };
    ground.end = 24h;
    EXPECT_EQ(Run({all, false, 60s}), RoundsResult::Missing);
    EXPECT_TRUE(row == 1440 * 6 && ground.rounds == 1440 && missing == 14 * 3 * 6) << row << ' ' << missing;
    EXPECT_EQ(std::ranges::count(ground.said, '|'), 2 * 14) << ground.said;
}

TEST_F(RoundReader, SendsPollsAndSettingsReadsOnly) {
    const std::set<std::string> polls{"02 00 81 81 03", "02 01 81 82 03", "02 02 81 83 03",
                                      "02 03 81 84 03", "02 04 81 85 03", "02 05 81 86 03"};
    std::set<std::string> both = polls;
    both.insert({"02 00 82 82 03", "02 01 82 83 03", "02 02 82 84 03"});
    both.insert({"02 03 82 85 03", "02 04 82 86 03", "02 05 82 87 03"});
    EXPECT_EQ(Run({all, false, std::nullopt}), RoundsResult::Answered);
    EXPECT_TRUE(ground.sent == polls && ground.now == 6 * 100ms + 5 * restAfterPause);
    EXPECT_EQ(Run({all, true, std::nullopt}), RoundsResult::Answered);
    EXPECT_EQ(ground.sent, both);
}

TEST_F(RoundReader, CountsThatWereReadStayWhenItEnds) {
    ground.end = 150ms; // in the settings read of the first counter
    int rows = 0;
    ground.afterReading = [&](const Reading& reading) { rows += reading.status && !reading.settings ? 1 : 0; };
    Run({all, true, std::nullopt});
    EXPECT_EQ(rows, 1);
}

TEST_F(RoundReader, RowsThatFoundNoRoomAreAFailureForGood) {
    const std::string path = testing::TempDir() + "lost_rows.csv";
    COutputFile other;
    std::string error;
    ASSERT_TRUE(other.Open(path, error)) << error;
    CConsole console;
    CRowFileTarget target(console, {RowKind::Csv, false}, path);
    ASSERT_TRUE(target.Start(error)) << error;
    target.EndRound(std::vector<Reading>(2000), true); // more than is kept
    other.Close();
    target.EndRound({}, true);
    EXPECT_GT(std::filesystem::file_size(path), 0U);
    EXPECT_FALSE(target.Finish(ground));
    std::remove(path.c_str());
}

TEST_F(RoundReader, SlowRoundsSkipPointsOfTheGrid) {
    ground.end = 10s;
    std::vector<std::int64_t> begins;
    ground.afterReading = [&](const Reading& reading) {
        if (reading.address == 0) begins.push_back((reading.time.microseconds - wallBegin) / 1000);
    };
    EXPECT_EQ(Run({all, false, 500ms}), RoundsResult::Answered);
    EXPECT_EQ(begins, (std::vector<std::int64_t>{0, 1000, 2000, 3000, 4000, 5000, 6000, 7000, 8000, 9000}));
}

TEST_F(RoundReader, AnswersOfBeforeAndFloodsAreNobodysAnswer) {
    std::string error;
    ASSERT_TRUE(inquiry.Start(error) && inquiry.Ask(3, Question::Counts));
    ground.line.Send(FrameOf("03 12 07 02 16 21 20 00 64 00 32 00 00 00"), ground.now);
    ground.now += 1min;
    RunControlLine(ground.line, "fault silent", ground.now);
    const auto silent = inquiry.Ask(3, Question::Counts);
    ASSERT_TRUE(silent);
    EXPECT_EQ(silent->judgement.answer, Answer::Silent) << "counts of a minute ago";
    EXPECT_EQ(silent->judgement.others, std::vector<std::uint8_t>{3});
    RunControlLine(ground.line, "clear", ground.now);
    ground.stall = 300ms;
    const auto stalled = inquiry.Ask(3, Question::Counts);
    EXPECT_TRUE(stalled && stalled->judgement.answer == Answer::Whole) << "it was heard in time, if not seen";
    ground.stall = 0ms;
    ground.floods = true;
    const LineTime begin = ground.now;
    const auto flooded = inquiry.Ask(3, Question::Counts);
    ASSERT_TRUE(flooded);
    EXPECT_TRUE(flooded->judgement.answer == Answer::Spoilt && ground.now - begin < 200ms);
    EXPECT_GT(flooded->judgement.strayBytes, 100'000U) << "of what found no room too";
}

TEST_F(RoundReader, SlowLinesHaveTheTimeTheyNeed) {
    for (const int baud : {300, 1200, 2400, 9600}) {
        ground.line = CCounterLine({.addresses = {3}, .baudRate = baud}, ground.now);
        RunControlLine(ground.line, "fault twice * 1", ground.now);
        CLineInquiry slow(ground, baud);
        std::string error;
        ASSERT_TRUE(slow.Start(error));
        for (const Answer expected : {Answer::Doubled, Answer::Whole}) {
            const auto trace = slow.Ask(3, Question::Counts);
            EXPECT_TRUE(trace && trace->judgement.answer == expected) << baud;
        }
    }
}

TEST_F(RoundReader, ACheckTellsWhoAnswered) {
    const struct {
        const char* fault;
        bool wantsAll, answered;
    } cases[] = {{"clear", true, true},
                 {"fault silent 2", true, false},
                 {"fault silent 2", false, true},
                 {"fault checksum 2", false, false},
                 {"fault silent", false, false}};
    std::string error;
    ASSERT_TRUE(inquiry.Start(error));
    for (const auto& each : cases) {
        RunControlLine(ground.line, "clear", ground.now);
        RunControlLine(ground.line, each.fault, ground.now);
        CLineCheck check(ground, inquiry);
        const LineTime begin = ground.now;
        check.Run(all, 5s, [](LineTime) {});
        EXPECT_EQ(HaveAllAnswered(check.Sheet(), all, each.wantsAll), each.answered) << each.fault;
        EXPECT_TRUE(ground.now - begin >= 5s && ground.now - begin < 6500ms);
    }
}

} // namespace
