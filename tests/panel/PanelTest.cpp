// What the panel shows of the counters, and what it does for the user: choices, edits, polling, Update, Clear.
#include "PanelFixture.h"

namespace {

TEST_F(PanelTest, OpensIdleWithTheFocusOnStart) {
    EXPECT_EQ(SettingsShown(), "English IN NO 21 4 0");
    EXPECT_EQ(Counts(), "0 0");
    EXPECT_EQ(Buttons(), "");
    EXPECT_EQ(::GetFocus(), Control(IDC_START));
    EXPECT_FALSE(IsVisible(IDC_ALL) || IsVisible(IDC_COM_SETTING));
}

// Before each step the user has typed 99, which stays unless the step writes a record into the controls.
TEST_F(PanelTest, ButtonsAndControlsFollowTheReplies) {
    const auto read = [](std::uint8_t address) { return Frame({address, 0x82}); };
    const struct {
        std::uint32_t message;
        int address;
        Bytes reply;
        std::string buttons;
        int selected;
        std::string counts, sensitivity;
        Bytes sent;
    } steps[] = {
        {WM_POLL_REPLY, 3, Status(3, 12, 34), "3*", 3, "12 34", "0", read(3)},
        {WM_SETTINGS_REPLY, 3, Settings(3, 200), "3*", 3, "12 34", "200", {}},
        {WM_POLL_REPLY, 1, Status(1, 5, 6), "1*3 ", 3, "12 34", "200", read(1)},
        {WM_POLL_REPLY, 1, Status(1, 7, 8), "1*3 ", 3, "12 34", "99", {}},
        {WM_POLL_REPLY, 3, Status(3, 13, 35), "1*3 ", 3, "13 35", "200", {}},
        {WM_POLL_REPLY, 2, Status(4, 70, 71), "1*3 ", 3, "13 35", "99", read(2)},
        {WM_POLL_REPLY, -1, Status(3, 14, 36), "1*3 ", 3, "13 35", "99", {}},
        {WM_POLL_REPLY, 3, {}, "1*", 3, "14 36", "200", {}}, // gone, and still the one that is shown
        {WM_SETTINGS_REPLY, 1, Torn(Settings(1)), "", -1, "14 36", "99", {}},
        {WM_POLL_REPLY, 1, Status(1, 9, 9), "1*", 1, "9 9", "0", read(1)},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(testing::Message() << "step " << &step - steps);
        Type(IDC_SENSITIVITY_EDIT, "99");
        EXPECT_EQ(Reply(step.message, step.address, step.reply), "");
        EXPECT_EQ(Buttons(), step.buttons);
        EXPECT_EQ(panel->selected, step.selected);
        EXPECT_EQ(Counts(), step.counts);
        EXPECT_EQ(Text(IDC_SENSITIVITY_EDIT), step.sensitivity);
        EXPECT_EQ(Sent(), step.sent);
    }
}

TEST_F(PanelTest, AddressButtonsChooseOneOfSix) {
    for (std::uint8_t i = 0; i < 6; ++i) Reply(WM_POLL_REPLY, i, Status(i, i, 10));
    EXPECT_EQ(Buttons(), "0*1 2 3 4 5 ");
    EXPECT_EQ(SettingsShown(), "English IN YES 0 4 0"); // not read yet: all zero, and the period in its range
    for (int click = 0; click < 2; ++click) {           // the one that is shown can't be unchecked
        Click(IDC_ADDRESS_BUTTON_LAST);
        EXPECT_EQ(Buttons(), "0 1 2 3 4 5*");
        EXPECT_EQ(Counts(), "5 10");
    }
    Click(IDC_ADDRESS_BUTTON_SECOND);
    EXPECT_EQ(Buttons(), "0 1*2 3 4 5 ");
    EXPECT_EQ(panel->selected, 1);
    ::SetFocus(Control(IDC_ADDRESS_BUTTON_LAST));
    Reply(WM_POLL_REPLY, 5, {});
    EXPECT_EQ(::GetFocus(), Control(IDC_START)) << "no control that keys change";
    Reply(WM_POLL_REPLY, 0, {});
    EXPECT_EQ(Buttons(), "1 2*3 4 "); // the mark stays on its button
    Click(IDC_ADDRESS_BUTTON_SECOND);
    EXPECT_EQ(Buttons(), "1 2*3 4 ");
    EXPECT_EQ(panel->selected, 2);
    Reply(WM_POLL_REPLY, 1, {});
    Click(IDC_ADDRESS_BUTTON_FIRST); // the one that is shown
    EXPECT_EQ(Buttons(), "2*3 4 ");
}

TEST_F(PanelTest, ShowCounterMessageTakesAddressesOfTheTableOnly) {
    panel->records[5] = {.language = 1, .sdPeriod = 32, .address = 256, .sensitivity = 251, .inCount = -1};
    for (const int address : {-1, 6, 1 << 30}) {
        panel->SendMessage(WM_SHOW_COUNTER, static_cast<WPARAM>(address));
        EXPECT_EQ(SettingsShown(), "English IN NO 21 4 0") << address;
    }
    panel->SendMessage(WM_SHOW_COUNTER, 5);
    EXPECT_EQ(SettingsShown(), "Chinese IN YES 250 31 255");
    EXPECT_EQ(Counts(), "-1 0");
    EXPECT_EQ(panel->selected, -1);
}

TEST_F(PanelTest, AClockThatIsNoneIsNotSentBack) {
    Reply(WM_POLL_REPLY, 0, Frame({0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0}));
    panel->records[0].sdPeriod = 4; // as the edit shows it
    Sent();
    Click(IDC_UPDATE);
    EXPECT_EQ(Sent(), Bytes());
}

TEST_F(PanelTest, NumbersThatAreNoReplyAreIgnored) {
    FindTwoCounters();
    const auto records = panel->records;
    const ReplyBlock stranger{.length = 512, .address = 0, .data = {}, .settings = {}};
    for (const UINT message :
         {WM_POLL_REPLY, WM_SETTINGS_REPLY, WM_CLEAR_REPLY, WM_WRITE_REPLY, WM_ADDRESS_REPLY, WM_CLOCK_REPLY})
        for (const WPARAM number : {WPARAM{1}, ~WPARAM{0}, reinterpret_cast<WPARAM>(&stranger)})
            panel->PostMessage(message, number, 5);
    EXPECT_EQ(Reply(WM_POLL_REPLY, 2, Status(2, 56, 78)), "");
    EXPECT_EQ(panel->records, records);
    EXPECT_EQ(Buttons(), "0*2 ");
}

TEST_F(PanelTest, AChoiceIsMadeByAClickWhileIdle) {
    for (const int id : {IDC_LANGUAGE_CHINESE, IDC_DIRECTION_OUT, IDC_SD_DETECT_YES}) Click(id);
    EXPECT_EQ(SettingsShown(), "Chinese OUT YES 21 4 0");
    for (const int id : {IDC_LANGUAGE_ENGLISH, IDC_DIRECTION_IN, IDC_SD_DETECT_NO}) Click(id);
    EXPECT_EQ(SettingsShown(), "English IN NO 21 4 0");
    Click(IDC_START);
    for (const int id : {IDC_LANGUAGE_CHINESE, IDC_DIRECTION_OUT, IDC_SD_DETECT_YES}) Click(id);
    EXPECT_EQ(SettingsShown(), "English IN NO 21 4 0");
}

TEST_F(PanelTest, EditsKeepWhatIsTypedInTheirRange) {
    const auto left = [&](int id, std::initializer_list<const char*> typed) {
        std::string all;
        for (const char* text : typed) {
            Type(id, text);
            all += Text(id) + " ";
        }
        return all;
    };
    // What is no number reads as 0.
    EXPECT_EQ(left(IDC_SENSITIVITY_EDIT, {"250", "251", "-1", "-2147483648", "-", "9999999999"}),
              "250 250 0 0 - 9999999999 ");
    EXPECT_EQ(left(IDC_SD_PERIOD_EDIT, {"31", "32", "3", "", "x", "4294967301"}), "31 31 4 4 4 4 ");
    EXPECT_EQ(left(IDC_ADDRESS_EDIT, {"255", "300", "-7"}), "255 255 0 ");

    // Of what the user pastes they take no more figures than can be read.
    const std::string figures(11, '9');
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, figures.size() + 1);
    std::ranges::copy_n(figures.c_str(), std::ssize(figures) + 1, static_cast<char*>(::GlobalLock(memory)));
    ::GlobalUnlock(memory);
    ASSERT_TRUE(::OpenClipboard(panel->GetHandle()) && ::EmptyClipboard() && ::SetClipboardData(CF_TEXT, memory));
    ::CloseClipboard();
    for (const auto& [edit, taken] :
         {std::pair{IDC_SENSITIVITY_EDIT, "250"}, {IDC_SD_PERIOD_EDIT, "31"}, {IDC_ADDRESS_EDIT, "255"}}) {
        Type(edit, "");
        ::SendMessageA(Control(edit), EM_SETSEL, 0, -1);
        ::SendMessageA(Control(edit), WM_PASTE, 0, 0);
        EXPECT_EQ(Text(edit), taken) << edit;
    }
}

TEST_F(PanelTest, StartPollsTheAddressesInTurnUntilStop) {
    Click(IDC_START);
    EXPECT_EQ(Text(IDC_START), "Stop");
    EXPECT_FALSE(IsEnabled(IDC_UPDATE) || IsEnabled(IDC_CLEAR));
    ASSERT_TRUE(PumpUntil([&] { return panel->polls.size() >= 2; }));
    panel->SendMessage(WM_TIMER, 102);
    while (panel->polls.size() < 9) panel->SendMessage(WM_TIMER, 101);
    EXPECT_EQ(panel->polls, (std::vector{0, 1, 2, 3, 4, 5, 0, 1, 2}));

    Click(IDC_START);
    EXPECT_EQ(Text(IDC_START), "Start");
    EXPECT_TRUE(IsEnabled(IDC_UPDATE) && IsEnabled(IDC_CLEAR));
    EXPECT_FALSE(::KillTimer(panel->GetHandle(), 101)) << "the timer still runs";

    Click(IDC_START); // goes on with the address that was next
    ASSERT_TRUE(PumpUntil([&] { return panel->polls.size() >= 10; }));
    EXPECT_EQ(panel->polls[9], 3);
}

TEST_F(PanelTest, EnterIsStartAndStopWhereverTheFocusIsAndEscapeIsNothing) {
    const struct {
        int focus;
        WPARAM key;
        LPARAM flags;
        const char* caption;
    } rows[] = {{IDC_SENSITIVITY_EDIT, VK_RETURN, 1, "Stop"},
                {IDC_SENSITIVITY_EDIT, VK_RETURN, 1 | 1 << 30, "Stop"}, // held down
                {IDC_CLEAR, VK_ESCAPE, 1, "Stop"},
                {IDC_CLEAR, VK_RETURN, 1, "Start"},
                {IDC_UPDATE, VK_RETURN, 1, "Stop"}};
    for (const auto& row : rows) {
        MSG message{Control(row.focus), WM_KEYDOWN, row.key, row.flags, 0, {}};
        EXPECT_TRUE(panel->PreTranslateMessage(message));
        EXPECT_EQ(Text(IDC_START), row.caption);
    }
    panel->SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(Text(IDC_START), "Start");
    EXPECT_EQ(Sent(), Bytes()); // neither Update nor Clear
}

TEST_F(PanelTest, TabGoesDownTheSettingsAndThenTheLamps) {
    FindTwoCounters();
    Type(IDC_ADDRESS_EDIT, "7"), Type(IDC_TRANSMITTED_EDIT, "TX"), Type(IDC_RECEIVED_EDIT, "RX");
    std::vector<std::string> walk{"Clear", "date", "Chinese", "21", "OUT", "YES",      "5",    "7",
                                  "0",     "2",    "Update",  "TX", "RX",  "Open COM", "Start"};
    for (const bool backwards : {true, false}) {
        std::ranges::reverse(walk.begin(), walk.end() - 1);
        BYTE keys[256]{};
        keys[VK_SHIFT] = backwards ? 0x80 : 0;
        ::SetKeyboardState(keys);
        for (const std::string& text : walk) {
            MSG message{::GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
            EXPECT_TRUE(panel->PreTranslateMessage(message));
            const int id = ::GetDlgCtrlID(::GetFocus());
            EXPECT_EQ(id == IDC_DATE_PICKER ? "date" : Text(id), text);
        }
    }
}

TEST_F(PanelTest, UpdateSendsWhatDiffersFromTheShownCounter) {
    const auto write = [](std::uint8_t sensitivity, std::uint8_t settings, std::uint8_t minute = 6) {
        return Frame({0xFF, 0x88, 0x12, 3, 4, 5, minute, 7, 0, 0, 0, 0, 0, 0, sensitivity, settings});
    };
    TypeMinute(6);
    Click(IDC_UPDATE); // nobody is selected: compared with nothing set
    EXPECT_EQ(Sent(), write(21, 0xE4));
    const struct {
        std::function<void()> change;
        Bytes sent;
    } rows[] = {
        {[] {}, {}},
        {[&] { TypeMinute(59); }, Frame({0xFF, 0x8A, 0x12, 3, 4, 5, 0x59, 7})},
        {[&] { TypeMinute(59), Click(IDC_SD_DETECT_YES); }, write(21, 0xC5, 0x59)},
        {[&] { Click(IDC_LANGUAGE_CHINESE); }, write(21, 0x65)},
        {[&] { Type(IDC_SENSITIVITY_EDIT, "many"), Click(IDC_DIRECTION_OUT); }, write(0, 0xA5)},
        {[&] { Type(IDC_ADDRESS_EDIT, "300"); }, Frame({0xFF, 0x89, 0xFF})},
        {[&] { Type(IDC_SD_PERIOD_EDIT, "6"), Type(IDC_ADDRESS_EDIT, "3"); },
         Line({write(21, 0xE6), Frame({0xFF, 0x89, 3})})},
        {[&] { Click(IDC_ADDRESS_BUTTON_SECOND), Click(IDC_DIRECTION_IN); }, write(200, 0x5F)},
    };
    FindTwoCounters();
    for (const auto& row : rows) {
        panel->ShowCounter(panel->selected);
        row.change();
        Click(IDC_UPDATE);
        EXPECT_EQ(Sent(), row.sent) << "row " << &row - rows;
    }
}

TEST_F(PanelTest, ClearGoesToTheSelectedCounterUntilTheFirstUpdate) {
    const auto addressOfClear = [&] {
        Click(IDC_CLEAR);
        const Bytes sent = Sent();
        return sent.size() == 5 && sent[2] == 0x87 ? sent[1] : -1;
    };
    EXPECT_EQ(addressOfClear(), 255); // nobody is selected
    FindTwoCounters();
    EXPECT_EQ(addressOfClear(), 0);
    Click(IDC_UPDATE); // changes nothing, sends nothing, and still
    EXPECT_EQ(addressOfClear(), 255);
    Click(IDC_ALL);
    EXPECT_EQ(addressOfClear(), 0);
}

} // namespace
