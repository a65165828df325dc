// The program from its start to its end, in this process: one copy only, the frame around the panel, what is stored.
#include <algorithm>
#include <cstdlib>
#include <thread>

#include "framework/CommonControls.h"
#include "framework/ResourceModule.h"
#include "framework/WorkerThread.h"
#include "link/CommandQueue.h"
#include "ProgramRun.h"

namespace {

// Stands in front of the system's call in this test program: refuses what common controls before version 6 refuse, or
// everything.
bool haveNoControls = false;

BOOL WINAPI InitStrictly(const INITCOMMONCONTROLSEX* classes) {
    constexpr DWORD known = ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_USEREX_CLASSES | ICC_COOL_CLASSES |
                            ICC_INTERNET_CLASSES | ICC_PAGESCROLLER_CLASS | ICC_NATIVEFNTCTL_CLASS;
    return !haveNoControls && classes->dwSize == sizeof *classes && (classes->dwICC & ~known) == 0;
}

struct ShellTest : ProgramRun {
    ShellTest() { SystemCommonControls().initialise = &InitStrictly; }
};

TEST_F(ShellTest, StoredNumbersAreWhateverFitsIntoFourBytes) {
    const auto read = [](const char* name) {
        std::int32_t value = 0;
        const int result = ReadRegistryInt(name, value, 77);
        return std::to_string(result) + ":" + std::to_string(value);
    };
    EXPECT_EQ(read("COM"), "0:77");            // there is no key
    EXPECT_EQ(WriteRegistryInt("COM", -3), 1); // makes it
    EXPECT_EQ(read("Language"), "0:77");
    HKEY key = nullptr;
    ASSERT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, KEY_ALL_ACCESS, &key), ERROR_SUCCESS);
    DWORD type = 0, value = 0, size = sizeof value;
    ::RegQueryValueExA(key, "COM", nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    EXPECT_TRUE(type == REG_DWORD && value == 0xFFFFFFFD && size == 4);
    const std::tuple<DWORD, std::vector<BYTE>, std::string> rows[] = {{REG_DWORD, {0xFE, 0xFF, 0xFF, 0xFF}, "1:-2"},
                                                                      {REG_BINARY, {3, 0, 0, 0x40}, "1:1073741827"},
                                                                      {REG_BINARY, {5, 1}, "1:261"},
                                                                      {REG_BINARY, {}, "1:0"},
                                                                      {REG_SZ, {'1', 0}, "1:49"},
                                                                      {REG_SZ, {'C', 'O', 'M', '1', '2', 0}, "0:77"},
                                                                      {REG_BINARY, {1, 2, 3, 4, 5}, "0:77"}};
    for (const auto& [kind, bytes, expected] : rows) {
        ::RegSetValueExA(key, "COM", 0, kind, bytes.data(), static_cast<DWORD>(bytes.size()));
        EXPECT_EQ(read("COM"), expected) << kind;
    }
    ::RegCloseKey(key);
}

// Neither a system without the date control nor a library with a spoilt template leaves an empty frame.
TEST_F(ShellTest, WhatCanNotBeHadIsToldAndEndsTheProgram) {
    haveNoControls = true;
    EXPECT_EQ(RunInVain(), "Quorvane: The system has no date control. The program has to stop.|");
    haveNoControls = false;
    const HINSTANCE controls = ::GetModuleHandleA("comctl32");
    WNDCLASSA picker{};
    ASSERT_TRUE(::GetClassInfoA(controls, DATETIMEPICK_CLASSA, &picker) &&
                ::UnregisterClassA(DATETIMEPICK_CLASSA, controls));
    EXPECT_EQ(RunInVain(), "Quorvane: The main window can't be made. The program has to stop.|");
    picker.lpszClassName = DATETIMEPICK_CLASSA;
    EXPECT_NE(::RegisterClassA(&picker), 0);
}

struct CSlowCommand : CCommand {
    explicit CSlowCommand(std::uint32_t milliseconds) : time(milliseconds) {}
    void Execute() override { PauseThread(time); }
    std::uint32_t time;
};

int colorChanges; // told to controls of this thread

LRESULT CALLBACK NoteColorChange(int code, WPARAM wParam, LPARAM lParam) {
    if (reinterpret_cast<const CWPSTRUCT*>(lParam)->message == WM_SYSCOLORCHANGE) ++colorChanges;
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(ShellTest, MessagesOfTheSystem) {
    CCommandQueue& queue = *CCommandQueue::Instance();
    DWORD ending = 0;
    RunProgram(
        [&] {
            const CBoxReader reader(frame);
            for (const WPARAM id : {15, 16, 31, 32}) ::SendMessageA(frame, WM_SYSCOMMAND, id, 0);
            ::SendMessageA(Panel(), WM_COMMAND, ID_ABOUT, 0);
            ::SendMessageA(frame, WM_SYSCOMMAND, SC_MINIMIZE, 0);
            EXPECT_TRUE(::IsIconic(frame));
            ::SendMessageA(frame, WM_SYSCOMMAND, SC_RESTORE, 0);
            EXPECT_TRUE(PanelFillsFrame());
            EXPECT_TRUE(reader.texts.starts_with("About ")) << reader.texts;
            EXPECT_EQ(std::ranges::count(reader.texts, '|'), 3); // the low four bits of 16 and 31 are the system's own

            int windows = 1; // the frame itself
            FindBelow(frame, [&](HWND) { return ++windows < 0; });
            const HHOOK hook = ::SetWindowsHookExA(WH_CALLWNDPROC, &NoteColorChange, nullptr, ::GetCurrentThreadId());
            ::SendMessageA(frame, WM_SYSCOLORCHANGE, 0, 0);
            ::UnhookWindowsHookEx(hook);
            EXPECT_GE(colorChanges, windows);

            ::SendMessageA(frame, WM_ENDSESSION, FALSE, 0); // somebody has said no
            EXPECT_FALSE(queue.IsShut());
            for (int i = 0; i < 1000; ++i) queue.Add(std::make_unique<CSlowCommand>(100));
            PauseThread(50); // until one is in flight, which alone is waited for
            ending = ::GetTickCount();
        },
        WM_ENDSESSION, TRUE);
    EXPECT_TRUE(queue.IsShut() && !queue.IsRunning());
    EXPECT_LT(::GetTickCount() - ending, 5000U) << "a hundred seconds for all";
}

TEST_F(ShellTest, ALanguageIsStoredForTheNextStart) {
    const std::string told = "Set up successfully. The next time start to take effect|";
    const std::tuple<std::int32_t, WPARAM, std::string, std::int32_t> rows[] = {
        {missing, ID_LANGUAGE_ENGLISH, "", missing},
        {missing, ID_LANGUAGE_CHINESE, told, 1},
        {1, ID_LANGUAGE_CHINESE, "", 1},
        {1, ID_LANGUAGE_ENGLISH, told, 0},
        {2, ID_LANGUAGE_ENGLISH, told, 0},
        {2, ID_LANGUAGE_CHINESE, told, 1}};
    RunProgram([&] {
        for (const auto& [before, command, shown, after] : rows) {
            ::RegDeleteKeyA(HKEY_CURRENT_USER, keyName);
            if (before != missing) WriteRegistryInt("Language", before);
            const CBoxReader reader(frame);
            ::SendMessageA(Panel(), WM_COMMAND, command, 0);
            EXPECT_EQ(reader.texts, shown) << before << " " << command;
            EXPECT_EQ(Stored("Language"), after);
        }
    });
    // Without its library a stored Chinese is shown in English.
    RunProgram([&] { EXPECT_EQ(Text(IDC_START), "Start"); });
}

TEST_F(ShellTest, TheFocusComesBackToWhatCanBeUsed) {
    RunProgram([&] {
        const HWND other =
            ::CreateWindowA("Static", "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
        const HWND lamp = FindControl(frame, IDC_ADDRESS_BUTTON_FIRST), update = FindControl(frame, IDC_UPDATE);
        const auto leave = [&](HWND focused) {
            ::SetActiveWindow(frame);
            ::SetFocus(focused);
            EXPECT_EQ(::GetFocus(), focused);
            ::SetActiveWindow(other);
        };
        const auto comeBack = [&] {
            ::SetActiveWindow(frame);
            return ::GetFocus();
        };
        ::ShowWindow(lamp, SW_SHOW);
        leave(lamp);
        EXPECT_EQ(comeBack(), lamp);
        leave(lamp);
        ::ShowWindow(lamp, SW_HIDE);
        EXPECT_EQ(comeBack(), FindControl(frame, IDC_START));
        leave(update);
        ::EnableWindow(update, FALSE);
        EXPECT_EQ(comeBack(), FindControl(frame, IDC_START));
        ::EnableWindow(update, TRUE);
        ::DestroyWindow(other);
    });
}

TEST_F(ShellTest, WhoeverEndsTheThreadsLoopEndsTheProgram) {
    EXPECT_EQ(RunProgram([] { ::PostQuitMessage(0); }, WM_NULL), 0);
    PumpMessages(); // the request stays for the loops further out
}

// In a process of its own, which is to end by itself.
TEST_F(ShellTest, AWorkerThatHangsIsLeftBehind) {
    const auto child = [&] {
        const auto endIn = [](DWORD time) {
            std::thread([=] { ::Sleep(time), ::TerminateProcess(::GetCurrentProcess(), 77); }).detach();
        };
        endIn(30'000);
        run = [] { return ::WinMain(nullptr, nullptr, nullptr, 0); };
        RunProgram([&] {
            CCommandQueue::Instance()->Add(std::make_unique<CSlowCommand>(600'000));
            PauseThread(100);
            endIn(5000);
        });
        std::_Exit(78); // an orderly end would wait for what the worker holds
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

} // namespace
