// Base of the tests: an empty line, no stored values, one program, and everything put back at the end.
#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "CounterPlayer.h"
#include "Program.h"
#include "StoredState.h"
#include "resources/ResourceIds.h"

// An end of the null-modem cable: the environment variable that names it, and its name without one.
struct TestPort {
    const char* variable;
    const char* otherwise;

    std::string Name() const;
    DWORD Number() const; // of the name
};
inline constexpr TestPort nearPort{"QUORVANE_TEST_PORT_A", "COM1"}; // the program's
inline constexpr TestPort farPort{"QUORVANE_TEST_PORT_B", "COM2"};  // the counters'

bool OpenTestPort(CCommPort& port, const TestPort& name);

class SystemTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override; // also closes the program, which has to end by itself

    // Lets counters be there from now on.
    void PlayCounters(const std::vector<std::uint8_t>& addresses);
    // The program, on the near port unless the test has stored another one; with polling on if asked.
    void StartProgram(bool polling = false);
    void StopPolling();

    void ExpectText(int id, const std::string& text, Clock::duration limit = 5s) const;
    // The texts of the visible address buttons come to be these, parted by blanks.
    void ExpectAddressButtons(const std::string& addresses) const;
    void ExpectTotals(std::size_t sent, std::size_t received) const;
    // That polls reach the wire, and what they bring reaches the display of the counter shown, whose address this is.
    void ExpectPollingGoesOn(std::uint8_t address = 0);

    CStoredState stored;
    CProgram program;
    std::unique_ptr<CCounterPlayer> counters;

private:
    static std::string ShownAddresses(const CProgram& shown);

    int lastCount = 1000;
};
