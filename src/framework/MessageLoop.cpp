#include "framework/MessageLoop.h"

#include <windows.h>

#include "framework/HandleMap.h"
#include "framework/Wnd.h"

namespace {

int loopDepth = 0;

bool PreTranslate(const CWnd& top, MSG& message) {
    for (HWND window = message.hwnd; window != nullptr; window = ::GetParent(window)) {
        CWnd* object = CWnd::FromHandlePermanent(window);
        if (object != nullptr && object->PreTranslateMessage(message)) return true;
        if (window == top.GetHandle()) break;
    }
    return false;
}

// Waits for a message. 0 for the one that ends every loop, negative when the platform refuses.
// Only the outermost loop drops temporaries, when nothing waits: handlers further out may still hold some.
BOOL TakeMessage(MSG& message) {
    if (loopDepth == 1 && HaveTemporaryWrappers()) {
        if (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) return message.message == WM_QUIT ? 0 : 1;
        DropTemporaryWrappers();
    }
    return ::GetMessageA(&message, nullptr, 0, 0);
}

} // namespace

void RunMessageLoop(const CWnd& top, const std::function<bool()>& finished) {
    ++loopDepth;
    MSG message{};
    while (!finished()) {
        const BOOL got = TakeMessage(message);
        if (got == 0) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (got < 0) break;
        if (PreTranslate(top, message)) continue;
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
    --loopDepth;
}
