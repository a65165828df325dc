#include "Input.h"

#include <cstdio>
#include <vector>

#include "Waiting.h"

namespace {

INPUT MouseEvent(DWORD flags, POINT position = {}) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dx = position.x;
    event.mi.dy = position.y;
    event.mi.dwFlags = flags;
    return event;
}

INPUT KeyEvent(WORD key, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = static_cast<WORD>(::MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = flags;
    return event;
}

// An absolute position counts in 65536ths of the screen; the middle of the pixel is meant.
LONG Scaled(LONG position, int size) {
    return static_cast<LONG>((position * 65536LL + 32768) / size);
}

} // namespace

void ClickAt(POINT position) {
    const POINT scaled{Scaled(position.x, ::GetSystemMetrics(SM_CXSCREEN)),
                       Scaled(position.y, ::GetSystemMetrics(SM_CYSCREEN))};
    INPUT move = MouseEvent(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, scaled);
    ::SendInput(1, &move, sizeof move);
    // A window that has just come up may still be told where the pointer was before, so the hand rests for a moment.
    auto since = Clock::now();
    Await([&] {
        POINT now{};
        ::GetCursorPos(&now);
        if (now.x != position.x || now.y != position.y) {
            std::printf("moved %ld %ld want %ld %ld\n", now.x, now.y, position.x, position.y);
            ::SendInput(1, &move, sizeof move);
            since = Clock::now();
        }
        return Clock::now() - since > 60ms;
    });
    INPUT press[] = {MouseEvent(MOUSEEVENTF_LEFTDOWN), MouseEvent(MOUSEEVENTF_LEFTUP)};
    ::SendInput(2, press, sizeof(INPUT));
    POINT now{};
    ::GetCursorPos(&now);
    if (now.x != position.x || now.y != position.y)
        std::printf("AFTER moved %ld %ld want %ld %ld\n", now.x, now.y, position.x, position.y);
}

void PressKey(WORD key, WORD held) {
    std::vector<INPUT> events;
    if (held != 0) events.push_back(KeyEvent(held, 0));
    events.push_back(KeyEvent(key, 0));
    events.push_back(KeyEvent(key, KEYEVENTF_KEYUP));
    if (held != 0) events.push_back(KeyEvent(held, KEYEVENTF_KEYUP));
    ::SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

void TypeKeys(std::string_view text) {
    for (const char key : text) PressKey(static_cast<WORD>(key));
}
