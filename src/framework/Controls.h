// The platform's controls, as far as the program talks to them.
#pragma once

#include <windows.h>

#include "framework/Time.h"
#include "framework/Wnd.h"

class CButton : public CWnd {
public:
    // An owner-drawn button paints itself here.
    virtual void DrawItem(DRAWITEMSTRUCT&) {}

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};

class CStatic : public CWnd {};

class CComboBox : public CWnd {};

class CDateTimeCtrl : public CWnd {
public:
    // The display format, for instance "yyyy-MM-dd HH:mm:ss".
    void SetFormat(const char* format) const;
    void SetTime(CTime time) const;
    // 0 when the control gives no date.
    CTime GetTime() const;
};
