// A surface to draw on, read back as characters: each printable character is a colour of its own, '.' is the magenta of
// what lies outside a button.
#pragma once

#include <span>
#include <string>
#include <vector>

#include <windows.h>

#include "framework/Dc.h"
#include "pictures/PixelFormat.h"

using Art = std::vector<std::string>; // rows from the top, all of one length

inline COLORREF ColorOf(char character) {
    if (character == '.') return RGB(255, 0, 255);
    return RGB(character, 255 - 2 * character % 256, 3 * character % 256);
}

// '?' for what is no character's colour.
inline Art ArtOf(const std::vector<COLORREF>& pixels, int width) {
    Art art(pixels.size() / static_cast<std::size_t>(width));
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        char character = ' ';
        while (character <= '~' && ColorOf(character) != pixels[i]) ++character;
        art[i / static_cast<std::size_t>(width)] += character <= '~' ? character : '?';
    }
    return art;
}

// A drawing surface, all of one colour at first.
class CSurface : public CMemoryDC {
public:
    CSurface(int surfaceWidth, int surfaceHeight, char ground = ' ', WORD depth = 32)
        : CMemoryDC(nullptr), width(surfaceWidth), height(surfaceHeight) {
        const BITMAPINFO format = PixelFormat(width, -height, depth);
        bitmap.Attach(::CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
        former = ::SelectObject(GetHandle(), bitmap.GetHandle());
        FillSolidRect({0, 0, width, height}, ColorOf(ground));
    }
    CSurface(const CSurface&) = delete;
    CSurface& operator=(const CSurface&) = delete;
    ~CSurface() { Take(); }

    // The bitmap, no longer selected.
    const CBitmap& Take() {
        ::SelectObject(GetHandle(), former);
        return bitmap;
    }
    // Row by row from the top, of 32 bits each.
    std::vector<COLORREF> Pixels() const {
        ::GdiFlush();
        std::vector<COLORREF> pixels;
        for (const RGBQUAD& pixel :
             std::span(static_cast<const RGBQUAD*>(bits), static_cast<std::size_t>(width * height)))
            pixels.push_back(RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue));
        return pixels;
    }
    Art Read() const { return ArtOf(Pixels(), width); }

private:
    int width, height;
    void* bits = nullptr;
    CBitmap bitmap;
    HGDIOBJ former = nullptr;
};

// Read at once, because each single look at a window takes a way to the screen and back.
inline std::vector<COLORREF> ReadPixels(HDC dc, const CRect& rect) {
    const CSurface copy(rect.Width(), rect.Height());
    ::BitBlt(copy.GetHandle(), 0, 0, rect.Width(), rect.Height(), dc, rect.left, rect.top, SRCCOPY);
    return copy.Pixels();
}
