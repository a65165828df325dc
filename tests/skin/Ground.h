// A window on the screen for skin controls to stand on: it paints itself in the colour 'g', sends notifications back to
// its controls as a dialog does, and takes note of the commands that reach it.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "framework/Wnd.h"
#include "pictures/Pictures.h"
#include "support/Windows.h"

struct ReceivedCommand {
    UINT id;
    UINT code;
    HWND control;
    bool operator==(const ReceivedCommand&) const = default;
};

class CGround : public CWnd {
public:
    CGround() {
        ::SetCursorPos(700, 700); // on the desktop, another program's window
        Create("STATIC", "", WS_POPUP | WS_VISIBLE, {20, 20, 320, 220}, nullptr, 0, WS_EX_TOPMOST);
        ::SetForegroundWindow(GetHandle());
        ::SetActiveWindow(GetHandle());
        PumpMessages();
    }

    static const CMessageMap& ClassMap() {
        static constexpr std::array entries{On<WM_PAINT, &CGround::OnPaint>(),
                                            On<WM_ERASEBKGND, &CGround::OnEraseBkgnd>(),
                                            On<WM_ENABLE, &CGround::OnEnable>()};
        static const CMessageMap map{&CWnd::ClassMap(), entries};
        return map;
    }
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // What the screen shows in a rectangle of this window.
    Art Look(const CRect& rect) const {
        const CClientDC dc(GetHandle());
        ::SetViewportOrgEx(dc.GetHandle(), rect.left, rect.top, nullptr);
        return ReadArt(dc.GetHandle(), rect.Width(), rect.Height());
    }
    std::vector<COLORREF> Pixels(const CRect& rect) const {
        const CClientDC dc(GetHandle());
        return ReadPixels(dc.GetHandle(), rect);
    }

    std::vector<ReceivedCommand> commands;
    std::function<void()> atCommand;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (CWnd::OnCommand(wParam, lParam)) return true;
        commands.push_back({LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)});
        if (atCommand) atCommand();
        return true;
    }

private:
    void OnPaint() { const CPaintDC dc(*this); }
    void OnEnable(bool) {} // the class would paint
    bool OnEraseBkgnd(HDC dc) {
        CDC(dc).FillSolidRect(GetClientRect(), ColorOf('g'));
        return true;
    }
};

// Makes a child's window.
inline void Put(CWnd& control, const CWnd& parent, const char* windowClass, const RECT& place, LONG style = 0,
                const char* text = "", UINT id = 7) {
    ASSERT_TRUE(control.Create(windowClass, text, WS_CHILD | WS_VISIBLE | static_cast<DWORD>(style), place,
                               parent.GetHandle(), id));
    PumpMessages();
}

// A mouse message; the pointer isn't really there, of which the control would be told soon.
inline void Mouse(const CWnd& control, UINT message, int x, int y, WPARAM keys = 0) {
    const HWND window = control.GetHandle();
    control.SendMessage(message, keys, MAKELPARAM(x, y));
    TRACKMOUSEEVENT untold{sizeof untold, TME_CANCEL | TME_LEAVE, window, 0};
    ::TrackMouseEvent(&untold);
    MSG leave{};
    ::PeekMessageA(&leave, window, WM_MOUSELEAVE, WM_MOUSELEAVE, PM_REMOVE);
}

// What an owner-drawn button of 60 x 20 pixels draws in a state, with its upper left corner there.
template <class Button>
void DrawButton(Button& button, const CSurface& surface, POINT corner, UINT state) {
    ::SetViewportOrgEx(surface.GetHandle(), corner.x, corner.y, nullptr);
    ::SetTextColor(surface.GetHandle(), RGB(200, 1, 2)); // as a parent may have left it
    DRAWITEMSTRUCT item{};
    item.itemState = state;
    item.hDC = surface.GetHandle();
    item.rcItem = {0, 0, 60, 20};
    button.DrawItem(item);
    ::SetViewportOrgEx(surface.GetHandle(), 0, 0, nullptr);
}
template <class Button>
std::vector<COLORREF> DrawButton(Button& button, UINT state = 0) {
    const CSurface surface(60, 20);
    DrawButton(button, surface, {0, 0}, state);
    return surface.Pixels();
}

// The text of the control's one tool; empty without one.
inline std::string TipOf(const CWnd& control) {
    std::array<char, 300> text{};
    TOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.hwnd = control.GetHandle();
    tool.uId = 1;
    tool.lpszText = text.data();
    for (HWND tip = nullptr; (tip = ::FindWindowExA(nullptr, tip, TOOLTIPS_CLASSA, nullptr)) && text[0] == '\0';)
        ::SendMessageA(tip, TTM_GETTEXTA, text.size(), reinterpret_cast<LPARAM>(&tool));
    return text.data();
}
