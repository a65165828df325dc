// Polling as the wire, the log and the window show it, on a good line and on bad ones.
#include <fstream>
#include <functional>
#include <sstream>

#include "framework/Time.h"
#include "link/ReplyMessages.h"
#include "SystemTest.h"

namespace {

const std::string all = "0 1 2 3 4 5";

class Polling : public SystemTest {
protected:
    void PollAll() {
        PlayCounters({0, 1, 2, 3, 4, 5});
        StartPolling();
        ExpectAddressButtons(all);
    }
};

TEST_F(Polling, SixCountersAppearAndWireLogAndWindowAgree) {
    const auto now = [] { return CTime::Now().Format("%Y/%m/%d %H:%M:%S"); };
    std::string last = now();
    std::ofstream(LogPath()) << "left by an earlier run";
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartProgram();
    for (const int key : {VK_ESCAPE, VK_RETURN}) PressKey(key); // polling starts by Enter, and Esc closes nothing
    ExpectAddressButtons(all);
    ExpectPollingGoesOn();
    program.Click(IDC_ADDRESS_BUTTON_FIRST + 4);
    ExpectText(IDC_ADDRESS_EDIT, "4");
    ExpectPollingGoesOn(4);
    StopPolling();
    const auto polls = counters->Heard("81"), frames = counters->Heard();
    for (std::size_t i = 0; i < polls.size(); ++i)
        ASSERT_EQ(polls[i], HexOf(FrameOf("0" + std::to_string(i % 6) + " 81"))) << "poll " << i;
    // Once for each counter, and again for one that was late on a busy machine: never with each poll.
    const auto reads = counters->Heard("82");
    EXPECT_TRUE(reads.size() >= 6 && reads.size() < polls.size()) << reads.size();
    // Every frame is in the log in its order, with what came back behind it, in the exact form.
    std::istringstream log(LogText());
    std::string received, line;
    for (const std::string& frame : frames) {
        for (const std::string& begin : {": TX-->" + frame, std::string(": RX-->")}) {
            ASSERT_TRUE(std::getline(log, line) && line.compare(19, begin.size(), begin) == 0) << line;
            ASSERT_TRUE(line.back() == '\r' && last <= line.substr(0, 19)) << line;
            last = line.substr(0, 19);
        }
        received += line.substr(26, line.size() - 27);
    }
    EXPECT_FALSE(std::getline(log, line)) << line;
    EXPECT_EQ(counters->HeardBytes(), 5 * frames.size()) << "something else is on the wire";
    EXPECT_EQ(received, HexOf(counters->Spoken()) + " ");
    ExpectTotals(counters->HeardBytes(), counters->Spoken().size());
    ExpectText(IDC_TRANSMITTED_EDIT, frames.back() + " ");
}

// A bad record takes its counter off until its next good one; what comes too late stands before the next one's answer.
TEST_F(Polling, OnBadLines) {
    PollAll();
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        {{"torn 1", "checksum 2", "late=150 5", "noise=7 0", "twice 3", "echo 4"}, "0 3 4"},
        {{"silent 0", "overlong 3", "stranger=9 4", "garbledate 1", "nodate 5"}, "1 2 5"},
        {{"stranger=255 1", "split=150 2", "torn=1 5"}, "0 3 4"},
        {{"torn=16 0", "silent 3", "checksum 4"}, "1 2 5"},
        {{"silent *"}, ""},
        {{}, all}};
    for (const auto& [faults, shown] : rows) {
        SCOPED_TRACE(testing::PrintToString(faults));
        counters->BringFaults(faults);
        EXPECT_TRUE(counters->AwaitFrames(7, "81")); // each address at least once
        ExpectAddressButtons(shown);
    }
    program.Click(IDC_ADDRESS_BUTTON_FIRST); // another one may have come back first
    ExpectPollingGoesOn();
}

TEST_F(Polling, GoesOnAfterWhatAllowsNoAnswer) {
    const auto noise = [this] {
        counters->MakeNoise();
        ExpectAddressButtons("");
        const std::size_t size = LogText().size();
        for (int i = 0; i < 20 && !HasFailure(); ++i, std::this_thread::sleep_for(100ms)) {
            const auto asked = Clock::now();
            EXPECT_TRUE(program.Answers());
            EXPECT_LT(Clock::now() - asked, 500ms);
        }
        EXPECT_GT(LogText().size(), size + 10'000);
        counters->BringFaults({});
    };
    const auto sleep = [this] {
        program.Freeze(true);
        EXPECT_TRUE(counters->AwaitSilence());
        program.Freeze(false);
        ::PostMessageA(program.Frame(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    };
    // Another program makes up replies and what else a window class may call its own: all that are near the program's,
    // and as many of the others as the system's queue has room for.
    const auto messages = [this] {
        for (UINT message = WM_USER; message < WM_APP; message += message < WM_USER + 0x100 ? 1 : 127)
            for (const HWND window : {program.Frame(), program.Panel()})
                for (const WPARAM block : {WPARAM{7}, WPARAM{0x10000}, ~WPARAM{0}})
                    for (const LPARAM length : {LPARAM{17}, LPARAM{-1}}) ::PostMessageA(window, message, block, length);
        EXPECT_TRUE(program.Answers() && program.Box() == nullptr);
    };
    PollAll();
    for (const auto& hurt : std::initializer_list<std::function<void()>>{noise, sleep, messages}) {
        hurt();
        ExpectAddressButtons(all);
        program.Click(IDC_ADDRESS_BUTTON_FIRST); // another one may have come back first
        ExpectPollingGoesOn();
    }
}

TEST_F(Polling, PortAndRateAreChosen) {
    const std::string ports[] = {nearPort, TestPort('C')};
    CCounterPlayer others({0, 1, 2, 3, 4, 5});
    ASSERT_TRUE(others.Play(TestPort('D'))) << "no second cable";
    PollAll();
    const auto pressRow = [](HWND popup, LONG row) { // counted from the end, rows of one height
        RECT place{};
        ::GetWindowRect(popup, &place);
        ClickAt({place.left + 40, place.top + 3 + 22 * row + 11});
    };
    for (int i = 1; i <= 2; ++i) {
        const auto number = static_cast<DWORD>(std::stoul(ports[i % 2].substr(3)));
        const HWND root = program.OpenMenu(ID_PORT_MENU);
        pressRow(root, 0);
        HWND rows = nullptr;
        ASSERT_TRUE(Await([&] { return (rows = ShownPopup()) != root && rows != nullptr; }));
        pressRow(rows, static_cast<LONG>(number) - 1); // every port up to these is there
        EXPECT_TRUE(Await([&] { return Stored("COM") == number; })) << i;
        EXPECT_TRUE((i % 2 != 0 ? others : *counters).AwaitFrames(3)) << i;
        EXPECT_EQ(program.Text(IDC_PORT), "Close COM") << i;
    }
    const std::pair<int, std::string> fields[] = {
        {IDC_COM_SETTING_BAUD, "115200"}, {IDC_COM_SETTING_BAUD, "4800"}, {IDC_COM_SETTING_PORT, ports[1]}};
    for (const auto& [field, text] : fields) {
        ::PostMessageA(program.Frame(), WM_COMMAND, ID_COM_SETTING, 0);
        ASSERT_TRUE(Await([this] { return program.Box() != nullptr; }));
        ::SendMessageA(FindControl(program.Box(), field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        CProgram::ClickOn(FindControl(program.Box(), IDC_COM_SETTING_OK));
        ASSERT_TRUE(Await([this] { return program.Box() == nullptr; }));
        EXPECT_TRUE((field == IDC_COM_SETTING_PORT ? others : *counters).AwaitFrames(3)) << text;
    }
    EXPECT_TRUE(counters->AwaitSilence()) << "polls still go out on the former port";
}

TEST_F(Polling, APulledCableAndItsReturn) {
    // The file that stands for the pulled cable: see docs/testing.md.
    const char* const pulled = std::getenv("QUORVANE_TEST_PULLED");
    ASSERT_NE(pulled, nullptr) << "nobody to pull the cable";
    PollAll();
    std::ofstream(pulled).put('x');
    ExpectAddressButtons(""); // nobody answers any more
    EXPECT_TRUE(Await([size = LogText().size()] { return LogText().size() > size + 100; })) << "polling stops";
    program.Click(IDC_PORT);
    ExpectText(IDC_PORT, "Open COM");
    std::remove(pulled);
    counters = std::make_unique<CCounterPlayer>(std::vector<std::uint8_t>{0, 1, 2, 3, 4, 5});
    ASSERT_TRUE(Await([this] { return counters->Play(farPort); }));
    program.Click(IDC_PORT);
    ExpectText(IDC_PORT, "Close COM");
    ExpectAddressButtons(all);
}

} // namespace
