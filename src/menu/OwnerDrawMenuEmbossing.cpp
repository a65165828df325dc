// Disabled images: the dark parts as a shadow-coloured shape with a light copy one pixel down and to the right.
#include "menu/OwnerDrawMenu.h"
#include "pictures/Embossing.h"

namespace {

constexpr DWORD brushWhereMaskIsSet = 0x00E20746; // DSPDxax, on a surface that shows a set mask pixel

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
        const CSelectObject brush(canvas, ::GetSysColorBrush(systemColor));
        ::BitBlt(canvas.GetHandle(), at, at, width, height, mask.GetHandle(), 0, 0, brushWhereMaskIsSet);
    };
    paint(0, COLOR_3DHIGHLIGHT);
    ::BitBlt(target.GetHandle(), x + 1, y + 1, width, height, canvas.GetHandle(), 0, 0, SRCCOPY);
    paint(1, COLOR_3DHIGHLIGHT);
    paint(0, COLOR_3DSHADOW);
    ::BitBlt(target.GetHandle(), x, y, width, height, canvas.GetHandle(), 0, 0, SRCCOPY);
}

void COwnerDrawMenu::EmbossImageDib(const CDC& target, int x, int y, int width, int height, const CBitmap& bitmap,
                                    int sourceX, int sourceY, COLORREF background) {
    DrawEmbossed(target.GetHandle(), CRect::Sized(x, y, width, height), bitmap.GetHandle(), {sourceX, sourceY},
                 background);
}
