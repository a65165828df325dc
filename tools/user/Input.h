// Mouse and keys of the system, as a user's hand moves them, whatever window they meet. Places are screen coordinates.
#pragma once

#include <windows.h>

inline POINT MiddleOf(HWND window) {
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

// With MOUSEEVENTF_LEFTDOWN or MOUSEEVENTF_LEFTUP. The event brings the pointer along: of a move made before, a busy
// display may hear so late that the button goes down where the pointer was.
inline void MoveButton(DWORD flag, POINT place) {
    const auto share = [](LONG pixel, int metric) { // of the screen, in 65,536 parts, so that the pixel comes out again
        const LONG size = ::GetSystemMetrics(metric);
        return (pixel * 65'536 + size - 1) / size;
    };
    INPUT event{};
    event.mi.dx = share(place.x, SM_CXSCREEN);
    event.mi.dy = share(place.y, SM_CYSCREEN);
    event.mi.dwFlags = flag | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    ::SendInput(1, &event, sizeof event);
}

// With another one held down meanwhile, unless that is 0.
inline void PressKey(int key, WORD held = 0) {
    const auto send = [](WORD virtualKey, DWORD flags) {
        INPUT event{};
        event.type = INPUT_KEYBOARD;
        event.ki.wVk = virtualKey;
        event.ki.wScan = static_cast<WORD>(::MapVirtualKeyA(virtualKey, MAPVK_VK_TO_VSC));
        event.ki.dwFlags = flags;
        ::SendInput(1, &event, sizeof event);
    };
    if (held != 0) send(held, 0);
    for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) send(static_cast<WORD>(key), flags);
    if (held != 0) send(held, KEYEVENTF_KEYUP);
}

// What the thread of a window tells of its mouse and keyboard.
inline GUITHREADINFO InputOf(HWND window) {
    GUITHREADINFO input{};
    input.cbSize = sizeof input;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &input);
    return input;
}
