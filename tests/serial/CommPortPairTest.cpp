// The port on a real line: two ports of the machine, joined by a null-modem cable.
#include "serial/CommPort.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <future>

#include <gtest/gtest.h>

#include "serial/PortSelection.h"
#include "support/Ports.h"

namespace {

using namespace std::chrono_literals;

class CommPortPair : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Open(port, 'A') && Open(peer, 'B'));
        ASSERT_TRUE(Passes(port, peer)) << "no line between the two";
    }

    static bool Open(CCommPort& end, char which) {
        return end.Open(TestPort(which).c_str(), 0, 0, true) == 0 && end.Configure(115200, 8, 0, 0) == 0;
    }
    // Whether a mark that one port writes reaches the other one, behind whatever was under way.
    static bool Passes(CCommPort& from, CCommPort& to, const std::string& mark = "mark that has to pass") {
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
    std::future<std::int32_t> Begin(const std::function<std::int32_t()>& transfer) {
        auto begun = std::async(std::launch::async, transfer);
        EXPECT_EQ(begun.wait_for(100ms), std::future_status::timeout) << "nothing held it up";
        return begun;
    }

    CCommPort port, peer;
    const std::string flood = std::string(1 << 20, 'x');
    char buffer[8]{};
    std::uint32_t count = 99;
};

} // namespace

TEST_F(CommPortPair, BytesPassUnchangedAndTransfersEndInTime) {
    std::string everyByte;
    for (int value = 1; value < 256; ++value) everyByte += static_cast<char>(value);
    EXPECT_TRUE(Passes(port, peer, everyByte) && Passes(peer, port, everyByte));
    EXPECT_EQ(peer.Write("\0", 1, &count, nullptr, INFINITE), 0);
    port.SetReadMode(1);
    EXPECT_EQ(port.Read(buffer, 1, &count, nullptr, 10'000), 0) << "waits for the byte";
    EXPECT_TRUE(count == 1 && buffer[0] == '\0');
    port.SetReadMode(0);
    EXPECT_EQ(port.Read(buffer, 8, &count, nullptr, INFINITE), 0) << "ends although the line is silent";
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(port.GetBaudRate(), 115200);
    EXPECT_EQ(port.Write(flood.data(), 1 << 20, nullptr, nullptr, 200), ERROR_TIMEOUT);
    EXPECT_TRUE(Passes(port, peer) && Passes(peer, port)) << "usable after a timeout";
}

TEST_F(CommPortPair, CloseEndsWhatTheLineHoldsUpAndLeavesNothingBehind) {
    const std::function<std::int32_t()> transfers[] = {
        [&] { return port.Write(flood.data(), 1 << 20, &count, nullptr, INFINITE); },
        [&] { return port.Read(buffer, 8, &count, nullptr, INFINITE); }};
    DWORD before = 0, after = 0;
    for (int round = 0; round < 21 && !HasFailure(); ++round) {
        port.SetReadMode(1);
        auto transfer = Begin(transfers[round % 2]);
        EXPECT_EQ(port.Close(), 0);
        EXPECT_EQ(transfer.get(), ERROR_OPERATION_ABORTED);
        EXPECT_EQ(count, 0U);
        ASSERT_TRUE(Open(port, 'A'));
        auto wait = std::async(std::launch::async, [&] { return port.WaitForEvent(nullptr, INFINITE); });
        EXPECT_EQ(port.Close(), 0);
        EXPECT_EQ(wait.wait_for(10s), std::future_status::ready);
        ASSERT_TRUE(Open(port, 'A'));
        // The platform keeps some handles of its own from the first times on.
        ::GetProcessHandleCount(::GetCurrentProcess(), round < 3 ? &before : &after);
    }
    EXPECT_EQ(after, before);
    EXPECT_TRUE(Passes(port, peer));
}

TEST_F(CommPortPair, ProbingAllNamesFindsThePorts) {
    port.Close();
    const auto found = FindPorts([](const std::string& probed) { return ProbePort(probed.c_str()); });
    EXPECT_EQ(std::ranges::count(found, std::stoi(TestPort('A').substr(3))), 1);
    const AvailablePorts listed = EnumeratePorts();
    EXPECT_EQ(listed, ListPorts({found.begin(), found.begin() + std::min<std::ptrdiff_t>(6, std::ssize(found))}));
    EXPECT_EQ(CCommPort::CheckPort(TestPort('A').c_str()), 0);
    EXPECT_EQ(CCommPort::CheckPort("COM255"), 1);
    std::ofstream("COM254") << "a plain file of that name";
    EXPECT_FALSE(ProbePort("COM254"));
    std::remove("COM254");
}
