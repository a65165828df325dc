// How the program starts: on nothing, on stored values of any kind, in either language, beside another copy.
#include <filesystem>
#include <fstream>

#include "SystemTest.h"

namespace {

using Start = SystemTest;

constexpr struct {
    int id;
    const char* text;
    bool enabled;
} startState[] = {{IDC_START, "Start", true},
                  {IDC_UPDATE, "Update", true},
                  {IDC_CLEAR, "Clear", true},
                  {IDC_PORT, "Close COM", true},
                  {IDC_LANGUAGE_ENGLISH, "English", false},
                  {IDC_LANGUAGE_CHINESE, "Chinese", true},
                  {IDC_DIRECTION_IN, "IN", false},
                  {IDC_DIRECTION_OUT, "OUT", true},
                  {IDC_SD_DETECT_YES, "YES", true},
                  {IDC_SD_DETECT_NO, "NO", false},
                  {IDC_SENSITIVITY_EDIT, "21", true},
                  {IDC_SD_PERIOD_EDIT, "4", true},
                  {IDC_ADDRESS_EDIT, "0", true},
                  {IDC_TRANSMITTED_EDIT, "", true},
                  {IDC_RECEIVED_EDIT, "", true},
                  {IDC_IN_LABEL, "   COUNTER IN", true}};

TEST_F(Start, TheFirstStartShowsTheWholePanelAndStoresThePort) {
    std::ofstream(LogPath()) << "left by an earlier run\n";
    const auto launched = Clock::now();
    ASSERT_TRUE(program.Start());
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - launched);
    RecordProperty("millisecondsToWindow", std::to_string(time.count()));
    EXPECT_LT(time, 2s * TimeFactor());
    for (const auto& [id, text, enabled] : startState) {
        EXPECT_TRUE(program.IsVisible(id)) << id;
        EXPECT_EQ(program.IsEnabled(id), enabled) << id;
        ExpectText(id, text);
    }
    for (const int id : {IDC_ALL, IDC_COM_SETTING}) EXPECT_FALSE(program.IsVisible(id)) << id;
    ExpectAddressButtons("");
    EXPECT_EQ(Stored("COM"), 1U);
    EXPECT_EQ(Stored("Language"), std::nullopt);
    EXPECT_TRUE(std::filesystem::exists(LogPath()) && LogText().empty());
}

TEST_F(Start, StoredValuesOfAnyKind) {
    const auto number = static_cast<char>(nearNumber);
    const struct {
        const char* name;
        DWORD type;
        std::string bytes;
        bool opens;
    } rows[] = {{"COM", REG_BINARY, {number}, true},                          // short, reads as a small number
                {"COM", REG_BINARY, std::string(8, '\x09'), nearNumber == 1}, // too long, so the default holds
                {"COM", REG_DWORD, "\xFF\xFF\xFF\xFF", false},
                {"COM", REG_SZ, {'z', 0}, false}, // reads as the number of no port
                {"Language", REG_SZ, "Chinese, please", true},
                {"Language", REG_DWORD, "\xFF\xFF\xFF\xFF", true}};
    for (const auto& [name, type, bytes, opens] : rows) {
        SCOPED_TRACE(std::string(name) + " of type " + std::to_string(type));
        Store("COM", nearNumber);
        Store(name, type, bytes);
        CProgram started;
        ASSERT_TRUE(started.Start());
        EXPECT_EQ(started.Text(IDC_PORT), opens ? "Close COM" : "Open COM");
        EXPECT_EQ(started.Text(IDC_START), "Start");
        EXPECT_EQ(started.Close(), 0U);
        EXPECT_TRUE(!opens || Stored("COM") == nearNumber);
    }
}

TEST_F(Start, WithoutItsPortTheProgramWorksAndAnotherPortCanBeChosen) {
    constexpr DWORD missing = 199;
    Store("COM", missing);
    PlayCounters({0});
    StartProgram();
    ExpectText(IDC_PORT, "Open COM");
    StartPolling();
    ASSERT_TRUE(Await([] { return LogLines().size() >= 3; }));
    StopPolling();
    // Polls go out into nothing, and are logged and counted all the same.
    const auto lines = LogLines();
    EXPECT_TRUE(lines.back().sent && lines[1].sent);
    EXPECT_EQ(lines[1].hex, FrameAround("01 81 "));
    ExpectTotals(5 * lines.size(), 0);
    EXPECT_EQ(counters->HeardBytes(), 0U);

    // With the port closed, the menu only chooses; the button opens and stores.
    EXPECT_TRUE(program.SendCommand(ID_PORT_FIRST));
    EXPECT_EQ(program.Text(IDC_PORT), "Open COM");
    EXPECT_EQ(Stored("COM"), missing);
    program.Click(IDC_PORT);
    ExpectText(IDC_PORT, "Close COM");
    EXPECT_EQ(Stored("COM"), nearNumber);
    StartPolling();
    ExpectPollingGoesOn();
}

TEST_F(Start, WithAFolderInTheLogsPlaceEverythingElseWorks) {
    std::filesystem::create_directory(LogPath());
    PlayCounters({0});
    StartPolling();
    ExpectPollingGoesOn();
    EXPECT_TRUE(std::filesystem::is_directory(LogPath()));
}

TEST_F(Start, SecondCopiesLeaveTheFirstAlone) {
    PlayCounters({0});
    StartPolling();
    ExpectPollingGoesOn();
    const std::string log = LogText();
    Store("COM", 77); // neither to be used nor to be overwritten
    for (int round = 0; round < 2; ++round) {
        CProgram second;
        ASSERT_TRUE(second.Launch());
        bool shown = false;
        EXPECT_TRUE(Await([&] {
            shown = shown || second.ShowsAnyWindow();
            return !second.IsRunning();
        }));
        EXPECT_FALSE(shown);
        EXPECT_EQ(second.AwaitExit(0ms), 0U);
        ExpectPollingGoesOn();
    }
    EXPECT_EQ(Stored("COM"), 77U);
    EXPECT_TRUE(LogText().starts_with(log));
}

TEST_F(Start, AnyWindowOfTheTitlePreventsIt) {
    std::ofstream(LogPath()) << "not its own";
    const HWND foreign =
        ::CreateWindowExA(0, "STATIC", CProgram::title, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    CProgram stopped;
    ASSERT_TRUE(stopped.Launch());
    EXPECT_EQ(stopped.AwaitExit(5s), 0U);
    EXPECT_EQ(LogText(), "not its own");
    EXPECT_EQ(Stored("COM"), std::nullopt);
    ::DestroyWindow(foreign);
    EXPECT_TRUE(program.Start()) << "nothing stands in the way any more";
}

TEST_F(Start, ChineseComesFromItsLibrary) {
    Store("Language", 1);
    StartProgram();
    ExpectText(IDC_START, "开始");
    ExpectText(IDC_PORT, "关闭串口");
    ExpectText(IDC_ADDRESS_LABEL, "地址");
    program.Click(IDC_CLEAR);
    program.ExpectBox("无应答");
}

TEST_F(Start, ALanguageIsStoredForTheNextStart) {
    Store("Language", 2); // neither
    StartProgram();
    for (const auto& [command, language] : {std::pair(ID_LANGUAGE_CHINESE, 1U), std::pair(ID_LANGUAGE_ENGLISH, 0U)}) {
        program.PostCommand(command);
        program.ExpectBox("Set up successfully. The next time start to take effect");
        EXPECT_EQ(Stored("Language"), language);
        ExpectText(IDC_START, "Start");
        // Once more changes nothing; the command would not return while it shows a box.
        EXPECT_TRUE(program.SendCommand(command));
    }
}

} // namespace
