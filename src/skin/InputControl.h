// What the controls share that follow the mouse or take the focus: what ends hover and press, and who gets the focus
// when a control that has it is disabled or hidden.
//
// A control sees itself that the pointer leaves or that the mouse button comes up. Besides, the end of all modes
// (WM_CANCELMODE), the loss of the focus, and being disabled or hidden end hover and press and give the capture back.
// A control that doesn't show, or that stands in a disabled window, ignores the mouse: only a capture taken before can
// still bring it there. User-interface thread only.
#pragma once

#include <windows.h>

#include "framework/Controls.h"

// Made for CButton and CStatic, and for the skin controls of both.
template <class Control>
class CInputControl : public Control {
public:
    // Who gets the focus when the control is disabled or hidden while it has it, if that window can take it. Without
    // one it is NextInLine when the control is disabled, and the platform's choice when it is hidden.
    HWND focusHeir = nullptr;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    void PreSubclassWindow() override;

    // Ends hover and press, and shows it. A class that has neither, or whose window procedure ends its press with the
    // capture, needs none.
    virtual void EndInput() {}

    virtual HWND NextInLine() const;

    bool HasCapture() const { return ::GetCapture() == this->GetHandle(); }
    // Asks for WM_MOUSELEAVE, which comes once, also when the pointer has jumped into another program's window.
    void AwaitMouseLeave() const;

private:
    void LetGo();
    void PassFocus(bool disabled);

    bool losesFocus = false; // it had the focus when the platform began to disable it
};
