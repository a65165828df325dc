// Pictures from files: every format and depth, and files that are broken in every way that a disk or a stranger could
// break them.
#include <chrono>

#include <gtest/gtest.h>

#include "Pictures.h"
#include "Repeats.h"
#include "TimeFactor.h"
#include "skin/PictureFile.h"

namespace {

CSkinBitmap Load(const std::string& name, const FileBytes& bytes, COLORREF backColor = 0) {
    const CPictureFile file("loaded-" + name, bytes);
    CSkinBitmap picture;
    const bool loaded = picture.LoadFromFile(file.name, backColor);
    EXPECT_EQ(loaded, !picture.IsEmpty());
    return picture;
}

COLORREF PixelOf(const CSkinBitmap& picture, int x, int y) {
    const CMemoryDC dc(nullptr);
    const CSelectObject selected(dc, picture.GetHandle());
    return ::GetPixel(dc.GetHandle(), x, y);
}

constexpr COLORREF orange = RGB(255, 200, 10); // of PictureFiles.h

TEST(PictureLoading, BitmapsOfEveryDepth) {
    for (const int depth : {1, 4, 8, 16, 24, 32}) {
        const CSkinBitmap picture = Load("depth.bmp", MakeBitmapFile(depth, 13, 5));
        EXPECT_EQ(picture.GetBounds(), CRect(0, 0, 13, 5)) << depth;
        const COLORREF color = PixelOf(picture, 12, 4);
        EXPECT_EQ(color, depth == 1 ? RGB(255, 255, 255) : depth == 16 ? RGB(255, 206, 8) : orange) << depth;
    }
    EXPECT_EQ(PixelOf(Load("core.bmp", MakeCoreBitmapFile(4, 4)), 3, 3), orange);
    EXPECT_EQ(PixelOf(Load("runs.bmp", MakeRunLengthFile(5, 4)), 4, 3), orange);
    EXPECT_EQ(Load("one.bmp", MakeBitmapFile(24, 1, 1)).GetBounds(), CRect(0, 0, 1, 1));
}

TEST(PictureLoading, IconsJpegsAndGifsOnTheirBackColor) {
    const CSkinBitmap gif = Load("two.gif", MakeGifFile(), RGB(1, 2, 3));
    EXPECT_EQ(gif.GetBounds(), CRect(0, 0, 2, 1));
    EXPECT_EQ(PixelOf(gif, 0, 0), RGB(255, 0, 0));
    EXPECT_EQ(PixelOf(gif, 1, 0), RGB(1, 2, 3));
    EXPECT_EQ(PixelOf(Load("none.gif", MakeGifFile(), CSkinBitmap::noBackColor), 0, 0), RGB(255, 0, 0));

    const CSkinBitmap jpeg = Load("grey.jpeg", MakeJpegFile());
    EXPECT_EQ(jpeg.GetBounds(), CRect(0, 0, 8, 8));
    EXPECT_EQ(PixelOf(jpeg, 7, 7), RGB(138, 138, 138));

    const CSkinBitmap icon = Load("half.ico", MakeIconFile(), RGB(1, 2, 3));
    EXPECT_EQ(icon.GetBounds(), CRect(0, 0, 16, 16));
    EXPECT_EQ(PixelOf(icon, 0, 0), RGB(1, 2, 3)); // its lower half comes first in the file
    EXPECT_EQ(PixelOf(icon, 15, 15), orange);
}

TEST(PictureLoading, WhatCantBeReadLeavesNothingOfTheFormerPicture) {
    const FileBytes bitmap = MakeBitmapFile(24, 5, 5);
    const std::vector<std::pair<std::string, FileBytes>> files = {
        {"empty.bmp", {}},          {"empty.gif", {}},
        {"empty.ico", {}},          {"empty.jpg", {}},
        {"gif.bmp", MakeGifFile()}, {"png.bmp", {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'}},
        {"bitmap.png", bitmap},     {"text.jpg", {'n', 'o', ' ', 'p', 'i', 'c', 't', 'u', 'r', 'e'}}};
    for (const auto& [name, bytes] : files) {
        const CPictureFile file("broken-" + name, bytes);
        CSkinBitmap picture = MakePicture({"ab"});
        EXPECT_FALSE(picture.LoadFromFile(file.name, 0)) << name;
        EXPECT_TRUE(picture.IsEmpty()) << name;
    }
    CSkinBitmap picture = MakePicture({"ab"});
    EXPECT_FALSE(picture.LoadFromFile("no such file.bmp", 0));
    EXPECT_TRUE(picture.IsEmpty());
    EXPECT_FALSE(picture.LoadFromFile("no such file.gif", 0));
    std::string longName(5000, 'x');
    longName += ".bmp";
    EXPECT_FALSE(picture.LoadFromFile(longName, 0));
    EXPECT_FALSE(picture.LoadFromFile(".", 0));
}

// Every load of a broken file ends soon, in a picture that can be used or in none.
void TryBroken(const std::string& name, const FileBytes& bytes) {
    const auto start = std::chrono::steady_clock::now();
    const CSkinBitmap picture = Load(name, bytes);
    EXPECT_LE(std::int64_t{picture.GetWidth()} * picture.GetHeight(), mostPixels);
    if (picture.GetWidth() * picture.GetHeight() < 10'000) {
        CSkinBitmap frame;
        picture.GetFrame(frame, 2, 1, 4, 1);
        const CRgn region(frame.CreateRegion(0xFF00FF, 0x101010));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5) * TimeFactor()) << name;
}

TEST(PictureLoading, BrokenFilesNeitherCrashNorDelay) {
    struct Case {
        const char* name;
        FileBytes bytes;
        std::size_t headers; // how many of the first bytes are worth changing
    };
    const Case cases[] = {{"b.bmp", MakeBitmapFile(24, 5, 5), 60},
                          {"p.bmp", MakeBitmapFile(4, 9, 5), 120},
                          {"r.bmp", MakeRunLengthFile(5, 4), 54},
                          {"c.bmp", MakeCoreBitmapFile(4, 4), 26},
                          {"g.gif", MakeGifFile(), 1000},
                          {"j.jpg", MakeJpegFile(), 200},
                          {"i.ico", MakeIconFile(), 70}};
    for (const Case& each : cases) {
        const std::size_t step = each.bytes.size() / static_cast<std::size_t>(Repeats(100)) + 1;
        for (std::size_t length = 1; length < each.bytes.size(); length += step) {
            TryBroken(each.name, {each.bytes.begin(), each.bytes.begin() + static_cast<std::ptrdiff_t>(length)});
        }
        const std::size_t stride = 100 / static_cast<std::size_t>(Repeats(100));
        for (std::size_t i = 0; i < std::min(each.headers, each.bytes.size()); i += stride) {
            for (const int mask : {0xFF, 0x01}) {
                FileBytes changed = each.bytes;
                changed[i] = static_cast<std::uint8_t>(changed[i] ^ mask);
                TryBroken(each.name, changed);
            }
        }
    }
}

TEST(PictureLoading, ManyLoadsKeepNoHandle) {
    struct Case {
        const char* name;
        FileBytes bytes;
    };
    const Case cases[] = {{"many.bmp", MakeBitmapFile(24, 74, 22)},
                          {"many.gif", MakeGifFile()},
                          {"many.jpg", MakeJpegFile()},
                          {"many.ico", MakeIconFile()}};
    for (const Case& each : cases) {
        const CPictureFile file(each.name, each.bytes);
        CSkinBitmap picture;
        ASSERT_TRUE(picture.LoadFromFile(file.name, 0)) << each.name; // what the first load sets up stays
        picture.DeleteObject();
        const std::size_t before = FreeGdiObjects();
        for (int round = 0; round < Repeats(1000); ++round) {
            ASSERT_TRUE(picture.LoadFromFile(file.name, 0)) << each.name;
        }
        picture.DeleteObject();
        EXPECT_NEAR(static_cast<double>(FreeGdiObjects()), static_cast<double>(before), 8) << each.name;
    }
}

} // namespace
