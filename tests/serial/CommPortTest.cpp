// The port over drivers of all kinds: random operations against a model, and what a call hands over and answers.
#include "serial/CommPort.h"

#include <array>
#include <cstring>
#include <tuple>

#include "SimulatedPlatform.h"
#include "support/Seed.h"

namespace {

using Tells = CSimulatedPlatform::Tells;
using Transfers = CSimulatedPlatform::Transfers;

struct CommPort : testing::Test {
    CSimulatedPlatform platform;
    CTapRecorder tap;
    CCommPort port{platform};
    char buffer[8] = "abc";
    std::uint32_t count = 99;
};

TEST_F(CommPort, DoesTheSameOverAnyDriver) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
    bool open = false, overlapped = false, atOnce = false;
    DWORD errors = 0, mask = 0; // error bits not taken yet
    port.SetTap(&tap);
    for (int step = 0; step < 5000 && !HasFailure(); ++step) {
        // How the driver is from now on.
        platform.tells = static_cast<Tells>(below(2) * below(3));
        const bool isMute = platform.tells == Tells::Error;
        platform.transfers = open && overlapped && below(2) == 0 ? Transfers::EndWhenAwaited : Transfers::EndAtOnce;
        platform.takesAtMost = below(3) == 0 ? MAXDWORD : 1 + below(9);
        platform.abortsOnError = !isMute;
        platform.modemLines = below(16) << 4;
        platform.events = below(512);
        platform.received += std::string(below(6), static_cast<char>('a' + below(26)));
        const DWORD bit = open && below(3) == 0 ? 1U << below(4) : 0;
        errors |= bit, platform.errors |= bit;
        std::memset(&platform.state, static_cast<int>(below(256)), sizeof platform.state);
        platform.state.XonChar = 0x11, platform.state.XoffChar = 0x13;
        platform.slept = platform.purged = 0;
        platform.written.clear();
        tap.told.clear();

        const unsigned operation = below(18), failing = operation < 17 && below(3) == 0 ? 1 + below(8) : 0;
        platform.failingCall = static_cast<int>(failing);
        SCOPED_TRACE(testing::Message() << "step " << step << ", operation " << operation << ", failing " << failing);
        const DCB former = platform.state;
        DCB changed = former;
        const bool wasOpen = open;
        const std::string waiting = platform.received, text(below(20), static_cast<char>('A' + below(26)));
        const auto size = static_cast<std::uint32_t>(text.size());
        std::uint32_t* const counter = below(4) == 0 ? nullptr : &count;
        const DWORD limit = below(2) == 0 ? 9000 : INFINITE;
        const std::int32_t ready = open ? 0 : ERROR_INVALID_HANDLE;
        const std::int32_t transferReady = open && !overlapped && limit != INFINITE ? ERROR_INVALID_FUNCTION : ready;
        std::int32_t expected = ready, answer = 0;
        std::string told, got(8, '.'), read = got; // what comes of a read
        bool mayPassOver = false;                  // one call that fails
        count = 99;
        switch (operation) {
        case 0:
        case 1:
            mayPassOver = true;
            expected = open ? ERROR_ALREADY_INITIALIZED : 0;
            platform.isByDefault = false;
            answer = port.Open("COM12", 0, size % 2, size > 5);
            if (wasOpen || !port.IsOpen()) break;
            overlapped = size > 5, atOnce = true, errors = platform.errors;
            EXPECT_TRUE(platform.path == R"(\\.\COM12)" && (platform.openFlags == FILE_FLAG_OVERLAPPED) == overlapped);
            EXPECT_TRUE(failing != 0 || (port.GetEventMask() == 0xC1 && platform.isByDefault));
            mask = port.GetEventMask();
            break;
        case 2:
            mayPassOver = true;
            answer = port.Close();
            expected = 0;
            told = open ? "closed " : "";
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
            answer = port.SetEventMask(size);
            if (answer == 0) mask = size;
            EXPECT_TRUE(answer != 0 || platform.mask == mask);
            break;
        case 6:
        case 7:
        case 8:
            mayPassOver = true;
            answer = port.Write(text.data(), size, counter, nullptr, limit);
            expected = transferReady;
            told = "T" + std::to_string(size) + ' ';
            EXPECT_TRUE(answer == 0 ? platform.written == text : text.starts_with(platform.written));
            EXPECT_EQ(count, counter == nullptr ? 99 : answer == 0 ? size : 0);
            break;
        case 9:
        case 10:
        case 11: {
            mayPassOver = true;
            answer = port.Read(got.data(), 1 + size % 8, counter, nullptr, limit);
            // A read that may block asks the driver only for what it has told.
            const bool asks = overlapped || !atOnce || (platform.tells == Tells::HowMuchWaits && !waiting.empty());
            expected = transferReady != 0 ? transferReady : !asks && isMute ? ERROR_IO_DEVICE : 0;
            const std::size_t most = answer == 0 && asks ? std::min<std::size_t>(1 + size % 8, waiting.size()) : 0;
            if (failing == 0) read.replace(0, most, waiting, 0, most);
            if (failing != 0 && answer == 0) read = got;
            EXPECT_TRUE(counter == nullptr ? count == 99 : failing != 0 ? answer == 0 || count == 0 : count == most);
            told = answer == 0 ? "R" + std::to_string(8 - std::ranges::count(got, '.')) + ' ' : "";
            break;
        }
        case 12:
            mayPassOver = true;
            answer = port.WaitForEvent(nullptr, limit);
            expected = transferReady;
            EXPECT_EQ(port.TakeEvents(), answer == 0 ? platform.events & mask : 0);
            EXPECT_EQ(port.TakeEvents(), 0U);
            break;
        case 13: {
            const std::uint32_t bits = port.TakeErrors();
            answer = port.LastError();
            expected = open && isMute ? ERROR_IO_DEVICE : ready;
            EXPECT_EQ(bits, answer == 0 ? std::exchange(errors, 0) : 0);
            break;
        }
        case 14:
        case 15: {
            const bool isMode = operation == 14;
            COMMTIMEOUTS set{below(2) != 0 ? MAXDWORD : 0, isMode ? 0 : below(2), isMode ? 0 : below(2), 4, 5};
            const std::int32_t mode = below(4) == 0 ? 2 : set.ReadIntervalTimeout == 0;
            answer = isMode ? port.SetReadMode(mode) : port.SetTimeouts(&set);
            if (open && isMode && mode == 2) expected = E_INVALIDARG;
            if (answer != 0) break;
            atOnce = set.ReadIntervalTimeout != 0 && set.ReadTotalTimeoutMultiplier + set.ReadTotalTimeoutConstant == 0;
            EXPECT_EQ(std::memcmp(&platform.timeouts, &set, sizeof set), 0);
            break;
        }
        case 16:
            mayPassOver = size % 2 == 0;
            answer = mayPassOver ? port.SendBreak() : port.Purge();
            EXPECT_EQ(platform.slept, open && mayPassOver ? 100U : 0U);
            EXPECT_EQ(platform.purged, answer != 0 || mayPassOver ? 0U : PURGE_TXCLEAR | PURGE_RXCLEAR);
            break;
        default: {
            const auto fill = static_cast<std::uint8_t>(former.EvtChar);
            const std::array<std::int64_t, 5> is{port.GetBaudRate(), port.GetDataBits(), port.GetParity(),
                                                 port.GetStopBits(), port.GetEventChar()};
            EXPECT_EQ(is, open ? (std::array<std::int64_t, 5>{static_cast<std::int32_t>(former.BaudRate), fill,
                                                              former.fParity ? fill : 0, fill, fill})
                               : (std::array<std::int64_t, 5>{-1, -1, -1, -1, 0}));
            const DWORD lines = port.GetCts() * 0x10U + port.GetDsr() * 0x20U + port.GetRing() * 0x40U;
            EXPECT_EQ(lines + port.GetRlsd() * 0x80U, open ? platform.modemLines : 0);
            answer = port.LastError();
        }
        }
        EXPECT_TRUE(operation < 2 || port.LastError() == answer);
        const bool wasHit = failing != 0 && platform.failingCall == 0;
        platform.failingCall = 0;
        EXPECT_TRUE(wasHit ? answer == ERROR_IO_DEVICE ||
                                 (mayPassOver && (answer == expected || answer == ERROR_OPERATION_ABORTED))
                           : answer == expected)
            << answer << ", not " << expected;
        EXPECT_EQ(got, read);
        EXPECT_EQ(std::memcmp(&platform.state, answer == 0 ? &changed : &former, sizeof changed), 0);
        open = port.IsOpen();
        const bool mayBeOpen = operation < 2 && wasHit && !wasOpen && answer != 0; // the read mode may fail last
        EXPECT_TRUE(tap.told == told || (mayBeOpen && tap.told == "closed ")) << tap.told << ", not " << told;
        EXPECT_TRUE(mayBeOpen || open == (operation < 2 || (operation > 2 && wasOpen)));
        EXPECT_EQ(port.GetEventMask(), open ? mask : 0);
        EXPECT_TRUE(platform.HandlesBecome(open ? overlapped ? 4 : 2 : 0));
    }
}

TEST_F(CommPort, FlowControlChangesItsMembersAlone) {
    using Row = std::tuple<int, int, std::uint32_t>; // mode, each byte of the state before, the flags then
    const Row handshakings[] = {
        Row{0, 0, 0},           Row{1, 0, 0x202C}, Row{2, 0, 0x0300}, Row{0, 255, 0xFFFFCCC3}, Row{1, 255, 0xFFFFECEF},
        Row{2, 255, 0xFFFFCFC3}};
    EXPECT_TRUE(port.SetHandshaking(3) == ERROR_INVALID_HANDLE && port.GetHandshaking() == -1);
    port.Open("COM1", 0, 0, true);
    for (const auto& [mode, fill, then] : handshakings) {
        std::memset(&platform.state, fill, sizeof platform.state);
        EXPECT_EQ(port.SetHandshaking(mode), 0);
        EXPECT_EQ(std::memcmp(reinterpret_cast<const char*>(&platform.state) + 8, &then, sizeof then), 0);
        EXPECT_EQ(port.GetHandshaking(), mode);
    }
    EXPECT_TRUE(port.SetHandshaking(3) == E_INVALIDARG && port.SetHandshaking(-1) == E_INVALIDARG);
    EXPECT_TRUE(port.SetEventChar('x', true) == 0 && platform.mask == (0xC1U | EV_RXFLAG));
    platform.refusesEqualCharacters = true; // for XON and XOFF, as some drivers do
    for (const char xon : {'\0', '\x13'}) {
        platform.state = {};
        platform.state.XonChar = xon;
        EXPECT_EQ(port.Configure(4800, 8, 0, 0), 0);
        EXPECT_TRUE(platform.state.XonChar == (xon == 0 ? 0x11 : xon) &&
                    platform.state.XoffChar == (xon == 0 ? 0x13 : 0));
    }
}

TEST_F(CommPort, LimitsAndTheCallersOwnBlocks) {
    port.Open("COM1", 0, 0, true);
    platform.transfers = Transfers::EndWhenCancelled;
    EXPECT_EQ(port.Write("abc", 3, &count, nullptr, 20), ERROR_TIMEOUT);
    EXPECT_TRUE(platform.pending == nullptr && count == 0);
    EXPECT_EQ(port.WaitForEvent(nullptr, 1), ERROR_TIMEOUT);
    platform.received = "0123456789";
    platform.passesBeforeCancel = 2;
    EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, 1), ERROR_TIMEOUT) << "it has told, and doesn't hand over";
    for (const Tells tells : {Tells::Nothing, Tells::Error}) { // what a driver has without telling
        platform.tells = tells;
        EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), 0);
        EXPECT_EQ(std::string(buffer, count), tells == Tells::Nothing ? "23" : "45");
    }
    OVERLAPPED own{};
    own.hEvent = platform.CreateEventA(nullptr, TRUE, FALSE, nullptr);
    EXPECT_EQ(port.Read(buffer, 8, &count, &own, 0), 0);
    EXPECT_TRUE(count == 0 && platform.pending == &own) << "stays pending in the caller's hands";
    platform.EndPending(0);
    platform.transfers = Transfers::EndAtOnce;
    for (platform.takesAtMost = 3; platform.takesAtMost-- > 0;) {
        EXPECT_EQ(port.WriteString("part", &count, platform.takesAtMost == 0 ? nullptr : &own, 0), 0);
        EXPECT_EQ(count, platform.takesAtMost) << "the rest is the caller's";
        EXPECT_EQ(::WaitForSingleObject(own.hEvent, 0), WAIT_OBJECT_0);
    }
    platform.CloseHandle(own.hEvent);
}

} // namespace
