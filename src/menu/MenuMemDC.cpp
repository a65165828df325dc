#include "menu/MenuMemDC.h"

namespace {

bool IsPrinter(const CDC& dc) {
    const int technology = ::GetDeviceCaps(dc.GetHandle(), TECHNOLOGY);
    return technology == DT_RASPRINTER || technology == DT_PLOTTER;
}

} // namespace

CMenuMemDC::CMenuMemDC(const CDC& covered, const CRect& rect) : CDC(nullptr), target(covered), bounds(rect) {
    if (!IsPrinter(target)) {
        surface.Attach(::CreateCompatibleDC(target.GetHandle()));
        bitmap.Attach(::CreateCompatibleBitmap(target.GetHandle(), bounds.Width(), bounds.Height()));
        previousBitmap = ::SelectObject(surface.GetHandle(), bitmap.GetHandle());
        if (previousBitmap == nullptr) surface.Close();
    }
    handle = surface.IsEmpty() ? target.GetHandle() : surface.GetHandle();
    if (!surface.IsEmpty()) ::SetWindowOrgEx(handle, bounds.left, bounds.top, nullptr);
}

CMenuMemDC::~CMenuMemDC() {
    if (surface.IsEmpty()) return;
    ::BitBlt(target.GetHandle(), bounds.left, bounds.top, bounds.Width(), bounds.Height(), handle, bounds.left,
             bounds.top, SRCCOPY);
    ::SelectObject(handle, previousBitmap);
}
