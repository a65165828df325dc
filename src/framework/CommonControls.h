// The functions of the common controls, bound when the first of them is asked for (SystemLibrary.h tells why).
#pragma once

#include <windows.h>
#include <commctrl.h>

struct CommonControls {
    decltype(&::InitCommonControlsEx) initialise;
    decltype(&::CreateMappedBitmap) createMappedBitmap;
    decltype(&::ImageList_Create) createList;
    decltype(&::ImageList_Destroy) destroyList;
    decltype(&::ImageList_GetImageCount) getImageCount;
    decltype(&::ImageList_GetIconSize) getIconSize;
    decltype(&::ImageList_AddMasked) addMasked;
    decltype(&::ImageList_ReplaceIcon) replaceIcon;
    decltype(&::ImageList_GetIcon) getIcon;
    decltype(&::ImageList_Draw) draw;
};

// All of them are there on every system that has `initialise`; the program ends at its start where that is null. One
// that is replaced is called from then on.
CommonControls& SystemCommonControls();
