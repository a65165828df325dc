// Waiting for what another process does.
#pragma once

#include <windows.h>

// Asks every few milliseconds; false if the condition still doesn't hold when the time, in ms, is up.
template <class Condition>
bool AwaitFor(DWORD time, const Condition& condition) {
    for (const DWORD begin = ::GetTickCount(); !condition(); ::Sleep(5)) {
        if (::GetTickCount() - begin > time) return false;
    }
    return true;
}
