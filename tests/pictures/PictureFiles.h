// Small picture files made in memory, all of them well formed, and a plain reader of bitmaps.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "support/Hex.h"

using FileBytes = std::vector<std::uint8_t>;

inline void Append(FileBytes& bytes, std::size_t size, std::uint64_t value) {
    for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

inline void Write(FileBytes& bytes, std::size_t offset, std::size_t size, std::uint64_t value) {
    for (std::size_t i = 0; i < size; ++i) bytes[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

inline std::size_t Number(const FileBytes& bytes, std::size_t offset, std::size_t size) {
    return size == 0 ? 0 : bytes.at(offset) | Number(bytes, offset + 1, size - 1) << 8;
}

// Noise, with `named` colours in its palette (0: all that the depth can tell apart). Of bit fields the masks are 5-6-5
// and as usual.
inline FileBytes MakeBitmapFile(int bits, int width, int height, int named = 0, bool fields = false) {
    const int colors = named != 0 || bits > 8 ? named : 1 << bits;
    const int size = (width * bits + 31) / 32 * 4 * height, offset = 54 + colors * 4 + (fields ? 12 : 0);
    FileBytes bytes{'B', 'M'};
    for (const int value :
         {offset + size, 0, offset, 40, width, height, 1 | bits << 16, fields ? 3 : 0, size, 0, 0, named, 0})
        Append(bytes, 4, static_cast<std::uint32_t>(value));
    for (const unsigned part : {0U, 1U, 2U})
        if (fields) Append(bytes, 4, bits == 16 ? std::array{0xF800U, 0x7E0U, 0x1FU}[part] : 0xFF0000U >> 8 * part);
    std::minstd_rand random(static_cast<unsigned>(bits));
    while (bytes.size() < static_cast<std::size_t>(offset + size)) Append(bytes, 1, random() >> 8);
    return bytes;
}

// The pixel (blue in the lowest byte) of such a file, in whatever order its rows are.
inline std::uint32_t PlainPixel(const FileBytes& file, std::size_t x, std::size_t y) {
    const std::size_t bits = Number(file, 28, 2), stride = (Number(file, 18, 4) * bits + 31) / 32 * 4;
    const auto height = static_cast<std::int32_t>(Number(file, 22, 4));
    const std::size_t line = height < 0 ? y : static_cast<std::size_t>(height) - 1 - y;
    const std::size_t row = Number(file, 10, 4) + line * stride;
    if (bits >= 24) return static_cast<std::uint32_t>(Number(file, row + x * bits / 8, 3));
    if (bits <= 8) {
        const std::size_t index = file.at(row + x * bits / 8) >> (8 - bits - x * bits % 8) & ((1U << bits) - 1);
        return static_cast<std::uint32_t>(Number(file, 54 + index * 4, 3));
    }
    const auto pixel = static_cast<std::uint32_t>(Number(file, row + x * 2, 2));
    const unsigned greens = Number(file, 30, 4) == 3 ? 6 : 5, blue = pixel & 31, red = pixel >> (5 + greens) & 31;
    const unsigned green = pixel >> 5 & ((1U << greens) - 1);
    return (red << 3 | red >> 2) << 16 | (green << (8 - greens) | green >> (2 * greens - 8)) << 8 | blue << 3 |
           blue >> 2;
}

// Two pixels: red, and a transparent one.
inline FileBytes MakeGifFile() {
    return BytesOf("47 49 46 38 39 61 02 00 01 00 91 00 00 ff 00 00 00 00 ff 00 00 00 00 00 00 21 f9 04 01 00 00 01 00 "
                   "2c 00 00 00 00 02 00 01 00 00 02 02 44 0a 00 3b");
}

// 8 x 8 pixels of the middle grey.
inline FileBytes MakeJpegFile() {
    FileBytes bytes = BytesOf("ff d8 ff db 00 43 00"),
              rest = BytesOf("ff c0 00 0b 08 00 08 00 08 01 01 11 00 "
                             "ff c4 00 14 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                             "ff c4 00 14 10 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                             "ff da 00 08 01 01 00 00 3f 00 3f ff d9");
    bytes.resize(bytes.size() + 64, 1);
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

// One image of an icon, 16 x 16: the lower half red 10, green 200, blue 255, the upper transparent.
inline FileBytes MakePngFile() {
    return BytesOf("89 50 4e 47 0d 0a 1a 0a 00 00 00 0d 49 48 44 52 00 00 00 10 00 00 00 10 08 06 00 00 00 1f f3 ff 61 "
                   "00 00 00 1a 49 44 41 54 78 da 63 60 18 05 a3 00 08 b8 4e fc ff 4f 09 1e 35 60 58 18 00 00 f3 e4 68 "
                   "10 71 00 96 c5 00 00 00 00 49 45 4e 44 ae 42 60 82");
}

// The same without compression.
inline FileBytes MakeIconImage() {
    FileBytes bytes = BytesOf("28 00 00 00 10 00 00 00 20 00 00 00 01 00 20 00");
    bytes.resize(40);
    for (int i = 0; i < 256; ++i) Append(bytes, 4, i < 128 ? 0xFF0AC8FF : 0);
    for (int i = 0; i < 64; ++i) Append(bytes, 1, i < 32 ? 0 : 0xFF); // the mask hides the upper half
    return bytes;
}

inline FileBytes MakeIconFile(const std::vector<FileBytes>& images = {MakeIconImage()}) {
    FileBytes bytes{0, 0, 1, 0};
    Append(bytes, 2, images.size());
    std::size_t offset = 6 + 16 * images.size();
    for (const FileBytes& image : images) {
        for (const std::size_t value : {std::size_t{0x1010}, std::size_t{1 | 32 << 16}, image.size(), offset})
            Append(bytes, 4, value);
        offset += image.size();
    }
    for (const FileBytes& image : images) bytes.insert(bytes.end(), image.begin(), image.end());
    return bytes;
}
