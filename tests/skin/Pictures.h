// Pictures for tests, drawn and read back as characters: each printable character is a colour of its own, '.' is the
// magenta of what lies outside a button.
#pragma once

#include <fstream>
#include <span>
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

    // Row by row from the top.
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
inline std::vector<COLORREF> PixelsOf(const CSkinBitmap& picture) {
    const CMemoryDC dc(nullptr);
    const CSelectObject selected(dc, picture.GetHandle());
    return ReadPixels(dc.GetHandle(), picture.GetBounds());
}

inline Art ReadArt(HDC dc, int width, int height) {
    return ArtOf(ReadPixels(dc, {0, 0, width, height}), width);
}
inline Art ReadArt(const CSkinBitmap& picture) {
    return ArtOf(PixelsOf(picture), picture.GetWidth());
}

inline HBITMAP MakeBitmap(const Art& art) {
    std::vector<std::uint32_t> bits;
    for (const std::string& row : art)
        for (const char each : row)
            bits.push_back(ColorOf(each) >> 16 | (ColorOf(each) & 0xFF00) | (ColorOf(each) & 0xFF) << 16);
    return ::CreateBitmap(static_cast<int>(art[0].size()), static_cast<int>(art.size()), 1, 32, bits.data());
}

inline CSkinBitmap MakePicture(const Art& art) {
    CSkinBitmap picture;
    picture.Attach(MakeBitmap(art));
    return picture;
}

inline FileBytes BitmapFileOf(const Art& art) {
    FileBytes bytes = MakeBitmapFile(32, static_cast<int>(art[0].size()), static_cast<int>(art.size()));
    for (std::size_t y = 0, at = 54; y < art.size(); ++y)
        for (const char each : art[art.size() - 1 - y]) {
            for (const COLORREF part : {GetBValue(ColorOf(each)), GetGValue(ColorOf(each)), GetRValue(ColorOf(each))})
                bytes[at++] = static_cast<std::uint8_t>(part);
            ++at;
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
