// Pictures for tests, made of characters and read back as such.
#pragma once

#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "pictures/PictureFiles.h"

#include "pictures/SkinBitmap.h"
#include "support/Handles.h"
#include "support/Surface.h"

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
