// Opening and closing a port beside a driver that takes its time, and beside the thread of the transfers.
#include "serial/PortSelection.h"

#include <cstdlib>
#include <functional>
#include <future>

#include "serial/CommPort.h"
#include "SimulatedPlatform.h"

// What a driver still works on, and whether that memory was freed.
static std::atomic<const void*> heldBlock, heldBytes;
static std::atomic<bool> wasFreed = false;

void* operator new(std::size_t size) {
    if (void* const memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    if (memory != nullptr && (memory == heldBlock || memory == heldBytes)) wasFreed = true;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

using namespace std::chrono_literals;
using Call = CSimulatedPlatform::Call;
using Transfers = CSimulatedPlatform::Transfers;

struct PortOpening : testing::Test {
    void OpenWith(Transfers kind) {
        ASSERT_TRUE(port.Open("COM1", 0, 0, true) == 0 && port.SetReadMode(1) == 0);
        platform.transfers = kind;
    }
    // Begins a transfer on a thread of its own; returns when the driver has it.
    std::future<std::int32_t> Begin(const std::function<std::int32_t()>& transfer) {
        auto result = std::async(std::launch::async, transfer);
        EXPECT_TRUE(Eventually([&] { return platform.pending != nullptr || platform.holding != 0; }));
        return result;
    }

    CSimulatedPlatform platform;
    CTapRecorder tap;
    CCommPort port{platform};
    char buffer[8] = "abc";
    std::uint32_t count = 99;
    const std::function<std::int32_t()> transfers[3] = {
        [&] { return port.Read(buffer, 8, &count, nullptr, INFINITE); },
        [&] { return port.Write(buffer, 3, &count, nullptr, INFINITE); },
        [&] { return count = 0, port.WaitForEvent(nullptr, INFINITE); },
    };
};

TEST_F(PortOpening, AClosingEndsATransferAndLeavesItsMemoryToTheDriver) {
    for (const Transfers kind : {Transfers::EndWhenCancelled, Transfers::NeverEnd}) {
        for (const auto& transfer : transfers) {
            OpenWith(kind);
            auto result = Begin(transfer);
            EXPECT_NE(platform.pendingBytes, buffer) << "written to after the return";
            if (kind == Transfers::NeverEnd) heldBlock = platform.pending, heldBytes = platform.pendingBytes;
            EXPECT_TRUE(port.Close() == 0 && result.get() == ERROR_OPERATION_ABORTED && count == 0);
            EXPECT_TRUE(platform.HandlesBecome(0) && !wasFreed);
            EXPECT_EQ(platform.purged, 15U) << "what isn't sent would hold the closing up";
            heldBlock = heldBytes = platform.pending = nullptr;
        }
    }
    OpenWith(Transfers::NeverEnd);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, 1), ERROR_TIMEOUT);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), ERROR_BUSY);
    heldBlock = platform.pending, heldBytes = platform.pendingBytes;
    platform.transfers = Transfers::EndAtOnce;
    platform.EndPending(0); // late
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), 0);
    heldBlock = heldBytes = nullptr;
    EXPECT_TRUE(wasFreed.exchange(false)) << "what came back is kept";
    EXPECT_EQ(port.Close(), 0);
    OpenWith(Transfers::EndAtOnce);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), 0);
}

TEST_F(PortOpening, AClosingWaitsForNoDriverAndNoTap) {
    for (const Call call : {Call::CloseHandle, Call::CancelIoEx, Call::ReadFile, Call::SetCommState}) {
        SCOPED_TRACE(static_cast<int>(call));
        port.SetTap(&tap);
        OpenWith(Transfers::EndWhenCancelled);
        platform.held = call;
        auto read = Begin(transfers[0]);
        EXPECT_TRUE(call != Call::SetCommState || port.Configure(4800, 8, 0, 0) == ERROR_TIMEOUT);
        const auto begun = std::chrono::steady_clock::now();
        EXPECT_EQ(port.Close(), 0);
        EXPECT_LT(std::chrono::steady_clock::now() - begun, 1500ms) << "half a second, and what a busy machine takes";
        EXPECT_EQ(std::exchange(tap.told, ""), "closed ");
        EXPECT_FALSE(port.IsOpen() || platform.openHandles == 0) << "the driver has the line";
        platform.held = Call::None;
        EXPECT_EQ(read.get(), ERROR_OPERATION_ABORTED);
        EXPECT_TRUE(platform.HandlesBecome(0));
    }
    struct CClosingTap : CTapRecorder { // as one that sends a message to the thread that closes
        explicit CClosingTap(CCommPort& closed) : port(closed) {}
        void LogTransmitted(const void*, std::uint32_t) override {
            auto closing = std::async(std::launch::async, [this] { return port.Close(); });
            EXPECT_EQ(closing.wait_for(10s), std::future_status::ready);
        }
        void LogReceived(const void* bytes, std::uint32_t size) override { LogTransmitted(bytes, size); }
        CCommPort& port;
    } closing(port);
    port.SetTap(&closing);
    OpenWith(Transfers::EndAtOnce);
    EXPECT_EQ(transfers[0](), 0);
    OpenWith(Transfers::EndAtOnce);
    EXPECT_EQ(transfers[1](), ERROR_INVALID_HANDLE);
    port.SetTap(nullptr);
}

TEST_F(PortOpening, ADriverThatHoldsItIsLeftAlone) {
    for (const Call call : {Call::CreateFile, Call::SetCommState}) {
        platform.held = call;
        platform.openings = 0;
        for (int press = 0; press < 3; ++press) // the three are below CCommPort::configureLimit
            EXPECT_FALSE(OpenSelectedPort(port, {}, 150) || ProbePort("COM1", platform));
        EXPECT_EQ(platform.openings, 1) << "the driver is called once more while it holds the first call";
        auto patient = std::async(std::launch::async, [&] { return OpenSelectedPort(port, {}, 20'000); });
        EXPECT_EQ(patient.wait_for(50ms), std::future_status::timeout);
        platform.held = Call::None;
        EXPECT_TRUE(patient.get() && platform.openings == 2 && port.Close() == 0);
        EXPECT_TRUE(platform.HandlesBecome(0)) << "a line that comes late is closed";
    }
}

TEST(PortSelection, ARefusalSoonAfterAClosingIsTriedAgain) {
    enum { Nobody, Probe, Port };
    for (const auto& [closedBy, refused, openings, code] :
         {std::tuple{Nobody, 1, 1, 2}, {Probe, 2, 3, 0}, {Port, 12, 13, 0}, {Port, 99, 13, 2}}) {
        CSimulatedPlatform platform;
        CCommPort port(platform);
        if (closedBy == Probe) ProbePort("COM1", platform);
        if (closedBy == Port) OpenSelectedPort(port, {}), port.Close();
        platform.openings = 0, platform.refusedOpenings = refused;
        EXPECT_EQ(OpenSelectedPort(port, {}), code == 0);
        EXPECT_TRUE(platform.openings == openings && platform.slept == 50U * static_cast<DWORD>(openings - 1));
        EXPECT_EQ(port.LastError(), code == 0 ? 0 : ERROR_INVALID_HANDLE);
        platform.refusedOpenings = code;
        EXPECT_EQ(CCommPort::CheckPort("COM1", platform), code);
    }
    CSimulatedPlatform broken;
    broken.failingCall = 1;
    EXPECT_TRUE(CCommPort::CheckPort("COM1", broken) == -1 && CCommPort::CheckPort("COM255") == 1);
}

TEST(PortSelection, TheLiveLineMoves) {
    const std::tuple<bool, PortSettings, const char*> rows[] = {
        // is open, moves there, and has this path then
        {true, {3, 9600, 'N', 8, 1}, "COM3"}, {true, {3, 4800, 'E', 7, 2}, "COM3"},
        {true, {5, 9600, 'O', 8, 1}, "COM5"}, {true, {9, 9600, 'O', 8, 1}, ""},
        {false, {3, 9600, 'N', 8, 1}, ""},    {false, {5, 9600, 'N', 8, 2}, "COM5"}};
    for (const auto& [open, to, path] : rows) {
        SCOPED_TRACE(testing::Message() << open << to.portNumber << to.parityLetter);
        // No frame of the other thread may go out on a line that isn't configured yet.
        struct CWatchedPlatform : CSimulatedPlatform {
            BOOL SetCommState(HANDLE line, DCB* changed) override {
                EXPECT_TRUE(port == nullptr || !port->IsOpen());
                return CSimulatedPlatform::SetCommState(line, changed);
            }
            CCommPort* port = nullptr;
        } platform;
        platform.names = {"COM3", "COM5"};
        CTapRecorder tap;
        CCommPort port(platform);
        port.SetTap(&tap);
        const PortSettings from{3, 4800, 'N', 8, 1};
        EXPECT_TRUE(!open || OpenSelectedPort(port, from));
        platform.openings = 0;
        const bool moves = to.portNumber != 3;
        if (moves) platform.port = &port;
        EXPECT_EQ(MoveLine(port, from, to), moves);
        EXPECT_EQ(tap.told, open && moves ? "closed " : "");
        EXPECT_EQ(platform.openings, moves && *path != '\0');
        ASSERT_EQ(port.IsOpen(), *path != '\0');
        const DCB& state = platform.state;
        EXPECT_TRUE(!port.IsOpen() || (platform.path == path && static_cast<int>(state.BaudRate) == to.baudRate &&
                                       state.ByteSize == to.dataBits && state.Parity == DcbParity(to.parityLetter) &&
                                       state.StopBits == DcbStopBits(to.stopBits)));
    }
}

TEST(PortSelection, ASearchEndsAlthoughOneProbeIsHeld) {
    std::promise<void> lets;
    CPortFinder finder([held = lets.get_future().share()](const std::string& name) {
        if (name == "COM2") held.wait();
        if (name.size() == 4) PauseThread(50);
        return name.size() == 4;
    });
    PauseThread(searchLimit + 50); // whoever waits is late itself
    EXPECT_EQ(finder.Await(), (std::vector<std::int32_t>{1, 3, 4, 5, 6, 7, 8, 9}));
    lets.set_value();
}

} // namespace
