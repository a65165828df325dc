// Base of the tests: an empty line, no stored values, one program, and everything put back at the end.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "CounterPlayer.h"
#include "Program.h"
#include "resources/ResourceIds.h"

struct LogLine {
    std::string time; // "2012/07/02 16:21:20"
    bool sent;        // else received
    std::string hex;
};

class SystemTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override; // the program has to end when its window is closed

    // Lets counters be there from now on.
    void PlayCounters(const std::vector<std::uint8_t>& addresses);
    // On the near port, unless the test has stored another one.
    void StartProgram();
    void StartPolling();
    void StopPolling();

    void ExpectText(int id, const std::string& text) const;
    // The texts of the visible address buttons, parted by blanks.
    void ExpectAddressButtons(const std::string& addresses) const;
    void ExpectTotals(std::size_t sent, std::size_t received) const;
    // Polls reach the wire, and what they bring reaches the displays, if the counter at the address is the one shown.
    void ExpectPollingGoesOn(std::uint8_t address = 0);

    // The program's stored values; Stored takes numbers only.
    static void Store(const std::string& name, DWORD type, const std::string& bytes);
    static void Store(const std::string& name, DWORD value);
    static std::optional<DWORD> Stored(const std::string& name);

    static std::string LogPath() { return CProgram::Folder() + "Quorvane.log"; }
    static std::string LogText();
    // Fails the test at the first line that isn't in the exact form.
    static std::vector<LogLine> LogLines();

    std::string nearPort = "COM1"; // the program's end of the cable
    std::string farPort = "COM2";  // the counters'
    DWORD nearNumber = 1;
    CProgram program;
    std::unique_ptr<CCounterPlayer> counters;

private:
    std::string ShownAddresses() const;

    std::map<std::string, std::pair<DWORD, std::string>> formerValues;
    int lastCount = 1000;
};
