// Disabled images: the dark parts as a shadow-coloured shape with a light copy one pixel down and to the right.
#include "menu/OwnerDrawMenu.h"

#include <array>

namespace {

constexpr DWORD brushWhereMaskIsSet = 0x00E20746;   // DSPDxax, on a surface that shows a set mask pixel
constexpr DWORD brushWhereMaskIsBlack = 0x00B8074A; // PSDPxax

// Paints a system colour through a mask.
void PaintThrough(const CDC& target, int x, int y, CSize size, const CDC& mask, int systemColor, DWORD operation) {
    const CBrush brush(::GetSysColor(systemColor));
    const CSelectObject selected(target, brush.GetHandle());
    ::BitBlt(target.GetHandle(), x, y, size.cx, size.cy, mask.GetHandle(), 0, 0, operation);
}

// White where the bitmap is of the face or the light colour, black elsewhere.
void MakeMask(const CDC& mask, CSize size, const CDC& image, int sourceX, int sourceY) {
    const CSavedDC saved(image);
    const auto add = [&](int systemColor, DWORD operation) {
        // A copy to one bit makes the background colour white, and all others black.
        ::SetBkColor(image.GetHandle(), ::GetSysColor(systemColor));
        ::BitBlt(mask.GetHandle(), 0, 0, size.cx, size.cy, image.GetHandle(), sourceX, sourceY, operation);
    };
    ::PatBlt(mask.GetHandle(), 0, 0, size.cx, size.cy, WHITENESS);
    add(COLOR_3DFACE, SRCCOPY);
    add(COLOR_3DHIGHLIGHT, SRCPAINT);
}

} // namespace

void COwnerDrawMenu::EmbossImage(const CDC& target, int x, int y, int width, int height, const CBitmap& bitmap,
                                 int sourceX, int sourceY, COLORREF background) {
    const CSize size(width, height);
    const CMemoryDC mask(nullptr);
    const CBitmap maskBitmap(::CreateCompatibleBitmap(mask.GetHandle(), width, height)); // of one bit
    const CSelectObject maskSelected(mask, maskBitmap.GetHandle());
    {
        const CMemoryDC image(target.GetHandle());
        const CSelectObject selected(image, bitmap.GetHandle());
        MakeMask(mask, size, image, sourceX, sourceY);
    }

    CMemoryDC canvas(target.GetHandle());
    const CBitmap canvasBitmap(::CreateCompatibleBitmap(target.GetHandle(), width, height));
    const CSelectObject canvasSelected(canvas, canvasBitmap.GetHandle());
    canvas.FillSolidRect({0, 0, width, height}, background);
    // Mask pixels arrive the other way round: black as the text colour, which is all ones.
    canvas.SetBkColor(RGB(0, 0, 0));
    canvas.SetTextColor(RGB(255, 255, 255));
    const auto paint = [&](int at, int systemColor) {
        PaintThrough(canvas, at, at, size, mask, systemColor, brushWhereMaskIsSet);
    };
    paint(0, COLOR_3DHIGHLIGHT);
    ::BitBlt(target.GetHandle(), x + 1, y + 1, width, height, canvas.GetHandle(), 0, 0, SRCCOPY);
    paint(1, COLOR_3DHIGHLIGHT);
    paint(0, COLOR_3DSHADOW);
    ::BitBlt(target.GetHandle(), x, y, width, height, canvas.GetHandle(), 0, 0, SRCCOPY);
}

void COwnerDrawMenu::EmbossImageDib(const CDC& target, int x, int y, int width, int height, const CBitmap& bitmap,
                                    int sourceX, int sourceY, COLORREF background) {
    struct {
        BITMAPINFOHEADER header;
        std::array<RGBQUAD, 2> colors;
    } info{{sizeof(BITMAPINFOHEADER), width, height, 1, 1, BI_RGB, 0, 0, 0, 0, 0},
           {RGBQUAD{0, 0, 0, 0}, RGBQUAD{255, 255, 255, 0}}};
    void* bits = nullptr;
    const CBitmap maskBitmap(::CreateDIBSection(target.GetHandle(), reinterpret_cast<BITMAPINFO*>(&info),
                                                DIB_RGB_COLORS, &bits, nullptr, 0));
    const CMemoryDC mask(target.GetHandle());
    const CSelectObject maskSelected(mask, maskBitmap.GetHandle());
    {
        const CMemoryDC image(target.GetHandle());
        const CSelectObject selected(image, bitmap.GetHandle());
        ::BitBlt(mask.GetHandle(), 0, 0, width, height, image.GetHandle(), sourceX, sourceY, SRCCOPY);
    }
    const CSavedDC saved(target);
    CDC(target.GetHandle()).FillSolidRect({x, y, x + width, y + height}, background);
    ::SetTextColor(target.GetHandle(), RGB(0, 0, 0)); // the mask's black and white stay black and white
    ::SetBkColor(target.GetHandle(), RGB(255, 255, 255));
    const CSize size(width, height);
    PaintThrough(target, x + 1, y + 1, size, mask, COLOR_3DHIGHLIGHT, brushWhereMaskIsBlack);
    PaintThrough(target, x, y, size, mask, COLOR_3DSHADOW, brushWhereMaskIsBlack);
}
