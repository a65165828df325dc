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

TEST(PictureLoading, BitmapsOfEveryForm) {
    for (const int depth : {1, 4, 8, 16, -16, 24, 32, -32}) { // negative: bit fields
        const FileBytes plain = MakeBitmapFile(std::abs(depth), 13, 5, 0, depth < 0);
        std::vector<COLORREF> expected;
        for (std::size_t i = 0; i < std::size_t{13} * 5; ++i) {
            const std::uint32_t color = PlainPixel(plain, i % 13, i / 13);
            expected.push_back(RGB(color >> 16 & 255, color >> 8 & 255, color & 255));
        }
        std::vector<FileBytes> files{plain};
        if (depth == 4 || depth == 8) files.push_back(RunLengths(plain));
        if (depth > 0 && depth != 16 && depth != 32) files.push_back(WithCoreHeader(plain));
        for (std::size_t i = 0; i < files.size(); ++i) {
            const CSkinBitmap picture = Load("form.bmp", files[i]);
            ASSERT_EQ(picture.GetBounds(), CRect(0, 0, 13, 5)) << depth << ", form " << i;
            EXPECT_EQ(PixelsOf(picture), expected) << depth << ", form " << i;
        }
    }
}

TEST(PictureLoading, IconsJpegsAndGifsOnTheirBackColor) {
    constexpr COLORREF back = RGB(1, 2, 3);
    EXPECT_EQ(PixelsOf(Load("two.gif", MakeGifFile(), back)), (std::vector<COLORREF>{RGB(255, 0, 0), back}));
    EXPECT_EQ(PixelsOf(Load("none.gif", MakeGifFile(), CSkinBitmap::noBackColor)),
              (std::vector<COLORREF>{RGB(255, 0, 0), 0}));
    EXPECT_EQ(PixelsOf(Load("grey.jpeg", MakeJpegFile())), std::vector<COLORREF>(64, RGB(138, 138, 138)));
    const std::vector<FileBytes> icons[] = {{MakeIconImage()}, {MakePngFile()}, {MakeIconImage(), MakeIconImage(16)}};
    std::vector<COLORREF> half(128, back);
    half.resize(256, RGB(10, 200, 255));
    for (const auto& images : icons) {
        EXPECT_EQ(PixelsOf(Load("half.ico", MakeIconFile(images), back)), half) << images[0].size();
    }
}

TEST(PictureLoading, WhatCantBeReadLeavesNothingOfTheFormerPicture) {
    FileBytes many = MakeBitmapFile(24, 5, 5), largeGif = MakeGifFile();
    Write(many, 18, 8, 0x00007FFF00007FFF);
    largeGif.resize(64 * 1024 * 1024 + 1);
    const std::pair<std::string, FileBytes> files[] = {{"empty.bmp", {}},
                                                       {"empty.gif", {}},
                                                       {"empty.ico", {}},
                                                       {"empty.jpg", {}},
                                                       {"gif.bmp", MakeGifFile()},
                                                       {"png.bmp", MakePngFile()},
                                                       {"bitmap.png", MakeBitmapFile(24, 5, 5)},
                                                       {"bitmap.ico", MakeBitmapFile(24, 5, 5)},
                                                       {"text.jpg", {'n', 'o'}},
                                                       {"many.bmp", many},
                                                       {"large.gif", largeGif}};
    for (const auto& [name, bytes] : files) EXPECT_TRUE(Load(name, bytes).IsEmpty()) << name;
    std::string longName(5000, 'x');
    longName += ".bmp";
    for (const char* const name : {"none.bmp", "none.gif", "none.ico", ".", longName.c_str()}) {
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
    const std::pair<const char*, FileBytes> files[] = {{"b.bmp", MakeBitmapFile(24, 5, 5)},
                                                       {"p.bmp", MakeBitmapFile(4, 9, 5)},
                                                       {"f.bmp", MakeBitmapFile(16, 5, 5, 0, true)},
                                                       {"r.bmp", RunLengths(MakeBitmapFile(8, 5, 4))},
                                                       {"c.bmp", WithCoreHeader(MakeBitmapFile(8, 4, 4))},
                                                       {"g.gif", MakeGifFile()},
                                                       {"j.jpg", MakeJpegFile()},
                                                       {"i.ico", MakeIconFile({MakeIconImage(), MakePngFile()})}};
    ExpectNoGdiObjectLost(20, [&] {
        for (const auto& [name, whole] : files) {
            EXPECT_FALSE(Load(name, whole).IsEmpty()) << name;
            for (int change = 0; change < 4; ++change) {
                FileBytes bytes = whole;
                const std::size_t headers = std::min<std::size_t>(bytes.size(), 120);
                for (auto i = random() % 4; i > 0; --i)
                    bytes[random() % headers] ^= static_cast<std::uint8_t>(random() % 2 == 0 ? 1 : random() % 256);
                if (change == 0) bytes.resize(random() % bytes.size());
                const CSkinBitmap picture = Load(name, bytes);
                ASSERT_LE(std::int64_t{picture.GetWidth()} * picture.GetHeight(), mostPixels);
                if (picture.GetWidth() * picture.GetHeight() > 10'000) continue;
                const CRgn region(picture.CreateRegion(0xFF00FF, 0x101010));
            }
        }
    });
}

} // namespace
