// The images of an icon button, and how they are made fit for drawing. The images own their handles.
#pragma once

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

// The size of an icon is told by its hot spot, which lies in its middle. False for what is no icon.
bool MeasureIcon(HICON icon, int& width, int& height);

// The same icon in grey, with the same mask. Empty if it can't be made.
CIcon CreateGrayIcon(HICON icon);

// A mask of the pixels of the transparent colour. These become black in `bitmap`, which is altered. Empty on failure.
CBitmap PrepareMask(HBITMAP bitmap, int width, int height, COLORREF transparentColor);
