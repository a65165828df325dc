// The menus of the gallery.
#pragma once

#include <windows.h>

class CWnd;

// Shows the menu of a button of AddMenuButtons under that button, and returns when it is closed.
void ShowSampleMenu(UINT buttonId, const CWnd& owner);
