#include "pictures/Embossing.h"

#include <array>

#include "framework/Dc.h"
#include "pictures/PixelFormat.h"

namespace {

constexpr DWORD brushWhereMaskIsBlack = 0x00B8074A; // PSDPxax

// A bitmap of one bit in the form of which each system knows black from white.
CBitmap MakeMask(HDC dc, int width, int height) {
    struct {
        BITMAPINFOHEADER header;
        std::array<RGBQUAD, 2> colors;
    } info{PixelFormat(width, height, 1).bmiHeader, {RGBQUAD{0, 0, 0, 0}, RGBQUAD{255, 255, 255, 0}}};
    void* bits = nullptr;
    return CBitmap(::CreateDIBSection(dc, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0));
}

} // namespace

void DrawEmbossed(HDC dc, const CRect& place, HBITMAP bitmap, CPoint source, COLORREF ground) {
    const CBitmap maskBitmap = MakeMask(dc, place.Width(), place.Height());
    if (maskBitmap.IsEmpty()) return;
    const CMemoryDC mask(dc);
    const CSelectObject maskSelected(mask, maskBitmap.GetHandle());
    {
        const CMemoryDC image(dc);
        const CSelectObject selected(image, bitmap);
        ::BitBlt(mask.GetHandle(), 0, 0, place.Width(), place.Height(), image.GetHandle(), source.x, source.y, SRCCOPY);
    }
    CDC target(dc);
    const CSavedDC saved(target);
    target.FillSolidRect(place, ground);
    target.SetTextColor(RGB(0, 0, 0)); // the mask's black and white stay black and white
    target.SetBkColor(RGB(255, 255, 255));
    const auto paint = [&](int at, int systemColor) {
        const CSelectObject brush(target, ::GetSysColorBrush(systemColor));
        ::BitBlt(dc, place.left + at, place.top + at, place.Width(), place.Height(), mask.GetHandle(), 0, 0,
                 brushWhereMaskIsBlack);
    };
    paint(1, COLOR_3DHIGHLIGHT);
    paint(0, COLOR_3DSHADOW);
}
