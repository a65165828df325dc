// Opening and closing a port beside a driver that takes its time, and beside the thread of the transfers.
#include "serial/PortSelection.h"

#include <cstdlib>
#include <functional>
#include <future>

#include "SimulatedPlatform.h"
#include "serial/CommPort.h"

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
        ASSERT_EQ(port.Open("COM1", 0, 0, true), 0);
        ASSERT_EQ(port.SetReadMode(1), 0);
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

} // namespace

TEST_F(PortOpening, AClosingEndsATransferAndLeavesItsMemoryToTheDriver) {
    for (const Transfers kind : {Transfers::EndWhenCancelled, Transfers::NeverEnd}) {
        for (const auto& transfer : transfers) {
            OpenWith(kind);
            platform.pendingBytes = nullptr;
            auto result = Begin(transfer);
            EXPECT_NE(platform.pendingBytes, buffer) << "written to after the return";
            if (kind == Transfers::NeverEnd) heldBlock = platform.pending, heldBytes = platform.pendingBytes;
            EXPECT_EQ(port.Close(), 0);
            EXPECT_EQ(result.get(), ERROR_OPERATION_ABORTED);
            EXPECT_EQ(count, 0U);
            EXPECT_TRUE(platform.HandlesBecome(0) && !wasFreed);
            EXPECT_EQ(platform.purged, 15U) << "what isn't sent would hold the closing up";
            heldBlock = heldBytes = platform.pending = nullptr;
        }
    }
    OpenWith(Transfers::NeverEnd);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, 1), ERROR_TIMEOUT);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), ERROR_BUSY);
    EXPECT_EQ(port.Close(), 0);
    platform.pending = nullptr;
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
        EXPECT_EQ(port.Close(), 0);
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
        SCOPED_TRACE(static_cast<int>(call));
        platform.held = call;
        platform.openings = 0;
        for (int press = 0; press < 3; ++press) { // the three are below CCommPort::configureLimit
            EXPECT_FALSE(OpenSelectedPort(port, {}, 150));
            EXPECT_EQ(port.LastError(), ERROR_INVALID_HANDLE);
            EXPECT_FALSE(ProbePort("COM1", platform));
        }
        EXPECT_EQ(platform.openings, 1) << "the driver is called once more while it holds the first call";
        auto patient = std::async(std::launch::async, [&] { return OpenSelectedPort(port, {}, 20'000); });
        EXPECT_EQ(patient.wait_for(50ms), std::future_status::timeout);
        platform.held = Call::None;
        EXPECT_TRUE(patient.get() && platform.openings == 2);
        port.Close();
        EXPECT_TRUE(platform.HandlesBecome(0)) << "a line that comes late is closed";
    }
}

TEST(PortSelection, ARefusalSoonAfterAClosingIsTriedAgain) {
    const struct {
        const char* closedBy;
        int refused, openings;
        bool opens;
    } rows[] = {{"nobody", 1, 1, false}, {"probe", 2, 3, true}, {"port", 12, 13, true}, {"port", 99, 13, false}};
    for (const auto& row : rows) {
        CSimulatedPlatform platform;
        CCommPort port(platform);
        if (row.openings == 3) ProbePort("COM1", platform);
        if (row.openings == 13) OpenSelectedPort(port, {}), port.Close();
        platform.openings = 0;
        platform.refusedOpenings = row.refused;
        EXPECT_EQ(OpenSelectedPort(port, {}), row.opens) << row.closedBy;
        EXPECT_EQ(platform.openings, row.openings) << row.closedBy;
        EXPECT_EQ(platform.slept, 50U * static_cast<DWORD>(row.openings - 1));
        EXPECT_EQ(port.LastError(), row.opens ? 0 : ERROR_INVALID_HANDLE);
        platform.failingCall = row.refused == 99 ? 0 : 1;
        EXPECT_EQ(CCommPort::CheckPort("COM1", platform), row.refused == 99 ? 2 : -1);
    }
}

TEST(PortSelection, TheLiveLineMoves) {
    // What the tap is told, and the line afterwards: its path, empty where none is open, and what the DCB holds.
    const PortSettings from{3, 4800, 'N', 8, 1};
    const struct {
        bool open;
        PortSettings to;
        bool moved;
        const char *told, *path;
        int parity, stopBits, opened;
    } rows[] = {{true, {3, 9600, 'N', 8, 1}, false, "", "COM3", 0, 0, 0},
                {true, {3, 4800, 'E', 7, 2}, false, "", "COM3", 2, 2, 0},
                {true, {5, 9600, 'O', 8, 1}, true, "closed ", "COM5", 1, 0, 1},
                {true, {9, 9600, 'O', 8, 1}, true, "closed ", "", 0, 0, 0},
                {false, {3, 9600, 'N', 8, 1}, false, "", "", 0, 0, 0},
                {false, {5, 9600, 'N', 8, 2}, true, "", "COM5", 0, 2, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
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
        platform.port = &port;
        EXPECT_TRUE(!row.open || OpenSelectedPort(port, from));
        platform.openings = 0;
        if (row.open && !row.moved) platform.port = nullptr;
        EXPECT_EQ(MoveLine(port, from, row.to), row.moved);
        EXPECT_EQ(tap.told, row.told);
        EXPECT_EQ(platform.openings, row.opened);
        ASSERT_EQ(port.IsOpen(), *row.path != '\0');
        if (!port.IsOpen()) continue;
        const DCB& state = platform.state;
        EXPECT_TRUE(platform.path == row.path && static_cast<int>(state.BaudRate) == row.to.baudRate &&
                    state.ByteSize == row.to.dataBits && state.Parity == row.parity && state.StopBits == row.stopBits);
    }
    EXPECT_EQ(CCommPort::CheckPort("COM255"), 1);
}

TEST(PortSelection, ASearchEndsAlthoughOneProbeIsHeld) {
    const auto lets = std::make_shared<std::promise<void>>();
    const auto found = FindPorts([held = lets->get_future().share()](const std::string& name) {
        if (name == "COM2") held.wait();
        return name.size() == 4;
    });
    EXPECT_EQ(found, (std::vector<std::int32_t>{1, 3, 4, 5, 6, 7, 8, 9}));
    lets->set_value();
}
