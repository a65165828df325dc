// Acts while a modal loop runs: that of a menu, a dialog, or a message box.
#pragma once

#include <functional>
#include <utility>

#include <windows.h>

#include <gtest/gtest.h>

#include "Windows.h"

// Calls `step` every 10 ms from whatever message loop this thread is in, until it returns true ("done"). When the time
// is up first, the test fails, and menus and dialogs are ended. Lives on the stack around the modal call; may be
// nested.
class CMeanwhile {
public:
    explicit CMeanwhile(std::function<bool()> work, DWORD milliseconds = 10'000)
        : step(std::move(work)), limit(milliseconds), outer(std::exchange(current, this)) {}
    CMeanwhile(const CMeanwhile&) = delete;
    CMeanwhile& operator=(const CMeanwhile&) = delete;
    ~CMeanwhile() {
        ::KillTimer(nullptr, timer);
        current = outer;
        EXPECT_TRUE(done) << "what had to be done while the modal loop ran was not";
    }

    bool IsDone() const { return done; }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (CMeanwhile* const acting = current; acting != nullptr) acting->Act();
    }

    // A step may itself run a modal loop, in which the timer must not call it again.
    void Act() {
        if (done || busy) return;
        busy = true;
        done = step();
        busy = false;
        if (done || ::GetTickCount() - begin < limit) return;
        ::EndMenu();
        if (const HWND dialog = ShownDialog()) ::PostMessageA(dialog, WM_CLOSE, 0, 0);
    }

    static inline CMeanwhile* current = nullptr;

    std::function<bool()> step;
    DWORD limit;
    CMeanwhile* outer;
    DWORD begin = ::GetTickCount();
    bool busy = false;
    bool done = false;
    UINT_PTR timer = ::SetTimer(nullptr, 0, 10, &OnTimer);
};
