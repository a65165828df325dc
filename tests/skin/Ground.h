// A window on the screen for skin controls to stand on: it paints itself in the colour 'g' and takes note of the
// commands that reach it.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Pictures.h"
#include "Repeats.h"
#include "framework/Wnd.h"

struct ReceivedCommand {
    UINT id;
    UINT code;
    HWND control;
    bool operator==(const ReceivedCommand&) const = default;
};

class CGround : public CWnd {
public:
    CGround() {
        Create("STATIC", "", WS_POPUP | WS_VISIBLE, {20, 20, 320, 220}, nullptr, 0, WS_EX_TOPMOST);
        ::SetForegroundWindow(GetHandle());
        ::SetActiveWindow(GetHandle());
        Pump();
    }

    static const CMessageMap& ClassMap() {
        static constexpr std::array entries{
            On<WM_PAINT, &CGround::OnPaint>(), On<WM_ERASEBKGND, &CGround::OnEraseBkgnd>(),
            On<WM_ENABLE, &CGround::OnEnable>(), OnMessage<WM_GETFONT, &CGround::OnGetFont>()};
        static const CMessageMap map{&CWnd::ClassMap(), entries};
        return map;
    }
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // Handles what waits, paints included.
    static void Pump() {
        MSG message{};
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageA(&message);
    }

    // Puts the pointer there for good: the display may tell of its former place for a while yet, and a control would
    // feel it.
    static void RestCursorAt(int x, int y) {
        for (DWORD now = ::GetTickCount(), resting = now, limit = now + 2000; now < limit && now - resting < 30;
             now = ::GetTickCount()) {
            POINT place{};
            ::GetCursorPos(&place);
            if (place.x != x || place.y != y) {
                ::SetCursorPos(x, y);
                resting = now;
            }
            Pump();
            ::Sleep(2);
        }
    }
    // On the desktop, another program's window.
    static void RestCursorElsewhere() { RestCursorAt(700, 700); }

    // What the screen shows in a rectangle of this window.
    Art Look(const CRect& rect) const {
        const CClientDC dc(GetHandle());
        ::SetViewportOrgEx(dc.GetHandle(), rect.left, rect.top, nullptr);
        return ReadArt(dc.GetHandle(), static_cast<int>(rect.Width()), static_cast<int>(rect.Height()));
    }
    std::vector<COLORREF> Pixels(const CRect& rect) const {
        const CClientDC dc(GetHandle());
        return ReadPixels(dc.GetHandle(), rect);
    }

    std::vector<ReceivedCommand> commands;
    std::function<void()> atCommand;
    int fontsAsked = 0;
    HFONT font = static_cast<HFONT>(::GetStockObject(ANSI_VAR_FONT));

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
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
    LRESULT OnGetFont(WPARAM, LPARAM) {
        ++fontsAsked;
        return reinterpret_cast<LRESULT>(font);
    }
};

// A control that counts its paints, and the changes of its place, size or shape.
template <class Control>
class CCounted : public Control {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_PAINT) ++paints;
        if (message == WM_WINDOWPOSCHANGED) ++reshapes;
        return Control::WindowProc(message, wParam, lParam);
    }

    int paints = 0;
    int reshapes = 0;
};

// What the control draws into a context that it is given.
inline void Print(const CWnd& control, const CSurface& surface) {
    control.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(surface.GetHandle()), PRF_CLIENT);
}

// The text as a caption ought to stand.
inline void DrawExpected(CSurface& surface, const CGround& ground, const char* text, COLORREF color, CRect rect,
                         UINT format) {
    const CSelectObject font(surface, ground.font);
    surface.SetTextColor(color);
    surface.SetBkMode(TRANSPARENT);
    surface.DrawText(text, rect, format);
}

// Paints often, and expects that no handle is lost. Gives the mean time of a paint in microseconds.
inline double PaintOften(const CWnd& control) {
    const std::size_t before = FreeGdiObjects();
    LARGE_INTEGER start{}, end{}, frequency{};
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&start);
    const int rounds = Repeats(2'000);
    for (int round = 0; round < rounds; ++round) {
        control.Invalidate();
        control.UpdateWindow();
    }
    ::QueryPerformanceCounter(&end);
    EXPECT_NEAR(static_cast<double>(FreeGdiObjects()), static_cast<double>(before), 8);
    return static_cast<double>(end.QuadPart - start.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart) / rounds;
}
