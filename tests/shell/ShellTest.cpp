// The program from its start to its end, in this process: one copy only, the frame around the panel, what is stored.
#include <chrono>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "ScreenReader.h"
#include "StrictControls.h"
#include "TimeFactor.h"
#include "framework/ResourceModule.h"
#include "framework/WorkerThread.h"
#include "link/CommandQueue.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"
#include "shell/QuorvaneApp.h"
#include "shell/StoredValues.h"

namespace {

constexpr char keyName[] = "SOFTWARE\\BRENHOLT\\QV";
constexpr std::int32_t missing = -99;

std::int32_t Stored(const char* name) {
    std::int32_t value = 0;
    ReadRegistryInt(name, value, missing);
    return value;
}

// Begins without stored values; at the end they are again what they were.
class ShellTest : public testing::Test {
protected:
    ShellTest() { ::RegDeleteKeyA(HKEY_CURRENT_USER, keyName); }
    ~ShellTest() override {
        CCommPort::Instance()->SetTap(nullptr); // the panel's window is gone
        CCommPort::Instance()->Close();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, keyName);
        if (com != missing) WriteRegistryInt("COM", com);
        if (language != missing) WriteRegistryInt("Language", language);
    }

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD) {
        current->frame = ::FindWindowA("#32770", productTitle);
        if (::IsWindowVisible(current->frame) == FALSE) return;
        ::KillTimer(nullptr, id);
        (*current->steps)();
        ::PostMessageA(current->frame, WM_CLOSE, 0, 0);
    }

    // Runs the whole program. Once its window stands, `script` runs, and then the window is closed. False if no window
    // ever stood.
    bool RunProgram(const std::function<void()>& script) {
        current = this;
        steps = &script;
        frame = nullptr;
        const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, &OnTimer);
        CQuorvaneApp app;
        app.Run();
        ::KillTimer(nullptr, timer);
        return frame != nullptr;
    }

    HWND Panel() const { return ::GetWindow(frame, GW_CHILD); }
    std::string Text(int id) const { return TextOf(FindControl(frame, id)); }

    bool PanelFillsFrame() const {
        RECT client{}, panel{};
        ::GetClientRect(frame, &client);
        ::GetWindowRect(Panel(), &panel);
        ::MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&panel), 2);
        return ::EqualRect(&client, &panel) != FALSE;
    }

    HWND frame = nullptr;
    const std::string logPath = ProgramFolder() + "Quorvane.log";

private:
    static inline ShellTest* current = nullptr;
    const std::function<void()>* steps = nullptr;
    const std::int32_t com = Stored("COM"), language = Stored("Language"); // before the test
};

TEST_F(ShellTest, StoredNumbersAreWhateverFitsIntoFourBytes) {
    std::int32_t value = 0;
    EXPECT_EQ(ReadRegistryInt("COM", value, 7), 0); // there is no key
    EXPECT_EQ(value, 7);
    EXPECT_EQ(WriteRegistryInt("COM", -3), 1); // makes it
    EXPECT_EQ(ReadRegistryInt("Language", value, 8), 0);
    EXPECT_EQ(value, 8);
    HKEY key = nullptr;
    ASSERT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, KEY_ALL_ACCESS, &key), ERROR_SUCCESS);
    DWORD type = 0, size = sizeof value;
    ::RegQueryValueExA(key, "COM", nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_EQ(value, -3);
    const struct {
        DWORD type;
        std::vector<BYTE> bytes;
        int result;
        std::int32_t value;
    } rows[] = {{REG_DWORD, {0xFE, 0xFF, 0xFF, 0xFF}, 1, -2},
                {REG_BINARY, {3, 0, 0, 0x40}, 1, 0x40000003},
                {REG_BINARY, {5, 1}, 1, 0x0105},
                {REG_BINARY, {}, 1, 0},
                {REG_SZ, {'1', 0}, 1, '1'},
                {REG_SZ, {'C', 'O', 'M', '1', '2', 0}, 0, 77},
                {REG_BINARY, {1, 2, 3, 4, 5}, 0, 77}};
    for (const auto& row : rows) {
        ::RegSetValueExA(key, "COM", 0, row.type, row.bytes.data(), static_cast<DWORD>(row.bytes.size()));
        EXPECT_EQ(ReadRegistryInt("COM", value, 77), row.result) << "row " << &row - rows;
        EXPECT_EQ(value, row.value) << "row " << &row - rows;
    }
    ::RegCloseKey(key);
}

TEST_F(ShellTest, FirstStart) {
    std::ofstream(logPath) << "an earlier run";
    EXPECT_TRUE(RunProgram([&] {
        EXPECT_EQ(TextOf(frame), "Keldrun Version 1.1-20101001       www.brenholt.example");
        const LRESULT icon = ::SendMessageA(frame, WM_QUERYDRAGICON, 0, 0);
        EXPECT_NE(icon, 0);
        for (const WPARAM size : {ICON_BIG, ICON_SMALL}) EXPECT_EQ(::SendMessageA(frame, WM_GETICON, size, 0), icon);
        RECT client{};
        ::GetClientRect(frame, &client);
        EXPECT_EQ(client.right, 480);
        EXPECT_EQ(client.bottom, 346);
        EXPECT_TRUE(PanelFillsFrame());
        ::SetWindowPos(frame, nullptr, 10, 10, 700, 300, SWP_NOZORDER);
        EXPECT_TRUE(PanelFillsFrame());

        for (const auto& [command, caption] : {std::pair{IDOK, "Stop"}, {IDCANCEL, "Stop"}, {IDOK, "Start"}}) {
            ::SendMessageA(frame, WM_COMMAND, static_cast<WPARAM>(command), 0); // Enter and Escape
            EXPECT_EQ(Text(IDC_START), caption);
        }
        EXPECT_TRUE(::IsWindowVisible(frame));
        EXPECT_EQ(std::ifstream(logPath).get(), EOF);
    }));
    EXPECT_EQ(Stored("COM"), 1);
    EXPECT_EQ(Stored("Language"), missing);
}

// Any window of that title counts, of whatever program, seen or not.
TEST_F(ShellTest, ASecondCopyTouchesNothing) {
    std::ofstream(logPath) << "of the first copy";
    for (const DWORD style : {DWORD{WS_OVERLAPPED}, DWORD{WS_VISIBLE}}) {
        CWnd first;
        first.Create("STATIC", productTitle, style, {0, 0, 9, 9}, nullptr, 0);
        EXPECT_FALSE(RunProgram([] {}));
    }
    std::ifstream log(logPath);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(log), {}), "of the first copy");
    EXPECT_EQ(Stored("COM"), missing);
    EXPECT_FALSE(CCommPort::Instance()->IsOpen());
    EXPECT_TRUE(RunProgram([] {})) << "there is no first copy any more";
}

// Neither a system without the date control nor a library with a spoilt template leaves an empty frame.
TEST_F(ShellTest, WhatCanNotBeHadIsToldAndEndsTheProgram) {
    haveNoControls = true;
    {
        const CBoxReader reader;
        EXPECT_FALSE(RunProgram([] {}));
        EXPECT_EQ(reader.texts, "Quorvane: The system has no date control. The program has to stop.|");
    }
    haveNoControls = false;
    const HINSTANCE controls = ::GetModuleHandleA("comctl32");
    WNDCLASSA picker{};
    ASSERT_TRUE(::GetClassInfoA(controls, DATETIMEPICK_CLASSA, &picker) &&
                ::UnregisterClassA(DATETIMEPICK_CLASSA, controls));
    const CBoxReader reader;
    EXPECT_FALSE(RunProgram([] {}));
    EXPECT_EQ(reader.texts, "Quorvane: The main window can't be made. The program has to stop.|");
    picker.lpszClassName = DATETIMEPICK_CLASSA;
    EXPECT_NE(::RegisterClassA(&picker), 0);
}

TEST_F(ShellTest, APortThatDoesNotOpenStaysStored) {
    for (const int number : {250, -1}) {
        WriteRegistryInt("COM", number);
        EXPECT_TRUE(RunProgram([&] { EXPECT_EQ(Text(IDC_PORT), "Open COM"); }));
        EXPECT_EQ(Stored("COM"), number);
    }
}

TEST_F(ShellTest, SystemCommandsOfItsOwnAndOfTheSystem) {
    RunProgram([&] {
        const CBoxReader reader(1, frame);
        for (const WPARAM id : {16, 31}) ::SendMessageA(frame, WM_SYSCOMMAND, id, 0);
        ::SendMessageA(frame, WM_SYSCOMMAND, SC_MINIMIZE, 0);
        EXPECT_TRUE(::IsIconic(frame));
        ::SendMessageA(frame, WM_SYSCOMMAND, SC_RESTORE, 0);
        EXPECT_TRUE(PanelFillsFrame());
        const std::string about = std::string("About ") + productTitle + ": ";
        EXPECT_TRUE(reader.texts.starts_with(about));
        for (const char* line : {productVersion, productCompany, productWeb, productMail, about.c_str()})
            EXPECT_NE(reader.texts.find(line, about.size()), std::string::npos) << line; // the second box's title too
    });
}

TEST_F(ShellTest, ALanguageIsStoredForTheNextStart) {
    const std::string told = "Set up successfully. The next time start to take effect|";
    const struct {
        std::int32_t stored; // before the command
        WPARAM command;
        std::string shown;
        std::int32_t storedAfter;
    } rows[] = {{missing, ID_LANGUAGE_ENGLISH, "", missing},
                {missing, ID_LANGUAGE_CHINESE, told, 1},
                {1, ID_LANGUAGE_CHINESE, "", 1},
                {1, ID_LANGUAGE_ENGLISH, told, 0},
                {2, ID_LANGUAGE_ENGLISH, told, 0},
                {2, ID_LANGUAGE_CHINESE, told, 1}};
    RunProgram([&] {
        for (const auto& row : rows) {
            ::RegDeleteKeyA(HKEY_CURRENT_USER, keyName);
            if (row.stored != missing) WriteRegistryInt("Language", row.stored);
            const CBoxReader reader(1, frame);
            ::SendMessageA(Panel(), WM_COMMAND, row.command, 0);
            EXPECT_EQ(reader.texts, row.shown) << "row " << &row - rows;
            EXPECT_EQ(Stored("Language"), row.storedAfter);
        }
    });
    // Without its library a stored Chinese is shown in English.
    EXPECT_TRUE(RunProgram([&] { EXPECT_EQ(Text(IDC_START), "Start"); }));
}

// Leaves each COM Setting dialog that it is told of by `button`, with `text` as the port.
class CComSettingVisit {
public:
    CComSettingVisit(const char* port, int button) : text(port), leave(button) {
        current = this;
        timer = ::SetTimer(nullptr, 0, 10, &OnTimer);
    }
    CComSettingVisit(const CComSettingVisit&) = delete;
    CComSettingVisit& operator=(const CComSettingVisit&) = delete;
    ~CComSettingVisit() { ::KillTimer(nullptr, timer); }

    std::string found; // the port that stood there

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD) {
        const HWND dialog = ::FindWindowA("#32770", "COM Setting");
        if (::IsWindowVisible(dialog) == FALSE) return;
        ::KillTimer(nullptr, id);
        current->found = TextOf(::GetDlgItem(dialog, IDC_COM_SETTING_PORT));
        ::SetDlgItemTextA(dialog, IDC_COM_SETTING_PORT, current->text);
        ::SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(current->leave), 0);
    }

    static inline CComSettingVisit* current = nullptr;
    const char* text;
    int leave;
    UINT_PTR timer = 0;
};

TEST_F(ShellTest, ComSettingMovesTheLineWhenItIsConfirmed) {
    WriteRegistryInt("COM", 3);
    RunProgram([&] {
        struct Row {
            HWND asked;
            WPARAM command;
            const char *found, *typed;
            int button;
        };
        const HWND panel = Panel();
        for (const Row& row : {Row{frame, ID_COM_SETTING, "COM3", "COM200", IDOK},
                               Row{frame, ID_COM_SETTING, "COM3", "COM200", IDC_COM_SETTING_CANCEL},
                               Row{panel, IDC_COM_SETTING, "COM3", "COM200", IDC_COM_SETTING_OK},
                               Row{panel, ID_COM_SETTING, "COM200", "port", IDC_COM_SETTING_OK},
                               Row{frame, ID_COM_SETTING, "COM200", "", IDCANCEL}}) {
            const CComSettingVisit visit(row.typed, row.button);
            ::SendMessageA(row.asked, WM_COMMAND, row.command, 0);
            EXPECT_EQ(visit.found, row.found);
            EXPECT_TRUE(::IsWindowEnabled(frame));
        }
        EXPECT_EQ(Text(IDC_PORT), "Open COM") << "no such port";
        EXPECT_EQ(Stored("COM"), 3);
    });
}

TEST_F(ShellTest, ClosingWaitsOnceAndForNoMoreThanTheCommandInFlight) {
    struct CSlowCommand : CCommand {
        explicit CSlowCommand(std::uint32_t milliseconds) : time(milliseconds) {}
        void Execute() override { PauseThread(time); }
        std::uint32_t time;
    };
    using Clock = std::chrono::steady_clock;
    for (const auto& [count, time] : {std::pair{100, 100U}, std::pair{2, 2000U * TimeFactor()}}) {
        Clock::time_point closed;
        CCommandQueue& queue = *CCommandQueue::Instance();
        EXPECT_TRUE(RunProgram([&, count = count, time = time] {
            for (int i = 0; i < count; ++i) queue.Add(std::make_unique<CSlowCommand>(time));
            PauseThread(100); // until one is in flight
            closed = Clock::now();
        }));
        EXPECT_LT(Clock::now() - closed, std::chrono::milliseconds(900) * TimeFactor()) << time;
        EXPECT_EQ(queue.IsRunning(), time > 1000) << "one that hangs is left behind";
        queue.Add(std::make_unique<CSlowCommand>(60000)); // nobody takes it any more
        while (queue.IsRunning()) PauseThread(10);
    }
}

} // namespace
