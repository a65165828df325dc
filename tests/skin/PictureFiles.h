// Small picture files made in memory, all of them well formed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

using FileBytes = std::vector<std::uint8_t>;

inline void Append(FileBytes& bytes, std::size_t size, std::uint64_t value) {
    for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

inline void Write(FileBytes& bytes, std::size_t offset, std::size_t size, std::uint64_t value) {
    for (std::size_t i = 0; i < size; ++i) bytes[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

// A bitmap all in one colour: blue 10, green 200, red 255 (for 1 bit a pixel, white). With 24 and 32 bits exactly that;
// with 16, as near as 5 bits come. A negative height stores the top row first.
inline FileBytes MakeBitmapFile(int bitsPerPixel, int width, int height) {
    const std::size_t colors = bitsPerPixel <= 8 ? std::size_t{1} << bitsPerPixel : 0;
    const auto rows = static_cast<std::size_t>(height < 0 ? -height : height);
    const std::size_t stride = (static_cast<std::size_t>(width * bitsPerPixel) + 31) / 32 * 4;
    FileBytes bytes{'B', 'M'};
    const std::size_t offset = 54 + colors * 4;
    for (const std::size_t value : {offset + stride * rows, std::size_t{0}, offset, std::size_t{40}})
        Append(bytes, 4, value);
    for (const int value : {width, height}) Append(bytes, 4, static_cast<std::uint32_t>(value));
    Append(bytes, 2, 1);
    Append(bytes, 2, static_cast<std::uint64_t>(bitsPerPixel));
    for (const std::size_t value :
         {std::size_t{0}, stride * rows, std::size_t{0}, std::size_t{0}, std::size_t{0}, std::size_t{0}})
        Append(bytes, 4, value);
    for (std::size_t i = 0; i < colors; ++i)
        Append(bytes, 4, i + 1 < colors ? 0 : bitsPerPixel == 1 ? 0xFFFFFF : 0xFFC80A);
    for (std::size_t row = 0; row < rows; ++row) {
        FileBytes line;
        for (int x = 0; x < width; ++x) {
            if (bitsPerPixel == 16) Append(line, 2, 31 << 10 | 25 << 5 | 1);
            if (bitsPerPixel >= 24) Append(line, static_cast<std::size_t>(bitsPerPixel / 8), 0xFFC80A);
        }
        line.resize(stride, bitsPerPixel <= 8 ? 0xFF : 0);
        bytes.insert(bytes.end(), line.begin(), line.end());
    }
    return bytes;
}

// The same colour in 8 bits a pixel, run-length coded: a run for each row.
inline FileBytes MakeRunLengthFile(int width, int height) {
    FileBytes bytes = MakeBitmapFile(8, width, 0);
    for (int row = 0; row < height; ++row) bytes.insert(bytes.end(), {static_cast<std::uint8_t>(width), 0xFF, 0, 0});
    bytes.insert(bytes.end(), {0, 1});
    Write(bytes, 2, 4, bytes.size());
    Write(bytes, 22, 4, static_cast<std::uint64_t>(height));
    Write(bytes, 30, 4, 1);
    Write(bytes, 34, 4, static_cast<std::uint64_t>(height) * 4 + 2);
    return bytes;
}

// The oldest form: 16-bit sizes, 24 bits a pixel.
inline FileBytes MakeCoreBitmapFile(int width, int height) {
    const FileBytes whole = MakeBitmapFile(24, width, height);
    FileBytes bytes(whole.begin(), whole.begin() + 14);
    Write(bytes, 10, 4, 26);
    Append(bytes, 4, 12);
    for (const int value : {width, height, 1, 24}) Append(bytes, 2, static_cast<std::uint64_t>(value));
    bytes.insert(bytes.end(), whole.begin() + 54, whole.end());
    Write(bytes, 2, 4, bytes.size());
    return bytes;
}

// Two pixels: red, and a transparent one.
inline FileBytes MakeGifFile() {
    const std::string signature = "GIF89a";
    FileBytes bytes(signature.begin(), signature.end());
    for (const int value : {2, 0, 1, 0, 0x91, 0, 0}) bytes.push_back(static_cast<std::uint8_t>(value)); // 2 x 1
    bytes.insert(bytes.end(), {255, 0, 0, 0, 0, 255, 0, 0, 0, 0, 0, 0});                                // four colours
    bytes.insert(bytes.end(), {0x21, 0xF9, 4, 1, 0, 0, 1, 0}); // index 1 is transparent
    bytes.insert(bytes.end(), {0x2C, 0, 0, 0, 0, 2, 0, 1, 0, 0});
    bytes.insert(bytes.end(), {2, 2, 0x44, 0x0A, 0, 0x3B}); // codes: clear, 0, 1, end
    return bytes;
}

// 8 x 8 pixels of grey 138: one block with only its mean coded.
inline FileBytes MakeJpegFile() {
    FileBytes bytes{0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0};
    bytes.insert(bytes.end(), 64, 8);                                             // quantisation
    bytes.insert(bytes.end(), {0xFF, 0xC0, 0, 11, 8, 0, 8, 0, 8, 1, 1, 0x11, 0}); // frame
    bytes.insert(bytes.end(), {0xFF, 0xC4, 0, 20, 0x00, 1});                      // one mean code, of 4 bits
    bytes.insert(bytes.end(), 15, 0);
    bytes.insert(bytes.end(), {4, 0xFF, 0xC4, 0, 20, 0x10, 1}); // one other code: end
    bytes.insert(bytes.end(), 16, 0);
    bytes.insert(bytes.end(), {0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 63, 0, 0x53, 0xFF, 0xD9}); // scan
    return bytes;
}

// 16 x 16 pixels in one opaque colour: blue 10, green 200, red 255; the top half is transparent.
inline FileBytes MakeIconFile() {
    FileBytes bytes{0, 0, 1, 0, 1, 0, 16, 16, 0, 0, 1, 0, 32, 0};
    Append(bytes, 4, 40 + 1024 + 64);
    Append(bytes, 4, 22);
    for (const int value : {40, 16, 32}) Append(bytes, 4, static_cast<std::uint64_t>(value));
    Append(bytes, 4, 1 | 32 << 16);
    bytes.insert(bytes.end(), 24, 0);
    for (int i = 0; i < 256; ++i) Append(bytes, 4, i < 128 ? 0xFFFFC80A : 0);
    bytes.insert(bytes.end(), 32, 0);
    bytes.insert(bytes.end(), 32, 0xFF);
    return bytes;
}
