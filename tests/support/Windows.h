// Finds and reads windows as a user would.
#pragma once

#include <string>

#include <windows.h>

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

inline bool IsOfClass(HWND window, const char* name) {
    char found[64]{};
    return ::GetClassNameA(window, found, sizeof found) != 0 && ::lstrcmpiA(found, name) == 0;
}

// The first window below `top`, at any depth, for which `matches` holds; null if there is none.
template <class Matches>
HWND FindBelow(HWND top, Matches matches) {
    for (HWND child = ::GetWindow(top, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (matches(child)) return child;
        if (const HWND inner = FindBelow(child, matches)) return inner;
    }
    return nullptr;
}
inline HWND FindControl(HWND top, int id) {
    return FindBelow(top, [&](HWND child) { return ::GetDlgCtrlID(child) == id; });
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

// The window of the menu that is shown; null if none is.
inline HWND ShownPopup() {
    const HWND popup = ::FindWindowA("#32768", nullptr);
    return popup != nullptr && ::IsWindowVisible(popup) != FALSE ? popup : nullptr;
}

// The dialog or message box that this thread shows foremost, other than `frame`; null if there is none.
inline HWND ShownDialog(HWND frame = nullptr) {
    for (HWND window = ::GetTopWindow(nullptr); window != nullptr; window = ::GetWindow(window, GW_HWNDNEXT)) {
        const bool isOurs = ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId();
        if (isOurs && window != frame && ::IsWindowVisible(window) != FALSE && IsOfClass(window, "#32770"))
            return window;
    }
    return nullptr;
}
