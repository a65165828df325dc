// The built program as a process of its own: started, seen and pressed as by a user, with the mouse and the keyboard of
// the system. What the program leaves unanswered for five seconds fails instead of hanging the test.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include <windows.h>

#include "TimeFactor.h"

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// Asks every few milliseconds, up to the limit; that of a slow machine is farther off.
template <class Condition>
bool Await(const Condition& condition, Clock::duration limit = 10s) {
    for (const auto deadline = Clock::now() + limit * TimeFactor(); !condition(); std::this_thread::sleep_for(2ms)) {
        if (Clock::now() >= deadline) return false;
    }
    return true;
}

// Presses and releases the left mouse button; the time of the press.
Clock::time_point ClickAt(POINT place);

// Presses and releases a key, with another one held down meanwhile; 0 for none.
void PressKey(WORD key, WORD held = 0);

class CProgram {
public:
    static constexpr char title[] = "Keldrun Version 1.1-20101001       www.brenholt.example";

    CProgram();
    CProgram(const CProgram&) = delete;
    CProgram& operator=(const CProgram&) = delete;
    ~CProgram(); // ends what is still there by force

    // Where the program, its language library and its log are, with a backslash behind it.
    static std::string Folder();

    // Launch only makes the process. Start also waits until its window can be seen and answers.
    bool Launch(const std::string& path = Folder() + "Quorvane.exe");
    bool Start(const std::string& path = Folder() + "Quorvane.exe", const char* caption = title);
    // The exit code, or nothing if the process is still there at the limit. Close asks the window to close before.
    std::optional<DWORD> AwaitExit(Clock::duration limit) const;
    std::optional<DWORD> Close();
    bool IsRunning() const { return process != nullptr && !AwaitExit(0ms); }
    bool ShowsAnyWindow() const;

    HWND Frame() const { return frame; } // known once Start has found it
    HWND Panel() const { return ::FindWindowExA(frame, nullptr, "#32770", nullptr); }
    HWND Control(int id) const; // at any depth
    static HWND ControlIn(HWND window, int id);
    std::string Text(int id) const; // UTF-8
    bool IsEnabled(int id) const { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool IsVisible(int id) const { return ::IsWindowVisible(Control(id)) != FALSE; }

    // With the mouse, in the middle of the control; fails the test if another window is there. The time of the press.
    Clock::time_point Click(int id) const;
    // Replaces an edit's text key by key, digits only.
    void Type(int id, std::string_view digits) const;
    // The message box on top, when it reads so, is closed with the mouse.
    void ExpectBox(const std::string& text) const;
    bool ShowsBox() const { return ::GetLastActivePopup(frame) != frame; }

    // Whether the window takes messages; a command as from the program's own controls and menus.
    static bool SendTo(HWND window, UINT message, WPARAM wParam);
    bool Answers() const { return SendTo(frame, WM_NULL, 0); }
    bool SendCommand(int id) const { return SendTo(Panel(), WM_COMMAND, static_cast<WPARAM>(id)); }
    void PostCommand(int id) const { ::PostMessageA(Panel(), WM_COMMAND, static_cast<WPARAM>(id), 0); }

    DWORD HandleCount() const;
    std::size_t ResidentBytes() const;
    Clock::duration ProcessorTime() const;

private:
    HANDLE job; // ends the process with the test, however that ends
    HANDLE process = nullptr;
    DWORD processId = 0;
    HWND frame = nullptr;
};
