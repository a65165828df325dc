// Reads message boxes and dialogs of this thread as a user would, and closes them by OK.
#pragma once

#include <string>

#include "resources/Product.h"
#include "Windows.h"

// Looks by a timer, which runs in whatever message loop the thread is in, that of a box too. `frame` is no box.
class CBoxReader {
public:
    explicit CBoxReader(HWND frame = nullptr) : exempt(frame) { current = this; }
    CBoxReader(const CBoxReader&) = delete;
    CBoxReader& operator=(const CBoxReader&) = delete;
    ~CBoxReader() {
        ::KillTimer(nullptr, timer);
        current = nullptr;
    }

    std::string texts; // "title: text|" of each box, the title left out if it is the product's

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
        const HWND box = current != nullptr ? ShownDialog(current->exempt) : nullptr;
        if (box == nullptr) return;
        if (const std::string title = TextOf(box); title != PRODUCT_TITLE) current->texts += title + ": ";
        FindBelow(box, [](HWND child) {
            if (IsOfClass(child, "Static")) current->texts += TextOf(child);
            return false;
        });
        current->texts += "|";
        ::SendMessageA(box, WM_COMMAND, IDOK, 0);
    }

    static inline CBoxReader* current = nullptr;
    HWND exempt;
    UINT_PTR timer = ::SetTimer(nullptr, 0, 10, &Look);
};
