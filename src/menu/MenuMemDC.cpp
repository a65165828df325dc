#include "menu/MenuMemDC.h"

namespace {

bool IsPrinter(const CDC& dc) {
    const int technology = ::GetDeviceCaps(dc.GetHandle(), TECHNOLOGY);
    return technology == DT_RASPRINTER || technology == DT_PLOTTER;
}

} // namespace

CMenuMemDC::CMenuMemDC(const CDC& covered, const CRect& rect)
    : CDC(nullptr), target(covered), bounds(rect), buffered(!IsPrinter(covered)) {
    if (buffered) {
        handle = ::CreateCompatibleDC(target.GetHandle());
        bitmap.Attach(::CreateCompatibleBitmap(target.GetHandle(), bounds.Width(), bounds.Height()));
        previousBitmap = ::SelectObject(handle, bitmap.GetHandle());
        if (previousBitmap == nullptr) {
            ::DeleteDC(handle);
            buffered = false;
        }
    }
    if (buffered) {
        ::SetWindowOrgEx(handle, bounds.left, bounds.top, nullptr);
    } else {
        handle = target.GetHandle();
    }
}

CMenuMemDC::~CMenuMemDC() {
    if (!buffered) return;
    ::BitBlt(target.GetHandle(), bounds.left, bounds.top, bounds.Width(), bounds.Height(), handle, bounds.left,
             bounds.top, SRCCOPY);
    ::SelectObject(handle, previousBitmap);
    ::DeleteDC(handle);
}
