// The port on a real line: two ports of the machine, joined by a null-modem cable.
#include "serial/CommPort.h"

#include <future>

#include <gtest/gtest.h>

#include "serial/PortSelection.h"
#include "support/Ports.h"

using namespace std::chrono_literals;

static bool Open(CCommPort& end, char which) {
    return end.Open(TestPort(which).c_str(), 0, 0, true) == 0 && end.Configure(115200, 8, 0, 0) == 0;
}

// Whether what one port writes reaches the other one, behind whatever was under way.
static bool Passes(CCommPort& from, CCommPort& to, const std::string& mark) {
    auto written = std::async(std::launch::async, [&] { return from.WriteString(mark.c_str(), 0, 0, 10'000); });
    std::string received;
    for (int turn = 0; turn < 10'000 && !received.ends_with(mark); ++turn) {
        char part[512];
        std::uint32_t got = 0;
        EXPECT_EQ(to.Read(part, sizeof part, &got, nullptr, INFINITE), 0);
        received.append(part, got);
        if (got == 0) ::Sleep(1);
    }
    return written.get() == 0 && received.ends_with(mark);
}

TEST(CommPortPair, BytesPassAndWhatTheLineHoldsUpIsEnded) {
    CCommPort port, peer;
    ASSERT_TRUE(Open(port, 'A') && Open(peer, 'B'));
    std::string everyByte, flood(1 << 20, 'x');
    for (int value = 1; value < 256; ++value) everyByte += static_cast<char>(value);
    ASSERT_TRUE(Passes(port, peer, everyByte) && Passes(peer, port, everyByte) && port.GetBaudRate() == 115200);
    EXPECT_EQ(port.WriteString(flood.c_str(), nullptr, nullptr, 200), ERROR_TIMEOUT);
    EXPECT_TRUE(Passes(port, peer, "usable") && Passes(peer, port, "usable")) << "after a timeout";
    std::uint32_t count = 99;
    char buffer[8]{};
    DWORD before = 0, after = 0;
    for (int round = 0; round < 22 && !testing::Test::HasFailure(); ++round) {
        EXPECT_TRUE(port.Read(buffer, 8, &count, nullptr, INFINITE) == 0 && count == 0) << "the line is silent";
        port.SetReadMode(1);
        auto transfer = std::async(std::launch::async, [&, writes = round % 2 == 0] {
            return writes ? port.WriteString(flood.c_str(), &count, nullptr, INFINITE)
                          : port.Read(buffer, 8, &count, nullptr, INFINITE);
        });
        EXPECT_EQ(transfer.wait_for(50ms), std::future_status::timeout) << "nothing held it up";
        EXPECT_TRUE(port.Close() == 0 && transfer.get() == ERROR_OPERATION_ABORTED && count == 0);
        ASSERT_TRUE(ProbePort(TestPort('A').c_str()) && Open(port, 'A'));
        // The platform keeps some handles of its own from the first times on.
        ::GetProcessHandleCount(::GetCurrentProcess(), round < 2 ? &before : &after);
    }
    EXPECT_EQ(after, before);
}
