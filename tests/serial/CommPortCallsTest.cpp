// What the port hands to the platform, and what becomes of each call that fails.
#include "serial/CommPort.h"

#include <functional>
#include <tuple>

#include "serial/PortSelection.h"
#include "SimulatedPlatform.h"
#include "TapRecorder.h"

namespace {

using Transfers = CSimulatedPlatform::Transfers;

struct CommPort : testing::Test {
    std::int32_t Open() { return port.Open("COM1", 0, 0, true); }
    std::uint32_t Flags() const {
        std::uint32_t flags = 0;
        std::memcpy(&flags, reinterpret_cast<const char*>(&platform.state) + 8, sizeof flags);
        return flags;
    }

    CSimulatedPlatform platform;
    CTapRecorder tap;
    CCommPort port{platform};
    char buffer[8] = "abc";
    std::uint32_t count = 99;
};

} // namespace

TEST(CommPortCalls, EveryFailingCallIsReportedOrPassedOver) {
    // One letter a platform call: E reported, C reported with the port closed again, '.' passed over.
    struct {
        const char* name;
        const char* outcomes;
        Transfers transfers;
        std::function<std::int32_t(CCommPort&, char*)> act;
    } const cases[] = {
        {"Open", "CCCC.EE..", {}, [](auto& p, char*) { return p.Close(), p.Open("COM1", 0, 0, true); }},
        {"Open blocking", "CC.EE..", {}, [](auto& p, char*) { return p.Open("COM1", 0, 0, false); }},
        {"Open with queues", "CCCCC.EE..", {}, [](auto& p, char*) { return p.Open("COM1", 0, 9, true); }},
        {"Close", "......", {}, [](auto& p, char*) { return p.Close(); }},
        {"Configure", "EE", {}, [](auto& p, char*) { return p.Configure(9600, 8, 1, 0); }},
        {"SetEventChar", "EEE", {}, [](auto& p, char*) { return p.SetEventChar('x', true); }},
        {"SetHandshaking", "EE", {}, [](auto& p, char*) { return p.SetHandshaking(1); }},
        {"SetReadMode", "EE", {}, [](auto& p, char*) { return p.SetReadMode(1); }},
        {"GetBaudRate", "E", {}, [](auto& p, char*) { return p.GetBaudRate() == -1 ? p.LastError() : 0; }},
        {"GetCts", "E", {}, [](auto& p, char*) { return p.GetCts() ? 0 : p.LastError(); }},
        {"TakeErrors", "E", {}, [](auto& p, char*) { return p.TakeErrors(), p.LastError(); }},
        {"Purge", "E", {}, [](auto& p, char*) { return p.Purge(); }},
        {"SendBreak", "..", {}, [](auto& p, char*) { return p.SendBreak(); }},
        {"Write", ".E.", {}, [](auto& p, char* b) { return p.Write(b, 3, nullptr, nullptr, INFINITE); }},
        {"Read", ".E.", {}, [](auto& p, char* b) { return p.Read(b, 8, nullptr, nullptr, INFINITE); }},
        {"pending Write", ".EEE", Transfers::EndWhenAwaited,
         [](auto& p, char* b) { return p.Write(b, 3, nullptr, nullptr, INFINITE); }},
        {"pending Read", ".EEE", Transfers::EndWhenAwaited,
         [](auto& p, char* b) { return p.Read(b, 8, nullptr, nullptr, INFINITE); }},
        {"pending WaitForEvent", "EE", Transfers::EndWhenAwaited,
         [](auto& p, char*) { return p.WaitForEvent(nullptr, INFINITE); }},
    };
    for (const auto& each : cases) {
        const std::string outcomes = each.outcomes;
        for (std::size_t n = 1; n <= outcomes.size() + 1; ++n) {
            SCOPED_TRACE(std::string(each.name) + ", call " + std::to_string(n));
            CSimulatedPlatform platform;
            platform.received = "abcdef";
            platform.transfers = each.transfers;
            platform.state.XonChar = 0x11;
            {
                char buffer[8] = "abc";
                CCommPort port(platform);
                const bool opensItself = std::string(each.name).starts_with("Open");
                const bool isClose = std::string(each.name) == "Close";
                if (!opensItself) {
                    ASSERT_EQ(port.Open("COM1", 0, 0, true), 0);
                }
                platform.failingCall = static_cast<int>(n);
                const std::int32_t result = each.act(port, buffer);
                const bool failed = n <= outcomes.size();
                const char outcome = failed ? outcomes[n - 1] : '.';
                EXPECT_EQ(platform.failingCall == 0, failed) << "the number of calls";
                platform.failingCall = 0;
                EXPECT_EQ(result, outcome == 'E' || outcome == 'C' ? ERROR_IO_DEVICE : 0);
                EXPECT_EQ(port.LastError(), result);
                EXPECT_EQ(port.IsOpen(), !isClose && (outcome == 'E' || outcome == '.'));
            }
            EXPECT_TRUE(platform.HandlesEnd());
        }
    }
}

TEST_F(CommPort, OpenHandsOverNameModeAndDefaults) {
    EXPECT_EQ(Open(), 0);
    EXPECT_EQ(platform.path, "COM1");
    EXPECT_EQ(platform.openFlags, static_cast<DWORD>(FILE_FLAG_OVERLAPPED));
    EXPECT_EQ(platform.mask, 0xC1U);
    EXPECT_EQ(platform.appliedConfig.dcb.BaudRate, 1200U);
    const COMMTIMEOUTS atOnce{MAXDWORD, 0, 0, 4, 5};
    EXPECT_EQ(std::memcmp(&platform.timeouts, &atOnce, sizeof atOnce), 0);
    EXPECT_EQ(port.Open("COM2", 0, 0, true), ERROR_ALREADY_INITIALIZED);
    EXPECT_EQ(platform.OpenHandles(), 4U);
    port.Close();
    EXPECT_EQ(port.Open("COM12", 0, 0, false), 0);
    EXPECT_EQ(platform.path, R"(\\.\COM12)");
    EXPECT_EQ(platform.openFlags, 0U);
}

TEST_F(CommPort, SettingsChangeTheirMembersOfTheDcbAlone) {
    for (const char parity : {'N', 'O', 'E'}) {
        for (const int fill : {0x00, 0xFF}) {
            std::memset(&platform.state, fill, sizeof platform.state);
            DCB expected = platform.state;
            expected.BaudRate = 9600;
            expected.ByteSize = 7;
            expected.Parity = static_cast<BYTE>(DcbParity(parity));
            expected.fParity = parity != 'N';
            expected.StopBits = 2;
            EXPECT_TRUE(OpenSelectedPort(port, {3, 9600, parity, 7, 2}));
            EXPECT_EQ(std::memcmp(&platform.state, &expected, sizeof expected), 0) << parity << fill;
            EXPECT_EQ(port.GetParity(), DcbParity(parity));
            port.Close();
        }
    }
    struct {
        int mode;
        std::uint32_t fromNone, fromAll;
        int readBack;
    } const handshakings[] = {{0, 0, 0xFFFFCCC3, 0}, {1, 0x202C, 0xFFFFECEF, 1}, {2, 0x0300, 0xFFFFCFC3, 2}};
    Open();
    for (const auto& each : handshakings) {
        for (const int fill : {0x00, 0xFF}) {
            std::memset(&platform.state, fill, sizeof platform.state);
            EXPECT_EQ(port.SetHandshaking(each.mode), 0);
            EXPECT_EQ(Flags(), fill == 0 ? each.fromNone : each.fromAll) << each.mode;
            EXPECT_EQ(port.GetHandshaking(), each.readBack);
        }
    }
    EXPECT_EQ(port.SetHandshaking(3), E_INVALIDARG);
    EXPECT_EQ(port.SetReadMode(2), E_INVALIDARG);
}

TEST_F(CommPort, ClosedPortAnswersInvalidHandle) {
    port.SetTap(&tap);
    COMMTIMEOUTS timeouts{};
    EXPECT_EQ(port.Close(), 0);
    EXPECT_EQ(tap.Take(), "");
    EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), ERROR_INVALID_HANDLE);
    EXPECT_EQ(tap.Take(), "");
    EXPECT_EQ(port.WriteString("hello", &count, nullptr, INFINITE), ERROR_INVALID_HANDLE);
    EXPECT_EQ(tap.Take(), "T5") << "reported although nothing goes out";
    EXPECT_EQ(count, 0U);
    for (const std::int32_t answer : {port.Configure(4800, 8, 0, 0), port.SetEventChar(1, true), port.SetEventMask(1),
                                      port.WaitForEvent(nullptr, INFINITE), port.SetHandshaking(7),
                                      port.SetTimeouts(&timeouts), port.SetReadMode(7), port.Purge(), port.SendBreak(),
                                      (port.GetEventMask(), port.LastError()), (port.GetRing(), port.LastError())})
        EXPECT_EQ(answer, ERROR_INVALID_HANDLE);
    EXPECT_EQ(port.GetBaudRate() + port.GetDataBits() + port.GetParity() + port.GetStopBits() + port.GetHandshaking(),
              -5);
    EXPECT_EQ(platform.slept, 0U);
}

TEST_F(CommPort, TransfersReportWhatPasses) {
    port.SetTap(&tap);
    Open();
    platform.transfers = Transfers::EndWhenCancelled;
    platform.errors = CE_FRAME;
    EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), 0);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(port.TakeErrors(), static_cast<DWORD>(CE_FRAME)) << "bits that the read has cleared";
    EXPECT_EQ(port.TakeErrors(), 0U);
    EXPECT_EQ(port.Write("abc", 3, &count, nullptr, 20), ERROR_TIMEOUT);
    EXPECT_FALSE(platform.HasPending());
    EXPECT_EQ(tap.Take(), "R0 T3");

    platform.transfers = Transfers::EndAtOnce;
    platform.received = "0123456789";
    EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), 0);
    EXPECT_EQ(std::string(buffer, count), "01234567");
    EXPECT_EQ(port.Write("abc", 3, &count, nullptr, INFINITE), 0) << "usable after a timeout";
    EXPECT_EQ(platform.written, "abcabc");
    EXPECT_EQ(port.WaitForEvent(nullptr, INFINITE), 0);
    EXPECT_EQ(port.TakeEvents(), static_cast<DWORD>(EV_BREAK)) << "EV_RING isn't in the mask";
    EXPECT_EQ(port.TakeEvents(), 0U);

    platform.transfers = Transfers::EndWhenCancelled;
    OVERLAPPED own{};
    own.hEvent = platform.CreateEventA(nullptr, TRUE, FALSE, nullptr);
    EXPECT_EQ(port.Read(buffer, 8, &count, &own, 0), 0) << "stays pending in the caller's hands";
    EXPECT_TRUE(platform.HasPending());
    platform.EndPending(0);
    EXPECT_EQ(tap.Take(), "R8 T3 R0");
    port.Close();
    EXPECT_EQ(tap.Take(), "closed");
    port.Open("COM1", 0, 0, false);
    EXPECT_EQ(port.Read(buffer, 8, &count, &own, INFINITE), ERROR_INVALID_FUNCTION);
    EXPECT_EQ(port.Write(buffer, 8, &count, nullptr, 5), ERROR_INVALID_FUNCTION);
    platform.CloseHandle(own.hEvent);
}

TEST_F(CommPort, ReadsWhatADriverHasWithoutTelling) {
    using Tells = CSimulatedPlatform::Tells;
    port.SetTap(&tap);
    Open();
    platform.passesBeforeCancel = 2;
    for (const Tells tells : {Tells::Nothing, Tells::Error}) {
        platform.tells = tells;
        platform.received = "0123456789";
        for (const auto& [transfers, read, told] : {std::tuple{Transfers::EndAtOnce, "01234567", "R8"},
                                                    {Transfers::EndAtOnce, "89", "R2"},
                                                    {Transfers::EndAtOnce, "", "R0"},
                                                    {Transfers::EndWhenCancelled, "xx", "R2"}}) {
            platform.transfers = transfers;
            EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), 0);
            EXPECT_EQ(std::string(buffer, count), read);
            EXPECT_EQ(tap.Take(), told);
        }
    }
}

TEST_F(CommPort, WritesTheWholeAndPastErrors) {
    Open();
    platform.abortsOnError = true;
    for (const auto& [atMost, text, sent] :
         {std::tuple{16U, "a frame of 19 bytes", "a frame of 19 bytes"}, {1U, "three", "three"}, {0U, "never", ""}}) {
        platform.errors = CE_FRAME;
        platform.takesAtMost = atMost;
        platform.written.clear();
        EXPECT_EQ(port.WriteString(text, &count, nullptr, 9000), 0);
        EXPECT_EQ(platform.written, sent);
        EXPECT_EQ(count, platform.written.size());
        EXPECT_EQ(port.TakeErrors(), static_cast<DWORD>(CE_FRAME));
    }
}

TEST_F(CommPort, EqualFlowCharactersAreChangedForADriverThatRefusesThem) {
    Open();
    for (const auto& [xon, xoff, refuses, xonThen, xoffThen] :
         {std::tuple{0, 0, true, 0x11, 0x13}, {0, 0, false, 0, 0}, {1, 2, true, 1, 2}}) {
        platform.refusesEqualCharacters = refuses;
        platform.state = {};
        platform.state.XonChar = static_cast<char>(xon);
        platform.state.XoffChar = static_cast<char>(xoff);
        EXPECT_EQ(port.Configure(4800, 8, 0, 0), 0);
        EXPECT_EQ(platform.state.BaudRate, 4800U);
        EXPECT_TRUE(platform.state.XonChar == xonThen && platform.state.XoffChar == xoffThen) << xon << refuses;
    }
}

TEST_F(CommPort, PulledAdapterFailsAtOnceAndComesBack) {
    port.SetTap(&tap);
    Open();
    platform.isGone = true;
    for (int poll = 0; poll < 2; ++poll) {
        EXPECT_EQ(port.Write("abc", 3, nullptr, nullptr, INFINITE), ERROR_IO_DEVICE);
        EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), ERROR_IO_DEVICE);
        EXPECT_EQ(count, 0U);
    }
    EXPECT_TRUE(port.IsOpen());
    EXPECT_EQ(port.Close(), 0);
    EXPECT_FALSE(OpenSelectedPort(port, {}));
    EXPECT_EQ(port.LastError(), ERROR_INVALID_HANDLE);
    platform.isGone = false;
    EXPECT_TRUE(OpenSelectedPort(port, {}));
    EXPECT_EQ(port.Write("abc", 3, nullptr, nullptr, INFINITE), 0);
    EXPECT_EQ(tap.Take(), "T3 T3 closed T3");
}
