// How the program starts, in a Chinese folder and beside another copy, and how it ends.
#include <algorithm>
#include <filesystem>

#include "SystemTest.h"

namespace {

namespace files = std::filesystem;
using Start = SystemTest;

TEST_F(Start, ASecondCopyLeavesTheFirstAlone) {
    PlayCounters({0});
    StartPolling();
    ExpectPollingGoesOn();
    const std::string log = LogText();
    Store("COM", 77); // neither to be used nor to be overwritten
    CProgram second;
    ASSERT_TRUE(second.Launch());
    EXPECT_EQ(second.AwaitExit(), 0U);
    ExpectPollingGoesOn();
    EXPECT_EQ(Stored("COM"), 77U);
    EXPECT_TRUE(LogText().starts_with(log));
}

// Each makes sure that it is alone before it shows its name to the others.
TEST_F(Start, OfCopiesStartedTogetherOneStays) {
    Store("COM", nearNumber);
    for (int round = 0; round < 6; ++round) {
        CProgram copies[3];
        for (CProgram& copy : copies) ASSERT_TRUE(copy.Launch());
        const auto count = [&] { return std::ranges::count_if(copies, &CProgram::IsRunning); };
        EXPECT_TRUE(Await([&] { return count() == 1; })) << count() << " copies run in round " << round;
        HWND frame = nullptr;
        EXPECT_TRUE(Await([&] { return ::IsWindowVisible(frame = ::FindWindowA(nullptr, CProgram::title)) != FALSE; }));
        ::PostMessageA(frame, WM_CLOSE, 0, 0);
        EXPECT_TRUE(Await([&] { return count() == 0; }));
        for (const CProgram& copy : copies) EXPECT_EQ(copy.AwaitExit(), 0U);
    }
}

TEST_F(Start, ACopyThatIsAboutToEndIsWaitedFor) {
    const std::jthread ending([] {
        const HWND window =
            ::CreateWindowA("Static", CProgram::title, WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
        std::this_thread::sleep_for(700ms);
        ::DestroyWindow(window);
    });
    EXPECT_TRUE(Await([] { return ::FindWindowA(nullptr, CProgram::title) != nullptr; }));
    StartProgram();
}

TEST_F(Start, InAFolderOfChineseLettersWithItsLibraryAndWithNone) {
    const auto path = [](const std::string& utf8) { return files::path(std::u8string(utf8.begin(), utf8.end())); };
    const std::string folder = CProgram::Folder() + "..\\tests\\三号门 客流统计\\";
    const files::path library = path(folder + "QuorvaneZHCN.dll");
    files::remove_all(path(folder));
    files::create_directory(path(folder));
    for (const char* name : {"Quorvane.exe", "QuorvaneZHCN.dll", "Themes"})
        files::copy(CProgram::Folder() + name, path(folder + name), files::copy_options::recursive);
    for (const std::string there : {"whole", "half", "a folder"}) {
        SCOPED_TRACE(there);
        if (there == "half") files::resize_file(library, files::file_size(library) / 2);
        if (there == "a folder") files::remove(library), files::create_directory(library);
        const bool chinese = there == "whole";
        Store("Language", 1);
        Store("COM", nearNumber);
        CProgram started;
        ASSERT_TRUE(started.Start(folder + "Quorvane.exe"));
        EXPECT_EQ(started.Text(IDC_START), chinese ? "开始" : "Start");
        EXPECT_EQ(started.Text(IDC_ADDRESS_LABEL), chinese ? "地址" : "Address");
        started.Click(IDC_CLEAR);
        started.ExpectBox(chinese ? "无应答" : "No Response");
        EXPECT_GT(files::file_size(path(folder + "Quorvane.log")), 0U) << "what went out isn't in the log";
        EXPECT_EQ(started.Close(), 0U);
    }
    files::remove_all(path(folder));
}

// However it is asked to, and whatever stands in front of the window: its end is the end of everything.
TEST_F(Start, ClosedUnderAnyWindowOrMenuTheProgramIsGone) {
    const std::pair<UINT, std::vector<int>> rows[] = {
        {WM_CLOSE, {IDC_CLEAR, IDC_CLEAR}}, {WM_ENDSESSION, {IDC_CLEAR}}, {WM_CLOSE, {IDC_DIRECTION_OUT, IDC_UPDATE}},
        {WM_ENDSESSION, {ID_ABOUT}},        {WM_CLOSE, {ID_COM_SETTING}}, {WM_CLOSE, {SC_MOVE, ID_ABOUT}},
        {WM_CLOSE, {SC_MOVE, IDC_CLEAR}},   {WM_CLOSE, {ID_PORT_MENU}},   {WM_ENDSESSION, {ID_PORT_MENU}},
        {WM_CLOSE, {SC_KEYMENU}},           {WM_ENDSESSION, {SC_KEYMENU}}};
    PlayCounters({0, 1, 2, 3, 4, 5});
    counters->BringFaults({"refuse *"});
    for (const auto& [message, commands] : rows) {
        SCOPED_TRACE(testing::PrintToString(commands) + (message == WM_CLOSE ? ", close" : ", end of the session"));
        StartPolling();
        for (const int id : commands) {
            if (id == SC_MOVE || id == SC_KEYMENU) // by the keys, until Enter; the system menu, as by Alt and Space
                ::PostMessageA(program.Frame(), WM_SYSCOMMAND, static_cast<WPARAM>(id), id == SC_MOVE ? 0 : VK_SPACE);
            else
                id == ID_PORT_MENU ? program.Click(id) : program.PostCommand(id);
        }
        EXPECT_TRUE(Await([this] { return program.Box() != nullptr || ShownPopup() != nullptr; }));
        ::PostMessageA(program.Frame(), message, message == WM_ENDSESSION, 0);
        EXPECT_EQ(program.AwaitExit(5s), 0U);
    }
}

} // namespace
