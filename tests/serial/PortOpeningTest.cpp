// Opening a port beside a driver that takes its time, and beside the thread of the transfers.
#include "serial/PortSelection.h"

#include <chrono>
#include <future>
#include <thread>

#include "SimulatedPlatform.h"
#include "serial/CommPort.h"
#include "TimeFactor.h"

namespace {

using namespace std::chrono_literals;
using Call = CSimulatedPlatform::Call;
using Clock = std::chrono::steady_clock;

struct PortOpening : testing::Test {
    CSimulatedPlatform platform;
    CCommPort port{platform};
    static constexpr std::uint32_t shortLimit = 150; // three of them are below CCommPort::configureLimit
};

} // namespace

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
        for (const int before = watched.right; watched.right == before;) std::this_thread::yield();
        opened.Close();
    }
    stops = true;
    worker.join();
    EXPECT_EQ(watched.wrong, 0);
}

TEST_F(PortOpening, ADriverThatHoldsItCostsNoMoreThanTheLimit) {
    for (const Call call : {Call::CreateFile, Call::SetCommState}) {
        SCOPED_TRACE(static_cast<int>(call));
        platform.held = call;
        platform.openings = 0;
        const auto begun = Clock::now();
        for (int press = 0; press < 3; ++press) {
            EXPECT_FALSE(OpenSelectedPort(port, {}, shortLimit));
            EXPECT_EQ(port.LastError(), ERROR_INVALID_HANDLE);
            EXPECT_FALSE(ProbePort("COM1", platform));
        }
        EXPECT_LT(Clock::now() - begun, 750ms * TimeFactor());
        EXPECT_EQ(platform.openings, 1) << "the driver is called once more while it holds the first call";
        auto patient = std::async(std::launch::async, [&] { return OpenSelectedPort(port, {}); });
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
                {Closed::ByThePort, 2, 3, true},
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
        EXPECT_EQ(opened.LastError(), row.opens ? 0 : ERROR_INVALID_HANDLE);
    }
}

TEST_F(PortOpening, ASearchEndsWithinItsLimit) {
    const auto lets = std::make_shared<std::promise<void>>();
    const auto held = lets->get_future().share();
    const auto begun = Clock::now();
    const auto found = FindPorts([held](const std::string& name) {
        if (name == "COM2") held.wait();
        return name.size() == 4;
    });
    EXPECT_LT(Clock::now() - begun, (searchLimit + 500) * 1ms * TimeFactor());
    EXPECT_EQ(found, (std::vector<std::int32_t>{1, 3, 4, 5, 6, 7, 8, 9}));
    lets->set_value();
}
