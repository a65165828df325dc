// What the tests of icon buttons and links share: a ground that sends notifications back to its controls before it
// takes note of them, and the tips of controls.
#pragma once

#include <array>
#include <string>

#include <windows.h>

#include <commctrl.h>

#include "Ground.h"

class CControlGround : public CGround {
protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        return CWnd::OnCommand(wParam, lParam) || CGround::OnCommand(wParam, lParam);
    }
};

struct TipSearch {
    HWND owner;
    std::string text;
};

inline BOOL CALLBACK LookForTip(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<TipSearch*>(parameter);
    std::array<char, 64> name{}, text{};
    ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    if (::lstrcmpiA(name.data(), TOOLTIPS_CLASSA) != 0) return TRUE;
    TOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.hwnd = search.owner;
    tool.uId = 1;
    tool.lpszText = text.data();
    ::SendMessageA(window, TTM_GETTEXTA, text.size(), reinterpret_cast<LPARAM>(&tool));
    if (text[0] != '\0') search.text = text.data();
    return TRUE;
}

// The text of the control's one tool; empty without a tip.
inline std::string TipOf(const CWnd& control) {
    TipSearch search{control.GetHandle(), {}};
    ::EnumThreadWindows(::GetCurrentThreadId(), &LookForTip, reinterpret_cast<LPARAM>(&search));
    return search.text;
}
