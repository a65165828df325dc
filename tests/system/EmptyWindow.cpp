// A window and nothing else: what the program's memory is compared with.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    ::CreateWindowExA(0, "STATIC", "Empty window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 480, 347, nullptr, nullptr,
                      nullptr, nullptr);
    for (MSG message; ::GetMessageA(&message, nullptr, 0, 0) > 0;) ::DispatchMessageA(&message);
    return 0;
}
