#include "SystemTest.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "TrafficLog.h"

std::string TestPort::Name() const {
    const char* const named = std::getenv(variable);
    return named != nullptr ? named : otherwise;
}

DWORD TestPort::Number() const {
    return static_cast<DWORD>(std::strtoul(Name().c_str() + 3, nullptr, 10));
}

bool OpenTestPort(CCommPort& port, const TestPort& name) {
    return port.Open(name.Name().c_str(), 0, 0, true) == 0 && port.Configure(4800, 8, 0, 0) == 0;
}

void SystemTest::SetUp() {
    ASSERT_EQ(::FindWindowA(nullptr, CProgram::title), nullptr) << "the program runs already";
    CCommPort ends[2];
    ASSERT_TRUE(OpenTestPort(ends[0], nearPort) && OpenTestPort(ends[1], farPort))
        << "no ports " << nearPort.Name() << " and " << farPort.Name();
    // What an earlier program or counter has sent may still be under way.
    auto lastByte = Clock::now();
    ASSERT_TRUE(Await([&] {
        for (CCommPort& end : ends) {
            char part[512];
            std::uint32_t got = 0;
            end.Read(part, sizeof part, &got, nullptr, INFINITE);
            if (got > 0) lastByte = Clock::now();
        }
        return Clock::now() - lastByte > 50ms;
    })) << "the line doesn't fall silent";
    stored.Erase();
    std::filesystem::remove_all(LogPath());
}

void SystemTest::TearDown() {
    EXPECT_TRUE(!program.IsRunning() || program.Close() == 0U) << "closing the window doesn't end the program";
    std::filesystem::remove_all(LogPath());
}

void SystemTest::PlayCounters(const std::vector<std::uint8_t>& addresses) {
    counters = std::make_unique<CCounterPlayer>(addresses);
    ASSERT_TRUE(counters->Play()) << "no port " << farPort.Name();
}

void SystemTest::StartProgram(bool polling) {
    if (!stored.Get("COM")) stored.Set("COM", nearPort.Number());
    ASSERT_TRUE(program.Start());
    if (!polling) return;
    program.Click(IDC_START);
    ExpectText(IDC_START, "Stop");
}

void SystemTest::StopPolling() {
    program.Click(IDC_START);
    ExpectText(IDC_START, "Start");
    EXPECT_TRUE(counters->AwaitSilence()) << "polls go on";
}

void SystemTest::ExpectText(int id, const std::string& text, Clock::duration limit) const {
    EXPECT_TRUE(Await([&] { return program.Text(id) == text; }, limit))
        << "control " << id << " reads \"" << program.Text(id) << "\", not \"" << text << '"';
}

std::string SystemTest::ShownAddresses(const CProgram& shown) {
    std::string addresses;
    for (int id = IDC_ADDRESS_BUTTON_FIRST; id <= IDC_ADDRESS_BUTTON_LAST; ++id) {
        if (shown.IsVisible(id)) addresses += (addresses.empty() ? "" : " ") + shown.Text(id);
    }
    return addresses;
}

void SystemTest::ExpectAddressButtons(const std::string& addresses) const {
    EXPECT_TRUE(Await([&] { return ShownAddresses(program) == addresses; }))
        << "shown are \"" << ShownAddresses(program) << "\", not \"" << addresses << '"';
}

void SystemTest::ExpectTotals(std::size_t sent, std::size_t received) const {
    char text[64];
    std::snprintf(text, sizeof text, "TX:%6zu    RX:%6zu", sent, received);
    ExpectText(IDC_TOTALS_LABEL, text);
}

void SystemTest::ExpectPollingGoesOn(std::uint8_t address) {
    EXPECT_TRUE(counters->AwaitFrames(1)) << "no polls";
    ++lastCount;
    counters->Count(address, lastCount, lastCount / 2);
    ExpectText(IDC_IN_DISPLAY, std::to_string(lastCount));
    ExpectText(IDC_OUT_DISPLAY, std::to_string(lastCount / 2));
}
