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

} // namespace

void RunMessageLoop(const CWnd& top, const std::function<bool()>& finished) {
    ++loopDepth;
    MSG message{};
    while (!finished()) {
        // Only the outermost loop drops temporaries, when nothing waits: handlers further out may still hold some.
        if (loopDepth == 1 && HaveTemporaryWrappers() &&
            ::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) == FALSE) {
            DropTemporaryWrappers();
        }
        const BOOL got = ::GetMessageA(&message, nullptr, 0, 0);
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
