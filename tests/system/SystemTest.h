// Base of the tests: an empty line, no stored values before and after, one program.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "CounterPlayer.h"
#include "support/Ports.h"

#include <shlwapi.h>

class SystemTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(::FindWindowA(nullptr, CProgram::title), nullptr) << "the program runs already";
        // What an earlier program or counter has sent may still be under way; a player without counters takes it.
        CCounterPlayer nearEnd({}), farEnd({});
        ASSERT_TRUE(nearEnd.Play(nearPort) && farEnd.Play(farPort)) << "no ports " << nearPort << " and " << farPort;
        std::size_t left = 0;
        for (std::size_t before = 1; std::exchange(before, left) != left;) {
            std::this_thread::sleep_for(50ms);
            left = nearEnd.HeardBytes() + farEnd.HeardBytes();
        }
        ::SHDeleteKeyA(HKEY_CURRENT_USER, keyName);
        std::filesystem::remove_all(LogPath());
    }
    // The program has to end when its window is closed
    void TearDown() override {
        EXPECT_TRUE(!program.HasStarted() || program.Close() == 0U) << "closing the window doesn't end the program";
        ::SHDeleteKeyA(HKEY_CURRENT_USER, keyName);
        std::filesystem::remove_all(LogPath());
    }

    // Lets counters be there from now on.
    void PlayCounters(const std::vector<std::uint8_t>& addresses, bool timeStandsStill = false) {
        counters = std::make_unique<CCounterPlayer>(addresses, timeStandsStill);
        Need(counters->Play(farPort), "port for the counters");
    }
    // On the near port, unless the test has stored another one. Without it the test ends as failed.
    void StartProgram() {
        if (!Stored("COM")) Store("COM", nearNumber);
        Need(program.Start(), "window of the program");
    }
    void StartPolling() {
        if (!program.IsRunning()) StartProgram();
        const std::string former = program.Text(IDC_START);
        program.Click(IDC_START);
        Need(Await([&] { return program.Text(IDC_START) != former; }), "polling");
    }
    void StopPolling() {
        program.Click(IDC_START);
        EXPECT_TRUE(Await([this] { return program.IsEnabled(IDC_UPDATE); })) << "polling hasn't stopped";
        EXPECT_TRUE(counters->AwaitSilence()) << "polls go on";
    }

    void ExpectText(int id, const std::string& text) const {
        EXPECT_TRUE(Await([&] { return program.Text(id) == text; }))
            << "control " << id << " reads \"" << program.Text(id) << "\", not \"" << text << '"';
    }
    // The texts of the visible address buttons, parted by blanks.
    void ExpectAddressButtons(const std::string& addresses) const {
        std::string shown;
        EXPECT_TRUE(Await([&] {
            shown.clear();
            for (int id = IDC_ADDRESS_BUTTON_FIRST; id <= IDC_ADDRESS_BUTTON_LAST; ++id) {
                if (program.IsVisible(id)) shown += (shown.empty() ? "" : " ") + program.Text(id);
            }
            return shown == addresses;
        })) << "shown are \""
            << shown << "\", not \"" << addresses << '"';
    }
    void ExpectTotals(std::size_t sent, std::size_t received) const {
        char text[64]{};
        std::snprintf(text, sizeof text, "TX:%6zu    RX:%6zu", sent, received);
        ExpectText(IDC_TOTALS_LABEL, text);
    }
    // Polls reach the wire, and what they bring reaches the displays, if the counter at the address is the one shown.
    void ExpectPollingGoesOn(std::uint8_t address = 0) {
        EXPECT_TRUE(counters->AwaitFrames(1)) << "no polls";
        ++lastCount;
        counters->Count(address, lastCount, lastCount / 2);
        ExpectText(IDC_IN_DISPLAY, std::to_string(lastCount));
        ExpectText(IDC_OUT_DISPLAY, std::to_string(lastCount / 2));
    }

    // The program's stored values; Stored takes numbers only.
    static void Store(const std::string& name, DWORD type, const std::string& bytes) {
        ::SHSetValueA(HKEY_CURRENT_USER, keyName, name.c_str(), type, bytes.data(), static_cast<DWORD>(bytes.size()));
    }
    static void Store(const std::string& name, DWORD value) {
        Store(name, REG_DWORD, std::string(reinterpret_cast<const char*>(&value), sizeof value));
    }
    static std::optional<DWORD> Stored(const std::string& name) {
        DWORD type = 0, value = 0, length = sizeof value;
        const LSTATUS status = ::SHGetValueA(HKEY_CURRENT_USER, keyName, name.c_str(), &type, &value, &length);
        return status == ERROR_SUCCESS && type == REG_DWORD ? std::optional(value) : std::nullopt;
    }

    static std::string LogPath() { return CProgram::Folder() + "Quorvane.log"; }
    static std::string LogText() {
        std::ifstream file(LogPath(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    const std::string nearPort = TestPort('A'); // the program's end of the cable
    const std::string farPort = TestPort('B');  // the counters'
    const DWORD nearNumber = static_cast<DWORD>(std::stoul(nearPort.substr(3)));
    CProgram program;
    std::unique_ptr<CCounterPlayer> counters;

private:
    // Without it the rest of the test makes no sense, whoever called for it: what is thrown ends the test as failed.
    static void Need(bool given, const char* what) {
        if (!given) throw std::runtime_error(std::string("no ") + what);
    }

    static constexpr char keyName[] = "SOFTWARE\\BRENHOLT\\QV";
    int lastCount = 1000;
};
