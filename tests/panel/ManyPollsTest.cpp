// Thousands of polls through the program's own queue, commands, port and panel, on a real line: what they leave behind.
// The clock runs a hundred times faster.
#include <atomic>
#include <cstdlib>
#include <thread>

#include "PanelFixture.h"
#include "Repeats.h"
#include "framework/WorkerThread.h"

void PauseThread(std::uint32_t milliseconds) {
    ::Sleep(milliseconds / 100);
}

namespace {

std::string PortOr(const char* variable, const char* otherwise) {
    const char* const named = std::getenv(variable);
    return named != nullptr ? named : otherwise;
}

// Answers every request with the status of all counters.
class CFarEnd {
public:
    explicit CFarEnd(const std::string& name) {
        if (port.Open(name.c_str(), 0, 0, true) == 0 && port.Configure(115200, 8, 0, 0) == 0)
            thread = std::jthread([this](const std::stop_token& ended) { Answer(ended); });
    }

    bool Works() const { return thread.joinable(); }
    std::atomic<int> polls{0};

private:
    void Answer(const std::stop_token& ended) {
        for (Bytes heard; !ended.stop_requested();) {
            std::uint8_t part[512];
            std::uint32_t got = 0;
            port.Read(part, sizeof part, &got, nullptr, INFINITE);
            heard.insert(heard.end(), part, part + got);
            if (got == 0) ::Sleep(5);
            for (; heard.size() >= 5; heard.erase(heard.begin(), heard.begin() + 5)) {
                if (heard[2] == 0x81) ++polls;
                const Bytes records = Line({Status(0, 12, 34), Status(1, 12, 34), Status(2, 12, 34), Status(3, 12, 34),
                                            Status(4, 12, 34), Status(5, 12, 34)});
                port.Write(records.data(), static_cast<std::uint32_t>(records.size()), nullptr, nullptr, 1000);
            }
        }
    }

    CCommPort port;
    std::jthread thread;
};

TEST_F(PanelTest, ManyPollsLeaveNoHandleBehind) {
    CCommPort& port = *CCommPort::Instance();
    ASSERT_EQ(port.Open(PortOr("QUORVANE_TEST_PORT_A", "COM1").c_str(), 0, 0, true), 0);
    ASSERT_EQ(port.Configure(115200, 8, 0, 0), 0);
    const CFarEnd counters(PortOr("QUORVANE_TEST_PORT_B", "COM2"));
    ASSERT_TRUE(counters.Works());

    panel->lineAnswers = true;
    panel->ShowWindow(SW_HIDE); // paints take their time, and kernel objects none
    const auto poll = [this](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            panel->CCounterPanel::SendPoll(static_cast<std::uint8_t>(i % 6));
            if (i % 100 == 99) RunQueue();
        }
        RunQueue();
    };
    const auto handles = [] {
        DWORD count = 0;
        ::GetProcessHandleCount(::GetCurrentProcess(), &count);
        return count;
    };
    const int first = Repeats(500);
    poll(first); // what the first ones set up stays
    const DWORD before = handles();
    const int many = Repeats(3000);
    poll(many);
    EXPECT_EQ(handles(), before);
    EXPECT_TRUE(PumpUntil([&] { return counters.polls == first + many; })) << counters.polls;
    EXPECT_EQ(Counts(), "12 34");
    port.Close();
}

} // namespace
