// Dialogs from templates of the resource module in force (with the program's own templates as the fallback).
//
// Places and sizes of a template that describes one of the classic fonts are its units times that font's base units,
// whatever fonts the system has (DialogTemplate.h); the text is shown in the font of that height and character set.
#pragma once

#include <vector>

#include <windows.h>

#include "framework/DialogTemplate.h"
#include "framework/Gdi.h"
#include "framework/Wnd.h"

class CDialog : public CWnd {
public:
    // `parent` may be null: a modal dialog without a parent is owned by the last active popup of the program's main
    // window, if there is one.
    explicit CDialog(UINT templateNumber, CWnd* parentWindow = nullptr)
        : templateId(templateNumber), parent(parentWindow) {}

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // Runs the dialog until EndDialog, with its owner (the whole top-level window, if the parent is a child) disabled
    // meanwhile; a capture and an open menu are taken away first. Gives EndDialog's value, or -1 if the window could
    // not be made, is there already, or was destroyed by something else. The window is first shown when its message
    // loop begins, so a dialog that ends itself in OnInitDialog never appears.
    INT_PTR DoModal();

    // A modeless dialog (the template may be a child). OnInitDialog has run when this returns.
    bool Create(CWnd& parentWindow);

    void EndDialog(INT_PTR result);

    // Ends every modal loop of this thread as by Cancel, the innermost first: dialogs, the platform's boxes, menus.
    // Until the outermost DoModal has returned, no further dialog or box comes up.
    static void EndAllLoops();
    static bool AllLoopsEnd();

    // Enter and Escape, and what else the platform's dialog keyboard does, for this dialog and the windows in it.
    bool PreTranslateMessage(MSG& message) override;

    // Commands that the dialog has no entry for go on to its parent, then to the application.
    bool OnCmdMsg(UINT id, UINT code) override;

    HWND FindControl(int id) const override;

protected:
    // Runs the template's initialisation list and binds the controls. True lets the platform place the focus on the
    // first tab stop, unless the focus lies inside the dialog already.
    virtual bool OnInitDialog();

    // The control in which this one stands, by number; 0 for the dialog itself. One that stands in another is made
    // there without a size, which the dialog then gives it: a move from window to window would cost more than the
    // making. What stands in the same window is stacked in the template's order.
    virtual int HostOf(int) const { return 0; }

    struct Control {
        int id;
        HWND window;
        bool isVisible; // in the template
    };
    // In the template's order, wherever they stand. There from OnInitDialog on.
    const std::vector<Control>& Controls() const { return controls; }
    // For the constructor of a dialog that places most of its controls: none is visible when OnInitDialog begins, which
    // has to show them. The platform has much less to do with a hidden one.
    void MakeControlsHidden() { makesHidden = true; }

    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }
    void PostNcDestroy() override;

private:
    static INT_PTR CALLBACK DialogEntry(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    bool CreateFromTemplate(HWND owner, bool hidden);
    bool MakeControls(const std::vector<DialogItem>& items);
    HWND MakeHosted(const DialogItem& item) const;
    // False if a control that stands in another one is missing.
    bool LayOut();
    void PlaceWindow(const CRect& place, DWORD style);
    LRESULT OnGetFont(WPARAM wParam, LPARAM lParam);
    void RunInitList();
    void RunModalLoop();
    void Show() const;
    // Enables the owner that DoModal disabled, and hands the activation on to it.
    void ReleaseOwner();

    UINT templateId;
    CWnd* parent;
    HWND initialFocus = nullptr;
    HWND disabledOwner = nullptr;
    bool modal = false;
    bool ended = false;
    INT_PTR modalResult = -1;
    bool makesHidden = false;
    std::vector<Control> controls;
    CFont textFont; // empty where the font of the template is left to the platform
};
