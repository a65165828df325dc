// The message loop behind every modal dialog.
#pragma once

#include <functional>

class CWnd;

// Dispatches messages until `finished` says so, or until WM_QUIT, which is posted anew for the loop outside. Each
// message is first offered to the windows on its way from its target up to `top` (PreTranslateMessage).
void RunMessageLoop(const CWnd& top, const std::function<bool()>& finished);
