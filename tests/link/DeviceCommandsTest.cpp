// The six exchanges over the real port object: closed, and open at one end of a null-modem cable with a counter played
// at the other; and the way of a reply to a real window.
#include "link/DeviceCommands.h"

#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

#include <windows.h>

#include <gtest/gtest.h>

#include "TimeFactor.h"
#include "framework/Time.h"
#include "framework/WorkerThread.h"
#include "link/CounterFrame.h"
#include "link/ReplyMessages.h"
#include "link/ReplyPosting.h"
#include "serial/CommPort.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

const CounterRecord sentSettings{.deviceTime = CTime(CalendarFields{2012, 7, 2, 16, 21, 20}).GetTime(),
                                 .language = 1,
                                 .sdPeriod = 31,
                                 .address = 3,
                                 .sensitivity = 21};

struct Row {
    std::unique_ptr<CCommand> command;
    Bytes request;
    std::uint32_t message;
    Clock::duration pause;
    bool blockAlways;       // even an empty reply comes as a block, and with the address
    int address;            // as the block tells it
    CounterRecord settings; // in the block
};

template <class Command, std::size_t length>
Row MakeRow(std::uint8_t address, const std::array<std::uint8_t, length>& request, std::uint32_t message,
            bool blockAlways, Clock::duration pause = 100ms) {
    auto command = std::make_unique<Command>();
    command->address = address;
    Row row{nullptr, {request.begin(), request.end()}, message, pause, blockAlways, address == 255 ? -1 : address, {}};
    if constexpr (requires { command->newAddress; }) command->newAddress = 3;
    if constexpr (requires { command->settings; }) {
        command->settings = std::make_unique<CounterRecord>(sentSettings);
        row.settings = sentSettings;
    }
    row.command = std::move(command);
    return row;
}

std::vector<Row> AllCommands() {
    std::vector<Row> rows;
    rows.push_back(MakeRow<CPollCommand>(4, BuildPollRequest(4), WM_POLL_REPLY, true));
    rows.push_back(MakeRow<CPollCommand>(255, BuildPollRequest(255), WM_POLL_REPLY, true));
    rows.push_back(MakeRow<CReadSettingsCommand>(5, BuildReadSettingsRequest(5), WM_SETTINGS_REPLY, true));
    rows.push_back(MakeRow<CClearCommand>(2, BuildClearRequest(2), WM_CLEAR_REPLY, false));
    rows.push_back(MakeRow<CSetAddressCommand>(255, BuildSetAddressRequest(255, 3), WM_ADDRESS_REPLY, false));
    rows.push_back(MakeRow<CSetClockCommand>(255, BuildSetClockRequest(255, sentSettings), WM_CLOCK_REPLY, false));
    rows.push_back(MakeRow<CWriteSettingsCommand>(255, BuildWriteSettingsRequest(255, sentSettings), WM_WRITE_REPLY,
                                                  false, 200ms));
    return rows;
}

// Keeps what the commands post and what the port sends.
class CRecorder : public CReplyTarget, public CTrafficTap {
public:
    struct Posted {
        std::uint32_t message;
        std::unique_ptr<ReplyBlock> block;
        std::intptr_t lParam;
    };
    void PostReply(std::uint32_t message, std::unique_ptr<ReplyBlock> block, std::intptr_t lParam) override {
        posted.push_back({message, std::move(block), lParam});
    }
    void LogTransmitted(const void* buffer, std::uint32_t count) override {
        const auto* bytes = static_cast<const std::uint8_t*>(buffer);
        sent.emplace_back(bytes, bytes + count);
    }
    void LogReceived(const void*, std::uint32_t) override {}
    void ShowPortState(bool) override {}

    std::vector<Posted> posted;
    std::vector<Bytes> sent;
};

class DeviceCommands : public testing::Test {
protected:
    void SetUp() override { port.SetTap(&recorder); }
    void TearDown() override {
        port.Close();
        port.SetTap(nullptr);
    }

    // Opens one end of the cable, without what an earlier user of it has left unread.
    static bool OpenEnd(CCommPort& end, const char* variable, const char* otherwise) {
        const char* const named = std::getenv(variable);
        return end.Open(named != nullptr ? named : otherwise, 0, 0, true) == 0 && end.Configure(115200, 8, 0, 0) == 0 &&
               end.Purge() == 0;
    }

    Clock::duration Run(CCommand& command) {
        recorder.posted.clear();
        recorder.sent.clear();
        command.panel = &recorder;
        const auto begin = Clock::now();
        command.Execute();
        return Clock::now() - begin;
    }

    // The row's command has sent its request and posted its one message, given what the line brought.
    void Check(const Row& row, const Bytes& reply) const {
        EXPECT_EQ(recorder.sent, std::vector<Bytes>{row.request});
        ASSERT_EQ(recorder.posted.size(), 1U);
        const auto& [message, block, lParam] = recorder.posted.front();
        const auto length = static_cast<std::intptr_t>(reply.size());
        EXPECT_EQ(message, row.message);
        EXPECT_EQ(lParam, row.blockAlways ? row.address : length);
        ASSERT_EQ(block != nullptr, row.blockAlways || length > 0);
        if (!block) return;
        EXPECT_EQ(Bytes(block->GetBytes().begin(), block->GetBytes().end()), reply);
        EXPECT_EQ(block->address, row.address);
        EXPECT_EQ(block->settings, row.settings);
    }

    // Waits for a whole request, and answers it at once.
    static Bytes Answer(CCommPort& counter, std::size_t length, const Bytes& reply) {
        Bytes request;
        for (const auto deadline = Clock::now() + 5s * TimeFactor();
             request.size() < length && Clock::now() < deadline;) {
            std::uint8_t part[64];
            std::uint32_t got = 0;
            counter.Read(part, sizeof part, &got, nullptr, INFINITE);
            request.insert(request.end(), part, part + got);
            PauseThread(1);
        }
        counter.Write(reply.data(), static_cast<std::uint32_t>(reply.size()), nullptr, nullptr, INFINITE);
        return request;
    }

    CCommPort& port = *CCommPort::Instance();
    CRecorder recorder;
};

TEST_F(DeviceCommands, AClosedPortCostsThePauseAndComesOutAsAnEmptyReply) {
    for (const Row& row : AllCommands()) {
        SCOPED_TRACE(row.message);
        EXPECT_GE(Run(*row.command), row.pause);
        Check(row, {});
    }
}

TEST_F(DeviceCommands, ACounterAnswersInThePause) {
    CCommPort counter;
    ASSERT_TRUE(OpenEnd(port, "QUORVANE_TEST_PORT_A", "COM1"));
    ASSERT_TRUE(OpenEnd(counter, "QUORVANE_TEST_PORT_B", "COM2"));
    const Bytes reply{0x02, 0x02, 0x00, 0x02, 0x03, 0xAA, 0x00}; // raw: nothing is decoded or dropped on the way
    for (const Row& row : AllCommands()) {
        SCOPED_TRACE(row.message);
        // On a busy machine an answer may be late, which the command can't see: then all is asked once more.
        bool inTime = false;
        for (int round = 0; round < 5 && !inTime; ++round) {
            std::thread player([&] { EXPECT_EQ(Answer(counter, row.request.size(), reply), row.request); });
            Run(*row.command);
            player.join();
            ASSERT_EQ(recorder.posted.size(), 1U);
            const auto& block = recorder.posted.front().block;
            inTime = block && block->GetBytes().size() == reply.size();
            if (!inTime) {
                PauseThread(500);
                port.Purge();
            }
        }
        Check(row, reply);
    }
}

TEST_F(DeviceCommands, WithoutSettingsOrPanelNothingIsSentOrPosted) {
    CSetClockCommand clock;
    CWriteSettingsCommand write;
    EXPECT_LT(Run(clock) + Run(write), 50ms * TimeFactor());
    EXPECT_TRUE(recorder.sent.empty() && recorder.posted.empty());
    // The exchange itself doesn't need a panel.
    CPollCommand poll;
    CClearCommand clear;
    poll.Execute();
    clear.Execute();
    EXPECT_EQ(recorder.sent.size(), 2U);
}

TEST_F(DeviceCommands, APollAddsLittleToItsPause) {
    ASSERT_TRUE(OpenEnd(port, "QUORVANE_TEST_PORT_A", "COM1"));
    CPollCommand poll;
    // The best of some rounds each, as the machine may be busy; the platform rounds every pause alike.
    auto pauseOnly = Clock::duration::max(), whole = pauseOnly;
    for (int round = 0; round < 5; ++round) {
        const auto begin = Clock::now();
        PauseThread(100);
        pauseOnly = std::min(pauseOnly, Clock::now() - begin);
        whole = std::min(whole, Run(poll));
    }
    const auto overhead = std::chrono::duration_cast<std::chrono::microseconds>(whole - pauseOnly);
    RecordProperty("overheadMicroseconds", std::to_string(overhead.count()));
    EXPECT_LT(overhead, 5ms * TimeFactor());
}

TEST(ReplyPosting, ABlockReachesItsWindowOrIsFreed) {
    const HWND window = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    CReplyMailbox mailbox;
    std::thread([&] {
        auto block = std::make_unique<ReplyBlock>();
        block->address = -1;
        EXPECT_TRUE(PostReplyMessage(window, mailbox, WM_POLL_REPLY, std::move(block), -1));
        EXPECT_TRUE(PostReplyMessage(window, mailbox, WM_CLEAR_REPLY, nullptr, 0));
    }).join();

    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, window, WM_POLL_REPLY, WM_POLL_REPLY, PM_REMOVE));
    EXPECT_EQ(message.lParam, -1);
    const auto block = mailbox.Take(message.wParam);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->address, -1);
    ASSERT_TRUE(PeekMessageA(&message, window, WM_CLEAR_REPLY, WM_CLEAR_REPLY, PM_REMOVE));
    EXPECT_EQ(message.wParam, 0U);

    DestroyWindow(window);
    for (const HWND gone : {window, HWND{}}) {
        EXPECT_FALSE(PostReplyMessage(gone, mailbox, WM_POLL_REPLY, std::make_unique<ReplyBlock>(), 0));
    }
}

} // namespace
