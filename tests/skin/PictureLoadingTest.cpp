// Pictures from files: every format and depth against a plain reader, and files that are broken in every way.
#include <gtest/gtest.h>

#include "Pictures.h"
#include "skin/PictureFile.h"
#include "support/Seed.h"

namespace {

CSkinBitmap Load(const std::string& name, const FileBytes& bytes, COLORREF backColor = 0) {
    const CPictureFile file("loaded-" + name, bytes);
    CSkinBitmap picture = MakePicture({"ab"}); // of which nothing may be left
    const bool loaded = picture.LoadFromFile(file.name, backColor);
    EXPECT_EQ(loaded, !picture.IsEmpty());
    return picture;
}

TEST(PictureLoading, EachFormGivesItsPixels) {
    for (const int depth : {1, 4, 8, 16, -16, 24, 32, -32}) { // negative: bit fields
        const FileBytes bytes = MakeBitmapFile(std::abs(depth), 13, 5, 0, depth < 0);
        std::vector<COLORREF> expected;
        for (std::size_t i = 0; i < std::size_t{13} * 5; ++i) {
            const std::uint32_t color = PlainPixel(bytes, i % 13, i / 13);
            expected.push_back(RGB(color >> 16 & 255, color >> 8 & 255, color & 255));
        }
        const CSkinBitmap picture = Load("form.bmp", bytes);
        EXPECT_EQ(picture.GetBounds(), CRect(0, 0, 13, 5)) << depth;
        EXPECT_EQ(PixelsOf(picture), expected) << depth;
    }
    constexpr COLORREF back = RGB(1, 2, 3);
    for (const COLORREF color : {back, CSkinBitmap::noBackColor}) {
        const std::vector<COLORREF> expected{RGB(255, 0, 0), color == back ? back : 0};
        EXPECT_EQ(PixelsOf(Load("two.gif", MakeGifFile(), color)), expected);
    }
    std::vector<COLORREF> half(128, back);
    half.resize(256, RGB(10, 200, 255));
    for (const FileBytes& icon :
         {MakeIconFile(), MakeIconFile({MakePngFile()}), MakeIconFile({MakeIconImage(), MakeIconImage()})})
        EXPECT_EQ(PixelsOf(Load("half.ico", icon, back)), half) << icon.size();
}

TEST(PictureLoading, WhatCantBeReadLeavesNothingOfTheFormerPicture) {
    FileBytes many = MakeBitmapFile(24, 5, 5), largeGif = MakeGifFile();
    Write(many, 18, 8, 0x00007FFF00007FFF);
    largeGif.resize(64 * 1024 * 1024 + 1);
    for (const char* const name : {"empty.bmp", "empty.gif", "empty.ico"}) EXPECT_TRUE(Load(name, {}).IsEmpty());
    for (const char* const name : {"gif.bmp", "gif.ico", "gif.png"})
        EXPECT_TRUE(Load(name, MakeGifFile()).IsEmpty()) << name;
    EXPECT_TRUE(Load("many.bmp", many).IsEmpty());
    EXPECT_TRUE(Load("large.gif", largeGif).IsEmpty());
    std::string tooLong(5000, 'x');
    tooLong += ".bmp";
    for (const char* const name : {"none.bmp", "none.gif", ".", tooLong.c_str()}) {
        CSkinBitmap picture = MakePicture({"ab"});
        EXPECT_FALSE(picture.LoadFromFile(name, 0)) << name;
        EXPECT_TRUE(picture.IsEmpty()) << name;
    }
}

// Broken at random or whole, each file gives a picture that can be used or none, and costs no handle.
TEST(PictureLoading, BrokenFilesDoNoHarmAndNoHandleIsKept) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const std::pair<const char*, FileBytes> files[] = {{"p.bmp", MakeBitmapFile(4, 9, 5)},
                                                       {"f.bmp", MakeBitmapFile(16, 5, 5, 0, true)},
                                                       {"g.gif", MakeGifFile()},
                                                       {"i.ico", MakeIconFile({MakeIconImage(), MakePngFile()})}};
    ExpectNoGdiObjectLost(20, [&] {
        for (int i = 0; i < 4 * 6; ++i) {
            const auto& [name, whole] = files[i % 4];
            FileBytes bytes = whole;
            for (auto change = i < 4 ? 0 : random() % 4; change > 0; --change)
                bytes[random() % std::min<std::size_t>(bytes.size(), 120)] ^= static_cast<std::uint8_t>(random());
            if (i >= 20) bytes.resize(random() % bytes.size());
            const CSkinBitmap picture = Load(name, bytes);
            EXPECT_TRUE(i >= 4 || !picture.IsEmpty()) << name;
            ASSERT_LE(std::int64_t{picture.GetWidth()} * picture.GetHeight(), mostPixels);
            if (picture.GetWidth() * picture.GetHeight() < 10'000)
                const CRgn region(picture.CreateRegion(0xFF00FF, 0x101010));
        }
    });
}

} // namespace
