// Opening and closing a port beside a driver that takes its time, and beside the thread of the transfers.
#include "serial/PortSelection.h"

#include <cstdlib>
#include <functional>
#include <future>
#include <new>

#include "SimulatedPlatform.h"
#include "TapRecorder.h"
#include "serial/CommPort.h"

namespace {

// What a driver still works on; whether that memory was freed.
std::atomic<const void*> heldBlock, heldBytes;
std::atomic<bool> wasFreed = false;

} // namespace

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
    std::future<std::int32_t> Begin(std::function<std::int32_t()> transfer) {
        auto result = std::async(std::launch::async, std::move(transfer));
        EXPECT_TRUE(Eventually([&] { return platform.pending != nullptr || platform.holding != 0; }));
        return result;
    }

    CSimulatedPlatform platform;
    CCommPort port{platform};
    char buffer[8] = "abc";
    std::uint32_t count = 99;
    const std::function<std::int32_t()> transfers[3] = {
        [&] { return port.Read(buffer, 8, &count, nullptr, INFINITE); },
        [&] { return port.Write(buffer, 3, &count, nullptr, INFINITE); },
        [&] { return count = 0, port.WaitForEvent(nullptr, INFINITE); },
    };
    static constexpr std::uint32_t shortLimit = 150; // three of them are below CCommPort::configureLimit
};

// Whether the port closes although something else is stuck: what is stuck ends only afterwards.
bool Closes(CCommPort& port) {
    const DWORD begun = ::GetTickCount();
    EXPECT_EQ(port.Close(), 0);
    return ::GetTickCount() - begun < 8000;
}

} // namespace

TEST_F(PortOpening, AClosingEndsATransferAtOnce) {
    for (const auto& transfer : transfers) {
        OpenWith(Transfers::EndWhenCancelled);
        auto result = Begin(transfer);
        EXPECT_EQ(port.Close(), 0);
        EXPECT_EQ(result.get(), ERROR_OPERATION_ABORTED);
        EXPECT_EQ(count, 0U);
        EXPECT_TRUE(platform.HandlesEnd());
        EXPECT_EQ(platform.purged, 15U) << "what isn't sent would hold the closing up";
    }
    EXPECT_STREQ(buffer, "abc");
}

TEST_F(PortOpening, AnEndlessTransferKeepsItsMemory) {
    for (const auto& transfer : transfers) {
        OpenWith(Transfers::NeverEnd);
        platform.pendingBytes = nullptr;
        auto result = Begin(transfer);
        heldBlock = platform.pending.load();
        heldBytes = platform.pendingBytes;
        EXPECT_NE(heldBytes, buffer) << "written to after the return";
        EXPECT_EQ(port.Close(), 0);
        EXPECT_EQ(result.get(), ERROR_OPERATION_ABORTED);
        EXPECT_TRUE(platform.HandlesEnd());
        EXPECT_FALSE(wasFreed);
        heldBlock = heldBytes = nullptr;
        platform.pending = nullptr;
    }
    EXPECT_STREQ(buffer, "abc");
    OpenWith(Transfers::NeverEnd);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, 1), ERROR_TIMEOUT);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), ERROR_BUSY);
    EXPECT_EQ(port.Close(), 0);
    platform.pending = nullptr;
    OpenWith(Transfers::EndAtOnce);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), 0);
}

TEST_F(PortOpening, AClosingWaitsForNoDriverThatHoldsACall) {
    for (const Call call : {Call::CloseHandle, Call::CancelIoEx, Call::ReadFile, Call::SetCommState}) {
        SCOPED_TRACE(static_cast<int>(call));
        CTapRecorder tap;
        port.SetTap(&tap);
        OpenWith(Transfers::EndWhenCancelled);
        platform.held = call;
        auto read = Begin(transfers[0]);
        EXPECT_TRUE(call != Call::SetCommState || port.Configure(4800, 8, 0, 0) == ERROR_TIMEOUT);
        EXPECT_TRUE(Closes(port));
        EXPECT_FALSE(port.IsOpen());
        EXPECT_EQ(tap.Take(), "closed");
        EXPECT_NE(platform.OpenHandles(), 0U) << "the driver has the line";
        platform.held = Call::None;
        EXPECT_EQ(read.get(), ERROR_OPERATION_ABORTED);
        EXPECT_TRUE(platform.HandlesEnd());
        port.SetTap(nullptr);
    }
}

TEST_F(PortOpening, AClosingWaitsForNoTap) {
    struct CWaitingTap : CTapRecorder {
        void LogTransmitted(const void*, std::uint32_t) override { Wait(); }
        void LogReceived(const void*, std::uint32_t) override { Wait(); }
        void Wait() {
            isCalled.set_value();
            EXPECT_EQ(isClosed.get_future().wait_for(10s), std::future_status::ready);
        }
        std::promise<void> isCalled, isClosed;
    };
    for (const bool reads : {false, true}) {
        OpenWith(Transfers::EndAtOnce);
        CWaitingTap tap;
        port.SetTap(&tap);
        auto transfer = std::async(std::launch::async, transfers[reads ? 0 : 1]);
        tap.isCalled.get_future().wait();
        EXPECT_TRUE(Closes(port));
        tap.isClosed.set_value();
        EXPECT_EQ(transfer.get(), reads ? 0 : ERROR_INVALID_HANDLE);
        port.SetTap(nullptr);
    }
}

TEST_F(PortOpening, NoFrameGoesOutBeforeTheLineIsConfigured) {
    struct CWatchedPlatform : CSimulatedPlatform {
        BOOL WriteFile(HANDLE line, const void* buffer, DWORD count, DWORD* done, OVERLAPPED* overlapped) override {
            ++(state.BaudRate == 4800 ? right : wrong);
            return CSimulatedPlatform::WriteFile(line, buffer, count, done, overlapped);
        }
        BOOL GetDefaultCommConfigA(const char*, COMMCONFIG*, DWORD*) override {
            state.BaudRate = 1200;
            ::Sleep(5);
            return FALSE;
        }
        std::atomic<int> right = 0, wrong = 0;
    } watched;
    CCommPort opened(watched);
    std::atomic<bool> stops = false;
    std::thread worker([&] {
        while (!stops) opened.Write("abc", 3, nullptr, nullptr, INFINITE);
    });
    for (int round = 0; round < 10; ++round) {
        EXPECT_TRUE(OpenSelectedPort(opened, {}));
        EXPECT_TRUE(Eventually([&, before = watched.right.load()] { return watched.right != before; }));
        opened.Close();
    }
    stops = true;
    worker.join();
    EXPECT_EQ(watched.wrong, 0);
}

TEST_F(PortOpening, ADriverThatHoldsItIsLeftAlone) {
    for (const Call call : {Call::CreateFile, Call::SetCommState}) {
        SCOPED_TRACE(static_cast<int>(call));
        platform.held = call;
        platform.openings = 0;
        for (int press = 0; press < 3; ++press) {
            EXPECT_FALSE(OpenSelectedPort(port, {}, shortLimit));
            EXPECT_EQ(port.LastError(), ERROR_INVALID_HANDLE);
            EXPECT_FALSE(ProbePort("COM1", platform));
        }
        EXPECT_EQ(platform.openings, 1) << "the driver is called once more while it holds the first call";
        auto patient = std::async(std::launch::async, [&] { return OpenSelectedPort(port, {}, 20'000); });
        EXPECT_EQ(patient.wait_for(50ms), std::future_status::timeout);
        platform.held = Call::None;
        EXPECT_TRUE(patient.get());
        EXPECT_EQ(platform.openings, 2);
        port.Close();
        EXPECT_TRUE(platform.HandlesEnd()) << "a line that comes late is closed";
    }
}

TEST_F(PortOpening, ARefusalSoonAfterAClosingIsTriedAgain) {
    enum class Closed { Never, ByTheProbe, ByThePort };
    const struct {
        Closed closed;
        int refused, openings;
        bool opens;
    } rows[] = {{Closed::Never, 1, 1, false},
                {Closed::ByTheProbe, 2, 3, true},
                {Closed::ByThePort, 12, 13, true},
                {Closed::ByThePort, 99, 13, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
        CSimulatedPlatform refusing;
        CCommPort opened(refusing);
        if (row.closed == Closed::ByTheProbe) ProbePort("COM1", refusing);
        if (row.closed == Closed::ByThePort) OpenSelectedPort(opened, {}), opened.Close();
        refusing.openings = 0;
        refusing.refusedOpenings = row.refused;
        EXPECT_EQ(OpenSelectedPort(opened, {}), row.opens);
        EXPECT_EQ(refusing.openings, row.openings);
        EXPECT_EQ(refusing.slept, 50U * static_cast<DWORD>(row.openings - 1));
        EXPECT_EQ(opened.LastError(), row.opens ? 0 : ERROR_INVALID_HANDLE);
    }
}

TEST(MoveLine, TheLiveLineFollows) {
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
                {true, {5, 9600, 'O', 8, 1}, true, "closed", "COM5", 1, 0, 1},
                {true, {9, 9600, 'O', 8, 1}, true, "closed", "", 0, 0, 0},
                {false, {3, 9600, 'N', 8, 1}, false, "", "", 0, 0, 0},
                {false, {5, 9600, 'N', 8, 2}, true, "", "COM5", 0, 2, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
        CSimulatedPlatform platform;
        platform.names = {"COM3", "COM5"};
        CTapRecorder tap;
        CCommPort port(platform);
        port.SetTap(&tap);
        EXPECT_TRUE(!row.open || OpenSelectedPort(port, from));
        platform.openings = 0;
        EXPECT_EQ(MoveLine(port, from, row.to), row.moved);
        EXPECT_EQ(tap.Take(), row.told);
        EXPECT_EQ(platform.openings, row.opened);
        ASSERT_EQ(port.IsOpen(), *row.path != '\0');
        if (!port.IsOpen()) continue;
        EXPECT_EQ(platform.path, row.path);
        const DCB& state = platform.state;
        EXPECT_TRUE(static_cast<int>(state.BaudRate) == row.to.baudRate && state.ByteSize == row.to.dataBits);
        EXPECT_TRUE(state.Parity == row.parity && state.StopBits == row.stopBits);
    }
}

TEST(FindPorts, ASearchEndsAlthoughOneProbeIsHeld) {
    const auto lets = std::make_shared<std::promise<void>>();
    const auto found = FindPorts([held = lets->get_future().share()](const std::string& name) {
        if (name == "COM2") held.wait();
        return name.size() == 4;
    });
    EXPECT_EQ(found, (std::vector<std::int32_t>{1, 3, 4, 5, 6, 7, 8, 9}));
    lets->set_value();
}
