// Polling as the wire, the log and the window show it, on a good line and on bad ones.
#include <algorithm>

#include "SystemTest.h"

namespace {

std::string Now() {
    return CTime::Now().Format("%Y/%m/%d %H:%M:%S");
}

class Polling : public SystemTest {
protected:
    // The strict rotation of the six addresses at the pace of the timer, and never two commands at a time.
    void CheckPace() {
        const auto polls = counters->Heard("81 ");
        for (std::size_t i = 0; i < polls.size(); ++i) {
            ASSERT_EQ(polls[i].hex, FrameAround("0" + std::to_string(i % 6) + " 81 ")) << "poll " << i;
        }
        using Time = std::chrono::duration<double, std::milli>;
        constexpr std::size_t settled = 12; // the settings reads of new counters push the first round back
        const Time gap = Time(polls.back().latest - polls[settled].latest) / (polls.size() - 1 - settled);
        RecordProperty("millisecondsBetweenPolls", std::to_string(gap.count()));
        EXPECT_NEAR(gap.count(), 200, 6 * TimeFactor());

        // A command takes its pause of 100 ms, and the next one begins 10 ms later at the earliest.
        auto shortest = Time::max();
        const auto frames = counters->Heard();
        for (std::size_t i = 1; i < frames.size(); ++i) {
            shortest = std::min(shortest, Time(frames[i].latest - frames[i - 1].earliest));
        }
        RecordProperty("millisecondsBetweenCommands", std::to_string(shortest.count()));
        EXPECT_GE(shortest.count(), 110);
    }

    // Every frame is in the log in its order, with what came back behind it; texts and totals agree with the wire.
    void CheckLog(const std::string& begun) const {
        const auto frames = counters->Heard();
        const auto lines = LogLines();
        ASSERT_EQ(lines.size(), 2 * frames.size());
        std::string received, last = begun;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            ASSERT_EQ(lines[i].sent, i % 2 == 0) << "line " << i + 1;
            EXPECT_GE(lines[i].time, std::exchange(last, lines[i].time));
            if (!lines[i].sent)
                received += lines[i].hex;
            else
                EXPECT_EQ(lines[i].hex, frames[i / 2].hex);
        }
        EXPECT_LE(last, Now());
        EXPECT_EQ(counters->HeardBytes(), 5 * frames.size()) << "something else is on the wire";
        EXPECT_EQ(received, HexOf(counters->Spoken()));
        ExpectTotals(counters->HeardBytes(), counters->Spoken().size());
        ExpectText(IDC_TRANSMITTED_EDIT, frames.back().hex);
        ExpectText(IDC_RECEIVED_EDIT, lines.back().hex);
    }
};

TEST_F(Polling, SixCountersAppearAndTheirCountsRise) {
    const std::string begun = Now();
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartPolling();
    EXPECT_FALSE(program.IsEnabled(IDC_UPDATE) || program.IsEnabled(IDC_CLEAR));
    ExpectAddressButtons("0 1 2 3 4 5");
    ExpectPollingGoesOn();
    counters->Count(4, 65535, 384);
    program.Click(IDC_ADDRESS_BUTTON_FIRST + 4);
    ExpectText(IDC_IN_DISPLAY, "65535");
    ExpectText(IDC_ADDRESS_EDIT, "4");
    ExpectPollingGoesOn(4);

    EXPECT_TRUE(Await([&] { return counters->Heard("81 ").size() >= 32; }, 15s));
    StopPolling();
    EXPECT_TRUE(program.IsEnabled(IDC_UPDATE) && program.IsEnabled(IDC_CLEAR));
    CheckPace();
    CheckLog(begun);
    // Each counter's settings are read once, when it turns up.
    auto reads = counters->Heard("82 ");
    std::ranges::sort(reads, {}, &HeardFrame::hex);
    ASSERT_EQ(reads.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(reads[i].hex, FrameAround("0" + std::to_string(i) + " 82 "));
}

TEST_F(Polling, WithoutCountersThePaceStaysAndTheKeysWork) {
    const std::string begun = Now();
    PlayCounters({});
    StartProgram();
    PressKey(VK_ESCAPE);
    PressKey(VK_RETURN);
    ExpectText(IDC_START, "Stop");
    EXPECT_TRUE(Await([&] { return counters->Heard().size() >= 32; }, 15s));
    program.Click(IDC_SENSITIVITY_EDIT);
    PressKey(VK_RETURN);
    ExpectText(IDC_START, "Start");
    EXPECT_TRUE(counters->AwaitSilence());
    CheckPace();
    CheckLog(begun);
    ExpectAddressButtons("");
}

TEST_F(Polling, GoodRecordsAreFoundInBadCompany) {
    PlayCounters({0, 1, 2, 3, 4, 5});
    counters->BringFaults({"noise=7 0", "twice 1", "echo 2", "garbledate 3", "nodate 4"});
    for (std::uint8_t address = 0; address < 6; ++address) counters->Count(address, 2000 + address, 50);
    StartPolling();
    ExpectAddressButtons("0 1 2 3 4 5");
    ASSERT_TRUE(counters->AwaitFrames(6));
    for (int address = 0; address < 6; ++address) {
        program.Click(IDC_ADDRESS_BUTTON_FIRST + address);
        ExpectText(IDC_IN_DISPLAY, std::to_string(2000 + address));
    }
    ExpectAddressButtons("0 1 2 3 4 5");
}

// What comes too late stands before the next counter's answer.
TEST_F(Polling, BadRecordsTakeTheirCounterOffUntilItsNextGoodOne) {
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartPolling();
    ExpectAddressButtons("0 1 2 3 4 5");
    const std::pair<std::vector<std::string>, const char*> rounds[] = {
        {{"torn 1", "checksum 2", "silent 3", "overlong 4", "late=150 5"}, "0"},
        {{"stranger=9 1", "stranger=255 2", "split=150 3", "torn=1 4", "torn=16 5"}, "0"},
        {{"silent *"}, ""}};
    for (const auto& [faults, shown] : rounds) {
        SCOPED_TRACE(faults.front());
        counters->BringFaults(faults);
        ExpectAddressButtons(shown);
        counters->BringFaults({});
        ExpectAddressButtons("0 1 2 3 4 5");
    }
    program.Click(IDC_ADDRESS_BUTTON_FIRST); // another one may have come back first
    ExpectPollingGoesOn();
}

TEST_F(Polling, AFloodIsReadAndForgotten) {
    PlayCounters({0});
    StartPolling();
    ExpectPollingGoesOn();
    LineBytes flood;
    for (int i = 0; i < 600; ++i) flood.insert(flood.end(), {0x02, 0x00, 0x00, 0x03, static_cast<std::uint8_t>(i)});
    counters->Say(flood);
    ASSERT_TRUE(counters->AwaitFrames(6));
    ExpectPollingGoesOn();
    StopPolling();
    ExpectTotals(counters->HeardBytes(), counters->Spoken().size());
    EXPECT_FALSE(program.ShowsBox());
}

} // namespace
