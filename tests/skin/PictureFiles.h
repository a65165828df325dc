// Small picture files made in memory, all of them well formed, and a plain reader of bitmaps.
#pragma once

#include <algorithm>
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

// Noise, with `colors` of them in its palette (0: all that the depth can tell apart); of bit fields, the masks are
// 5-6-5 and as usual.
inline FileBytes MakeBitmapFile(int bitsPerPixel, int width, int height, std::size_t colors = 0, bool fields = false) {
    const std::size_t named = colors;
    if (colors == 0 && bitsPerPixel <= 8) colors = std::size_t{1} << bitsPerPixel;
    const std::size_t stride = (static_cast<std::size_t>(width * bitsPerPixel) + 31) / 32 * 4;
    const std::size_t offset = 54 + colors * 4 + (fields ? 12 : 0), size = stride * static_cast<std::size_t>(height);
    FileBytes bytes{'B', 'M'};
    for (const std::size_t value : {offset + size, std::size_t{0}, offset, std::size_t{40}}) Append(bytes, 4, value);
    for (const int value : {width, height, 1 | bitsPerPixel << 16, fields ? 3 : 0})
        Append(bytes, 4, static_cast<std::uint32_t>(value));
    for (const std::size_t value : {size, std::size_t{0}, std::size_t{0}, named, std::size_t{0}})
        Append(bytes, 4, value);
    for (const std::uint32_t mask : {0xF800, 0x7E0, 0x1F})
        if (fields)
            Append(bytes, 4, bitsPerPixel == 16 ? mask : 0xFF0000U >> (mask == 0xF800 ? 0 : mask == 0x1F ? 16 : 8));
    std::minstd_rand random(static_cast<unsigned>(bitsPerPixel));
    const auto limit = bitsPerPixel == 8 ? static_cast<unsigned>(colors) : 256U;
    while (bytes.size() < offset)
        bytes.push_back(static_cast<std::uint8_t>(bytes.size() % 4 == 1 ? 0 : random() % 256));
    while (bytes.size() < offset + size) bytes.push_back(static_cast<std::uint8_t>((random() >> 8) % limit));
    return bytes;
}

// The same picture with the top row first.
inline FileBytes TopDown(const FileBytes& plain) {
    const std::size_t height = Number(plain, 22, 4), offset = Number(plain, 10, 4);
    const std::size_t stride = (plain.size() - offset) / height;
    FileBytes bytes(plain.begin(), plain.begin() + static_cast<std::ptrdiff_t>(offset));
    for (std::size_t row = height; row-- > 0;)
        for (std::size_t i = 0; i < stride; ++i) bytes.push_back(plain[offset + row * stride + i]);
    Write(bytes, 22, 4, 0 - height);
    return bytes;
}

// The same picture of 4 or 8 bits a pixel, run-length coded: a run for each pixel.
inline FileBytes RunLengths(const FileBytes& plain) {
    const std::size_t width = Number(plain, 18, 4), height = Number(plain, 22, 4), offset = Number(plain, 10, 4);
    const std::size_t bits = Number(plain, 28, 2), stride = (plain.size() - offset) / height;
    FileBytes bytes(plain.begin(), plain.begin() + static_cast<std::ptrdiff_t>(offset));
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint8_t pixel = plain[offset + y * stride + x * bits / 8];
            bytes.insert(bytes.end(), {1, static_cast<std::uint8_t>(bits == 4 && x % 2 != 0 ? pixel << 4 : pixel)});
        }
        bytes.insert(bytes.end(), {0, static_cast<std::uint8_t>(y + 1 == height ? 1 : 0)});
    }
    Write(bytes, 2, 4, bytes.size());
    Write(bytes, 30, 4, bits == 8 ? 1 : 2);
    Write(bytes, 34, 4, bytes.size() - offset);
    return bytes;
}

// The same picture with the oldest header, of 16-bit sizes, and three bytes a colour.
inline FileBytes WithCoreHeader(const FileBytes& plain) {
    const std::size_t offset = Number(plain, 10, 4);
    FileBytes bytes(plain.begin(), plain.begin() + 14);
    Append(bytes, 4, 12);
    for (const std::size_t at : {18, 22, 26, 28}) Append(bytes, 2, Number(plain, at, 2));
    for (std::size_t at = 54; at < offset; at += 4) Append(bytes, 3, Number(plain, at, 3));
    Write(bytes, 10, 4, bytes.size());
    bytes.insert(bytes.end(), plain.begin() + static_cast<std::ptrdiff_t>(offset), plain.end());
    Write(bytes, 2, 4, bytes.size());
    return bytes;
}

// The pixel (blue in the lowest byte) of a plain bitmap file with its bottom row first.
inline std::uint32_t PlainPixel(const FileBytes& file, std::size_t x, std::size_t y) {
    const std::size_t bits = Number(file, 28, 2), stride = (Number(file, 18, 4) * bits + 31) / 32 * 4;
    const std::size_t row = Number(file, 10, 4) + (Number(file, 22, 4) - 1 - y) * stride;
    if (bits >= 24) return static_cast<std::uint32_t>(Number(file, row + x * bits / 8, 3));
    if (bits <= 8) {
        const std::size_t index = file.at(row + x * bits / 8) >> (8 - bits - x * bits % 8) & ((1U << bits) - 1);
        return static_cast<std::uint32_t>(Number(file, 54 + index * 4, 3));
    }
    const std::size_t pixel = Number(file, row + x * 2, 2), greenBits = Number(file, 30, 4) == 3 ? 6 : 5;
    const std::size_t red = pixel >> (5 + greenBits) & 31, green = pixel >> 5 & ((1U << greenBits) - 1),
                      blue = pixel & 31;
    const std::size_t wide = green << (8 - greenBits) | green >> (2 * greenBits - 8);
    return static_cast<std::uint32_t>((red << 3 | red >> 2) << 16 | wide << 8 | blue << 3 | blue >> 2);
}

// Two pixels: red, and a transparent one.
inline FileBytes MakeGifFile() {
    return BytesOf("47 49 46 38 39 61 02 00 01 00 91 00 00 ff 00 00 00 00 ff 00 00 00 00 00 00 21 f9 04 01 00 00 01 00 "
                   "2c 00 00 00 00 02 00 01 00 00 02 02 44 0a 00 3b");
}

// 8 x 8 pixels of grey 138: one block with only its mean coded.
inline FileBytes MakeJpegFile() {
    FileBytes bytes = BytesOf("ff d8 ff db 00 43 00");
    const auto append = [&](const char* hex, std::ptrdiff_t count, int value) {
        const FileBytes more = BytesOf(hex);
        bytes.insert(bytes.end(), more.begin(), more.end());
        bytes.insert(bytes.end(), static_cast<std::size_t>(count), static_cast<std::uint8_t>(value));
    };
    append("", 64, 8);                                                         // quantisation
    append("ff c0 00 0b 08 00 08 00 08 01 01 11 00 ff c4 00 14 00 01", 15, 0); // frame; one mean code, of 4 bits
    append("04 ff c4 00 14 10 01", 16, 0);                                     // one other code: end
    append("ff da 00 08 01 01 00 00 3f 00 53 ff d9", 0, 0);                    // scan
    return bytes;
}

// One image of an icon, 16 x 16: the lower half red 10, green 200, blue 255, the upper transparent.
inline FileBytes MakePngFile() {
    return BytesOf("89 50 4e 47 0d 0a 1a 0a 00 00 00 0d 49 48 44 52 00 00 00 10 00 00 00 10 08 06 00 00 00 1f f3 ff 61 "
                   "00 00 00 1a 49 44 41 54 78 da 63 60 18 05 a3 00 08 b8 4e fc ff 4f 09 1e 35 60 58 18 00 00 f3 e4 68 "
                   "10 71 00 96 c5 00 00 00 00 49 45 4e 44 ae 42 60 82");
}

// The same without compression, `size` pixels wide and high.
inline FileBytes MakeIconImage(std::size_t size = 16) {
    FileBytes bytes;
    for (const std::size_t value : {std::size_t{40}, size, 2 * size, std::size_t{1 | 32 << 16}})
        Append(bytes, 4, value);
    bytes.resize(40);
    for (std::size_t i = 0; i < size * size; ++i) Append(bytes, 4, i < size * size / 2 ? 0xFF0AC8FF : 0);
    const std::size_t mask = size * ((size + 31) / 32 * 4);
    bytes.resize(bytes.size() + mask / 2);
    bytes.resize(bytes.size() + mask / 2, 0xFF); // hides the upper half
    return bytes;
}

inline FileBytes MakeIconFile(const std::vector<FileBytes>& images = {MakeIconImage()}) {
    FileBytes bytes{0, 0, 1, 0};
    Append(bytes, 2, images.size());
    std::size_t offset = 6 + 16 * images.size();
    for (const FileBytes& image : images) {
        const std::size_t size = image[0] == 40 ? image[4] : 16;
        Append(bytes, 4, size | size << 8);
        Append(bytes, 4, 1 | 32 << 16);
        for (const std::size_t value : {image.size(), offset}) Append(bytes, 4, value);
        offset += image.size();
    }
    for (const FileBytes& image : images) bytes.insert(bytes.end(), image.begin(), image.end());
    return bytes;
}
