// Pictures too large to be kept: what is read of them, piece by piece, is what the platform's loader makes of the file.
#include "skin/SkinPicture.h"

#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "Pictures.h"

namespace {

constexpr int width = 1002, height = 600;

TEST(SkinPicture, PiecesOfALargeFileAreThoseOfTheWholePicture) {
    for (const int bits :
         {1, 4, -4, 8, 16, 116, 24, -24, 32, 132}) { // negative: top row first; from 100 on: bit fields
        const FileBytes bytes = MakeBitmapFile(std::abs(bits) % 100, width, height, 0, bits > 100);
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
        const CPictureFile file("noise.bmp", MakeBitmapFile(24, width, height));
        EXPECT_TRUE(picture.LoadFromFile(file.name));
    }
    EXPECT_EQ(PixelsOf(picture.GetRow(1, 1, 1, {4, 4})), std::vector<COLORREF>(16));
    const CPictureFile small("noise.bmp", MakeBitmapFile(24, 8, 8));
    EXPECT_EQ(PixelsOf(picture.GetRow(1, 1, 1, {4, 4})), std::vector<COLORREF>(16));
}

} // namespace
