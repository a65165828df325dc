// Reads message boxes and dialogs of this thread as a user would, and closes them by OK.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

#include "shell/ProductStrings.h"
#include "support/Windows.h"

// Looks by a timer, which runs in whatever message loop the thread is in, that of a box too.
class CBoxReader {
public:
    // `frame` is no box.
    explicit CBoxReader(HWND frame = nullptr) : exempt(frame) {
        current = this;
        timer = ::SetTimer(nullptr, 0, 10, &OnTimer);
    }
    CBoxReader(const CBoxReader&) = delete;
    CBoxReader& operator=(const CBoxReader&) = delete;
    ~CBoxReader() {
        ::KillTimer(nullptr, timer);
        current = nullptr;
    }

    std::string texts; // "title: text|" of each box, the title left out if it is the product's

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (current != nullptr) current->Look();
    }

    void Look() {
        ::EnumThreadWindows(::GetCurrentThreadId(), &NoteBox, 0);
        for (; !standing.empty(); standing.pop_back()) ::SendMessageA(standing.back(), WM_COMMAND, IDOK, 0);
    }

    static BOOL CALLBACK NoteBox(HWND window, LPARAM) {
        const bool isBox = window != current->exempt && ::IsWindowVisible(window) && IsOfClass(window, "#32770");
        if (!isBox) return TRUE;
        current->standing.push_back(window);
        if (const std::string title = TextOf(window); title != productTitle) current->texts += title + ": ";
        FindBelow(window, [](HWND child) {
            if (IsOfClass(child, "Static")) current->texts += TextOf(child);
            return false;
        });
        current->texts += "|";
        return TRUE;
    }

    static inline CBoxReader* current = nullptr;

    HWND exempt;
    UINT_PTR timer = 0;
    std::vector<HWND> standing;
};
