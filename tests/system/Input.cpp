#include "Input.h"

#include <vector>

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
    INPUT events[] = {MouseEvent(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, scaled), MouseEvent(MOUSEEVENTF_LEFTDOWN),
                      MouseEvent(MOUSEEVENTF_LEFTUP)};
    ::SendInput(3, events, sizeof(INPUT));
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
