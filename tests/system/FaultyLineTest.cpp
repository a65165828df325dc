// What a bad line may bring. A counter is shown as long as its own poll brings a good record, and comes back with the
// next one; the window stays alive through all of it.
#include "SystemTest.h"

namespace {

using FaultyLine = SystemTest;

TEST_F(FaultyLine, GoodRecordsAreFoundInBadCompany) {
    PlayCounters({0, 1, 2, 3, 4, 5});
    for (const char* fault : {"noise=7 0", "twice 1", "echo 2", "garbledate 3", "nodate 4"})
        counters->BringFault(fault);
    StartProgram(true);
    ExpectAddressButtons("0 1 2 3 4 5");
    for (std::uint8_t address = 0; address < 6; ++address) {
        SCOPED_TRACE(static_cast<int>(address));
        program.Click(IDC_ADDRESS_BUTTON_FIRST + address);
        ExpectPollingGoesOn(address);
    }
}

TEST_F(FaultyLine, BadRecordsTakeTheirCounterOffUntilItsNextGoodOne) {
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartProgram(true);
    ExpectAddressButtons("0 1 2 3 4 5");
    // Bytes that come after their time stand before the next counter's answer.
    const std::vector<const char*> rounds[] = {
        {"torn 1", "checksum 2", "silent 3", "overlong 4", "late=150 5"},
        {"stranger=9 1", "stranger=255 2", "split=150 3", "torn=1 4", "torn=16 5"}};
    for (const auto& faults : rounds) {
        SCOPED_TRACE(faults.front());
        for (const char* fault : faults) counters->BringFault(fault);
        ExpectAddressButtons("0");
        ExpectPollingGoesOn();
        counters->ClearFaults();
        ExpectAddressButtons("0 1 2 3 4 5");
        ExpectPollingGoesOn();
    }
    // The last one gone, nothing is selected any more; the first to come back is.
    counters->BringFault("silent *");
    ExpectAddressButtons("");
    counters->ClearFaults();
    ExpectAddressButtons("0 1 2 3 4 5");
    EXPECT_TRUE(program.Answers());
}

TEST_F(FaultyLine, AFloodIsReadAndForgotten) {
    PlayCounters({0});
    StartProgram(true);
    ExpectPollingGoesOn();
    for (const LineBytes& pattern : {LineBytes{0x02}, LineBytes{0x02, 0x00, 0x00, 0x00, 0x03}, LineBytes{0xFF, 0x03}}) {
        LineBytes flood;
        while (flood.size() < 3000) flood.insert(flood.end(), pattern.begin(), pattern.end());
        counters->Say(flood);
    }
    ExpectText(IDC_RECEIVED_EDIT, "");
    EXPECT_TRUE(program.Answers());
    ExpectPollingGoesOn();
    StopPolling();
    ExpectTotals(counters->HeardBytes(), counters->Spoken().size());
    EXPECT_FALSE(program.ShowsBox());
}

} // namespace
