// Pictures too large to be kept: what is read of them, piece by piece, is what the platform's loader makes of the file.
#include "skin/SkinPicture.h"

#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "Pictures.h"

namespace {

constexpr int width = 1002, height = 600;

std::vector<COLORREF> PixelsOf(const CSkinBitmap& picture) {
    const CMemoryDC dc(nullptr);
    const CSelectObject selected(dc, picture.GetHandle());
    return ReadPixels(dc.GetHandle(), picture.GetBounds());
}

FileBytes NoiseFile(int bitsPerPixel) {
    FileBytes bytes = MakeBitmapFile(bitsPerPixel, width, height);
    unsigned state = 1;
    std::generate(bytes.begin() + 54, bytes.end(), [&] {
        state = state * 1'103'515'245 + 12'345;
        return static_cast<std::uint8_t>(state >> 16);
    });
    return bytes;
}

// The same picture with the top row first.
FileBytes TopDown(const FileBytes& file) {
    const auto pixels = file.begin() + (file[10] | file[11] << 8);
    const auto stride = (file.end() - pixels) / height;
    FileBytes bytes(file.begin(), pixels);
    for (int row = height - 1; row >= 0; --row)
        bytes.insert(bytes.end(), pixels + row * stride, pixels + (row + 1) * stride);
    Write(bytes, 22, 4, static_cast<std::uint32_t>(-height));
    return bytes;
}

TEST(SkinPicture, PiecesOfALargeFileAreThoseOfTheWholePicture) {
    for (const int bits : {1, 4, -4, 8, 16, 24, -24, 32}) { // negative: the top row first
        const FileBytes bytes = NoiseFile(std::abs(bits));
        const CPictureFile file("noise.bmp", bytes), read("read.bmp", bits < 0 ? TopDown(bytes) : bytes);
        CSkinBitmap whole, expected, made;
        CSkinPicture picture;
        ASSERT_TRUE(whole.LoadFromFile(file.name, 0) && picture.LoadFromFile(read.name)) << bits;
        expected.CreateBlank({0, 0, 4 * 74, 22});
        for (int i = 0; i < 4; ++i) whole.CopyCells(expected, {{{74 * i, 0, 74, 22}, {width * i / 4, 200, 74, 22}}});
        ASSERT_EQ(PixelsOf(picture.GetRow(2, 4, 3, {74, 22})), PixelsOf(expected)) << bits;
        struct Stretch {
            int width, height, cornerWidth, cornerHeight;
        };
        for (const auto& [w, h, cx, cy] : {Stretch{480, 347, 50, 40},
                                           {1100, 700, 50, 40},
                                           {465, 26, 30, 30},
                                           {480, height, 50, 0},
                                           {1100, 700, 0, 40},
                                           {2 * width, 2 * height, 0, 0}}) {
            whole.BuildNineSlice(expected, {0, 0, w, h}, cx, cy);
            picture.BuildNineSlice(made, {0, 0, w, h}, cx, cy);
            ASSERT_EQ(PixelsOf(made), PixelsOf(expected)) << bits << ' ' << w << 'x' << h;
        }
        CRect place(-500, -300, width - 500, height - 300);
        expected.CreateBlank({0, 0, 60, 20});
        whole.CopyCells(expected, {{{0, 0, 60, 20}, {500, 300, 60, 20}}});
        EXPECT_EQ(PixelsOf(picture.CutTo({0, 0, 60, 20}, place)), PixelsOf(expected)) << bits;
    }
}

TEST(SkinPicture, AFileThatIsAnotherByNowIsBlack) {
    CSkinPicture picture;
    {
        const CPictureFile file("noise.bmp", NoiseFile(24));
        EXPECT_TRUE(picture.LoadFromFile(file.name));
    }
    EXPECT_EQ(PixelsOf(picture.GetRow(1, 1, 1, {4, 4})), std::vector<COLORREF>(16));
    const CPictureFile small("noise.bmp", MakeBitmapFile(24, 8, 8));
    EXPECT_EQ(PixelsOf(picture.GetRow(1, 1, 1, {4, 4})), std::vector<COLORREF>(16));
}

} // namespace
