// How the program starts: on nothing, on stored values of any kind, in either language, beside another copy.
#include <filesystem>
#include <fstream>

#include "SystemTest.h"
#include "TrafficLog.h"

namespace {

using Start = SystemTest;

struct ControlState {
    int id;
    const char* text; // null for any
    bool enabled;
};

constexpr ControlState startState[] = {{IDC_START, "Start", true},
                                       {IDC_UPDATE, "Update", true},
                                       {IDC_CLEAR, "Clear", true},
                                       {IDC_PORT, "Close COM", true},
                                       {IDC_LANGUAGE_ENGLISH, nullptr, false},
                                       {IDC_LANGUAGE_CHINESE, nullptr, true},
                                       {IDC_DIRECTION_IN, "IN", false},
                                       {IDC_DIRECTION_OUT, "OUT", true},
                                       {IDC_SD_DETECT_YES, "YES", true},
                                       {IDC_SD_DETECT_NO, "NO", false},
                                       {IDC_SENSITIVITY_EDIT, "21", true},
                                       {IDC_SD_PERIOD_EDIT, "4", true},
                                       {IDC_ADDRESS_EDIT, "0", true},
                                       {IDC_TRANSMITTED_EDIT, "", true},
                                       {IDC_RECEIVED_EDIT, "", true},
                                       {IDC_DATE_PICKER, nullptr, true},
                                       {IDC_DIRECTION_LABEL, "Direction", true},
                                       {IDC_IN_LABEL, "   COUNTER IN", true}};

TEST_F(Start, TheFirstStartShowsTheWholePanelAndStoresThePort) {
    std::ofstream(LogPath()) << "left by an earlier run\n";
    const auto launched = Clock::now();
    ASSERT_TRUE(program.Start());
    const auto shown = Clock::now() - launched;
    RecordProperty("millisecondsToWindow", std::to_string(Milliseconds(shown)));
    EXPECT_LT(shown, 2s);

    EXPECT_EQ(::FindWindowA(nullptr, CProgram::title), program.Frame());
    for (const ControlState& control : startState) {
        SCOPED_TRACE(control.id);
        EXPECT_TRUE(program.IsVisible(control.id));
        EXPECT_EQ(program.IsEnabled(control.id), control.enabled);
        if (control.text != nullptr) ExpectText(control.id, control.text);
    }
    for (const int hidden : {IDC_ALL, IDC_COM_SETTING}) EXPECT_FALSE(program.IsVisible(hidden)) << hidden;
    ExpectAddressButtons("");
    EXPECT_EQ(program.FocusId(), IDC_START);
    EXPECT_EQ(stored.Get("COM"), 1U);
    EXPECT_EQ(stored.Get("Language"), std::nullopt);
    EXPECT_EQ(LogText(), "");
}

TEST_F(Start, StoredValuesOfAnyKind) {
    const auto port = static_cast<char>(nearPort.Number());
    const struct {
        const char* what;
        const char* name;
        DWORD type;
        std::string bytes;
        bool opens;
    } rows[] = {{"one byte", "COM", REG_BINARY, {port}, true},
                {"another type of the same size", "COM", REG_BINARY, {port, 0, 0, 0}, true},
                {"too long, so the default holds", "COM", REG_BINARY, std::string(8, '\x09'), nearPort.Number() == 1},
                {"negative", "COM", REG_DWORD, "\xFF\xFF\xFF\xFF", false},
                {"far too large", "COM", REG_DWORD, "\xFF\xFF\xFF\x7F", false},
                {"a text, read as a number of no port", "COM", REG_SZ, {'z', 0}, false},
                {"too long", "Language", REG_SZ, "Chinese, please", true},
                {"negative", "Language", REG_DWORD, "\xFF\xFF\xFF\xFF", true},
                {"neither language", "Language", REG_DWORD, {2, 0, 0, 0}, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.name) + ": " + row.what);
        stored.Erase();
        stored.Set(row.name, row.type, row.bytes);
        CProgram started;
        if (std::string(row.name) == "Language") stored.Set("COM", nearPort.Number());
        ASSERT_TRUE(started.Start());
        EXPECT_EQ(started.Text(IDC_PORT), row.opens ? "Close COM" : "Open COM");
        EXPECT_EQ(started.Text(IDC_START), "Start");
        EXPECT_EQ(started.Close(), 0U);
        EXPECT_TRUE(!row.opens || stored.Get("COM") == nearPort.Number());
    }
}

TEST_F(Start, WithoutItsPortTheProgramWorksAndAnotherPortCanBeChosen) {
    constexpr DWORD missing = 199;
    stored.Set("COM", missing);
    PlayCounters({0});
    StartProgram();
    ExpectText(IDC_PORT, "Open COM");

    // Polls go out into nothing, and are logged and counted all the same.
    program.Click(IDC_START);
    EXPECT_TRUE(Await([] { return LogLines().size() >= 3; }));
    StopPolling();
    const auto lines = LogLines();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_TRUE(lines[i].sent);
        EXPECT_EQ(lines[i].hex, HexOf(PollFrame(static_cast<std::uint8_t>(i % 6))));
    }
    ExpectTotals(5 * lines.size(), 0);
    EXPECT_EQ(counters->HeardBytes(), 0U);
    ExpectAddressButtons("");

    // With the port closed, the menu only chooses; the button opens and stores.
    EXPECT_TRUE(program.SendCommand(ID_PORT_FIRST));
    EXPECT_EQ(program.Text(IDC_PORT), "Open COM");
    EXPECT_EQ(stored.Get("COM"), missing);
    program.Click(IDC_PORT);
    ExpectText(IDC_PORT, "Close COM");
    EXPECT_EQ(stored.Get("COM"), nearPort.Number());
    program.Click(IDC_START);
    ExpectPollingGoesOn();
}

TEST_F(Start, WithAFolderInTheLogsPlaceEverythingElseWorks) {
    std::filesystem::create_directory(LogPath());
    PlayCounters({0});
    StartProgram(true);
    ExpectPollingGoesOn();
    EXPECT_TRUE(std::filesystem::is_directory(LogPath()));
}

TEST_F(Start, SecondCopiesLeaveTheFirstAlone) {
    PlayCounters({0});
    StartProgram(true);
    ExpectPollingGoesOn();
    const std::string log = LogText();
    stored.Set("COM", 77); // another copy must not read or write it
    for (int round = 0; round < 2; ++round) {
        CProgram second;
        ASSERT_TRUE(second.Launch());
        bool shown = false;
        EXPECT_TRUE(Await([&] {
            shown = shown || second.ShowsWindow();
            return !second.IsRunning();
        }));
        EXPECT_EQ(second.AwaitExit(0ms), 0U);
        EXPECT_FALSE(shown);
        ExpectPollingGoesOn();
    }
    EXPECT_EQ(stored.Get("COM"), 77U);
    EXPECT_TRUE(LogText().starts_with(log));
    EXPECT_TRUE(program.IsVisible(IDC_START));
}

TEST_F(Start, AnyWindowOfTheTitleStopsTheStart) {
    std::ofstream(LogPath()) << "not its own";
    const HWND foreign =
        ::CreateWindowExA(0, "STATIC", CProgram::title, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(program.Launch());
    EXPECT_EQ(program.AwaitExit(2s), 0U);
    EXPECT_EQ(LogText(), "not its own");
    EXPECT_EQ(stored.Get("COM"), std::nullopt);

    // It looks at windows only: with that one gone the next start works.
    ::DestroyWindow(foreign);
    CProgram next;
    EXPECT_TRUE(next.Start());
    EXPECT_EQ(next.Close(), 0U);
}

TEST_F(Start, ChineseComesFromItsLibrary) {
    stored.Set("Language", 1);
    StartProgram();
    ExpectText(IDC_START, "开始");
    ExpectText(IDC_PORT, "关闭串口");
    ExpectText(IDC_ADDRESS_LABEL, "地址");
    program.Click(IDC_CLEAR);
    EXPECT_EQ(program.TakeBox(), "无应答");
}

TEST_F(Start, ALanguageIsStoredForTheNextStart) {
    stored.Set("Language", 2); // neither
    StartProgram();
    constexpr char notice[] = "Set up successfully. The next time start to take effect";
    for (const auto& [command, language] : {std::pair(ID_LANGUAGE_CHINESE, 1U), std::pair(ID_LANGUAGE_ENGLISH, 0U)}) {
        program.PostCommand(command);
        EXPECT_EQ(program.TakeBox(), notice);
        EXPECT_EQ(stored.Get("Language"), language);
        ExpectText(IDC_START, "Start");
        // Once more changes nothing; the command would not return while it shows a box.
        EXPECT_TRUE(program.SendCommand(command));
        EXPECT_FALSE(program.ShowsBox());
        EXPECT_EQ(stored.Get("Language"), language);
    }
}

} // namespace
