// Pictures from files: every format and depth against a plain reader, and files that are broken in every way.
#include <gtest/gtest.h>

#include "pictures/PictureFile.h"
#include "pictures/Pictures.h"
#include "pictures/SkinPicture.h"
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
    const std::vector<COLORREF> gray(64, RGB(128, 128, 128));
    EXPECT_EQ(PixelsOf(Load("gray.jpg", MakeJpegFile())), gray);
    std::vector<COLORREF> half(128, back);
    half.resize(256, RGB(10, 200, 255));
    for (const FileBytes& icon :
         {MakeIconFile(), MakeIconFile({MakePngFile()}), MakeIconFile({MakeIconImage(), MakeIconImage()})})
        EXPECT_EQ(PixelsOf(Load("half.ico", icon, back)), half) << icon.size();
}

TEST(PictureLoading, AResourceFillsOnlyAnEmptyBitmap) {
    CSkinBitmap picture;
    for (const auto& [id, loads] : {std::pair(403, false), {402, true}, {402, false}}) {
        EXPECT_EQ(picture.LoadFromResource(static_cast<std::uint16_t>(id), "PICTURE", nullptr, 0x010203), loads);
        EXPECT_EQ(picture.IsEmpty(), id == 403);
    }
    EXPECT_EQ(PixelsOf(picture), (std::vector<COLORREF>{0x0000FF, 0x010203}));
}

TEST(PictureLoading, WhatCantBeReadLeavesNothingOfTheFormerPicture) {
    FileBytes many = MakeBitmapFile(24, 5, 5), largeGif = MakeGifFile();
    Write(many, 18, 8, 0x00007FFF00007FFF);
    largeGif.resize(64 * 1024 * 1024 + 1);
    const std::pair<const char*, FileBytes> rows[] = {
        {"empty.bmp", {}},          {"empty.gif", {}},          {"empty.ico", {}},  {"gif.bmp", MakeGifFile()},
        {"gif.ico", MakeGifFile()}, {"gif.png", MakeGifFile()}, {"many.bmp", many}, {"large.gif", largeGif},
        {"no folder/none.bmp", {}}, {"no folder/none.gif", {}}};
    for (const auto& [name, bytes] : rows) EXPECT_TRUE(Load(name, bytes).IsEmpty()) << name;
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

// Whoever shows a file shares its pixels; who asks once it is another file gets those of the other.
TEST(PictureLoading, PicturesOfOneFileShareItsPixels) {
    CSkinPicture first, second, third;
    {
        const CPictureFile file("shared.bmp", MakeBitmapFile(24, 4, 1));
        EXPECT_TRUE(first.LoadFromFile(file.name) && second.LoadFromFile(file.name));
    }
    CSkinBitmap former;
    former.Attach(second.CopyFrom(MakePicture({"ab"}).GetHandle())); // the caller's, while the first still shows it
    EXPECT_EQ(first.GetWidth() * 100 + second.GetWidth() * 10 + former.GetWidth(), 424);
    const CPictureFile other("shared.bmp", MakeBitmapFile(24, 3, 1));
    EXPECT_TRUE(third.LoadFromFile(other.name));
    EXPECT_EQ(first.GetWidth() * 10 + third.GetWidth(), 43);
}

} // namespace
