// What a deed is to the program: see SoakPlan.h.
#include <array>
#include <string>
#include <vector>

#include "resources/ResourceIds.h"
#include "soak/SoakRun.h"
#include "soak/Waiting.h"
#include "user/WindowSearch.h"

namespace {

template <std::size_t count>
auto Pick(const std::array<int, count>& all, std::uint32_t number) {
    return all.at(number % count);
}

constexpr std::array buttons{
    IDC_START,        IDC_START,         IDC_START,         IDC_UPDATE,       IDC_UPDATE,
    IDC_UPDATE,       IDC_CLEAR,         IDC_CLEAR,         IDC_PORT,         IDC_LANGUAGE_ENGLISH,
    IDC_DIRECTION_IN, IDC_DIRECTION_OUT, IDC_SD_DETECT_YES, IDC_SD_DETECT_NO, IDC_LANGUAGE_CHINESE};

} // namespace

void CSoakRun::Do(const SoakAction& action) {
    const auto& [first, second, third] = action.numbers;
    switch (action.deed) {
    case SoakDeed::Press:
        return hand.Click(Pick(buttons, first));
    case SoakDeed::Enter:
        return hand.PressKey(VK_RETURN);
    case SoakDeed::Type:
        return Type(action);
    case SoakDeed::PickDate:
        return PickDate(action);
    case SoakDeed::Lamp:
        return hand.Click(IDC_ADDRESS_BUTTON_FIRST + static_cast<int>(first % counterCount));
    case SoakDeed::Menu:
        return OpenMenu(action);
    case SoakDeed::Dialog:
        return OpenDialog(action);
    case SoakDeed::Dismiss:
        return program.Box() != nullptr && first % 4 == 0 ? hand.PressKey(VK_RETURN) : hand.PressKey(VK_ESCAPE);
    case SoakDeed::Key:
        return PressAnyKey(action);
    case SoakDeed::Wander:
        return Wander(action);
    case SoakDeed::Move:
        return Move(action);
    case SoakDeed::Minimise:
        return Minimise();
    case SoakDeed::Steal:
        return Steal(action);
    case SoakDeed::Fault:
        return AddFault(action);
    case SoakDeed::Heal:
        return line.Heal();
    case SoakDeed::Count:
        return line.Count(first, {.in = static_cast<std::uint16_t>(second), .out = static_cast<std::uint16_t>(third)});
    case SoakDeed::Flood:
        return line.Flood(first % 2 == 0 ? 600 + second % 3000 : 1 + second % 40);
    case SoakDeed::Counters:
        return OtherCounters(action);
    case SoakDeed::Pull:
        return line.Pull();
    case SoakDeed::Plug:
        return line.Plug() ? void() : record.Fail("the cable doesn't come back");
    case SoakDeed::Wait:
        return ::Sleep(first % 1000);
    case SoakDeed::Poll:
        return Poll();
    case SoakDeed::End:
        EndProgram(static_cast<SoakEnd>(first % 3));
        return StartProgram();
    }
}

void CSoakRun::Poll() {
    hand.PressKey(VK_ESCAPE);
    if (!program.IsPortOpen()) hand.Click(IDC_PORT);
    if (!program.IsPolling()) hand.Click(IDC_START);
}

void CSoakRun::Type(const SoakAction& action) {
    constexpr std::array edits{IDC_SENSITIVITY_EDIT, IDC_SD_PERIOD_EDIT, IDC_ADDRESS_EDIT};
    hand.Click(Pick(edits, action.numbers[0]));
    hand.PressKey(VK_END);
    hand.PressKey(VK_HOME, VK_SHIFT);
    for (const char digit : std::to_string(action.numbers[1] % (action.numbers[2] % 2 == 0 ? 1000 : 10)))
        hand.PressKey(digit);
}

void CSoakRun::PickDate(const SoakAction& action) {
    const HWND picker = program.Control(IDC_DATE_PICKER);
    if (::IsWindowVisible(picker) == FALSE) return;
    RECT place{};
    ::GetWindowRect(picker, &place);
    hand.ClickAt({place.left + 4 + static_cast<LONG>(action.numbers[0] % 130), (place.top + place.bottom) / 2});
    hand.PressKey(action.numbers[1] % 2 == 0 ? VK_UP : VK_DOWN);
}

// One time in three it is left by Escape.
void CSoakRun::OpenMenu(const SoakAction& action) {
    constexpr std::array menus{ID_PORT_MENU, ID_HELP_MENU, ID_LANGUAGE_MENU};
    const int menu = Pick(menus, action.numbers[0]);
    hand.Click(menu);
    HWND root = nullptr;
    if (!AwaitFor(300, [&] { return (root = ShownPopup()) != nullptr; })) return;
    if (action.numbers[1] % 3 == 0) return hand.PressKey(VK_ESCAPE);
    // The third row of the first menu would open the log with another program.
    ClickRow(root, menu == ID_HELP_MENU ? 0 : action.numbers[1] % 2);
    if (menu != ID_PORT_MENU) return;
    HWND rows = nullptr;
    if (!AwaitFor(600, [&] { return (rows = ShownPopup()) != root && rows != nullptr; })) return;
    record.Disturb();
    record.ExpectPortWork();
    // The port in use or the third one, at whose end nobody is; the second one is the counters'.
    ClickRow(rows, action.numbers[2] % 3 == 0 ? 2 : 0);
    record.Disturb();
}

void CSoakRun::ClickRow(HWND popup, std::uint32_t row) {
    constexpr LONG rowHeight = 22;
    RECT place{};
    ::GetWindowRect(popup, &place);
    hand.ClickAt({place.left + 40, place.top + 3 + rowHeight * static_cast<LONG>(row) + rowHeight / 2});
}

// COM Setting stands in no menu: other programs ask for it.
void CSoakRun::OpenDialog(const SoakAction& action) {
    const bool about = action.numbers[0] % 2 == 0;
    if (!about) record.ExpectPortWork();
    ::PostMessageA(about ? program.Panel() : program.Frame(), WM_COMMAND, about ? ID_ABOUT : ID_COM_SETTING, 0);
    ::Sleep(action.numbers[1] % 300);
}

void CSoakRun::PressAnyKey(const SoakAction& action) {
    constexpr std::array keys{VK_TAB, VK_TAB, VK_SPACE, VK_LEFT, VK_UP, VK_DOWN, VK_BACK, int{'7'}, int{'0'}};
    if (ShownPopup() != nullptr) return hand.PressKey(VK_ESCAPE);
    hand.PressKey(Pick(keys, action.numbers[0]), action.numbers[1] % 4 == 0 ? VK_SHIFT : 0);
}

void CSoakRun::Wander(const SoakAction& action) {
    RECT client{};
    ::GetClientRect(program.Frame(), &client);
    if (::IsIconic(program.Frame()) != FALSE || client.right == 0 || client.bottom == 0) return;
    POINT place{static_cast<LONG>(action.numbers[0]) % client.right,
                static_cast<LONG>(action.numbers[1]) % client.bottom};
    ::ClientToScreen(program.Frame(), &place);
    const bool clicks = action.numbers[2] % 3 == 0 && ShownPopup() == nullptr;
    return clicks ? hand.ClickAt(place) : hand.PointAt(place);
}

void CSoakRun::Move(const SoakAction& action) {
    if (::IsIconic(program.Frame()) != FALSE || ShownPopup() != nullptr) return;
    RECT place{};
    ::GetWindowRect(program.Frame(), &place);
    const POINT title{place.left + 120, place.top + 10};
    hand.Drag(title,
              {120 + static_cast<LONG>(action.numbers[0] % 480), 10 + static_cast<LONG>(action.numbers[1] % 300)});
}

void CSoakRun::Minimise() {
    const bool iconic = ::IsIconic(program.Frame()) != FALSE;
    ::PostMessageA(program.Frame(), WM_SYSCOMMAND, iconic ? SC_RESTORE : SC_MINIMIZE, 0);
    ::Sleep(100);
}

void CSoakRun::Steal(const SoakAction& action) {
    ::ShowWindow(thief.GetHandle(), SW_SHOW);
    ::SetForegroundWindow(thief.GetHandle());
    ::Sleep(50 + action.numbers[0] % 300);
    ::ShowWindow(thief.GetHandle(), SW_HIDE);
    if (action.numbers[1] % 2 == 0) program.ComeToFront();
}

void CSoakRun::AddFault(const SoakAction& action) {
    constexpr std::array faults{"silent",     "refuse", "noise=7",  "torn",       "split=150", "checksum",   "late=150",
                                "stranger=9", "twice",  "overlong", "garbledate", "nodate",    "latency=50", "echo"};
    const std::uint32_t address = action.numbers[1] % 7;
    line.AddFault(std::string(faults.at(action.numbers[0] % faults.size())) +
                  (address == counterCount ? " *" : " " + std::to_string(address)) +
                  (action.numbers[2] % 3 == 0 ? "" : " " + std::to_string(1 + action.numbers[2] % 20)));
}

void CSoakRun::OtherCounters(const SoakAction& action) {
    std::vector<std::uint8_t> addresses;
    for (std::uint8_t address = 0; address < counterCount; ++address) {
        if ((action.numbers[0] >> address & 1) != 0) addresses.push_back(address);
    }
    if (addresses.empty()) addresses = {0, 1, 3};
    if (action.numbers[1] % 3 == 0) addresses.back() = addresses.front();
    line.Renew(addresses);
}
