// The port over drivers of all kinds: random operations against a model, each platform call failing in turn, and what
// is handed over.
#include "serial/CommPort.h"

#include <functional>
#include <tuple>

#include "SimulatedPlatform.h"
#include "support/Seed.h"
#include "TapRecorder.h"

namespace {

using Tells = CSimulatedPlatform::Tells;
using Transfers = CSimulatedPlatform::Transfers;

struct CommPort : testing::Test {
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

TEST_F(CommPort, DoesTheSameOverAnyDriver) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
    bool open = false, overlapped = false, atOnce = false;
    DWORD errors = 0, mask = 0; // error bits not taken yet
    port.SetTap(&tap);
    for (int step = 0; step < 4000 && !HasFailure(); ++step) {
        // How the driver is from now on.
        platform.tells = static_cast<Tells>(below(2) * below(3));
        const bool isMute = platform.tells == Tells::Error;
        platform.transfers = open && overlapped && below(2) == 0 ? Transfers::EndWhenAwaited : Transfers::EndAtOnce;
        platform.takesAtMost = below(3) == 0 ? MAXDWORD : 1 + below(9);
        platform.abortsOnError = !isMute;
        platform.modemLines = below(16) << 4;
        platform.received += std::string(below(6), static_cast<char>('a' + below(26)));
        if (open && below(3) == 0) {
            const DWORD bit = 1U << below(4);
            errors |= bit, platform.errors |= bit;
        }
        std::memset(&platform.state, static_cast<int>(below(256)), sizeof platform.state);
        platform.state.XonChar = 0x11, platform.state.XoffChar = 0x13;
        const DCB former = platform.state;
        DCB changed = former;
        const std::string waiting = platform.received;
        const bool wasOpen = open;
        platform.slept = platform.purged = 0;
        platform.written.clear();
        const auto failing = below(3) == 0 ? 1 + below(8) : 0;
        platform.failingCall = static_cast<int>(failing);

        const unsigned operation = below(18);
        SCOPED_TRACE(testing::Message() << "step " << step << ", operation " << operation << ", failing " << failing);
        const std::int32_t ready = open ? 0 : ERROR_INVALID_HANDLE;
        std::int32_t expected = ready, answer = 0;
        std::string told, text(below(20), static_cast<char>('A' + below(26)));
        std::function<void()> hasWorked = [] {}; // looks at what a call without any failure has done
        const DWORD limit = below(2) == 0 ? 9000 : INFINITE;
        const std::int32_t transferReady = open && !overlapped && limit != INFINITE ? ERROR_INVALID_FUNCTION : ready;
        const auto size = static_cast<std::uint32_t>(text.size());
        std::string got(8, '.');
        count = 99;
        switch (operation) {
        case 0:
        case 1: {
            const bool asks = below(3) != 0;
            answer = port.Open("COM12", 0, below(2), asks);
            expected = open ? ERROR_ALREADY_INITIALIZED : 0;
            if (open) break;
            if (port.IsOpen()) overlapped = asks, errors = platform.errors, atOnce = true;
            hasWorked = [&, asks] {
                EXPECT_EQ(platform.path, R"(\\.\COM12)");
                EXPECT_EQ(platform.openFlags, asks ? DWORD{FILE_FLAG_OVERLAPPED} : 0);
                EXPECT_EQ(mask = port.GetEventMask(), 0xC1U);
                EXPECT_EQ(platform.appliedConfig.dcb.BaudRate, 1200U);
                platform.appliedConfig = {};
            };
            break;
        }
        case 2:
            answer = port.Close();
            expected = 0;
            told = open ? "closed" : "";
            break;
        case 3:
            changed.BaudRate = below(100'000), changed.ByteSize = static_cast<BYTE>(5 + below(4));
            changed.Parity = static_cast<BYTE>(below(3)), changed.StopBits = static_cast<BYTE>(below(2) * 2);
            changed.fParity = changed.Parity != 0;
            answer = port.Configure(changed.BaudRate, changed.ByteSize, changed.Parity, changed.StopBits);
            break;
        case 4:
            changed.EvtChar = static_cast<char>(below(256));
            answer = port.SetEventChar(static_cast<std::uint8_t>(changed.EvtChar), false);
            break;
        case 5:
            count = below(512);
            answer = port.SetEventMask(count);
            if (answer == 0) mask = count;
            EXPECT_TRUE(answer != 0 || platform.mask == mask);
            break;
        case 6:
        case 7:
        case 8: {
            std::uint32_t* const counter = below(4) == 0 ? nullptr : &count;
            answer = port.Write(text.data(), size, counter, nullptr, limit);
            expected = transferReady;
            told = "T" + std::to_string(size);
            EXPECT_TRUE(text.starts_with(platform.written));
            EXPECT_EQ(count, counter == nullptr ? 99 : answer == 0 ? size : 0);
            EXPECT_TRUE(answer != 0 || platform.written == text) << platform.written;
            break;
        }
        case 9:
        case 10:
        case 11: {
            const unsigned capacity = 1 + below(8);
            answer = port.Read(got.data(), capacity, &count, nullptr, limit);
            // A read that may block asks the driver only for what it has told.
            const bool asksNothing =
                !overlapped && atOnce && (platform.tells != Tells::HowMuchWaits || waiting.empty());
            expected = transferReady != 0 ? transferReady : asksNothing && isMute ? ERROR_IO_DEVICE : 0;
            told = answer == 0 ? "R" + std::to_string(count) : "";
            EXPECT_TRUE(answer == 0 || (count == 0 && got == "........")) << count << got;
            hasWorked = [&, capacity, asksNothing] {
                const std::string read = asksNothing ? "" : waiting.substr(0, capacity);
                EXPECT_EQ(got, read + std::string(8 - read.size(), '.'));
                EXPECT_EQ(count, read.size());
            };
            break;
        }
        case 12:
            platform.events = below(512);
            answer = port.WaitForEvent(nullptr, limit);
            expected = transferReady;
            EXPECT_EQ(port.TakeEvents(), answer == 0 ? platform.events & mask : 0);
            EXPECT_EQ(port.TakeEvents(), 0U);
            break;
        case 13: {
            const std::uint32_t bits = port.TakeErrors();
            answer = port.LastError();
            expected = open && isMute ? ERROR_IO_DEVICE : ready;
            EXPECT_EQ(bits, answer == 0 ? errors : 0);
            if (answer == 0) errors = 0;
            break;
        }
        case 14: {
            const auto mode = static_cast<std::int32_t>(below(3));
            answer = port.SetReadMode(mode);
            expected = open && mode == 2 ? E_INVALIDARG : ready;
            if (answer == 0) atOnce = mode == 0;
            hasWorked = [&, mode] {
                const COMMTIMEOUTS& now = platform.timeouts;
                EXPECT_TRUE(now.ReadIntervalTimeout == (mode == 0 ? MAXDWORD : 0) &&
                            now.ReadTotalTimeoutMultiplier + now.ReadTotalTimeoutConstant == 0 &&
                            now.WriteTotalTimeoutMultiplier == 4 && now.WriteTotalTimeoutConstant == 5);
            };
            break;
        }
        case 15: {
            COMMTIMEOUTS set{below(3) != 0 ? MAXDWORD : 0, below(3) / 2, below(3) / 2, 4, 5};
            answer = port.SetTimeouts(&set);
            if (answer != 0) break;
            EXPECT_EQ(std::memcmp(&platform.timeouts, &set, sizeof set), 0);
            atOnce = set.ReadIntervalTimeout != 0 && set.ReadTotalTimeoutMultiplier + set.ReadTotalTimeoutConstant == 0;
            break;
        }
        case 16:
            answer = size % 2 == 0 ? port.Purge() : port.SendBreak();
            hasWorked = [&] {
                EXPECT_EQ(size % 2 == 0 ? platform.purged * 10 : platform.slept, size % 2 == 0 ? 120 : 100);
            };
            EXPECT_TRUE(open || platform.slept == 0);
            break;
        default: {
            const std::function<std::int64_t()> reads[] = {
                [&] { return port.GetBaudRate(); },  [&] { return port.GetDataBits(); },
                [&] { return port.GetParity(); },    [&] { return port.GetStopBits(); },
                [&] { return port.GetEventChar(); }, [&] { return port.GetCts(); },
                [&] { return port.GetDsr(); },       [&] { return port.GetRing(); },
                [&] { return port.GetRlsd(); },      [&] { return port.GetEventMask(); }};
            const DWORD lines = platform.modemLines;
            const std::int64_t values[] = {static_cast<std::int32_t>(former.BaudRate),
                                           former.ByteSize,
                                           former.fParity ? former.Parity : 0,
                                           former.StopBits,
                                           static_cast<std::uint8_t>(former.EvtChar),
                                           (lines & MS_CTS_ON) != 0,
                                           (lines & MS_DSR_ON) != 0,
                                           (lines & MS_RING_ON) != 0,
                                           (lines & MS_RLSD_ON) != 0,
                                           mask};
            const unsigned which = below(10);
            const std::int64_t value = reads[which]();
            answer = port.LastError();
            EXPECT_EQ(value, answer == 0 ? values[which] : which < 4 ? -1 : 0) << which;
        }
        }
        EXPECT_EQ(port.LastError(), answer);
        const bool wasHit = failing != 0 && platform.failingCall == 0;
        platform.failingCall = 0;
        EXPECT_TRUE(answer == expected || (wasHit && (answer == ERROR_IO_DEVICE || answer == ERROR_OPERATION_ABORTED)))
            << answer << ", not " << expected;
        open = port.IsOpen();
        if (answer == 0 && open && !wasHit) hasWorked();
        const bool mayBeOpen = operation < 2 && !wasOpen && answer != 0; // the read mode is the last that may fail
        EXPECT_TRUE(mayBeOpen || open == (operation < 2 || (operation > 2 && wasOpen)));
        if (answer != 0) changed = former;
        EXPECT_EQ(std::memcmp(&platform.state, &changed, sizeof changed), 0);
        const std::string said = tap.Take();
        EXPECT_TRUE(said == told || (mayBeOpen && said == "closed")) << said << ", not " << told;
        if (operation < 2 && wasHit) mask = port.GetEventMask();
        EXPECT_EQ(port.GetEventMask(), open ? mask : 0);
        EXPECT_TRUE(open ? platform.OpenHandles() == (overlapped ? 4U : 2U) : platform.HandlesEnd());
    }
}

TEST(CommPortCalls, EveryFailingCallIsReportedOrPassedOver) {
    // One letter a platform call: E reported, C reported with the port closed again, '.' passed over.
    constexpr std::uint32_t ever = INFINITE;
    const struct {
        const char *name, *outcomes;
        bool pends;
        std::function<std::int32_t(CCommPort&, char*)> act;
    } rows[] = {
        {"Open", "CCCC.EE..", false, [](auto& p, char*) { return p.Close(), p.Open("COM1", 0, 0, true); }},
        {"Open blocking", "CC.EE..", false, [](auto& p, char*) { return p.Open("COM1", 0, 0, false); }},
        {"Open with queues", "CCCCC.EE..", false, [](auto& p, char*) { return p.Open("COM1", 0, 9, true); }},
        {"Close", "......", false, [](auto& p, char*) { return p.Close(); }},
        {"Configure", "EE", false, [](auto& p, char*) { return p.Configure(9600, 8, 1, 0); }},
        {"SetEventChar", "EEE", false, [](auto& p, char*) { return p.SetEventChar('x', true); }},
        {"SetHandshaking", "EE", false, [](auto& p, char*) { return p.SetHandshaking(1); }},
        {"SetReadMode", "EE", false, [](auto& p, char*) { return p.SetReadMode(1); }},
        {"SendBreak", "..", false, [](auto& p, char*) { return p.SendBreak(); }},
        {"Write", ".E.", false, [](auto& p, char* b) { return p.Write(b, 3, nullptr, nullptr, ever); }},
        {"Read", ".E.", false, [](auto& p, char* b) { return p.Read(b, 8, nullptr, nullptr, ever); }},
        {"pending Write", ".EEE", true, [](auto& p, char* b) { return p.Write(b, 3, nullptr, nullptr, ever); }},
        {"pending Read", ".EEE", true, [](auto& p, char* b) { return p.Read(b, 8, nullptr, nullptr, ever); }},
        {"pending wait", "EE", true, [](auto& p, char*) { return p.WaitForEvent(nullptr, ever); }},
    };
    for (const auto& row : rows) {
        const std::string name = row.name, outcomes = std::string(row.outcomes) + '.'; // at last none fails
        for (std::size_t n = 1; n <= outcomes.size(); ++n) {
            SCOPED_TRACE(name + ", call " + std::to_string(n));
            CSimulatedPlatform platform;
            platform.received = "abcdef";
            platform.transfers = row.pends ? Transfers::EndWhenAwaited : Transfers::EndAtOnce;
            platform.state.XonChar = 0x11;
            {
                char buffer[8] = "abc";
                CCommPort port(platform);
                ASSERT_TRUE(name.starts_with("Open") || port.Open("COM1", 0, 0, true) == 0);
                platform.failingCall = static_cast<int>(n);
                const std::int32_t answer = row.act(port, buffer);
                EXPECT_EQ(platform.failingCall == 0, n < outcomes.size()) << "the number of calls";
                platform.failingCall = 0;
                EXPECT_EQ(answer, outcomes[n - 1] == '.' ? 0 : ERROR_IO_DEVICE);
                EXPECT_EQ(port.IsOpen(), name != "Close" && outcomes[n - 1] != 'C');
            }
            EXPECT_TRUE(platform.HandlesEnd());
        }
    }
}

TEST_F(CommPort, HandshakingAndEventCharacterChangeTheirMembersAlone) {
    const struct {
        int mode;
        std::uint32_t fromNone, fromAll;
    } handshakings[] = {{0, 0, 0xFFFFCCC3}, {1, 0x202C, 0xFFFFECEF}, {2, 0x0300, 0xFFFFCFC3}};
    EXPECT_EQ(port.SetHandshaking(3), ERROR_INVALID_HANDLE);
    EXPECT_EQ(port.GetHandshaking(), -1);
    port.Open("COM1", 0, 0, true);
    for (const auto& each : handshakings) {
        for (const int fill : {0x00, 0xFF}) {
            std::memset(&platform.state, fill, sizeof platform.state);
            EXPECT_EQ(port.SetHandshaking(each.mode), 0);
            EXPECT_EQ(Flags(), fill == 0 ? each.fromNone : each.fromAll) << each.mode;
            EXPECT_EQ(port.GetHandshaking(), each.mode);
        }
    }
    EXPECT_EQ(port.SetHandshaking(3), E_INVALIDARG);
    EXPECT_EQ(port.SetHandshaking(-1), E_INVALIDARG);
    EXPECT_EQ(port.SetEventChar('x', true), 0);
    EXPECT_EQ(platform.mask, 0xC1U | EV_RXFLAG);
    // Equal flow characters, which some drivers refuse.
    for (const auto& [xon, xoff, refuses, xonThen, xoffThen] :
         {std::tuple{0, 0, true, 0x11, 0x13}, {0, 0, false, 0, 0}, {1, 2, true, 1, 2}}) {
        platform.refusesEqualCharacters = refuses;
        platform.state = {};
        platform.state.XonChar = static_cast<char>(xon), platform.state.XoffChar = static_cast<char>(xoff);
        EXPECT_EQ(port.Configure(4800, 8, 0, 0), 0);
        EXPECT_EQ(platform.state.BaudRate, 4800U);
        EXPECT_TRUE(platform.state.XonChar == xonThen && platform.state.XoffChar == xoffThen) << xon << refuses;
    }
}

TEST_F(CommPort, LimitsAndTheCallersOwnBlocks) {
    port.SetTap(&tap);
    port.Open("COM1", 0, 0, true);
    platform.transfers = Transfers::EndWhenCancelled;
    EXPECT_EQ(port.Write("abc", 3, &count, nullptr, 20), ERROR_TIMEOUT);
    EXPECT_EQ(platform.pending, nullptr);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(port.WaitForEvent(nullptr, 1), ERROR_TIMEOUT);
    for (const Tells tells : {Tells::Nothing, Tells::Error}) { // what a driver has without telling
        platform.tells = tells;
        platform.received = "0123456789";
        platform.passesBeforeCancel = 2;
        EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), 0);
        EXPECT_EQ(std::string(buffer, count), "01");
    }
    platform.tells = Tells::HowMuchWaits;
    EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, 1), ERROR_TIMEOUT) << "it has told, and doesn't hand over";
    platform.takesAtMost = 0;
    platform.transfers = Transfers::EndAtOnce;
    EXPECT_EQ(port.WriteString("never", &count, nullptr, 9000), 0);
    EXPECT_EQ(count, 0U);
    tap.Take();

    OVERLAPPED own{};
    own.hEvent = platform.CreateEventA(nullptr, TRUE, FALSE, nullptr);
    platform.takesAtMost = 2;
    EXPECT_EQ(port.WriteString("part", &count, &own, 0), 0);
    EXPECT_EQ(count, 2U) << "the rest is the caller's";
    EXPECT_EQ(::WaitForSingleObject(own.hEvent, 0), WAIT_OBJECT_0);
    platform.transfers = Transfers::EndWhenCancelled;
    EXPECT_EQ(port.Read(buffer, 8, &count, &own, 0), 0) << "stays pending in the caller's hands";
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(platform.pending, &own);
    platform.EndPending(0);
    platform.isGone = true;
    EXPECT_EQ(port.WaitForEvent(&own, 0), ERROR_IO_DEVICE);
    platform.isGone = false;
    port.Close();
    EXPECT_EQ(tap.Take(), "T4 R0 closed");
    port.Open("COM1", 0, 0, false);
    EXPECT_EQ(port.Read(buffer, 8, &count, &own, INFINITE), ERROR_INVALID_FUNCTION);
    platform.CloseHandle(own.hEvent);
}

TEST(CommPortCalls, CheckPortTellsWhyNot) {
    CSimulatedPlatform platform;
    platform.names = {"COM1"};
    EXPECT_EQ(CCommPort::CheckPort("COM1", platform), 0);
    EXPECT_EQ(CCommPort::CheckPort("COM2", platform), 1);
    platform.refusedOpenings = 1;
    EXPECT_EQ(CCommPort::CheckPort("COM1", platform), 2);
    platform.isGone = true;
    EXPECT_EQ(CCommPort::CheckPort("COM1", platform), -1);
    EXPECT_EQ(platform.OpenHandles(), 0U);
}
