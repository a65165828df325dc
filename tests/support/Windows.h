// Finds and reads windows as a user would.
#pragma once

#include <string>

#include <windows.h>

#include "user/WindowSearch.h"

// Handles what waits in this thread's queue, paints included.
inline void PumpMessages() {
    MSG message{};
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageA(&message);
}

// Pumps until `condition` holds; false if it still doesn't when the time is up.
template <class Condition>
bool PumpUntil(Condition condition, DWORD milliseconds = 10'000) {
    for (const DWORD begin = ::GetTickCount(); !condition(); ::Sleep(1)) {
        if (::GetTickCount() - begin > milliseconds) return false;
        PumpMessages();
    }
    return true;
}

inline std::string TextOf(HWND window) {
    if (window == nullptr) return "no such window";
    std::string text(1024, '\0');
    text.resize(static_cast<std::size_t>(
        ::SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

inline HWND FindByText(HWND top, const std::string& text) {
    return FindBelow(top, [&](HWND child) { return TextOf(child) == text; });
}

// In the client area of its parent.
inline RECT PlaceInParent(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, ::GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&place), 2);
    return place;
}
// "left,top,width,height" there.
inline std::string PlaceText(HWND window) {
    const RECT place = PlaceInParent(window);
    return std::to_string(place.left) + "," + std::to_string(place.top) + "," +
           std::to_string(place.right - place.left) + "," + std::to_string(place.bottom - place.top);
}

// The dialog or message box that this thread shows foremost, other than `frame`; null if there is none.
inline HWND ShownDialog(HWND frame = nullptr) {
    return FindOnDesktop([frame](HWND window) {
        const bool isOurs = ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId();
        return isOurs && window != frame && ::IsWindowVisible(window) != FALSE && IsOfClass(window, "#32770");
    });
}
