// CWnd: the object behind a window.
//
// An object owns at most one window handle. It comes to a window in one of two ways: Create makes the window, or
// SubclassWindow puts the object in front of a window that exists (a control of a dialog template). Either way its
// messages then run through the class's message map, and what has no entry goes to the window's own procedure. An
// object may die before its window (which then goes on with its own procedure) or after it.
//
// All of it belongs to the user-interface thread; only PostMessage and the handle itself may be used from elsewhere.
// Operations on an object without a window do what Win32 does with a null handle: nothing, with a failure result.
#pragma once

#include <memory>
#include <string>

#include <windows.h>

#include "framework/Geometry.h"
#include "framework/MessageMap.h"

class CDC;
struct CDataExchange;

struct WindowMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

class CWnd : public CCommandTarget {
public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    // Destroys a window that this object made; leaves a subclassed one alone, without this object.
    ~CWnd() override;

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // The attached object, or a temporary wrapper without ownership; null for a null handle.
    static CWnd* FromHandle(HWND handle);
    static CWnd* FromHandlePermanent(HWND handle);
    static std::unique_ptr<CWnd> MakeTemporary(HWND handle);

    HWND GetHandle() const { return handle; }

    // Makes a window of a registered class, which this object owns; what the window gets while it is being made passes
    // by this object. A parent that is a child window itself lets the dialog keyboard in from then on. False if that
    // failed or if there is one already.
    bool Create(const char* windowClass, const char* text, DWORD style, const RECT& rect, HWND parent, UINT id,
                DWORD extendedStyle = 0);
    // Puts this object in front of an existing window. False for a null handle, or if either has its partner already.
    bool SubclassWindow(HWND window);
    // Takes this object off its window; gives the handle.
    HWND UnsubclassWindow();
    bool DestroyWindow() { return ::DestroyWindow(handle) != FALSE; }

    // Window state.
    bool ShowWindow(int command) const { return ::ShowWindow(handle, command) != FALSE; }
    bool EnableWindow(bool enable) const { return ::EnableWindow(handle, enable ? TRUE : FALSE) != FALSE; }
    bool IsWindowEnabled() const { return ::IsWindowEnabled(handle) != FALSE; }
    bool IsWindowVisible() const { return ::IsWindowVisible(handle) != FALSE; }
    bool IsIconic() const { return ::IsIconic(handle) != FALSE; }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongA(handle, GWL_STYLE)); }
    void ModifyStyle(DWORD remove, DWORD add, UINT positionFlags = 0);
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(handle); }
    void SetFocus() const { ::SetFocus(handle); }

    // Place and size.
    CRect GetClientRect() const;
    CRect GetWindowRect() const; // in screen coordinates
    bool SetWindowPos(HWND after, int x, int y, int width, int height, UINT flags) const {
        return ::SetWindowPos(handle, after, x, y, width, height, flags) != FALSE;
    }
    bool MoveWindow(const CRect& rect, bool repaint = true) const {
        return ::MoveWindow(handle, rect.left, rect.top, rect.Width(), rect.Height(), repaint ? TRUE : FALSE) != FALSE;
    }

    // Painting.
    void Invalidate(bool erase = true) const {
        // Win32 takes a null handle for all windows of the desktop.
        if (handle != nullptr) ::InvalidateRect(handle, nullptr, erase ? TRUE : FALSE);
    }
    void UpdateWindow() const { ::UpdateWindow(handle); }

    // Text of this window and of its controls.
    std::string GetWindowText() const;
    void SetWindowText(const std::string& text) const { ::SetWindowTextA(handle, text.c_str()); }
    HWND GetDlgItem(int id) const { return ::GetDlgItem(handle, id); }
    // Of a dialog's controls also those that stand in another one.
    virtual HWND FindControl(int id) const { return GetDlgItem(id); }
    void SetDlgItemText(int id, const std::string& text) const { ::SetDlgItemTextA(handle, id, text.c_str()); }
    std::string GetDlgItemText(int id) const;
    // Signed decimal numbers; text that is no number, or one beyond 32 bits, reads as 0.
    void SetDlgItemInt(int id, int value) const { ::SetDlgItemInt(handle, id, static_cast<UINT>(value), TRUE); }
    int GetDlgItemInt(int id) const { return static_cast<int>(::GetDlgItemInt(handle, id, nullptr, TRUE)); }

    // Messages and timers.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageA(handle, message, wParam, lParam);
    }
    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::PostMessageA(handle, message, wParam, lParam) != FALSE;
    }
    void SetTimer(UINT_PTR id, UINT milliseconds) const { ::SetTimer(handle, id, milliseconds, nullptr); }
    void KillTimer(UINT_PTR id) const { ::KillTimer(handle, id); }
    // The platform's message box, owned by the last active popup of this window's top-level window. An empty caption
    // shows none. Gives IDCANCEL while all modal loops are ending.
    int MessageBox(const std::string& text, const std::string& caption = {}, UINT type = MB_OK) const;

    // Moves data between controls and members (DDX_Control), by way of DoDataExchange.
    void UpdateData(bool saving);

    // A posted message on its way to this window or one below it, before it is dispatched. True takes it out.
    virtual bool PreTranslateMessage(MSG& message);

    // The way of every message to this object. True from HandleMessage ends it; otherwise the default follows.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

protected:
    // Lets the dialog keyboard look into a child window that holds controls.
    static void AdmitDialogKeyboard(HWND container);

    virtual void PreSubclassWindow() {}
    virtual void DoDataExchange(CDataExchange& exchange);
    // WM_COMMAND. True if it was handled.
    virtual bool OnCommand(WPARAM wParam, LPARAM lParam);
    // Owner-draw and other messages that a parent sends back to the control they speak of. True if the control took it.
    virtual bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    virtual void PostNcDestroy() {}

    // The default handling of the message that is being handled.
    LRESULT Default();

    // For the handler of a message that shows a dialog. With a menu open, whose loop beneath the dialog would keep the
    // mouse: ends the menu, posts the message anew, and gives true; the handler leaves everything to that one.
    bool ComesAgainBehindMenu() const;

    // What this class does with these messages; handlers of derived classes call them for the cases that they leave.
    LRESULT RouteColor(UINT message, WPARAM wParam, LPARAM lParam);
    // True if a control or a menu took it.
    bool RouteDrawItem(DRAWITEMSTRUCT& item);
    bool RouteMeasureItem(MEASUREITEMSTRUCT& item);
    LRESULT RouteMenuChar(UINT character, UINT flags, CMenu* menu);

    // Puts this object in front of the window. An owned window ends with its object.
    void BindNew(HWND window, bool owned);

private:
    friend LRESULT CALLBACK WindowEntry(HWND, UINT, WPARAM, LPARAM) noexcept;

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool ReflectTo(HWND control, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void Unbind();

    HWND handle = nullptr;
    bool ownsWindow = false;
    bool temporary = false;
};

// Binding of dialog controls to members.
struct CDataExchange {
    CWnd& dialog;
    bool saving; // false: from members to controls, as at initialisation
};

// Puts `control` in front of the dialog's control with this id, unless it has a window already. A template without that
// control leaves it without a window, and its operations without effect.
void DDX_Control(CDataExchange& exchange, int id, CWnd& control);
