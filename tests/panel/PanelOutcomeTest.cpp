// What became of the user's commands, the traffic log and its totals, the port, and the popups of the top bar.
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "framework/ResourceModule.h"
#include "framework/Shell.h"
#include "framework/SystemHandles.h"
#include "menu/OwnerDrawMenu.h"
#include "PanelFixture.h"
#include "support/Meanwhile.h"

namespace {

std::wstring opened; // what the shell was asked to do, and with what

HINSTANCE WINAPI NoteOpened(HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR, LPCWSTR, INT show) {
    opened = std::wstring(verb) + L" " + file + L" " + std::to_wstring(show);
    return nullptr;
}

TEST_F(PanelTest, EachResultIsToldInOneTextAndTakenIntoTheTable) {
    const Bytes done = Answer(0, 0), refused = Answer(4, 2), silence;
    const std::string clearBoth = "Device 2, 9 Clear Success; Device 4 clear fail, command error|";
    const std::string writeBoth = "Device 0 write command sucess; Device 4 write command fail, command error|";
    const std::tuple<std::uint32_t, Bytes, std::string, std::vector<std::size_t>> rows[] = {
        {WM_CLEAR_REPLY, done, "Device 0 Clear Success|", {0}},
        {WM_CLEAR_REPLY, Line({refused, Answer(2, 0), Answer(9, 0)}), clearBoth, {2}},
        {WM_CLEAR_REPLY, silence, "No Response|", {}},
        {WM_CLEAR_REPLY, Torn(done), "", {}},
        {WM_CLOCK_REPLY, Line({done, Answer(5, 0)}), "Device 0, 5 write clock sucess|", {0, 5}},
        {WM_CLOCK_REPLY, refused, "Device 4 write clock fail, command error|", {}},
        {WM_CLOCK_REPLY, silence, "No Response|", {}},
        {WM_CLOCK_REPLY, Spoilt(done), "", {}},
        {WM_WRITE_REPLY, done, "Device 0 write command sucess|", {0}},
        {WM_WRITE_REPLY, Line({done, refused}), writeBoth, {0}},
        {WM_WRITE_REPLY, refused, ": Device 4 write command fail, command error|", {}}, // the platform's box, no title
        {WM_WRITE_REPLY, silence, "No Response|", {}},
        {WM_WRITE_REPLY, Spoilt(done), "", {}},
        {WM_ADDRESS_REPLY, refused, "Set address fail, command error|", {}},
        {WM_ADDRESS_REPLY, silence, "No Response|", {}},
        {WM_ADDRESS_REPLY, Line({{0}, done}), "", {}},
        {WM_ADDRESS_REPLY, Line({done, Answer(1, 0)}), "", {}}, // two can't have taken one address
        {WM_ADDRESS_REPLY, Answer(6, 0), "", {}},
        {WM_ADDRESS_REPLY, Answer(255, 0), "", {}},
    };
    EXPECT_EQ(Reply(WM_ADDRESS_REPLY, -1, Answer(3, 0)), ""); // nobody is selected
    FindTwoCounters();
    const CounterRecord sent{recordTime + 60, 1, 0, 0, 9, 0, 100, 1, 2, 3, 4};
    for (const auto& [message, reply, told, obeyed] : rows) {
        SCOPED_TRACE(message);
        auto expected = panel->records;
        for (const std::size_t address : obeyed) {
            CounterRecord& entry = expected[address];
            if (message == WM_CLEAR_REPLY) entry.inCount = entry.outCount = entry.extraCount = 0;
            if (message == WM_CLOCK_REPLY) entry.deviceTime = sent.deviceTime;
            if (message == WM_WRITE_REPLY) entry = sent; // all of it, until the next poll
        }
        Type(IDC_SENSITIVITY_EDIT, "99");
        EXPECT_EQ(Reply(message, -1, reply, sent), told);
        EXPECT_EQ(panel->records, expected);
        EXPECT_EQ(Text(IDC_SENSITIVITY_EDIT), obeyed.empty() ? "99" : std::to_string(expected[0].sensitivity));
    }
    EXPECT_EQ(SettingsShown() + " " + Counts(), "Chinese IN YES 99 9 0 1 2");

    Click(IDC_ADDRESS_BUTTON_SECOND); // a counter that moves is shown under its new address, on the first button
    EXPECT_EQ(Reply(WM_ADDRESS_REPLY, -1, Answer(3, 0)), "Set address success|");
    EXPECT_EQ(Buttons() + SettingsShown() + " " + Counts(), "3 2*Chinese OUT YES 200 31 3 0 0");
    EXPECT_EQ(panel->records[2].address, 2);
    Click(IDC_ADDRESS_BUTTON_FIRST);
    Reply(WM_POLL_REPLY, 2, {}); // the next round of polls sorts it out
    Reply(WM_POLL_REPLY, 3, Status(3, 57, 79));
    EXPECT_EQ(Buttons() + Counts(), "0*3 57 79");
}

TEST_F(PanelTest, TheLogHoldsOneRunLineByLine) {
    const std::filesystem::path path = ProgramFolderWide() + L"Quorvane.log";
    const auto log = [&] {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    panel->CCounterPanel::SendPoll(5); // counts on a closed line too
    RunQueue();
    panel->LogReceived("abc", 3);
    panel->LogReceived(nullptr, 0);
    PumpMessages();
    EXPECT_EQ(Text(IDC_TRANSMITTED_EDIT) + Text(IDC_RECEIVED_EDIT), "02 05 81 86 03 ");
    EXPECT_EQ(Text(IDC_TOTALS_LABEL), "TX:     5    RX:     3");
    const std::string time = "####/##/## ##:##:##: ";
    const std::string form = time + "TX-->02 05 81 86 03 \r\n" + time + "RX-->61 62 63 \r\n" + time + "RX-->\r\n";
    std::string found = log();
    for (std::size_t i = 0; i < std::min(found.size(), form.size()); ++i)
        if (form[i] == '#' && found[i] >= '0' && found[i] <= '9') found[i] = '#';
    EXPECT_EQ(found, form);
    SystemShell().openWide = &NoteOpened;
    panel->SendMessage(WM_COMMAND, ID_OPEN_LOG);
    EXPECT_EQ(opened, L"open " + path.wstring() + L" 5");

    Click(IDC_CLEAR);
    EXPECT_EQ(Text(IDC_TOTALS_LABEL), "TX:     0    RX:     0"); // before its own frame
    RunQueue();
    EXPECT_EQ(Text(IDC_TOTALS_LABEL), "TX:     5    RX:     0");
    ReleasePanel();
    CreatePanel();
    EXPECT_EQ(log(), "");
}

// Makes the file as long as it can be here, but for `room` bytes; gives its length.
std::uintmax_t GrowToTheBrim(const std::filesystem::path& path, LONGLONG room) {
    const CFileHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    const auto resize = [&](LONGLONG size) {
        LARGE_INTEGER end{};
        end.QuadPart = size;
        return ::SetFilePointerEx(file.GetHandle(), end, nullptr, FILE_BEGIN) != FALSE &&
               ::SetEndOfFile(file.GetHandle()) != FALSE;
    };
    LONGLONG fits = 0;
    for (LONGLONG step = 1LL << 62; step > 0; step /= 2) fits += resize(fits + step) ? step : 0;
    resize(fits - room);
    return static_cast<std::uintmax_t>(fits - room);
}

// What cannot be written is lost, and nothing else: the next line stands behind the last one.
TEST_F(PanelTest, AHurtLogCostsItsOwnLinesAlone) {
    namespace files = std::filesystem;
    const files::path path = ProgramFolderWide() + L"Quorvane.log";
    const std::string folder = ProgramFolder();
    HANDLE lock = nullptr;
    std::uintmax_t full = 0;
    const auto end = [&](std::uintmax_t from) {
        std::ifstream file(path, std::ios::binary);
        file.seekg(static_cast<std::streamoff>(from));
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const struct {
        const char* what;
        std::function<void()> hurt, heal;
        bool isWritten, isKept; // the line that is logged meanwhile; the one before
    } rows[] = {{"locked",
                 [&] { lock = ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr); },
                 [&] { ::CloseHandle(lock); }, false, true},
                {"deleted", [&] { files::remove(path); }, [] {}, true, false},
                {"a folder", [&] { files::remove(path), files::create_directory(path); }, [&] { files::remove(path); },
                 false, false},
                {"beyond 4 GiB", [&] { files::resize_file(path, (1ULL << 32) + 5); }, [] {}, true, true},
                {"without room for a whole line", [&] { full = GrowToTheBrim(path, 10); },
                 [&] {
                     EXPECT_EQ(files::file_size(path), full) << "a part of a line stays";
                     files::resize_file(path, 0);
                 },
                 false, false}};
    for (const auto& [what, hurt, heal, isWritten, isKept] : rows) {
        SCOPED_TRACE(what);
        panel->LogReceived("a", 1);
        hurt();
        const auto before = files::is_regular_file(path) ? files::file_size(path) : 0;
        panel->LogReceived("b", 1);
        heal();
        panel->LogReceived("c", 1);
        std::string tail = end(isKept ? before : 0);
        for (std::size_t at = 0; (at = tail.find("20", at)) != std::string::npos;) tail.erase(at, 21); // the times
        EXPECT_EQ(tail, isWritten ? "RX-->62 \r\nRX-->63 \r\n" : "RX-->63 \r\n");
        EXPECT_EQ(Text(IDC_RECEIVED_EDIT), "63 ");
    }
    files::remove(path);
}

// In a process of its own, which ends in the middle of line after line.
TEST_F(PanelTest, KilledAtAnyInstantTheLogEndsInAWholeLine) {
    const std::string bytes(512, 'x');
    for (int round = 0; round < 4; ++round) {
        const auto child = [&] {
            std::thread([] {
                ::Sleep(100 + std::random_device{}() % 100);
                ::TerminateProcess(::GetCurrentProcess(), 7);
            }).detach();
            panel->DestroyWindow(); // showing the bytes would take most of the time
            for (;;) panel->LogReceived(bytes.data(), 512);
        };
        EXPECT_EXIT(child(), testing::ExitedWithCode(7), "");
        std::ifstream log(ProgramFolder() + "Quorvane.log", std::ios::binary);
        int lines = 0;
        for (std::string line; std::getline(log, line); ++lines) {
            EXPECT_EQ(line.size(), 21 + 5 + 3 * bytes.size() + 1);
            EXPECT_FALSE(log.eof()) << "the last line has no end";
        }
        EXPECT_GT(lines, 100);
    }
}

TEST_F(PanelTest, ThePortIsChosenOpenedAndClosed) {
    const std::string file = ProgramFolder() + "panel_test.port";
    std::ofstream(file).put(' ');
    const auto choose = [&](UINT row) { panel->SendMessage(WM_COMMAND, ID_PORT_FIRST + row); };
    const std::tuple<std::function<void()>, std::string, std::string, std::string> steps[] = {
        {[&] { choose(0); }, file, "3, ", "Open COM"}, // closed: remembered only
        {[&] { choose(2), choose(5); }, file, "", "Open COM"},
        {[&] { Click(IDC_PORT); }, file, "open, ", "Close COM"},
        {[&] { choose(1); }, file, "17, open, ", "Close COM"},
        {[&] { Click(IDC_PORT); }, file, "", "Open COM"},
        {[&] { Click(IDC_PORT); }, file, "open, ", "Close COM"},
        {[&] { choose(0); }, "", "3, open, ", "Open COM"},
        {[&] { panel->SendMessage(WM_COMMAND, IDC_COM_SETTING); }, "", "setting, ", "Open COM"}};
    for (const auto& [action, device, trace, caption] : steps) {
        frame.device = device;
        action();
        EXPECT_EQ(std::exchange(frame.trace, {}) + Look(IDC_PORT), trace + caption);
        EXPECT_EQ(CCommPort::Instance()->IsOpen(), caption == "Close COM");
    }
    std::filesystem::remove(file);
}

// "COM[COM3 COM17*] Open Log": the rows with what hangs in them, those with a mark starred.
std::string TreeOf(HMENU menu, std::vector<HMENU>& menus) {
    menus.push_back(menu);
    std::string text;
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        MENUITEMINFOA item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_DATA | MIIM_STATE | MIIM_SUBMENU;
        ::GetMenuItemInfoA(menu, static_cast<UINT>(i), TRUE, &item);
        const auto& record = *reinterpret_cast<const CMenuItemRecord*>(item.dwItemData);
        text += (i > 0 ? " " : "") + record.GetNarrowText() + ((item.fState & MFS_CHECKED) != 0 ? "*" : "");
        if (item.hSubMenu != nullptr) text += "[" + TreeOf(item.hSubMenu, menus) + "]";
    }
    return text;
}

// What the popups offer and mark, and that nothing of them stays.
TEST_F(PanelTest, PopupsMarkWhatIsInForceAndLeaveNothing) {
    const std::tuple<int, bool, int, int, std::string> rows[] = {
        {ID_PORT_MENU, false, 2, 17, "COM[COM3 COM17*] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_PORT_MENU, true, 2, 3, "COM[COM3* COM17] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_PORT_MENU, false, 0, 3, "COM[] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_HELP_MENU, false, 2, 17, "&About ..."},
        {ID_LANGUAGE_MENU, false, 2, 17, "English* Chinese"},
        {ID_LANGUAGE_MENU, true, 2, 17, "English Chinese*"}};
    const std::size_t registered = COwnerDrawMenu::allSubMenus.size();
    for (const auto& [button, chinese, ports, selected, tree] : rows) {
        frame.chinese = chinese, frame.ports.count = ports, frame.selected = selected;
        std::vector<HMENU> menus;
        const CMeanwhile meanwhile([&, &expected = tree] {
            const HWND popup = ShownPopup();
            if (popup == nullptr) return false;
            EXPECT_EQ(TreeOf(reinterpret_cast<HMENU>(::SendMessageA(popup, MN_GETHMENU, 0, 0)), menus), expected);
            return ::EndMenu() != FALSE;
        });
        Click(button);
        for (const HMENU menu : menus) EXPECT_FALSE(::IsMenu(menu)) << tree;
    }
    EXPECT_EQ(COwnerDrawMenu::allSubMenus.size(), registered);
}

} // namespace
