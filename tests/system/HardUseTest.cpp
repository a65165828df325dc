// What only another program, a nervous user or an accident does.
#include <functional>

#include "Input.h"
#include "SystemTest.h"
#include "link/ReplyMessages.h"

namespace {

class HardUse : public SystemTest {
protected:
    void SetUp() override {
        SystemTest::SetUp();
        PlayCounters({0});
    }

    // Presses the port button's command until the button reads so.
    void SwitchPort(const char* caption) const {
        ASSERT_TRUE(program.SendCommand(IDC_PORT));
        ASSERT_EQ(program.Text(IDC_PORT), caption);
    }
};

TEST_F(HardUse, ThePortIsClosedAndOpenedTwoHundredTimesWhilePolling) {
    StartProgram(true);
    ExpectPollingGoesOn();
    DWORD handles = 0;
    for (int round = -10; round < 200; ++round) {
        if (round == 0) handles = program.HandleCount();
        // A quarter of the rounds in the middle of a command, which has just begun.
        ASSERT_TRUE(round % 4 != 0 || counters->AwaitFrames(1));
        ASSERT_NO_FATAL_FAILURE(SwitchPort("Open COM")) << "round " << round;
        ASSERT_NO_FATAL_FAILURE(SwitchPort("Close COM")) << "round " << round;
    }
    EXPECT_TRUE(Await([&] { return program.HandleCount() <= handles; }))
        << program.HandleCount() << " handles instead of " << handles;
    ExpectPollingGoesOn();
}

TEST_F(HardUse, ThePortChangesInTheMiddleOfACommand) {
    StartProgram(true);
    ExpectPollingGoesOn();
    for (int round = 0; round < 10; ++round) {
        ASSERT_TRUE(counters->AwaitFrames(1));
        EXPECT_TRUE(program.SendCommand(ID_PORT_FIRST + 1)); // opens only where ports are shared
        EXPECT_TRUE(program.SendCommand(ID_PORT_FIRST));
        if (program.Text(IDC_PORT) == "Open COM") SwitchPort("Close COM");
        EXPECT_EQ(stored.Get("COM"), nearPort.Number());
    }
    EXPECT_TRUE(program.SendCommand(ID_PORT_LAST)) << "no such row in the menu";
    ExpectText(IDC_PORT, "Close COM");
    ExpectPollingGoesOn();
}

TEST_F(HardUse, ClosedWithCommandsQueuedTheProgramIsGoneAtOnce) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"close message", [this] { ::PostMessageA(program.Frame(), WM_CLOSE, 0, 0); }},
        {"system menu", [this] { ::PostMessageA(program.Frame(), WM_SYSCOMMAND, SC_CLOSE, 0); }},
        {"Alt+F4", [] { PressKey(VK_F4, VK_MENU); }}};
    counters->BringFault("torn *"); // an answer that is shown in no box
    for (const auto& [name, close] : ways) {
        SCOPED_TRACE(name);
        CProgram& running = program;
        ASSERT_NO_FATAL_FAILURE(StartProgram(true));
        for (int i = 0; i < 30; ++i) running.PostCommand(IDC_CLEAR);
        EXPECT_TRUE(counters->AwaitFrames(1));
        const auto closed = Clock::now();
        close();
        EXPECT_EQ(running.AwaitExit(5s), 0U);
        EXPECT_LT(Clock::now() - closed, 1s);
    }
}

TEST_F(HardUse, MadeUpRepliesAreIgnored) {
    StartProgram(true);
    ExpectPollingGoesOn();
    const auto own = reinterpret_cast<WPARAM>(program.Frame());
    for (UINT message = WM_POLL_REPLY; message <= WM_SHOW_COUNTER; ++message) {
        for (const WPARAM pointer : {WPARAM{1}, WPARAM{0x10000}, WPARAM{0xDEADBEEF}, own, ~WPARAM{0}}) {
            for (const LPARAM length : {LPARAM{0}, LPARAM{17}, LPARAM{-1}}) {
                EXPECT_TRUE(::PostMessageA(program.Panel(), message, pointer, length));
            }
        }
    }
    EXPECT_TRUE(program.Answers());
    EXPECT_FALSE(program.ShowsBox());
    ExpectPollingGoesOn();
}

TEST_F(HardUse, EscapeAndEnterDoWhatTheyAreFor) {
    StartProgram();
    PressKey(VK_ESCAPE);
    PressKey(VK_RETURN);
    ExpectText(IDC_START, "Stop");
    program.Click(IDC_SENSITIVITY_EDIT);
    PressKey(VK_ESCAPE);
    PressKey(VK_RETURN);
    ExpectText(IDC_START, "Start");
    EXPECT_TRUE(program.IsRunning());
}

} // namespace
