// The program that is soaked: a process of its own, with what a user sees of it.
#pragma once

#include <string>

#include <windows.h>

#include "framework/SystemHandles.h"
#include "resources/ResourceIds.h"
#include "user/WindowSearch.h"

class CSoakedProgram {
public:
    // Until its window answers. False if it doesn't come up.
    bool Start();
    // Asked to close by its window, or at the end of the session. False if it is still there after ten seconds, or has
    // ended in another way than well.
    bool Close(bool sessionEnds);
    void Kill();

    bool IsRunning() const;
    HANDLE Process() const { return process.GetHandle(); }
    HWND Frame() const { return frame; }
    HWND Panel() const { return ::FindWindowExA(frame, nullptr, "#32770", nullptr); }
    HWND Control(int id) const { return FindControl(frame, id); } // null if there is none
    std::string Text(int id) const;
    bool IsEnabled(int id) const { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool IsVisible(int id) const { return ::IsWindowVisible(Control(id)) != FALSE; }
    bool IsPolling() const { return frame != nullptr && !IsEnabled(IDC_UPDATE); }
    bool IsPortOpen() const;
    // The controls, by number, that paint themselves within a time in ms though nobody asks them to.
    std::string PaintsWithin(DWORD time) const;
    // The dialog or message box that waits for its user; null if there is none.
    HWND Box() const;
    void ComeToFront() const { ::SetForegroundWindow(Box() != nullptr ? Box() : frame); }

private:
    CKernelHandle process;
    HWND frame = nullptr;
};
