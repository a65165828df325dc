// Owners of GDI objects, icons and cursors. A handle that is selected into a device context is not deleted by the
// platform, so guards (Dc.h) are declared after the owner and end before it.
#pragma once

#include <windows.h>

#include "framework/Handle.h"

template <class Object>
struct GdiTraits : NullTraits<Object> {
    static void Close(Object object) { ::DeleteObject(object); }
};

using CGdiObject = CHandle<GdiTraits<HGDIOBJ>>; // of any kind
using CBitmap = CHandle<GdiTraits<HBITMAP>>;
using CPalette = CHandle<GdiTraits<HPALETTE>>;
using CRgn = CHandle<GdiTraits<HRGN>>;

class CBrush : public CHandle<GdiTraits<HBRUSH>> {
public:
    CBrush() = default;
    explicit CBrush(COLORREF color) : CHandle(::CreateSolidBrush(color)) {}
};

class CPen : public CHandle<GdiTraits<HPEN>> {
public:
    CPen(int style, int width, COLORREF color) : CHandle(::CreatePen(style, width, color)) {}
};

class CFont : public CHandle<GdiTraits<HFONT>> {
public:
    CFont() = default;
    // By a wide name, as GDI reads narrow ones in another code page than the process's.
    explicit CFont(const LOGFONTW& description) : CHandle(::CreateFontIndirectW(&description)) {}
};

struct IconTraits : NullTraits<HICON> {
    static void Close(HICON icon) { ::DestroyIcon(icon); }
};
using CIcon = CHandle<IconTraits>;

struct CursorTraits : NullTraits<HCURSOR> {
    static void Close(HCURSOR cursor) { ::DestroyCursor(cursor); }
};
using CCursor = CHandle<CursorTraits>;
