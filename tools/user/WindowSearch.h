// Windows as a user finds them, whatever process has them. A walk goes from the top down and passes over what ends
// meanwhile.
#pragma once

#include <windows.h>

inline bool IsOfClass(HWND window, const char* name) {
    char found[64]{};
    return ::GetClassNameA(window, found, sizeof found) != 0 && ::lstrcmpiA(found, name) == 0;
}

// One walk: it ends at the first window for which `matches` holds.
template <class Matches>
struct WindowSearch {
    Matches& matches;
    HWND found;

    static BOOL CALLBACK Try(HWND window, LPARAM search) {
        auto& own = *reinterpret_cast<WindowSearch*>(search);
        if (own.matches(window)) own.found = window;
        return own.found == nullptr ? TRUE : FALSE;
    }
};

// The first window below `top`, at any depth, for which `matches` holds; null if there is none, or no `top`.
template <class Matches>
HWND FindBelow(HWND top, Matches matches) {
    WindowSearch<Matches> search{matches, nullptr};
    // Without a window the platform would walk through those of all programs.
    if (top != nullptr) ::EnumChildWindows(top, &WindowSearch<Matches>::Try, reinterpret_cast<LPARAM>(&search));
    return search.found;
}
inline HWND FindControl(HWND top, int id) {
    return FindBelow(top, [&](HWND child) { return ::GetDlgCtrlID(child) == id; });
}

// The foremost window of the desktop, of any program, for which `matches` holds; null if there is none.
template <class Matches>
HWND FindOnDesktop(Matches matches) {
    WindowSearch<Matches> search{matches, nullptr};
    ::EnumWindows(&WindowSearch<Matches>::Try, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// The window of the menu that is shown; null if none is.
inline HWND ShownPopup() {
    const HWND popup = ::FindWindowA("#32768", nullptr);
    return ::IsWindowVisible(popup) != FALSE ? popup : nullptr;
}
