// What every modal dialog of the program shares: whose popup it is, and that nothing beneath it hears the mouse.
// User-interface thread.
#pragma once

#include <windows.h>

class CWnd;

// Who owns a modal dialog: the whole top-level window of `parent`, as only that one can be disabled with all that leads
// into it; without a parent, the popup that was last active in the program's main window. Null if there is neither.
HWND ModalOwner(const CWnd* parent);

// The visible popup of `top` that was last active, or `top` itself.
HWND LastPopupOf(HWND top);

// To be called before the owner is disabled: a capture and an open menu of this thread would outlive that, and go on
// hearing the mouse. Gives the window that was following the mouse by its title bar, for EndMoving; null if there is
// none.
HWND LetGoOfMouse();

// Whether a menu of this thread is open.
bool IsMenuOpen();

// Ends the loop in which this window follows the mouse by its title bar; null: none. To be called when the loops within
// that one have ended or are about to.
void EndMoving(HWND window);
