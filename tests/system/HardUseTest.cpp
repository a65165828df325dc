// What a nervous user does: closes the program at any moment, and clicks anywhere.
#include "SystemTest.h"
#include "support/Seed.h"

namespace {

using HardUse = SystemTest;

// However it is asked to, and whatever stands in front of the window: its end is the end of everything.
TEST_F(HardUse, ClosedUnderAnyWindowOrMenuTheProgramIsGone) {
    const std::vector<int> rows[] = {{IDC_CLEAR}, {IDC_CLEAR, IDC_CLEAR}, {IDC_DIRECTION_OUT, IDC_UPDATE},
                                     {ID_ABOUT},  {ID_COM_SETTING},       {ID_PORT_MENU},
                                     {}};
    PlayCounters({0, 1, 2, 3, 4, 5});
    counters->BringFaults({"refuse *"});
    for (const std::vector<int>& commands : rows) {
        for (const UINT message : {WM_CLOSE, WM_ENDSESSION}) {
            SCOPED_TRACE(testing::PrintToString(commands) + (message == WM_CLOSE ? ", close" : ", end of the session"));
            StartPolling();
            for (const int id : commands) id == ID_PORT_MENU ? program.Click(id) : program.PostCommand(id);
            if (commands.empty()) PressKey(VK_SPACE, VK_MENU); // the system menu
            EXPECT_TRUE(Await([this] { return program.Box() != nullptr || ShownPopup() != nullptr; }));
            ::PostMessageA(program.Frame(), message, message == WM_ENDSESSION, 0);
            EXPECT_EQ(program.AwaitExit(), 0U);
        }
    }
}

// Clicks at random places, many of them on Clear or on what lies over it, while messages come and go.
TEST_F(HardUse, TheLineCarriesOnlyWhatWasPressed) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const auto chance = [&random](unsigned percent) { return random() % 100 < percent; };
    PlayCounters({0, 1, 2, 3, 4, 5});
    counters->BringFaults({"silent *"});
    StartProgram();
    program.OpenMenu(ID_HELP_MENU);
    program.PostCommand(
        IDC_CLEAR); // a result that comes while a menu is open ends the menu, which would keep the mouse
    program.ExpectBox("No Response");
    EXPECT_EQ(ShownPopup(), nullptr);
    const HWND clear = program.Control(IDC_CLEAR);
    RECT frame{}, button{};
    ::GetWindowRect(program.Panel(), &frame);
    ::GetWindowRect(clear, &button);
    const auto within = [&random](const RECT& rect) {
        return POINT{rect.left + static_cast<LONG>(random() % static_cast<unsigned>(rect.right - rect.left)),
                     rect.top + static_cast<LONG>(random() % static_cast<unsigned>(rect.bottom - rect.top))};
    };
    const auto canPress = [&](POINT place) {
        return ::WindowFromPoint(place) == clear && ::IsWindowEnabled(clear) && ::IsWindowEnabled(program.Frame());
    };
    std::size_t least = 1, most = 1;
    for (int clicks = 0; clicks < 100; ++clicks) {
        if (chance(10)) program.PostCommand(chance(50) ? IDC_UPDATE : ID_ABOUT);
        if (ShownPopup() != nullptr) PressKey(VK_ESCAPE);                   // no row of a menu is chosen
        if (const HWND box = program.Box(); box != nullptr && chance(50)) { // with its OK over Clear
            const POINT ok = MiddleOf(FindControl(box, IDC_MESSAGE_OK)), over = MiddleOf(clear);
            RECT whole{};
            ::GetWindowRect(box, &whole);
            ::SetWindowPos(box, nullptr, whole.left + over.x - ok.x, whole.top + over.y - ok.y, 0, 0,
                           SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
        }
        if (const HWND box = program.Box(); box != nullptr && chance(20)) ::PostMessageA(box, WM_COMMAND, IDCANCEL, 0);
        const POINT place = within(chance(60) ? button : frame);
        if (::WindowFromPoint(place) == program.Control(IDC_PORT)) continue; // a closed port carries nothing
        ::SetCursorPos(place.x, place.y);
        ASSERT_TRUE(program.Answers());
        if (ShownPopup() != nullptr) continue;
        const bool before = canPress(place);
        ClickAt(place);
        std::this_thread::sleep_for(20ms); // as what is posted next would overtake the mouse
        ASSERT_TRUE(program.Answers());
        // A message may have come up just before the click.
        most += before;
        least += before && canPress(place);
    }
    if (program.Text(IDC_START) == "Stop") program.SendCommand(IDC_START);
    EXPECT_TRUE(counters->AwaitSilence());
    const std::size_t sent = counters->Heard("87").size();
    EXPECT_GE(sent, least);
    EXPECT_LE(sent, most);
    EXPECT_GT(most, 1U);
}

} // namespace
