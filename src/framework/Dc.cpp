#include "framework/Dc.h"

#include "framework/Text.h"
#include "framework/Wnd.h"

void CDC::FillSolidRect(const CRect& rect, COLORREF color) {
    const COLORREF previous = ::SetBkColor(handle, color);
    ::ExtTextOutA(handle, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
    ::SetBkColor(handle, previous);
}

void CDC::Draw3dRect(const CRect& rect, COLORREF topLeft, COLORREF bottomRight) {
    FillSolidRect({rect.left, rect.top, rect.right - 1, rect.top + 1}, topLeft);
    FillSolidRect({rect.left, rect.top, rect.left + 1, rect.bottom - 1}, topLeft);
    FillSolidRect({rect.right - 1, rect.top, rect.right, rect.bottom}, bottomRight);
    FillSolidRect({rect.left, rect.bottom - 1, rect.right, rect.bottom}, bottomRight);
}

int CDC::DrawText(std::string_view text, CRect& rect, UINT format) {
    return DrawText(ToWide(text), rect, format);
}

int CDC::DrawText(std::wstring_view text, CRect& rect, UINT format) {
    return ::DrawTextW(handle, text.data(), static_cast<int>(text.size()), &rect, format);
}

void CDC::TextOut(int x, int y, std::string_view text) {
    const std::wstring wide = ToWide(text);
    ::TextOutW(handle, x, y, wide.c_str(), static_cast<int>(wide.size()));
}

CSize CDC::GetTextExtent(std::string_view text) const {
    return GetTextExtent(ToWide(text));
}

CSize CDC::GetTextExtent(std::wstring_view text) const {
    CSize size;
    ::GetTextExtentPoint32W(handle, text.data(), static_cast<int>(text.size()), &size);
    return size;
}

CPaintDC::CPaintDC(const CWnd& painted) : CDC(nullptr), window(painted.GetHandle()) {
    handle = ::BeginPaint(window, &paint);
}

CPaintDC::~CPaintDC() {
    ::EndPaint(window, &paint);
}

CBarePaintDC::CBarePaintDC(const CWnd& painted) : CDC(nullptr) {
    const HWND window = painted.GetHandle();
    const CRgn region(::CreateRectRgn(0, 0, 0, 0));
    ::GetUpdateRgn(window, region.GetHandle(), FALSE);
    // Before the drawing, as what is invalidated meanwhile has to be painted later.
    ::RedrawWindow(window, nullptr, nullptr,
                   RDW_VALIDATE | RDW_NOERASE | RDW_NOFRAME | RDW_NOINTERNALPAINT | RDW_NOCHILDREN);
    handle = ::GetDC(window);
    owned = CWindowContext(handle, WindowContextTraits(window));
    ::SelectClipRgn(handle, region.GetHandle());
}

CClientDC::CClientDC(HWND client) : CDC(::GetDC(client)), owned(handle, WindowContextTraits(client)) {}

CMemoryDC::CMemoryDC(HDC compatibleWith) : CDC(::CreateCompatibleDC(compatibleWith)), owned(handle) {}
