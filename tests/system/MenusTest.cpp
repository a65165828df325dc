// The popups of the top bar as their user has them: with the mouse, on the screen, while the line is busy.
#include <algorithm>
#include <cstdlib>

#include "SystemTest.h"

namespace {

class Menus : public SystemTest {
protected:
    static HWND Popup() { return ::FindWindowA("#32768", nullptr); }

    // The popups that stand, the latest first.
    static std::vector<HWND> Popups() {
        std::vector<HWND> found;
        for (HWND window = nullptr; (window = ::FindWindowExA(nullptr, window, "#32768", nullptr)) != nullptr;) {
            if (::IsWindowVisible(window)) found.push_back(window);
        }
        return found;
    }

    // The popup of a bar's button; null, and a failure, if none comes up.
    HWND Open(int button) {
        const auto pressed = program.Click(button);
        HWND popup = nullptr;
        EXPECT_TRUE(Await([&] { return ::IsWindowVisible(popup = Popup()) != FALSE; }));
        lastOpening = Clock::now() - pressed;
        return popup;
    }

    // Where no window manager keeps windows in order, the frame that the click has activated may come up before the
    // popup.
    HWND OpenOnTop(int button) {
        for (int tries = 0; tries < 5; ++tries) {
            const HWND popup = Open(button);
            std::this_thread::sleep_for(300ms * TimeFactor());
            RECT place{};
            ::GetWindowRect(popup, &place);
            const HDC screen = ::GetDC(nullptr);
            const COLORREF corner = ::GetPixel(screen, place.right - 4, place.bottom - 4);
            ::ReleaseDC(nullptr, screen);
            if (corner == ::GetSysColor(COLOR_WINDOW)) return popup;
            PressKey(VK_ESCAPE);
            EXPECT_TRUE(Await([] { return Popups().empty(); }));
        }
        return nullptr;
    }

    // From the popup's size, as another process's menu can't be asked everywhere: rows of one height and a thin border.
    static RECT RowOf(HWND popup, int row) {
        RECT client{};
        ::GetClientRect(popup, &client);
        POINT origin{0, 0};
        ::ClientToScreen(popup, &origin);
        const LONG height = std::max(::GetSystemMetrics(SM_CYMENU), 22);
        const LONG top = origin.y + client.bottom % height / 2 + row * height;
        const LONG border = client.bottom % height / 2;
        return {origin.x + border, top, origin.x + client.right - border, top + height};
    }
    static void Press(HWND popup, int row) {
        const RECT place = RowOf(popup, row);
        ClickAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    }

    // By mouse through both popups.
    void ChoosePort(int row) {
        const HWND root = Open(ID_PORT_MENU);
        Press(root, 0);
        ASSERT_TRUE(Await([] { return Popups().size() == 2; }));
        const std::vector<HWND> standing = Popups();
        Press(standing[0] == root ? standing[1] : standing[0], row);
        ASSERT_TRUE(Await([] { return Popups().empty(); }));
    }

    Clock::duration lastOpening{};
};

TEST_F(Menus, EachComesUpAtOnceUnderThePortButton) {
    StartProgram();
    for (const int button : {ID_HELP_MENU, ID_LANGUAGE_MENU, ID_PORT_MENU}) {
        auto best = Clock::duration::max();
        for (int tries = 0; tries < 3; ++tries) {
            const HWND popup = Open(button);
            ASSERT_NE(popup, nullptr) << button;
            best = std::min(best, lastOpening);
            RECT place{}, bar{};
            ::GetWindowRect(popup, &place);
            ::GetWindowRect(program.Control(ID_PORT_MENU), &bar);
            EXPECT_EQ(place.top, bar.bottom);
            EXPECT_NEAR((place.left + place.right) / 2, bar.left, 1);
            PressKey(VK_ESCAPE);
            ASSERT_TRUE(Await([] { return Popups().empty(); }));
        }
        RecordProperty("popupMilliseconds_" + std::to_string(button),
                       std::to_string(std::chrono::duration<double, std::milli>(best).count()));
        EXPECT_LT(best, 100ms * TimeFactor()) << button;
    }
}

TEST_F(Menus, ColumnTickBoxAndTextInPixels) {
    StartProgram();
    const HWND popup = OpenOnTop(ID_LANGUAGE_MENU); // its first row, English, is marked
    ASSERT_NE(popup, nullptr);
    ::SetCursorPos(900, 700);
    const RECT row = RowOf(popup, 0);
    const HDC screen = ::GetDC(nullptr);
    const auto at = [&](LONG x, LONG y) { return ::GetPixel(screen, row.left + x, row.top + y); };
    const COLORREF window = ::GetSysColor(COLOR_WINDOW), highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    // A quarter of the way from the face colour to white.
    const COLORREF face = ::GetSysColor(COLOR_3DFACE);
    const auto lighter = [](int channel) { return channel + (255 - channel) / 4; };
    const COLORREF stripe = RGB(lighter(GetRValue(face)), lighter(GetGValue(face)), lighter(GetBValue(face)));
    ASSERT_NE(stripe, window) << "colours in which nothing can be told";
    const LONG boxTop = (row.bottom - row.top - 16 + 1) / 2;
    EXPECT_TRUE(Await([&] { return at(4, boxTop) == highlight && at(22, 4) == stripe && at(23, 4) == window; }));
    for (LONG i = 0; i < 16; ++i) { // the frame of the tick box, and the column around it
        EXPECT_EQ(at(4 + i, boxTop), highlight) << i;
        EXPECT_EQ(at(4 + i, boxTop + 15), highlight) << i;
        EXPECT_EQ(at(4, boxTop + i), highlight) << i;
        EXPECT_EQ(at(19, boxTop + i), highlight) << i;
        EXPECT_EQ(at(3, boxTop + i), stripe) << i;
        EXPECT_EQ(at(20, boxTop + i), stripe) << i;
    }
    LONG textLeft = 0;
    for (LONG x = 23; x < row.right - row.left && textLeft == 0; ++x) {
        for (LONG y = 2; y < row.bottom - row.top - 2; ++y) {
            if (at(x, y) != window) textLeft = x;
        }
    }
    EXPECT_GE(textLeft, 31);
    EXPECT_LE(textLeft, 34); // the first letter's own bearing
    EXPECT_EQ(at(23, 4), window);
    EXPECT_EQ(at(22, 4), stripe);
    ::ReleaseDC(nullptr, screen);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Await([] { return Popups().empty(); }));
}

TEST_F(Menus, ALanguageIsChosenByKeysAndStored) {
    StartProgram();
    ASSERT_NE(Open(ID_LANGUAGE_MENU), nullptr);
    for (const int key : {VK_DOWN, VK_DOWN, VK_RETURN}) PressKey(static_cast<WORD>(key));
    program.ExpectBox("Set up successfully. The next time start to take effect");
    EXPECT_EQ(Stored("Language"), 1U);
}

// Two lines, each with six counters. The program goes from one to the other with the mouse while it polls.
TEST_F(Menus, ThePortIsChangedByMouseWhilePolling) {
    const char* const secondNear = std::getenv("QUORVANE_TEST_PORT_C");
    const char* const secondFar = std::getenv("QUORVANE_TEST_PORT_D");
    ASSERT_TRUE(secondNear != nullptr && secondFar != nullptr) << "no second cable";
    const auto numberOf = [](const std::string& port) { return static_cast<DWORD>(std::stoi(port.substr(3))); };
    const DWORD numbers[] = {nearNumber, numberOf(secondNear)};
    PlayCounters({0, 1, 2, 3, 4, 5});
    CCounterPlayer others({0, 1, 2, 3, 4, 5});
    ASSERT_TRUE(others.Play(secondFar));
    StartPolling();
    ExpectAddressButtons("0 1 2 3 4 5");
    constexpr int changes = 20;
    for (int i = 1; i <= changes; ++i) {
        const DWORD number = numbers[i % 2];
        ASSERT_NO_FATAL_FAILURE(ChoosePort(static_cast<int>(number) - 1)); // every port up to these is there
        EXPECT_TRUE(Await([&] { return Stored("COM") == number; })) << i;
        EXPECT_EQ(program.Text(IDC_PORT), "Close COM") << i;
    }
    // With each change in the middle of an answer, all six can have been off at once, and then another one is shown.
    ExpectAddressButtons("0 1 2 3 4 5");
    program.Click(IDC_ADDRESS_BUTTON_FIRST);
    ExpectPollingGoesOn();
    StopPolling();
    int unanswered = 0;
    const auto lines = LogLines();
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        // A poll whose port was closed before the read has no line at all for what came back.
        if (lines[i].sent && (lines[i + 1].sent || lines[i + 1].hex.empty())) ++unanswered;
    }
    RecordProperty("pollsLost", std::to_string(unanswered));
    EXPECT_LE(unanswered, changes);
}

} // namespace
