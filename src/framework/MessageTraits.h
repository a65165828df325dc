// How each window message is cracked: the typed arguments that its handler takes, and the type of its result.
// On<> (MessageMap.h) refuses a message that has no entry here, and a handler whose signature differs from the entry.
// Positions are signed: on a desktop of several screens, coordinates left of or above the first one are negative.
#pragma once

#include <tuple>

#include <windows.h>

#include "framework/Geometry.h"

class CWnd;
class CMenu;

// The object or a temporary wrapper for a handle; null for a null handle.
CWnd* WindowFromHandle(HWND handle);
CMenu* MenuFromHandle(HMENU handle);

template <UINT message>
struct MessageTraits;

struct CrackedNothing {
    using Result = void;
    static std::tuple<> Crack(WPARAM, LPARAM) { return {}; }
};
template <>
struct MessageTraits<WM_PAINT> : CrackedNothing {};
template <>
struct MessageTraits<WM_CLOSE> : CrackedNothing {};
template <>
struct MessageTraits<WM_DESTROY> : CrackedNothing {};
template <>
struct MessageTraits<WM_SYSCOLORCHANGE> : CrackedNothing {};
template <>
struct MessageTraits<WM_MOUSELEAVE> : CrackedNothing {};

struct CrackedMouse { // void (UINT keys, CPoint client coordinates)
    using Result = void;
    static std::tuple<UINT, CPoint> Crack(WPARAM wParam, LPARAM lParam) {
        return {static_cast<UINT>(wParam),
                CPoint(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)))};
    }
};
template <>
struct MessageTraits<WM_MOUSEMOVE> : CrackedMouse {};
template <>
struct MessageTraits<WM_LBUTTONDOWN> : CrackedMouse {};
template <>
struct MessageTraits<WM_LBUTTONUP> : CrackedMouse {};
template <>
struct MessageTraits<WM_LBUTTONDBLCLK> : CrackedMouse {};

struct CrackedWindowInWParam { // void (CWnd* other window, may be null)
    using Result = void;
    static std::tuple<CWnd*> Crack(WPARAM wParam, LPARAM) { return {WindowFromHandle(reinterpret_cast<HWND>(wParam))}; }
};
template <>
struct MessageTraits<WM_SETFOCUS> : CrackedWindowInWParam {};
template <>
struct MessageTraits<WM_KILLFOCUS> : CrackedWindowInWParam {};

template <>
struct MessageTraits<WM_CAPTURECHANGED> { // void (CWnd* new holder, may be null)
    using Result = void;
    static std::tuple<CWnd*> Crack(WPARAM, LPARAM lParam) { return {WindowFromHandle(reinterpret_cast<HWND>(lParam))}; }
};
template <>
struct MessageTraits<WM_TIMER> { // void (UINT_PTR id)
    using Result = void;
    static std::tuple<UINT_PTR> Crack(WPARAM wParam, LPARAM) { return {wParam}; }
};
template <>
struct MessageTraits<WM_SIZE> { // void (UINT kind, int client width, int client height)
    using Result = void;
    static std::tuple<UINT, int, int> Crack(WPARAM wParam, LPARAM lParam) {
        return {static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)};
    }
};
template <>
struct MessageTraits<WM_ENABLE> { // void (bool enabled)
    using Result = void;
    static std::tuple<bool> Crack(WPARAM wParam, LPARAM) { return {wParam != 0}; }
};
template <>
struct MessageTraits<WM_ACTIVATE> { // void (UINT state, CWnd* other window, bool minimised)
    using Result = void;
    static std::tuple<UINT, CWnd*, bool> Crack(WPARAM wParam, LPARAM lParam) {
        return {LOWORD(wParam), WindowFromHandle(reinterpret_cast<HWND>(lParam)), HIWORD(wParam) != 0};
    }
};
template <>
struct MessageTraits<WM_SYSCOMMAND> { // void (UINT command, LPARAM)
    using Result = void;
    static std::tuple<UINT, LPARAM> Crack(WPARAM wParam, LPARAM lParam) { return {static_cast<UINT>(wParam), lParam}; }
};
template <>
struct MessageTraits<WM_ERASEBKGND> { // bool (HDC): whether the background needs nothing more
    using Result = bool;
    static std::tuple<HDC> Crack(WPARAM wParam, LPARAM) { return {reinterpret_cast<HDC>(wParam)}; }
};
template <>
struct MessageTraits<WM_SETCURSOR> { // bool (CWnd* under the pointer, UINT hit test, UINT mouse message)
    using Result = bool;
    static std::tuple<CWnd*, UINT, UINT> Crack(WPARAM wParam, LPARAM lParam) {
        return {WindowFromHandle(reinterpret_cast<HWND>(wParam)), LOWORD(lParam), HIWORD(lParam)};
    }
};
template <>
struct MessageTraits<WM_QUERYDRAGICON> { // HICON ()
    using Result = HICON;
    static std::tuple<> Crack(WPARAM, LPARAM) { return {}; }
};
template <>
struct MessageTraits<WM_GETDLGCODE> { // UINT (): DLGC_ flags
    using Result = UINT;
    static std::tuple<> Crack(WPARAM, LPARAM) { return {}; }
};
template <>
struct MessageTraits<WM_MEASUREITEM> { // void (int control id, MEASUREITEMSTRUCT&)
    using Result = void;
    static std::tuple<int, MEASUREITEMSTRUCT&> Crack(WPARAM wParam, LPARAM lParam) {
        return {static_cast<int>(wParam), *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)};
    }
};
template <>
struct MessageTraits<WM_MENUCHAR> { // LRESULT (UINT character, UINT menu flags, CMenu*)
    using Result = LRESULT;
    static std::tuple<UINT, UINT, CMenu*> Crack(WPARAM wParam, LPARAM lParam) {
        return {LOWORD(wParam), HIWORD(wParam), MenuFromHandle(reinterpret_cast<HMENU>(lParam))};
    }
};
