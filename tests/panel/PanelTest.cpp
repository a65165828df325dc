// What the panel shows of the counters, and what it does for the user: choices, edits, polling, Update, Clear.
#include "PanelFixture.h"

namespace {

// Before each step the user has typed 99, which stays unless the step writes a record into the controls.
TEST_F(PanelTest, EveryStateIsShown) {
    const UINT poll = WM_POLL_REPLY, settings = WM_SETTINGS_REPLY, show = WM_SHOW_COUNTER, click = WM_COMMAND;
    const auto read = [](std::uint8_t address) { return Frame({address, 0x82}); };
    panel->records[5] = {0, 1, 0, 1, 32, 256, 251, -1, 65535, 0, 0};
    const struct {
        UINT message; // a reply, an address to show, or a click
        int number;
        Bytes reply;
        std::string settings, counts, buttons;
        int selected = -1;
        Bytes sent{};
        bool polling = false;
    } steps[] = {
        {show, 6, {}, "English IN NO 99 4 0", "0 0", ""},
        {click, IDC_LANGUAGE_CHINESE, {}, "Chinese IN NO 99 4 0", "0 0", ""},
        {click, IDC_DIRECTION_OUT, {}, "Chinese OUT NO 99 4 0", "0 0", ""},
        {click, IDC_SD_DETECT_YES, {}, "Chinese OUT YES 99 4 0", "0 0", ""},
        {click, IDC_START, {}, "Chinese OUT YES 99 4 0", "0 0", "", -1, {}, true},
        {click, IDC_LANGUAGE_ENGLISH, {}, "Chinese OUT YES 99 4 0", "0 0", "", -1, {}, true},
        {poll, 3, Status(3, 12, 34), "English IN YES 0 4 3", "12 34", "3*", 3, read(3), true},
        {settings, 3, Settings(3, 200, 0x1E), "Chinese OUT YES 200 30 3", "12 34", "3*", 3, {}, true},
        {click, IDC_START, {}, "Chinese OUT YES 99 30 3", "12 34", "3*", 3},
        {click, IDC_LANGUAGE_ENGLISH, {}, "English OUT YES 99 30 3", "12 34", "3*", 3},
        {click, IDC_DIRECTION_IN, {}, "English IN YES 99 30 3", "12 34", "3*", 3},
        {click, IDC_SD_DETECT_NO, {}, "English IN NO 99 30 3", "12 34", "3*", 3},
        {poll, 1, Status(1, 5, 6), "Chinese OUT YES 200 30 3", "12 34", "1*3 ", 3, read(1)},
        {poll, 1, Status(1, 7, 8), "Chinese OUT YES 99 30 3", "12 34", "1*3 ", 3},
        {poll, 3, Status(3, 13, 35), "Chinese OUT YES 200 30 3", "13 35", "1*3 ", 3},
        {poll, 2, Status(4, 70, 71), "Chinese OUT YES 99 30 3", "13 35", "1*3 ", 3, read(2)},
        {poll, -1, Status(3, 14, 36), "Chinese OUT YES 99 30 3", "13 35", "1*3 ", 3},
        {poll, 3, {}, "Chinese OUT YES 200 30 3", "14 36", "1*", 3}, // gone, and still the one that is shown
        {click, IDC_ADDRESS_BUTTON_FIRST, {}, "English IN YES 0 4 1", "7 8", "1*", 1},
        {settings, 1, Torn(Settings(1)), "English IN YES 99 4 1", "7 8", ""},
        {poll, 1, Status(1, 9, 9), "English IN YES 0 4 1", "9 9", "1*", 1, read(1)},
        {poll, 0, Status(0), "English IN YES 0 4 1", "9 9", "0*1 ", 1, read(0)}, // the mark stays on its button
        {poll, 2, Status(2, 2, 9), "English IN YES 0 4 1", "9 9", "0*1 2 ", 1, read(2)},
        {poll, 3, Status(3, 3, 9), "English IN YES 0 4 1", "9 9", "0*1 2 3 ", 1, read(3)},
        {poll, 4, Status(4, 4, 9), "English IN YES 0 4 1", "9 9", "0*1 2 3 4 ", 1, read(4)},
        {show, 5, {}, "Chinese IN NO 250 31 255", "-1 65535", "0*1 2 3 4 ", 1},
        {poll, 5, Status(5, 5, 9), "English IN YES 0 4 1", "9 9", "0*1 2 3 4 5 ", 1, read(5)},
        {click, IDC_ADDRESS_BUTTON_LAST, {}, "Chinese IN NO 250 31 5", "5 9", "0 1 2 3 4 5*", 5},
        {click, IDC_ADDRESS_BUTTON_LAST, {}, "Chinese IN NO 99 31 5", "5 9", "0 1 2 3 4 5*", 5},
        {poll, 0, {}, "Chinese IN NO 250 31 5", "5 9", "1 2 3 4 5 ", 5},
        {click, IDC_ADDRESS_BUTTON_SECOND, {}, "English IN YES 0 4 2", "2 9", "1 2*3 4 5 ", 2},
    };
    EXPECT_EQ(SettingsShown(), "English IN NO 21 4 0");
    for (const auto& step : steps) {
        SCOPED_TRACE(testing::Message() << "step " << &step - steps);
        Type(IDC_SENSITIVITY_EDIT, "99");
        if (step.message == click) Click(step.number);
        if (step.message == show) panel->SendMessage(show, static_cast<WPARAM>(step.number));
        if (step.message < show) Reply(step.message, step.number, step.reply);
        EXPECT_EQ(Look(IDC_START) + " " + Look(IDC_UPDATE) + " " + Look(IDC_CLEAR),
                  step.polling ? "Stop Update- Clear.-" : "Start Update Clear");
        EXPECT_EQ(SettingsShown(), step.settings);
        EXPECT_EQ(Counts(), step.counts);
        EXPECT_EQ(Buttons(), step.buttons);
        EXPECT_EQ(panel->selected, step.selected);
        EXPECT_EQ(Sent(), step.sent);
    }
}

TEST_F(PanelTest, AControlThatCanNoLongerBeUsedHandsTheFocusToStart) {
    EXPECT_EQ(::GetFocus(), Control(IDC_START));
    for (std::uint8_t i = 0; i < 6; ++i) Reply(WM_POLL_REPLY, i, Status(i));
    std::vector ids{IDC_UPDATE, IDC_CLEAR, IDC_PORT, IDC_LANGUAGE_ENGLISH, IDC_LANGUAGE_CHINESE, IDC_DIRECTION_IN};
    ids.insert(ids.end(), {IDC_DIRECTION_OUT, IDC_SD_DETECT_YES, IDC_SD_DETECT_NO});
    for (int id = IDC_ADDRESS_BUTTON_FIRST; id <= IDC_ADDRESS_BUTTON_LAST; ++id) ids.push_back(id);
    for (const int id : ids) {
        ::EnableWindow(Control(id), TRUE);
        EXPECT_TRUE(::SetFocus(Control(id)) != nullptr && ::GetFocus() == Control(id));
        ::EnableWindow(Control(id), FALSE);
        EXPECT_EQ(::GetFocus(), Control(IDC_START)) << id;
    }
}

TEST_F(PanelTest, EditsKeepWhatIsTypedInTheirRange) {
    const std::tuple<int, std::vector<const char*>, std::string> rows[] = {
        {IDC_SENSITIVITY_EDIT,
         {"250", "251", "-1", "-2147483648", "-", "9999999999"},
         "250 250 0 0 - 9999999999 "}, // what is no number reads as 0
        {IDC_SD_PERIOD_EDIT, {"31", "32", "3", "", "x", "4294967301"}, "31 31 4 4 4 4 "},
        {IDC_ADDRESS_EDIT, {"255", "300", "-7"}, "255 255 0 "}};
    for (const auto& [id, typed, expected] : rows) {
        std::string left;
        for (const char* text : typed) Type(id, text), left += Text(id) + " ";
        EXPECT_EQ(left, expected);
        EXPECT_EQ(::SendMessageA(Control(id), EM_GETLIMITTEXT, 0, 0), 9); // what a number has room for
    }
}

TEST_F(PanelTest, StartPollsTheAddressesInTurnUntilStop) {
    const DWORD begun = ::GetTickCount();
    Click(IDC_START);
    ASSERT_TRUE(PumpUntil([&] { return panel->polls.size() >= 2; }));
    EXPECT_GE(::GetTickCount() - begun, 350U);
    panel->SendMessage(WM_TIMER, 102);
    while (panel->polls.size() < 9) panel->SendMessage(WM_TIMER, 101);
    EXPECT_EQ(panel->polls, (std::vector{0, 1, 2, 3, 4, 5, 0, 1, 2}));
    Click(IDC_START);
    EXPECT_FALSE(::KillTimer(panel->GetHandle(), 101)) << "the timer still runs";
    Click(IDC_START); // goes on with the address that was next
    ASSERT_TRUE(PumpUntil([&] { return panel->polls.size() >= 10; }));
    EXPECT_EQ(panel->polls[9], 3);
    panel->StopWork(); // the end: the captions stay
    EXPECT_FALSE(::KillTimer(panel->GetHandle(), 101));
    EXPECT_EQ(Look(IDC_START) + " " + Look(IDC_UPDATE) + " " + Look(IDC_CLEAR), "Stop Update- Clear.-");
}

TEST_F(PanelTest, Keys) {
    const auto press = [&](HWND focus, WPARAM key, LPARAM flags) {
        MSG message{focus, WM_KEYDOWN, key, flags, 0, {}};
        EXPECT_TRUE(panel->PreTranslateMessage(message));
    };
    const std::tuple<int, WPARAM, LPARAM, const char*> rows[] = {
        {IDC_SENSITIVITY_EDIT, VK_RETURN, 1, "Stop"},
        {IDC_SENSITIVITY_EDIT, VK_RETURN, 1 | 1 << 30, "Stop"}, // held down
        {IDC_CLEAR, VK_ESCAPE, 1, "Stop"},
        {IDC_CLEAR, VK_RETURN, 1, "Start"},
        {IDC_UPDATE, VK_RETURN, 1, "Stop"}};
    for (const auto& [focus, key, flags, caption] : rows) {
        press(Control(focus), key, flags);
        EXPECT_EQ(Text(IDC_START), caption);
    }
    panel->SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(Text(IDC_START), "Start");
    EXPECT_EQ(Sent(), Bytes()); // neither Update nor Clear

    FindTwoCounters();
    ::SetFocus(Control(IDC_START));
    Type(IDC_ADDRESS_EDIT, "7"), Type(IDC_TRANSMITTED_EDIT, "TX"), Type(IDC_RECEIVED_EDIT, "RX");
    std::vector<std::string> walk{"Clear", "date", "Chinese", "21", "OUT", "YES",      "5",    "7",
                                  "0",     "2",    "Update",  "TX", "RX",  "Open COM", "Start"};
    for (const bool backwards : {true, false}) {
        std::ranges::reverse(walk.begin(), walk.end() - 1);
        BYTE keys[256]{};
        keys[VK_SHIFT] = backwards ? 0x80 : 0;
        ::SetKeyboardState(keys);
        for (const std::string& text : walk) {
            press(::GetFocus(), VK_TAB, 1);
            const int id = ::GetDlgCtrlID(::GetFocus());
            EXPECT_EQ(id == IDC_DATE_PICKER ? "date" : Text(id), text);
        }
    }
}

TEST_F(PanelTest, UpdateSendsWhatDiffersAndClearGoesToOneOrToAll) {
    const auto write = [](std::uint8_t sensitivity, std::uint8_t settings, std::uint8_t minute = 6) {
        return Frame({0xFF, 0x88, 0x12, 3, 4, 5, minute, 7, 0, 0, 0, 0, 0, 0, sensitivity, settings});
    };
    const auto typeMinute = [&](WORD minute) {
        SYSTEMTIME time{2012, 3, 0, 4, 5, minute, 7, 0};
        ::SendMessageA(Control(IDC_DATE_PICKER), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    };
    const auto clear = [](std::uint8_t address) { return Frame({address, 0x87}); };
    const Bytes periodAndAddress = Line({write(21, 0xE6), Frame({0xFF, 0x89, 3})});
    const std::tuple<std::function<void()>, Bytes, int> rows[] = {
        {[] {}, clear(0xFF), IDC_CLEAR}, // nobody is selected
        {[&] { FindTwoCounters(); }, clear(0), IDC_CLEAR},
        {[&] { Click(IDC_ADDRESS_BUTTON_SECOND); }, clear(2), IDC_CLEAR},
        {[&] { Click(IDC_ADDRESS_BUTTON_FIRST); }, {}, IDC_UPDATE},
        {[] {}, clear(0xFF), IDC_CLEAR}, // since the first Update
        {[&] { Click(IDC_ALL); }, clear(0), IDC_CLEAR},
        {[&] { typeMinute(59); }, Frame({0xFF, 0x8A, 0x12, 3, 4, 5, 0x59, 7}), IDC_UPDATE},
        {[&] { typeMinute(59), Click(IDC_SD_DETECT_YES); }, write(21, 0xC5, 0x59), IDC_UPDATE},
        {[&] { Type(IDC_SENSITIVITY_EDIT, "many"), Click(IDC_DIRECTION_OUT); }, write(0, 0xA5), IDC_UPDATE},
        {[&] { Type(IDC_ADDRESS_EDIT, "300"); }, Frame({0xFF, 0x89, 0xFF}), IDC_UPDATE},
        {[&] { Type(IDC_SD_PERIOD_EDIT, "6"), Type(IDC_ADDRESS_EDIT, "3"); }, periodAndAddress, IDC_UPDATE},
        {[&] { Click(IDC_ADDRESS_BUTTON_SECOND), Click(IDC_DIRECTION_IN); }, write(200, 0x5F), IDC_UPDATE},
    };
    typeMinute(6);
    Click(IDC_UPDATE); // nobody is selected: compared with nothing set
    EXPECT_EQ(Sent(), write(21, 0xE4));
    Click(IDC_ALL);
    for (const auto& [change, expected, button] : rows) {
        panel->ShowCounter(panel->selected);
        change();
        Click(button);
        EXPECT_EQ(Sent(), expected);
    }
    // A clock that is none is shown as such and not sent back.
    Reply(WM_POLL_REPLY, 2, Frame({2, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0}));
    Click(IDC_UPDATE);
    EXPECT_EQ(Sent(), Bytes());
}

} // namespace
