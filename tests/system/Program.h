// The built program as a process of its own: started, seen and pressed as by a user, with the mouse and the keyboard of
// the system.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "support/Windows.h"
#include "user/Input.h"
#include "user/ProgramStart.h"

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// Asks every few milliseconds, up to the limit.
template <class Condition>
bool Await(const Condition& condition, Clock::duration limit = 20s) {
    for (const auto end = Clock::now() + limit; !condition(); std::this_thread::sleep_for(2ms)) {
        if (Clock::now() >= end) return false;
    }
    return true;
}

// Until the pointer rests there.
inline void PointAt(POINT place) {
    // A busy window may still have older moves to hear of, which would take the pointer back.
    auto resting = Clock::now();
    EXPECT_TRUE(Await([&] {
        POINT now{};
        DWORD_PTR result = 0;
        ::SendMessageTimeoutA(::WindowFromPoint(place), WM_NULL, 0, 0, SMTO_NORMAL, 5000, &result);
        ::GetCursorPos(&now);
        if (now.x != place.x || now.y != place.y) {
            ::SetCursorPos(place.x, place.y);
            resting = Clock::now();
        }
        return Clock::now() - resting > 50ms;
    }));
    // A hand is never quite still: a window that has had no move since a menu over it ended hears of the pointer now.
    ::SetCursorPos(place.x - 1, place.y);
    ::SetCursorPos(place.x, place.y);
}

inline void ClickAt(POINT place) {
    PointAt(place);
    MoveButton(MOUSEEVENTF_LEFTDOWN, place);
    MoveButton(MOUSEEVENTF_LEFTUP, place);
}

class CProgram {
public:
    static constexpr char title[] = PRODUCT_TITLE;

    // Ends what is still there by force
    ~CProgram() {
        if (process.IsEmpty()) return;
        ::TerminateProcess(process.GetHandle(), 1);
        ::WaitForSingleObject(process.GetHandle(), 5000);
    }

    // Where the program, its language library and its log are, with a backslash behind it.
    static std::string Folder() { return BuiltFolder(); }

    // Launch only makes the process. Start also waits for its window, and clicks it to the front: a press that had to
    // do so first could lose the mouse to that, and with it the click.
    bool Launch(const std::string& path = Folder() + "Quorvane.exe") {
        process = StartProcess(path);
        return HasStarted();
    }
    bool Start(const std::string& path = Folder() + "Quorvane.exe", const char* caption = title) {
        if (!Launch(path) ||
            !Await([&] { return ::IsWindowVisible(frame = ::FindWindowA(nullptr, caption)) != FALSE; }))
            return false;
        return Await([this] { return ::GetForegroundWindow() == frame; }) && Answers();
    }
    // The exit code, or nothing if the process is still there at the limit. Close asks the window to close before.
    std::optional<DWORD> AwaitExit(Clock::duration limit = 10s) const {
        const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(limit).count();
        DWORD code = 0;
        if (::WaitForSingleObject(process.GetHandle(), static_cast<DWORD>(time)) != WAIT_OBJECT_0) return std::nullopt;
        ::GetExitCodeProcess(process.GetHandle(), &code);
        return code;
    }
    std::optional<DWORD> Close() const {
        ::PostMessageA(frame, WM_CLOSE, 0, 0);
        return AwaitExit();
    }
    // All its threads stand still, as while the computer sleeps, or go on.
    void Freeze(bool stands) const {
        const auto change = reinterpret_cast<LONG(WINAPI*)(HANDLE)>(reinterpret_cast<void*>(
            ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), stands ? "NtSuspendProcess" : "NtResumeProcess")));
        ASSERT_TRUE(change != nullptr && change(process.GetHandle()) == 0);
    }
    bool HasStarted() const { return !process.IsEmpty(); }
    bool IsRunning() const { return HasStarted() && !AwaitExit(0ms); }

    HWND Frame() const { return frame; } // known once Start has found it
    HWND Panel() const { return ::FindWindowExA(frame, nullptr, "#32770", nullptr); }
    HWND Control(int id) const { return FindControl(frame, id); }
    std::string Text(int id) const { return TextOf(Control(id)); } // UTF-8, as this program's code page is
    bool IsEnabled(int id) const { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool IsVisible(int id) const { return ::IsWindowVisible(Control(id)) != FALSE; }

    // With the mouse, in the middle of the control; fails the test if another window is there.
    void Click(int id) const { ClickOn(Control(id)); }
    static void ClickOn(HWND control) {
        ASSERT_TRUE(Await([control] {
            const HWND there = ::WindowFromPoint(MiddleOf(control));
            return there == control || ::IsChild(control, there);
        })) << "no way to click at control "
            << ::GetDlgCtrlID(control);
        ClickAt(MiddleOf(control));
    }
    // Replaces an edit's text key by key, digits only.
    void Type(int id, std::string_view digits) const {
        Click(id);
        // All of it is selected once the click has come; a busy system may miss Shift behind a key.
        EXPECT_TRUE(Await([edit = Control(id)] {
            const bool isClicked = InputOf(edit).hwndFocus == edit;
            ::SendMessageA(edit, EM_SETSEL, 0, -1);
            const LRESULT all = ::SendMessageA(edit, EM_GETSEL, 0, 0);
            std::this_thread::sleep_for(100ms);
            return isClicked && ::SendMessageA(edit, EM_GETSEL, 0, 0) == all;
        }));
        for (const char digit : digits) PressKey(digit);
    }
    // The popup of a bar's or a menu's button; null, and a failure, if none comes up.
    HWND OpenMenu(int button) const {
        Click(button);
        EXPECT_TRUE(Await(&ShownPopup)) << "no menu of " << button;
        return ShownPopup();
    }
    // What stands over the frame, when it can be seen; null if nothing does.
    HWND Box() const {
        const HWND box = ::GetLastActivePopup(frame);
        return box != frame && ::IsWindowVisible(box) ? box : nullptr;
    }
    // The message box on top, when it reads so, is closed with the mouse.
    void ExpectBox(const std::string& text) const {
        HWND box = nullptr;
        const bool stands = Await([&] { return (box = Box()) != nullptr && FindByText(box, text) != nullptr; });
        ASSERT_TRUE(stands) << "no box reads \"" << text << '"';
        HWND button = FindControl(box, IDC_MESSAGE_OK); // else it is the platform's own box
        for (const int id : {IDOK, IDCANCEL}) button = button != nullptr ? button : FindControl(box, id);
        ClickOn(button);
        EXPECT_TRUE(Await([box] { return !::IsWindow(box); })) << "the box stays: " << text;
    }

    bool Answers() const {
        DWORD_PTR result = 0;
        return ::SendMessageTimeoutA(Panel() != nullptr ? Panel() : frame, WM_NULL, 0, 0, SMTO_NORMAL, 10'000,
                                     &result) != 0;
    }
    // A command as from the program's own controls and menus.
    void PostCommand(int id) const { ::PostMessageA(Panel(), WM_COMMAND, static_cast<WPARAM>(id), 0); }

private:
    CKernelHandle process;
    HWND frame = nullptr;
};
