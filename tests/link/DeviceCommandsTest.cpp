// The six exchanges over a line whose counter answers at a given moment, to the millisecond: the pauses pass on a clock
// of the test's own. And the way of a reply to a real window.
#include "link/DeviceCommands.h"

#include <cstring>
#include <thread>

#include <windows.h>

#include <gtest/gtest.h>

#include "framework/Time.h"
#include "link/ReplyMessages.h"
#include "link/ReplyPosting.h"
#include "serial/CommPlatform.h"
#include "serial/CommPort.h"
#include "support/Hex.h"

namespace {

std::uint32_t passed = 0; // the clock, in ms

} // namespace

// The linker hands the commands this one in place of PauseThread.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" void __wrap__Z11PauseThreadj(std::uint32_t milliseconds) {
    passed += milliseconds;
}

namespace {

// A driver that keeps what is written, and has an answer once its time has come.
class CScriptedLine : public CCommPlatform {
public:
    HANDLE CreateFileA(const char*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE) override {
        return ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    }
    BOOL GetCommTimeouts(HANDLE, COMMTIMEOUTS*) override { return TRUE; }
    BOOL SetCommTimeouts(HANDLE, COMMTIMEOUTS*) override { return TRUE; }
    BOOL SetCommMask(HANDLE, DWORD) override { return TRUE; }
    BOOL PurgeComm(HANDLE, DWORD) override { return TRUE; }
    BOOL GetDefaultCommConfigA(const char*, COMMCONFIG*, DWORD*) override { return FALSE; }
    BOOL ClearCommError(HANDLE, DWORD*, COMSTAT* status) override {
        status->cbInQue = Waiting();
        return TRUE;
    }
    BOOL WriteFile(HANDLE, const void* buffer, DWORD count, DWORD* written, OVERLAPPED*) override {
        sent += HexOf(std::span(static_cast<const std::uint8_t*>(buffer), count)) + ".";
        writtenAt = passed;
        *written = count;
        return TRUE;
    }
    BOOL ReadFile(HANDLE, void* buffer, DWORD capacity, DWORD* got, OVERLAPPED*) override {
        *got = std::min(capacity, Waiting());
        std::memcpy(buffer, answer.data(), *got);
        answer.erase(answer.begin(), answer.begin() + static_cast<std::ptrdiff_t>(*got));
        return TRUE;
    }

    DWORD Waiting() const { return passed < writtenAt + delay ? 0 : static_cast<DWORD>(answer.size()); }

    std::string sent;
    std::vector<std::uint8_t> answer;
    std::uint32_t delay = 0, writtenAt = 0;
};

struct CPanel : CReplyTarget {
    void PostReply(std::uint32_t message, std::unique_ptr<ReplyBlock> block, std::intptr_t lParam) override {
        ++count;
        posted = message;
        reply = std::move(block);
        parameter = lParam;
    }
    int count = 0;
    std::uint32_t posted = 0;
    std::unique_ptr<ReplyBlock> reply;
    std::intptr_t parameter = 0;
};

const CounterRecord settings{.deviceTime = CTime(CalendarFields{2012, 7, 2, 16, 21, 20}).GetTime(),
                             .language = 1,
                             .sdPeriod = 31,
                             .address = 3,
                             .sensitivity = 21};

template <class Command>
std::unique_ptr<CCommand> Make(std::uint8_t address) {
    auto command = std::make_unique<Command>();
    command->address = address;
    if constexpr (requires { command->newAddress; }) command->newAddress = 3;
    if constexpr (requires { command->settings; }) command->settings = std::make_unique<CounterRecord>(settings);
    return command;
}

struct DeviceCommands : testing::Test {
    // The commands use the process's port, which takes its line from one over the scripted calls.
    void Open() {
        CCommPort prepared(line);
        ASSERT_EQ(prepared.Open("COM1", 0, 0, true), 0);
        port.TakeOver(prepared);
    }
    void TearDown() override { port.Close(); }

    CScriptedLine line;
    CCommPort& port = *CCommPort::Instance();
};

const struct {
    std::unique_ptr<CCommand> (*make)(std::uint8_t address);
    std::uint8_t address;
    const char* body; // of the request
    std::uint32_t message, pause;
    bool blockAlways; // even an empty reply comes as a block, and with the address
    bool hasSettings; // in the block
} rows[] = {
    {Make<CPollCommand>, 4, "04 81", WM_POLL_REPLY, 100, true, false},
    {Make<CPollCommand>, 255, "ff 81", WM_POLL_REPLY, 100, true, false},
    {Make<CReadSettingsCommand>, 5, "05 82", WM_SETTINGS_REPLY, 100, true, false},
    {Make<CClearCommand>, 2, "02 87", WM_CLEAR_REPLY, 100, false, false},
    {Make<CSetAddressCommand>, 255, "ff 89 03", WM_ADDRESS_REPLY, 100, false, false},
    {Make<CSetClockCommand>, 1, "01 8a 12 07 02 16 21 20", WM_CLOCK_REPLY, 100, false, true},
    {Make<CWriteSettingsCommand>, 255, "ff 88 12 07 02 16 21 20 00 00 00 00 00 00 15 5f", WM_WRITE_REPLY, 200, false,
     true},
};

TEST_F(DeviceCommands, WhatComesInThePauseIsTheReply) {
    // Raw: nothing is decoded or dropped on the way, but what is too long for the block stays on the line.
    std::vector<std::uint8_t> longest(600, 0x02);
    const std::vector<std::uint8_t> answers[] = {{0xAA, 0x02, 0x02, 0x00, 0x02, 0x03, 0x00}, longest, {}};
    Open();
    for (const auto& row : rows) {
        for (const auto& answer : answers) {
            for (const std::uint32_t delay : {0, 99, 100, 101, 150, 199, 200, 201}) {
                SCOPED_TRACE(testing::Message() << row.body << ", " << answer.size() << " after " << delay << " ms");
                CPanel panel;
                line.sent.clear();
                line.answer = answer;
                line.delay = delay;
                const auto command = row.make(row.address);
                command->panel = &panel;
                command->Execute();
                EXPECT_EQ(line.sent, HexOf(FrameOf(row.body)) + ".");
                ASSERT_EQ(panel.count, 1);
                EXPECT_EQ(panel.posted, row.message);
                const std::size_t length = delay > row.pause ? 0 : std::min<std::size_t>(answer.size(), 512);
                const int address = row.address == 255 ? -1 : row.address;
                EXPECT_EQ(panel.parameter, row.blockAlways ? address : static_cast<std::intptr_t>(length));
                ASSERT_EQ(panel.reply != nullptr, row.blockAlways || length > 0);
                if (!panel.reply) continue;
                EXPECT_EQ(HexOf(panel.reply->GetBytes()), HexOf(std::span(answer).first(length)));
                EXPECT_EQ(panel.reply->address, address);
                EXPECT_EQ(panel.reply->settings, row.hasSettings ? settings : CounterRecord());
            }
        }
    }
}

TEST_F(DeviceCommands, AClosedPortCostsThePauseAndComesOutAsAnEmptyReply) {
    for (const auto& row : rows) {
        CPanel panel;
        const auto command = row.make(row.address);
        command->panel = &panel;
        const std::uint32_t before = passed;
        command->Execute();
        EXPECT_EQ(passed - before, row.pause) << row.body;
        ASSERT_EQ(panel.count, 1) << row.body;
        EXPECT_TRUE(row.blockAlways ? panel.reply && panel.reply->length == 0 : !panel.reply && panel.parameter == 0);
    }
}

TEST_F(DeviceCommands, WithoutSettingsOrPanelNothingIsSentOrPosted) {
    Open();
    CPanel panel;
    CSetClockCommand clock;
    CWriteSettingsCommand write;
    clock.panel = write.panel = &panel;
    const std::uint32_t before = passed;
    clock.Execute();
    write.Execute();
    EXPECT_TRUE(panel.count == 0 && line.sent.empty() && passed == before);
    // The exchange itself doesn't need a panel.
    CPollCommand().Execute();
    CClearCommand().Execute();
    EXPECT_EQ(line.sent, "02 ff 81 80 03.02 ff 87 86 03.");
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
