// The built program as a process of its own: its windows found by control id at any depth, its buttons pressed with the
// mouse, its texts read. A call that the program doesn't answer within five seconds fails instead of hanging the test.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <windows.h>

#include "Waiting.h"

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
    bool Launch();
    bool Start();
    // Asks the window to close; the exit code, or nothing if the process is still there at the limit.
    std::optional<DWORD> Close(Clock::duration limit = 2s);
    std::optional<DWORD> AwaitExit(Clock::duration limit) const;
    bool IsRunning() const { return process != nullptr && !AwaitExit(0ms); }

    bool ShowsWindow() const {
        return FindTopWindow([](HWND window) { return ::IsWindowVisible(window) != FALSE; }) != nullptr;
    }
    // The main window, known once Start has found it, and the panel that fills it.
    HWND Frame() const { return frame; }
    HWND Panel() const { return FindPanel(frame); }
    // Whether the user-interface thread takes messages.
    bool Answers() const { return SendTo(frame, WM_NULL); }

    HWND Control(int id) const;
    std::string Text(int id) const; // UTF-8
    bool IsEnabled(int id) const { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool IsVisible(int id) const { return ::IsWindowVisible(Control(id)) != FALSE; }
    int FocusId() const;

    // With the mouse, in the middle of the control. Fails the test if another window is there.
    void Click(int id) const;
    // Replaces an edit's text key by key, and sees to what it then reads.
    void Type(int id, const std::string& text) const { Type(id, text, text); }
    void Type(int id, const std::string& text, const std::string& reads) const;
    // To the panel, as the program's own controls and menus do.
    bool SendCommand(int id) const { return SendTo(Panel(), WM_COMMAND, static_cast<WPARAM>(id)); }
    void PostCommand(int id) const { ::PostMessageA(Panel(), WM_COMMAND, static_cast<WPARAM>(id), 0); }

    // A message box in front of the window.
    bool ShowsBox() const { return FindBox() != nullptr; }
    // Its text, once one is there; it is then closed with the mouse. Empty if none came.
    std::string TakeBox() const;

    DWORD HandleCount() const;
    double ProcessorSeconds() const;

private:
    HWND FindTopWindow(const std::function<bool(HWND)>& test) const;
    HWND FindBox() const;
    static HWND FindPanel(HWND window) { return ::FindWindowExA(window, nullptr, "#32770", nullptr); }
    static bool SendTo(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    HANDLE job; // ends the process with the test, however that ends
    HANDLE process = nullptr;
    DWORD processId = 0;
    HWND frame = nullptr;
};
