// Close on one thread while another is inside a transfer.
#include "serial/CommPort.h"

#include <chrono>
#include <functional>
#include <future>
#include <thread>

#include "SimulatedPlatform.h"
#include "TapRecorder.h"
#include "TimeFactor.h"

namespace {

using namespace std::chrono_literals;
using Transfers = CSimulatedPlatform::Transfers;

class CommPortClosing : public testing::Test {
protected:
    void OpenWith(Transfers transfers) {
        ASSERT_EQ(port.Open("COM1", 0, 0, true), 0);
        ASSERT_EQ(port.SetReadMode(1), 0);
        platform.transfers = transfers;
    }

    // Begins a transfer on a thread of its own; returns when the driver has it.
    std::future<std::int32_t> BeginTransfer(std::function<std::int32_t()> transfer) {
        auto result = std::async(std::launch::async, std::move(transfer));
        const auto deadline = std::chrono::steady_clock::now() + 5s * TimeFactor();
        const auto hasIt = [&] { return platform.HasPending() || platform.holding != 0; };
        while (!hasIt() && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
        EXPECT_TRUE(hasIt());
        return result;
    }

    std::chrono::milliseconds TimeClose() {
        const auto begun = std::chrono::steady_clock::now();
        EXPECT_EQ(port.Close(), 0);
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begun);
    }

    CSimulatedPlatform platform;
    CCommPort port{platform};
    char buffer[8] = "abc";
    std::uint32_t count = 99;
};

} // namespace

TEST_F(CommPortClosing, EndsATransferAtOnce) {
    const std::function<std::int32_t()> transfers[] = {
        [&] { return port.Write(buffer, 3, &count, nullptr, INFINITE); },
        [&] { return port.Read(buffer, 8, &count, nullptr, INFINITE); },
        [&] { return port.WaitForEvent(nullptr, INFINITE); },
    };
    for (const auto& transfer : transfers) {
        OpenWith(Transfers::EndWhenCancelled);
        auto result = BeginTransfer(transfer);
        EXPECT_LT(TimeClose(), 1s * TimeFactor());
        EXPECT_EQ(result.get(), ERROR_OPERATION_ABORTED);
        EXPECT_EQ(count, 0U);
        EXPECT_TRUE(platform.HandlesEnd());
    }
    EXPECT_STREQ(buffer, "abc");
}

TEST_F(CommPortClosing, LeavesTheMemoryOfAnEndlessTransferToTheDriver) {
    OpenWith(Transfers::NeverEnd);
    auto read = BeginTransfer([&] { return port.Read(buffer, 8, &count, nullptr, INFINITE); });
    EXPECT_LT(TimeClose(), 2s * TimeFactor());
    EXPECT_EQ(read.get(), ERROR_OPERATION_ABORTED);
    platform.EndPending(0);
    EXPECT_STREQ(buffer, "abc") << "written to after the read had returned";

    OpenWith(Transfers::NeverEnd);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, 1), ERROR_TIMEOUT);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), ERROR_BUSY);
    EXPECT_LT(TimeClose(), 1s * TimeFactor());
    platform.EndPending(0);
    OpenWith(Transfers::EndAtOnce);
    EXPECT_EQ(port.Write(buffer, 3, &count, nullptr, INFINITE), 0);
}

TEST_F(CommPortClosing, NeverWaitsForADriverThatHoldsACall) {
    using Call = CSimulatedPlatform::Call;
    for (const Call call : {Call::CloseHandle, Call::CancelIoEx, Call::ReadFile, Call::SetCommState}) {
        SCOPED_TRACE(static_cast<int>(call));
        CTapRecorder tap;
        port.SetTap(&tap);
        OpenWith(Transfers::EndWhenCancelled);
        platform.held = call;
        auto read = BeginTransfer([&] { return port.Read(buffer, 8, &count, nullptr, INFINITE); });
        if (call == Call::SetCommState) {
            EXPECT_EQ(port.Configure(4800, 8, 0, 0), ERROR_TIMEOUT);
        }
        EXPECT_LT(TimeClose(), 600ms * TimeFactor());
        EXPECT_FALSE(port.IsOpen());
        EXPECT_EQ(tap.Take(), "closed");
        EXPECT_NE(platform.OpenHandles(), 0U) << "the driver has the line";
        platform.held = Call::None;
        EXPECT_EQ(read.get(), ERROR_OPERATION_ABORTED);
        EXPECT_TRUE(platform.HandlesEnd());
        EXPECT_EQ(platform.purged, 15U) << "what isn't sent would hold the closing up";
        port.SetTap(nullptr);
    }
}

TEST_F(CommPortClosing, NeverWaitsForATap) {
    struct CWaitingTap : CTapRecorder {
        void LogTransmitted(const void*, std::uint32_t) override { Wait(); }
        void LogReceived(const void*, std::uint32_t) override { Wait(); }
        void Wait() {
            isCalled.set_value();
            EXPECT_EQ(isClosed.get_future().wait_for(5s * TimeFactor()), std::future_status::ready);
        }
        std::promise<void> isCalled, isClosed;
    };
    for (const bool reads : {false, true}) {
        OpenWith(Transfers::EndAtOnce);
        CWaitingTap tap;
        port.SetTap(&tap);
        auto transfer = std::async(std::launch::async, [&] {
            return reads ? port.Read(buffer, 8, nullptr, nullptr, INFINITE)
                         : port.Write(buffer, 3, nullptr, nullptr, INFINITE);
        });
        tap.isCalled.get_future().wait();
        EXPECT_LT(TimeClose(), 1s * TimeFactor());
        tap.isClosed.set_value();
        EXPECT_EQ(transfer.get(), reads ? 0 : ERROR_INVALID_HANDLE);
        port.SetTap(nullptr);
    }
}
