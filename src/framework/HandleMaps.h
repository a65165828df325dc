// The process's two handle maps: windows and menus. User-interface thread only.
#pragma once

#include <windows.h>

#include "framework/HandleMap.h"
#include "framework/Menu.h"
#include "framework/Wnd.h"

CHandleMap<HWND, CWnd>& WindowMap();
CHandleMap<HMENU, CMenu>& MenuMap();

bool HaveTemporaryWrappers();
// Ends all temporary wrappers; called by the outermost message loop when it is idle.
void DropTemporaryWrappers();
