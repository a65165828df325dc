// Polling as the wire, the log and the window show it.
#include <algorithm>

#include "Input.h"
#include "SystemTest.h"
#include "TrafficLog.h"

namespace {

class Polling : public SystemTest {
protected:
    // The strict rotation of the six addresses, at the pace of the timer and never two commands at a time.
    void CheckPolls() const {
        const auto polls = counters->Heard(0x81);
        for (std::size_t i = 0; i < polls.size(); ++i) {
            ASSERT_EQ(HexOf(polls[i].bytes), HexOf(PollFrame(static_cast<std::uint8_t>(i % 6)))) << "poll " << i;
        }
        // The settings reads of new counters push the first round back.
        constexpr std::size_t settled = 12;
        ASSERT_GT(polls.size(), settled + 18);
        const double gap =
            std::chrono::duration<double, std::milli>(polls.back().latest - polls[settled].latest).count() /
            static_cast<double>(polls.size() - 1 - settled);
        RecordProperty("millisecondsBetweenPolls", std::to_string(gap));
        EXPECT_NEAR(gap, 200, 6);
    }

    // A command takes its pause of 100 ms, and the next one begins 10 ms later at the earliest.
    void CheckGaps() const {
        const auto frames = counters->Heard();
        auto shortest = Clock::duration::max();
        for (std::size_t i = 1; i < frames.size(); ++i) {
            shortest = std::min(shortest, frames[i].latest - frames[i - 1].earliest);
        }
        RecordProperty("millisecondsBetweenCommands", std::to_string(Milliseconds(shortest)));
        EXPECT_GE(shortest, 110ms);
    }

    // Every frame is in the log in its order, with what came back behind it; texts and totals agree with the wire.
    void CheckLog(const std::string& begun) const {
        const auto frames = counters->Heard();
        const auto lines = LogLines();
        ASSERT_EQ(lines.size(), 2 * frames.size());
        std::string received;
        std::size_t sentBytes = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            ASSERT_EQ(lines[i].sent, i % 2 == 0) << "line " << i + 1;
            EXPECT_GE(lines[i].time, i == 0 ? begun : lines[i - 1].time);
            if (lines[i].sent) {
                EXPECT_EQ(lines[i].hex, HexOf(frames[i / 2].bytes));
                sentBytes += frames[i / 2].bytes.size();
            } else {
                received += lines[i].hex;
            }
        }
        EXPECT_LE(lines.back().time, CTime::Now().Format("%Y/%m/%d %H:%M:%S"));
        EXPECT_EQ(counters->HeardBytes(), sentBytes) << "something else is on the wire";
        EXPECT_EQ(received, HexOf(counters->Spoken()));
        ExpectTotals(sentBytes, counters->Spoken().size());
        ExpectText(IDC_TRANSMITTED_EDIT, lines[lines.size() - 2].hex);
        ExpectText(IDC_RECEIVED_EDIT, lines.back().hex);
    }
};

TEST_F(Polling, SixCountersAppearAndTheirCountsRise) {
    const std::string begun = CTime::Now().Format("%Y/%m/%d %H:%M:%S");
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartProgram(true);
    EXPECT_FALSE(program.IsEnabled(IDC_UPDATE));
    EXPECT_FALSE(program.IsEnabled(IDC_CLEAR));
    ExpectAddressButtons("0 1 2 3 4 5");
    ExpectPollingGoesOn();
    counters->Count(4, 65535, 384);
    program.Click(IDC_ADDRESS_BUTTON_FIRST + 4);
    ExpectText(IDC_IN_DISPLAY, "65535");
    ExpectText(IDC_OUT_DISPLAY, "384");
    ExpectText(IDC_ADDRESS_EDIT, "4");
    ExpectPollingGoesOn(4);

    EXPECT_TRUE(Await([&] { return counters->Heard(0x81).size() >= 36; }, 15s));
    StopPolling();
    EXPECT_TRUE(program.IsEnabled(IDC_UPDATE));
    EXPECT_TRUE(program.IsEnabled(IDC_CLEAR));
    CheckPolls();
    CheckGaps();
    CheckLog(begun);
    // Each counter's settings are read once, when it turns up.
    auto reads = counters->Heard(0x82);
    std::ranges::sort(reads, {}, &HeardFrame::Address);
    ASSERT_EQ(reads.size(), 6U);
    for (std::uint8_t address = 0; address < 6; ++address) {
        EXPECT_EQ(reads[address].bytes,
                  (LineBytes{0x02, address, 0x82, static_cast<std::uint8_t>(address + 0x82), 0x03}));
    }
}

TEST_F(Polling, WithNoCounterThePaceStays) {
    const std::string begun = CTime::Now().Format("%Y/%m/%d %H:%M:%S");
    PlayCounters({});
    StartProgram();
    PressKey(VK_RETURN);
    EXPECT_TRUE(Await([&] { return counters->HeardCount() >= 32; }, 15s));
    StopPolling();
    CheckPolls();
    CheckGaps();
    CheckLog(begun);
    ExpectAddressButtons("");
    EXPECT_FALSE(program.ShowsBox());
}

} // namespace
