// The images of an icon button, and how they are made fit for drawing. The images own their handles.
#pragma once

#include <memory>

#include <windows.h>

#include "framework/Gdi.h"

struct IconImage {
    CIcon icon;
    int width = 0;
    int height = 0;
};

struct BitmapImage {
    CBitmap bitmap; // black where it is transparent
    CBitmap mask;   // black and white: white where it is transparent
    int width = 0;
    int height = 0;
    COLORREF transparentColor = 0;
};

// Buttons that show the same icon share it.
using SharedIcon = std::shared_ptr<const IconImage>;

// With its size, which its hot spot tells: that lies in its middle. Null for what is no icon.
SharedIcon MeasureIcon(CIcon icon);

// The icon of that number in the resources, in its usual size, shared with whoever shows it already; null if there is
// none. User-interface thread only.
SharedIcon LoadSharedIcon(int id);

// The same icon in grey, with the same mask. Empty if it can't be made.
CIcon CreateGrayIcon(HICON icon);

// A mask of the pixels of the transparent colour. These become black in `bitmap`, which is altered. Empty on failure.
CBitmap PrepareMask(HBITMAP bitmap, int width, int height, COLORREF transparentColor);
