#include "framework/WindowEntry.h"

#include <unordered_map>
#include <utility>

namespace {

WindowMessage currentMessage{};

std::unordered_map<HWND, WNDPROC>& Procedures() {
    static auto* const procedures = new std::unordered_map<HWND, WNDPROC>; // outlives windows of static storage
    return *procedures;
}

} // namespace

const WindowMessage& CurrentMessage() {
    return currentMessage;
}

void HookWindow(HWND window) {
    if (Procedures().contains(window)) return; // hooked before, by an object that has left the window to another
    const LONG_PTR former =
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(&WindowEntry)));
    if (former != 0) Procedures()[window] = reinterpret_cast<WNDPROC>(former);
}

void UnhookWindow(HWND window) {
    const auto found = Procedures().find(window);
    if (found == Procedures().end()) return;
    const LONG_PTR present = ::GetWindowLongPtrA(window, GWLP_WNDPROC);
    if (present != reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(&WindowEntry))) return;
    ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(found->second));
    Procedures().erase(found);
}

WNDPROC ProcedureBehind(HWND window) {
    const auto found = Procedures().find(window);
    return found != Procedures().end() ? found->second : &::DefWindowProcA;
}

LRESULT CALLBACK WindowEntry(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const WindowMessage outer = std::exchange(currentMessage, WindowMessage{window, message, wParam, lParam});
    CWnd* object = CWnd::FromHandlePermanent(window);
    const LRESULT result = object != nullptr
                               ? object->WindowProc(message, wParam, lParam)
                               : ::CallWindowProcA(ProcedureBehind(window), window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        // The handler may have deleted the object, so it is looked up again.
        Procedures().erase(window);
        if (CWnd* remaining = CWnd::FromHandlePermanent(window)) {
            remaining->Unbind();
            remaining->PostNcDestroy();
        }
    }
    currentMessage = outer;
    return result;
}
