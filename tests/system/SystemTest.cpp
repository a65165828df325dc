#include "SystemTest.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

#include <shlwapi.h>

namespace {

constexpr char keyName[] = "SOFTWARE\\BRENHOLT\\QV";

// Without it the rest of the test makes no sense, whoever called for it: what is thrown ends the test as failed.
void Need(bool given, const char* what) {
    if (!given) throw std::runtime_error(std::string("no ") + what);
}

} // namespace

void SystemTest::SetUp() {
    for (const char* name : {"COM", "Language"}) {
        std::array<char, 64> bytes{};
        DWORD type = 0, length = sizeof bytes;
        if (::SHGetValueA(HKEY_CURRENT_USER, keyName, name, &type, bytes.data(), &length) == ERROR_SUCCESS) {
            formerValues[name] = {type, {bytes.data(), length}};
        }
    }
    ASSERT_EQ(::FindWindowA(nullptr, CProgram::title), nullptr) << "the program runs already";
    if (const char* const named = std::getenv("QUORVANE_TEST_PORT_A")) nearPort = named;
    if (const char* const named = std::getenv("QUORVANE_TEST_PORT_B")) farPort = named;
    nearNumber = static_cast<DWORD>(std::stoul(nearPort.substr(3)));
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

void SystemTest::TearDown() {
    EXPECT_TRUE(!program.IsRunning() || program.Close() == 0U) << "closing the window doesn't end the program";
    ::SHDeleteKeyA(HKEY_CURRENT_USER, keyName);
    for (const auto& [name, value] : formerValues) Store(name, value.first, value.second);
    std::filesystem::remove_all(LogPath());
}

void SystemTest::PlayCounters(const std::vector<std::uint8_t>& addresses) {
    counters = std::make_unique<CCounterPlayer>(addresses);
    Need(counters->Play(farPort), "port for the counters");
}

void SystemTest::StartProgram() {
    if (!Stored("COM")) Store("COM", nearNumber);
    Need(program.Start(), "window of the program");
}

void SystemTest::StartPolling() {
    if (!program.IsRunning()) StartProgram();
    program.Click(IDC_START);
    Need(Await([this] { return program.Text(IDC_START) == "Stop"; }), "polling");
}

void SystemTest::StopPolling() {
    program.Click(IDC_START);
    ExpectText(IDC_START, "Start");
    EXPECT_TRUE(counters->AwaitSilence()) << "polls go on";
}

void SystemTest::ExpectText(int id, const std::string& text) const {
    EXPECT_TRUE(Await([&] { return program.Text(id) == text; }))
        << "control " << id << " reads \"" << program.Text(id) << "\", not \"" << text << '"';
}

std::string SystemTest::ShownAddresses() const {
    std::string addresses;
    for (int id = IDC_ADDRESS_BUTTON_FIRST; id <= IDC_ADDRESS_BUTTON_LAST; ++id) {
        if (program.IsVisible(id)) addresses += (addresses.empty() ? "" : " ") + program.Text(id);
    }
    return addresses;
}

void SystemTest::ExpectAddressButtons(const std::string& addresses) const {
    EXPECT_TRUE(Await([&] { return ShownAddresses() == addresses; }))
        << "shown are \"" << ShownAddresses() << "\", not \"" << addresses << '"';
}

void SystemTest::ExpectTotals(std::size_t sent, std::size_t received) const {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "TX:%6zu    RX:%6zu", sent, received);
    ExpectText(IDC_TOTALS_LABEL, text.data());
}

void SystemTest::ExpectPollingGoesOn(std::uint8_t address) {
    EXPECT_TRUE(counters->AwaitFrames(1)) << "no polls";
    ++lastCount;
    counters->Count(address, lastCount, lastCount / 2);
    ExpectText(IDC_IN_DISPLAY, std::to_string(lastCount));
    ExpectText(IDC_OUT_DISPLAY, std::to_string(lastCount / 2));
}

void SystemTest::Store(const std::string& name, DWORD type, const std::string& bytes) {
    ::SHSetValueA(HKEY_CURRENT_USER, keyName, name.c_str(), type, bytes.data(), static_cast<DWORD>(bytes.size()));
}

void SystemTest::Store(const std::string& name, DWORD value) {
    Store(name, REG_DWORD, std::string(reinterpret_cast<const char*>(&value), sizeof value));
}

std::optional<DWORD> SystemTest::Stored(const std::string& name) {
    DWORD type = 0, value = 0, length = sizeof value;
    const LSTATUS status = ::SHGetValueA(HKEY_CURRENT_USER, keyName, name.c_str(), &type, &value, &length);
    return status == ERROR_SUCCESS && type == REG_DWORD ? std::optional(value) : std::nullopt;
}

std::string SystemTest::LogText() {
    std::ifstream file(LogPath(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<LogLine> SystemTest::LogLines() {
    static const std::regex form(R"((\d{4}/\d\d/\d\d \d\d:\d\d:\d\d): (TX|RX)-->((?:[0-9a-f]{2} )*))");
    const std::string text = LogText();
    std::vector<LogLine> lines;
    for (std::size_t at = 0, end = 0; at < text.size(); at = end + 2) {
        end = text.find("\r\n", at);
        const std::string line = text.substr(at, end - at);
        std::smatch parts;
        if (end == std::string::npos || !std::regex_match(line, parts, form)) {
            ADD_FAILURE() << "line " << lines.size() + 1 << " of the log: \"" << line << '"';
            break;
        }
        lines.push_back({parts[1], parts[2] == "TX", parts[3]});
    }
    return lines;
}
