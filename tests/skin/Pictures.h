// Pictures for tests, drawn and read back as characters: each printable character is a colour of its own, '.' is the
// magenta of what lies outside a button.
#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "PictureFiles.h"

#include "framework/Dc.h"
#include "skin/SkinBitmap.h"
#include "support/Handles.h"

using Art = std::vector<std::string>; // rows from the top, all of one length

inline COLORREF ColorOf(char character) {
    if (character == '.') return RGB(255, 0, 255);
    return RGB(character, 255 - 2 * character % 256, 3 * character % 256);
}

// A drawing surface of 32-bit pixels, all of one colour at first.
class CSurface : public CMemoryDC {
public:
    explicit CSurface(int surfaceWidth, int surfaceHeight, char ground = ' ')
        : CMemoryDC(nullptr), width(surfaceWidth), height(surfaceHeight) {
        BITMAPINFO format{};
        format.bmiHeader = {sizeof format.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap.Attach(::CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
        former = ::SelectObject(GetHandle(), bitmap.GetHandle());
        FillSolidRect({0, 0, width, height}, ColorOf(ground));
    }
    CSurface(const CSurface&) = delete;
    CSurface& operator=(const CSurface&) = delete;
    ~CSurface() { ::SelectObject(GetHandle(), former); }

    COLORREF Pixel(int x, int y) const { return ::GetPixel(GetHandle(), x, y); }
    // Row by row from the top.
    std::vector<COLORREF> Pixels() const {
        ::GdiFlush();
        const auto* const first = static_cast<const RGBQUAD*>(bits);
        std::vector<COLORREF> pixels;
        std::transform(first, first + static_cast<std::ptrdiff_t>(width) * height, std::back_inserter(pixels),
                       [](const RGBQUAD& pixel) { return RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue); });
        return pixels;
    }
    // '?' for what is no character's colour.
    Art Read() const {
        Art art(static_cast<std::size_t>(height));
        std::size_t at = 0;
        for (const COLORREF color : Pixels()) {
            char character = ' ';
            while (character <= '~' && ColorOf(character) != color) ++character;
            art[at++ / static_cast<std::size_t>(width)] += character <= '~' ? character : '?';
        }
        return art;
    }

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
inline std::vector<COLORREF> PixelsOf(const CSkinBitmap& picture) {
    const CMemoryDC dc(nullptr);
    const CSelectObject selected(dc, picture.GetHandle());
    return ReadPixels(dc.GetHandle(), picture.GetBounds());
}

inline Art ReadArt(HDC dc, int width, int height) {
    const CSurface copy(width, height);
    ::BitBlt(copy.GetHandle(), 0, 0, width, height, dc, 0, 0, SRCCOPY);
    return copy.Read();
}
inline Art ReadArt(const CSkinBitmap& picture) {
    const CMemoryDC dc(nullptr);
    const CSelectObject selected(dc, picture.GetHandle());
    return ReadArt(dc.GetHandle(), picture.GetWidth(), picture.GetHeight());
}

inline HBITMAP MakeBitmap(const Art& art) {
    const CClientDC screen(nullptr);
    const auto width = static_cast<int>(art[0].size());
    const auto height = static_cast<int>(art.size());
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen.GetHandle(), width, height);
    const CMemoryDC dc(screen.GetHandle());
    const CSelectObject selected(dc, bitmap);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            ::SetPixel(dc.GetHandle(), x, y, ColorOf(art[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]));
        }
    }
    return bitmap;
}

inline CSkinBitmap MakePicture(const Art& art) {
    CSkinBitmap picture;
    picture.Attach(MakeBitmap(art));
    return picture;
}

inline FileBytes BitmapFileOf(const Art& art) {
    const auto height = static_cast<int>(art.size());
    FileBytes bytes = MakeBitmapFile(24, static_cast<int>(art[0].size()), height);
    const std::size_t stride = (bytes.size() - 54) / art.size();
    for (std::size_t y = 0; y < art.size(); ++y) {
        for (std::size_t x = 0; x < art[0].size(); ++x) {
            const COLORREF color = ColorOf(art[y][x]);
            const std::size_t at = 54 + (art.size() - 1 - y) * stride + x * 3;
            bytes[at] = GetBValue(color);
            bytes[at + 1] = GetGValue(color);
            bytes[at + 2] = GetRValue(color);
        }
    }
    return bytes;
}

// A file in the current folder that goes with the scope.
class CPictureFile {
public:
    CPictureFile(std::string fileName, const FileBytes& bytes) : name(std::move(fileName)) {
        std::ofstream(name, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    CPictureFile(const CPictureFile&) = delete;
    CPictureFile& operator=(const CPictureFile&) = delete;
    ~CPictureFile() { ::DeleteFileA(name.c_str()); }

    const std::string name;
};
