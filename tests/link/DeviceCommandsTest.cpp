// The six exchanges over a line whose counter answers at a given moment, to the millisecond: the pauses pass on a clock
// of the test's own.
#include "link/DeviceCommands.h"

#include <functional>

#include "framework/Time.h"
#include "link/ReplyMessages.h"
#include "serial/CommPort.h"
#include "serial/SimulatedPlatform.h"
#include "support/Hex.h"

static std::function<void(std::uint32_t milliseconds)> onPause;

// The linker hands the commands this one in place of PauseThread.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" void __wrap__Z11PauseThreadj(std::uint32_t milliseconds) {
    onPause(milliseconds);
}

namespace {

struct CPanel : CReplyTarget {
    void PostReply(std::uint32_t message, std::unique_ptr<ReplyBlock> block, std::intptr_t lParam) override {
        posted += std::to_string(message) + ' ', reply = std::move(block), parameter = lParam;
    }
    std::string posted;
    std::unique_ptr<ReplyBlock> reply;
    std::intptr_t parameter = 0;
};

const CounterRecord settings{CTime(CalendarFields{2012, 7, 2, 16, 21, 20}).GetTime(), 1, 0, 0, 31, 3, 21};

template <class Command>
std::unique_ptr<CCommand> Make() {
    auto command = std::make_unique<Command>();
    if constexpr (requires { command->newAddress; }) command->newAddress = 3;
    if constexpr (requires { command->settings; }) command->settings = std::make_unique<CounterRecord>(settings);
    return command;
}

std::string Hex(const std::string& bytes) {
    return HexOf(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

TEST(DeviceCommands, WhatComesInThePauseIsTheReply) {
    const struct {
        std::unique_ptr<CCommand> (*make)();
        std::uint8_t address;
        const char* body; // of the request
        std::uint32_t message, pause;
        bool blockAlways; // even an empty reply comes as a block, and with the address
        CounterRecord settings;
    } rows[] = {
        {Make<CPollCommand>, 4, "04 81", WM_POLL_REPLY, 100, true, {}},
        {Make<CPollCommand>, 255, "ff 81", WM_POLL_REPLY, 100, true, {}},
        {Make<CReadSettingsCommand>, 5, "05 82", WM_SETTINGS_REPLY, 100, true, {}},
        {Make<CClearCommand>, 2, "02 87", WM_CLEAR_REPLY, 100, false, {}},
        {Make<CSetAddressCommand>, 255, "ff 89 03", WM_ADDRESS_REPLY, 100, false, {}},
        {Make<CSetClockCommand>, 1, "01 8a 12 07 02 16 21 20", WM_CLOCK_REPLY, 100, false, settings},
        {Make<CWriteSettingsCommand>, 255, "ff 88 12 07 02 16 21 20 00 00 00 00 00 00 15 5f", WM_WRITE_REPLY, 200,
         false, settings},
    };
    // Raw: nothing is decoded or dropped on the way, but what is too long for the block stays on the line.
    const std::string answers[] = {{"\xAA\x02\x02\0\x02\x03\0", 7}, std::string(600, '\x02'), ""};
    CSimulatedPlatform line;
    CCommPort& port = *CCommPort::Instance();
    for (const bool open : {false, true}) {
        CCommPort prepared(line); // its line becomes that of the process's port, which the commands use
        ASSERT_EQ(open ? prepared.Open("COM1", 0, 0, true) : 0, 0);
        port.TakeOver(prepared);
        for (const auto& row : rows) {
            for (const auto& answer : answers) {
                for (const std::uint32_t delay : {1U, row.pause, row.pause + 1}) {
                    SCOPED_TRACE(testing::Message() << row.body << ", " << answer.size() << " after " << delay);
                    CPanel panel;
                    line.written = line.received = "";
                    std::uint32_t passed = 0;
                    onPause = [&](std::uint32_t milliseconds) {
                        EXPECT_TRUE(!open || !line.written.empty()) << "the request goes first";
                        passed += milliseconds;
                        if (passed >= delay) line.received = answer;
                    };
                    const auto command = row.make();
                    command->address = row.address, command->panel = &panel;
                    command->Execute();
                    EXPECT_EQ(Hex(line.written), open ? HexOf(FrameOf(row.body)) : "");
                    EXPECT_EQ(passed, row.pause);
                    EXPECT_EQ(panel.posted, std::to_string(row.message) + ' ');
                    const std::string comes = open && delay <= row.pause ? answer.substr(0, 512) : "";
                    const int address = row.address == 255 ? -1 : row.address;
                    EXPECT_EQ(panel.parameter, row.blockAlways ? address : static_cast<std::intptr_t>(comes.size()));
                    ASSERT_EQ(panel.reply != nullptr, row.blockAlways || !comes.empty());
                    if (!panel.reply) continue;
                    EXPECT_EQ(HexOf(panel.reply->GetBytes()), Hex(comes));
                    EXPECT_TRUE(panel.reply->address == address && panel.reply->settings == row.settings);
                }
            }
        }
        line.written.clear();
        CPanel panel; // without settings nothing is sent or posted; the exchange itself needs no panel
        CSetClockCommand clock;
        CWriteSettingsCommand write;
        clock.panel = write.panel = &panel;
        onPause = [](std::uint32_t) { FAIL(); };
        clock.Execute(), write.Execute();
        onPause = [](std::uint32_t) {};
        CPollCommand().Execute(), CClearCommand().Execute();
        EXPECT_EQ(Hex(line.written), open ? "02 ff 81 80 03 02 ff 87 86 03" : "");
        EXPECT_EQ(panel.posted, "");
        port.Close();
    }
}

} // namespace
