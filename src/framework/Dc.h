// Device contexts and the guards over their state.
//
// CDC is a view: drawing operations over a context that somebody else owns (a message's, for instance). CPaintDC,
// CClientDC and CMemoryDC own one and end it by the call that fits its origin. What a drawing function changes it
// brings back through CSavedDC (everything) or CSelectObject (one object).
#pragma once

#include <string_view>

#include <windows.h>

#include "framework/Gdi.h"
#include "framework/Geometry.h"

class CWnd;

struct MemoryContextTraits : NullTraits<HDC> {
    static void Close(HDC context) { ::DeleteDC(context); }
};
using CMemoryContext = CHandle<MemoryContextTraits>;

struct WindowContextTraits : NullTraits<HDC> {
    explicit WindowContextTraits(HWND origin = nullptr) : window(origin) {}
    void Close(HDC context) const { ::ReleaseDC(window, context); }
    HWND window; // null: the screen
};
using CWindowContext = CHandle<WindowContextTraits>;

class CDC {
public:
    explicit CDC(HDC context) : handle(context) {}
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
    ~CDC() = default;

    HDC GetHandle() const { return handle; }

    void FillSolidRect(const CRect& rect, COLORREF color);
    // One-pixel frame inside the rectangle: left and top edges in the first colour, right and bottom in the second.
    void Draw3dRect(const CRect& rect, COLORREF topLeft, COLORREF bottomRight);
    void MoveTo(int x, int y) { ::MoveToEx(handle, x, y, nullptr); }
    void LineTo(int x, int y) { ::LineTo(handle, x, y); }

    // Text goes to GDI in its wide form, since GDI doesn't follow a process's own code page. `rect` is changed by
    // DT_CALCRECT alone. Gives the text's height.
    int DrawText(std::string_view text, CRect& rect, UINT format);
    int DrawText(std::wstring_view text, CRect& rect, UINT format);
    void TextOut(int x, int y, std::string_view text);
    CSize GetTextExtent(std::string_view text) const;
    CSize GetTextExtent(std::wstring_view text) const;

    COLORREF SetTextColor(COLORREF color) { return ::SetTextColor(handle, color); }
    COLORREF SetBkColor(COLORREF color) { return ::SetBkColor(handle, color); }
    int SetBkMode(int mode) { return ::SetBkMode(handle, mode); }

protected:
    HDC handle; // not owned here
};

// The paint context of a window, for the time of one WM_PAINT.
class CPaintDC : public CDC {
public:
    [[nodiscard]] explicit CPaintDC(const CWnd& painted);
    CPaintDC(const CPaintDC&) = delete;
    CPaintDC& operator=(const CPaintDC&) = delete;
    ~CPaintDC();

private:
    HWND window;
    PAINTSTRUCT paint{};
};

// The same for a window that has no edge, no ground to erase and no caret: what BeginPaint does about them takes
// several calls of the window system, for each window of many. Drawing is clipped to the region that was to be painted.
class CBarePaintDC : public CDC {
public:
    [[nodiscard]] explicit CBarePaintDC(const CWnd& painted);

private:
    CWindowContext owned;
};

// The client area of a window; of the whole screen for a null handle.
class CClientDC : public CDC {
public:
    [[nodiscard]] explicit CClientDC(HWND client);

private:
    CWindowContext owned;
};

// A memory context compatible with the given one (with the screen for a null handle).
class CMemoryDC : public CDC {
public:
    [[nodiscard]] explicit CMemoryDC(HDC compatibleWith);

private:
    CMemoryContext owned;
};

// Selects an object and selects the former one back at the end of the scope. A null object selects nothing.
class CSelectObject {
public:
    [[nodiscard]] CSelectObject(const CDC& dc, HGDIOBJ object)
        : context(dc.GetHandle()), previous(object != nullptr ? ::SelectObject(context, object) : nullptr) {}
    CSelectObject(const CSelectObject&) = delete;
    CSelectObject& operator=(const CSelectObject&) = delete;
    ~CSelectObject() {
        if (previous != nullptr) ::SelectObject(context, previous);
    }

private:
    HDC context;
    HGDIOBJ previous;
};

// Saves the clip region alone, which takes far less than all of the state.
class CSavedClip {
public:
    [[nodiscard]] explicit CSavedClip(HDC clipped)
        : context(clipped), region(::CreateRectRgn(0, 0, 0, 0)),
          isClipped(::GetClipRgn(clipped, region.GetHandle()) == 1) {}
    CSavedClip(const CSavedClip&) = delete;
    CSavedClip& operator=(const CSavedClip&) = delete;
    ~CSavedClip() { ::SelectClipRgn(context, isClipped ? region.GetHandle() : nullptr); }

private:
    HDC context;
    CRgn region;
    bool isClipped;
};

// Saves colours, modes, selections, clip and mapping, and restores them at the end of the scope.
class CSavedDC {
public:
    [[nodiscard]] explicit CSavedDC(const CDC& dc) : context(dc.GetHandle()), level(::SaveDC(context)) {}
    CSavedDC(const CSavedDC&) = delete;
    CSavedDC& operator=(const CSavedDC&) = delete;
    ~CSavedDC() {
        if (level != 0) ::RestoreDC(context, level);
    }

private:
    HDC context;
    int level;
};
