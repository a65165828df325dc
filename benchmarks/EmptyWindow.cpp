// The measure for the program's figures: a window of the same kind, a dialog of the same size, with nothing in it.
#include <windows.h>

namespace {

struct Template {
    DLGTEMPLATE head{
        WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_VISIBLE | DS_CENTER, 0, 0, 0, 0, 240, 173};
    WORD menu = 0, windowClass = 0;
    wchar_t caption[13] = L"Empty window";
};

INT_PTR CALLBACK Handle(HWND window, UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    if (message == WM_CLOSE) ::EndDialog(window, 0);
    return message == WM_INITDIALOG;
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    const Template empty;
    return static_cast<int>(::DialogBoxIndirectParamA(instance, &empty.head, nullptr, &Handle, 0));
}
