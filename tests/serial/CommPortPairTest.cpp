// The port on a real line: two ports of the machine, joined by a null-modem cable.
#include "serial/CommPort.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <future>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "Repeats.h"
#include "serial/PortSelection.h"
#include "TapRecorder.h"
#include "TimeFactor.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

std::string PortFromEnvironment(const char* variable, const char* otherwise) {
    const char* const named = std::getenv(variable);
    return named != nullptr ? named : otherwise;
}

class CommPortPair : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Reopen());
        ASSERT_EQ(peer.Open(peerName.c_str(), 0, 0, true), 0);
        ASSERT_EQ(peer.Configure(115200, 8, 0, 0), 0);
        ASSERT_TRUE(Passes(port, peer)) << "no line between " << name << " and " << peerName;
    }

    bool Reopen() { return port.Open(name.c_str(), 0, 0, true) == 0 && port.Configure(115200, 8, 0, 0) == 0; }

    // Whether a mark that one port writes reaches the other one, behind whatever was under way.
    static bool Passes(CCommPort& from, CCommPort& to, const std::string& mark = "mark that has to pass") {
        auto written = std::async(std::launch::async, [&] {
            return from.Write(mark.data(), static_cast<std::uint32_t>(mark.size()), nullptr, nullptr,
                              5000 * TimeFactor());
        });
        std::string received;
        for (const auto deadline = Clock::now() + 5s * TimeFactor();
             Clock::now() < deadline && !received.ends_with(mark);) {
            char part[512];
            std::uint32_t got = 0;
            to.Read(part, sizeof part, &got, nullptr, INFINITE);
            received.append(part, got);
            if (got == 0) std::this_thread::sleep_for(1ms);
        }
        return written.get() == 0 && received.ends_with(mark);
    }

    // Begins a write that the line can't take since nobody reads at its other end.
    std::future<std::int32_t> BeginBlockedWrite(std::uint32_t timeout) {
        auto written = std::async(std::launch::async, [this, timeout] {
            const std::string flood(1 << 20, 'x');
            return port.Write(flood.data(), static_cast<std::uint32_t>(flood.size()), &count, nullptr, timeout);
        });
        EXPECT_EQ(written.wait_for(100ms), std::future_status::timeout) << "the line took everything";
        return written;
    }

    std::future<std::int32_t> BeginBlockedRead() {
        EXPECT_EQ(port.SetReadMode(1), 0);
        auto read = std::async(std::launch::async, [this] { return port.Read(buffer, 8, &count, nullptr, INFINITE); });
        EXPECT_EQ(read.wait_for(100ms), std::future_status::timeout) << "nothing was sent";
        return read;
    }

    // Closes and reopens the port while another thread transfers without a pause; gives how many transfers that ended.
    int CloseUnderTransfers(int rounds) {
        std::atomic<bool> stops{false};
        int aborted = 0;
        std::thread worker([&] {
            for (bool writes = false; !stops; writes = !writes) {
                std::uint32_t transferred = 99;
                const std::int32_t result = writes ? port.Write("abc", 3, &transferred, nullptr, INFINITE)
                                                   : port.Read(buffer, 8, &transferred, nullptr, INFINITE);
                EXPECT_TRUE(result == 0 ||
                            (transferred == 0 && (result == ERROR_INVALID_HANDLE || result == ERROR_OPERATION_ABORTED)))
                    << result;
                if (result == ERROR_OPERATION_ABORTED) ++aborted;
            }
        });
        for (int round = 0; round < rounds && !HasFailure(); ++round) {
            port.SetReadMode(round % 3 == 0 ? 1 : 0); // every third round the reads block
            std::this_thread::sleep_for(std::chrono::microseconds(100 * (round & 15)));
            EXPECT_LT(TimeClose(), 1s * TimeFactor()) << "round " << round;
            EXPECT_TRUE(Reopen()) << "round " << round;
        }
        stops = true;
        port.Close();
        worker.join();
        EXPECT_TRUE(Reopen());
        return aborted;
    }

    Clock::duration TimeClose() {
        const auto begun = Clock::now();
        EXPECT_EQ(port.Close(), 0);
        return Clock::now() - begun;
    }

    const std::string name = PortFromEnvironment("QUORVANE_TEST_PORT_A", "COM1");
    const std::string peerName = PortFromEnvironment("QUORVANE_TEST_PORT_B", "COM2");
    CCommPort port, peer;
    char buffer[8]{};
    std::uint32_t count = 99;
};

} // namespace

TEST_F(CommPortPair, BytesPassUnchangedBothWays) {
    std::string everyByte;
    for (int value = 0; value < 256; ++value) everyByte += static_cast<char>(value);
    EXPECT_TRUE(Passes(port, peer, everyByte));
    EXPECT_TRUE(Passes(peer, port, everyByte));
    EXPECT_EQ(port.GetBaudRate(), 115200);
}

TEST_F(CommPortPair, ReadOnASilentLineEndsAtOnceWithNothing) {
    CTapRecorder tap;
    port.SetTap(&tap);
    const auto begun = Clock::now();
    for (int read = 0; read < 3; ++read) {
        EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), 0);
        EXPECT_EQ(count, 0U);
    }
    EXPECT_LT(Clock::now() - begun, 1s * TimeFactor());
    EXPECT_EQ(tap.Take(), "R0 R0 R0");
    port.SetTap(nullptr);
}

TEST_F(CommPortPair, CloseEndsWhatTheLineHoldsUp) {
    for (int round = 0; round < 3; ++round) {
        auto written = BeginBlockedWrite(INFINITE);
        EXPECT_LT(TimeClose(), 1s * TimeFactor());
        EXPECT_EQ(written.get(), ERROR_OPERATION_ABORTED);
        ASSERT_TRUE(Reopen());
        EXPECT_TRUE(Passes(port, peer));

        auto read = BeginBlockedRead();
        EXPECT_LT(TimeClose(), 1s * TimeFactor());
        EXPECT_EQ(read.get(), ERROR_OPERATION_ABORTED);
        EXPECT_EQ(count, 0U);
        ASSERT_TRUE(Reopen());
        auto waited = std::async(std::launch::async, [&] { return port.WaitForEvent(nullptr, INFINITE); });
        EXPECT_LT(TimeClose(), 1s * TimeFactor());
        EXPECT_EQ(waited.wait_for(5s * TimeFactor()), std::future_status::ready);
        ASSERT_TRUE(Reopen());
    }
}

TEST_F(CommPortPair, TimedOutWriteLeavesThePortUsable) {
    EXPECT_EQ(BeginBlockedWrite(200).get(), ERROR_TIMEOUT);
    EXPECT_TRUE(Passes(port, peer));
    EXPECT_TRUE(Passes(peer, port));
}

TEST_F(CommPortPair, ThreeHundredClosingsUnderTransfersLeaveNothingBehind) {
    const auto openHandles = [] {
        DWORD handles = 0;
        ::GetProcessHandleCount(::GetCurrentProcess(), &handles);
        return handles;
    };
    CloseUnderTransfers(10); // the platform keeps some handles of its own from the first time on
    const DWORD before = openHandles();
    EXPECT_GT(CloseUnderTransfers(Repeats(300)), 0) << "no closing met a transfer";
    EXPECT_EQ(openHandles(), before);
    EXPECT_TRUE(Passes(port, peer));
}

TEST_F(CommPortPair, ProbingAllNamesFindsThePortQuickly) {
    port.Close();
    const auto begun = Clock::now();
    const auto found = FindPorts([](const std::string& probed) { return ProbePort(probed.c_str()); });
    EXPECT_LT(Clock::now() - begun, 1s * TimeFactor());
    EXPECT_EQ(std::ranges::count(found, std::atoi(name.c_str() + 3)), 1);
    EXPECT_EQ(CCommPort::CheckPort(name.c_str()), 0);
    EXPECT_EQ(CCommPort::CheckPort("COM255"), 1);

    std::ofstream("COM254") << "a plain file of that name";
    EXPECT_FALSE(ProbePort("COM254"));
    std::remove("COM254");
}
