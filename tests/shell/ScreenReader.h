// Reads windows of this thread as a user would: controls by their number, and message boxes, which are closed by OK.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <windows.h>

#include "framework/Wnd.h"
#include "shell/ProductStrings.h"

inline std::string TextOf(HWND window) {
    return window != nullptr ? CWnd::FromHandle(window)->GetWindowText() : "no such window";
}

// At any depth; null if there is none.
inline HWND FindControl(HWND top, int id) {
    for (HWND child = ::GetWindow(top, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgCtrlID(child) == id) return child;
        if (HWND inner = FindControl(child, id)) return inner;
    }
    return nullptr;
}

// Looks by a timer, which runs in whatever message loop the thread is in, that of a box too.
class CBoxReader {
public:
    // The first boxes are left standing until `together` of them do, or for some seconds. `frame` is no box.
    explicit CBoxReader(int together = 1, HWND frame = nullptr) : wanted(together), exempt(frame) {
        current = this;
        timer = ::SetTimer(nullptr, 0, 10, &OnTimer);
    }
    CBoxReader(const CBoxReader&) = delete;
    CBoxReader& operator=(const CBoxReader&) = delete;
    ~CBoxReader() {
        ::KillTimer(nullptr, timer);
        current = nullptr;
    }

    std::string texts;    // "title: text|" of each box, the title left out if it is the product's
    int mostTogether = 0; // boxes that stood at once

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (current != nullptr) current->Look();
    }

    void Look() {
        ::EnumThreadWindows(::GetCurrentThreadId(), &NoteBox, 0);
        const int count = static_cast<int>(standing.size());
        mostTogether = std::max(mostTogether, count);
        if (count < wanted && ++looks < 500) return;
        wanted = 1;
        for (; !standing.empty(); standing.pop_back()) ::SendMessageA(standing.back(), WM_COMMAND, IDOK, 0);
    }

    static bool IsOfClass(HWND window, const char* name) {
        char found[16]{};
        return ::GetClassNameA(window, found, sizeof found) != 0 && ::lstrcmpiA(found, name) == 0;
    }

    static BOOL CALLBACK NoteBox(HWND window, LPARAM) {
        const bool isBox = window != current->exempt && ::IsWindowVisible(window) && IsOfClass(window, "#32770");
        if (!isBox || std::ranges::count(current->standing, window) != 0) return TRUE;
        current->standing.push_back(window);
        if (const std::string title = TextOf(window); title != productTitle) current->texts += title + ": ";
        ::EnumChildWindows(window, &NoteText, 0);
        current->texts += "|";
        return TRUE;
    }

    static BOOL CALLBACK NoteText(HWND window, LPARAM) {
        if (IsOfClass(window, "Static")) current->texts += TextOf(window);
        return TRUE;
    }

    static inline CBoxReader* current = nullptr;

    int wanted;
    int looks = 0;
    HWND exempt;
    UINT_PTR timer = 0;
    std::vector<HWND> standing;
};
