// The one window procedure through which all messages of attached windows pass, and the window procedures it stands in
// front of.
#pragma once

#include <windows.h>

#include "framework/Wnd.h"

// noexcept: what would escape from a handler stops the program here instead of unwinding through the window manager.
LRESULT CALLBACK WindowEntry(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

// The message that is being handled on the user-interface thread.
const WindowMessage& CurrentMessage();

// Puts WindowEntry in front of the window's procedure, which is remembered until the window is gone.
void HookWindow(HWND window);
// Takes it away again where nothing has been put in front of it since.
void UnhookWindow(HWND window);
// The procedure behind WindowEntry; the platform's default procedure for a window that isn't hooked.
WNDPROC ProcedureBehind(HWND window);
