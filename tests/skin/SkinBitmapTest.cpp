// The skin bitmap's cutting, regions and drawing, seen pixel by pixel.
#include "skin/SkinBitmap.h"

#include <gtest/gtest.h>

#include "Pictures.h"

namespace {

constexpr COLORREF magenta = 0xFF00FF, tolerance = 0x101010;

TEST(SkinBitmap, FramesAreCutFromAGrid) {
    const CSkinBitmap strip = MakePicture({"abcdefg", "hijklmn"});
    struct Case {
        int column, row, columns, rows;
        Art frame;
    };
    const Case cases[] = {{1, 1, 4, 1, {"a", "h"}}, {2, 1, 4, 1, {"b", "i"}}, {3, 1, 4, 1, {"d", "k"}},
                          {4, 1, 4, 1, {"f", "m"}}, {2, 2, 2, 2, {"klm"}},    {1, 1, 1, 1, {"abcdefg", "hijklmn"}}};
    CSkinBitmap frame;
    for (const Case& each : cases) {
        EXPECT_EQ(strip.GetFrame(frame, each.column, each.row, each.columns, each.rows), 1);
        EXPECT_EQ(ReadArt(frame), each.frame) << each.column;
    }
    for (const int columns : {8, 0}) { // fewer pixels than columns, and no columns
        strip.GetFrame(frame, 1, 1, columns, 1);
        EXPECT_TRUE(frame.IsEmpty());
    }
    CSkinBitmap().GetFrame(frame, 1, 1, 1, 1);
    EXPECT_TRUE(frame.IsEmpty());
}

TEST(SkinBitmap, ACopyIsPrivateAndTheFormerBitmapGoesToTheCaller) {
    CSkinBitmap picture = MakePicture({"ab"});
    const HBITMAP first = picture.GetHandle();
    {
        const CBitmap given(MakeBitmap({"xyz"}));
        const CBitmap former(picture.CopyFrom(given.GetHandle()));
        EXPECT_EQ(former.GetHandle(), first);
        EXPECT_EQ(ReadArt(CSkinBitmap(MakePicture({"xyz"}))), ReadArt(picture));
    }
    EXPECT_EQ(ReadArt(picture), Art{"xyz"}); // the given one is gone
    const CBitmap former(picture.CopyFrom(nullptr));
    EXPECT_TRUE(picture.IsEmpty());
}

TEST(SkinBitmap, TheFourCasesOfTheNineSlice) {
    const CSkinBitmap picture = MakePicture({"abcd", //
                                             "efgh", //
                                             "ijkl"});
    struct Case {
        int width, height, cornerWidth, cornerHeight;
        Art stretched;
    };
    const Case cases[] = {
        {6, 5, 1, 1, {"abbbcd", "efffgh", "efffgh", "efffgh", "ijjjkl"}},
        {6, 3, 1, 0, {"abbbcd", "efffgh", "ijjjkl"}},
        {4, 5, 0, 1, {"abcd", "efgh", "efgh", "efgh", "ijkl"}},
        {8, 6, 0, 0, {"aabbccdd", "aabbccdd", "eeffgghh", "eeffgghh", "iijjkkll", "iijjkkll"}},
        {4, 3, 2, 1, {"abcd", "efgh", "ijkl"}},
        // A corner higher than the target, as in the bar: the first rows show, one to one.
        {6, 2, 2, 4, {"abcccd", "efgggh"}},
        // Where the target is smaller, nothing is mirrored.
        {2, 5, 1, 1, {"cd", "gh", "gh", "gh", "kl"}},
        // Bands as wide as the picture leave the rest black, '?' here.
        {6, 4, 0, 1, {"abcd??", "efgh??", "efgh??", "ijkl??"}},
    };
    for (const Case& each : cases) {
        CSkinBitmap stretched;
        // The rectangle's place plays no part.
        const CRect rect(7, 9, 7 + each.width, 9 + each.height);
        EXPECT_EQ(picture.BuildNineSlice(stretched, rect, each.cornerWidth, each.cornerHeight), 1);
        EXPECT_EQ(ReadArt(stretched), each.stretched) << each.cornerWidth << ' ' << each.cornerHeight;
        CSurface drawn(each.width, each.height);
        picture.DrawNineSlice(drawn.GetHandle(), {0, 0, each.width, each.height}, each.cornerWidth, each.cornerHeight);
        EXPECT_EQ(drawn.Read(), each.stretched) << each.cornerWidth << ' ' << each.cornerHeight;
    }
    CSurface surface(9, 7);
    EXPECT_EQ(picture.DrawNineSlice(surface.GetHandle(), {2, 1, 8, 6}, 1, 1), 1);
    EXPECT_EQ(surface.Read(),
              (Art{"         ", "  abbbcd ", "  efffgh ", "  efffgh ", "  efffgh ", "  ijjjkl ", "         "}));
    // What is larger than the rectangle stays inside it.
    picture.DrawNineSlice(surface.GetHandle(), {1, 1, 7, 3}, 2, 4);
    EXPECT_EQ(surface.Read()[2], " efggghh ");
    EXPECT_EQ(surface.Read()[3], "  efffgh ");
    CSkinBitmap none = MakePicture({"x"});
    EXPECT_EQ(picture.BuildNineSlice(none, {0, 0, 0, 5}, 1, 1), 1);
    EXPECT_TRUE(none.IsEmpty());
}

TEST(SkinBitmap, DrawingsScaleOrNotAndLeaveAColorOut) {
    const CSkinBitmap picture = MakePicture({"a.", ".b"});
    {
        CSurface surface(4, 3);
        picture.Draw(surface.GetHandle(), {1, 1, 3, 2});
        EXPECT_EQ(surface.Read(), (Art{"    ", " a. ", "    "}));
    }
    {
        CSurface surface(4, 4);
        picture.DrawTransparent(surface.GetHandle(), {0, 0, 4, 4}, magenta);
        EXPECT_EQ(surface.Read(), (Art{"aa  ", "aa  ", "  bb", "  bb"}));
    }
    {
        CSurface surface(3, 1);
        picture.StretchDraw(surface.GetHandle(), {0, 0, 3, 1}, {1, 1, 2, 2});
        EXPECT_EQ(surface.Read(), Art{"bbb"});
    }
    CSurface surface(2, 1);
    const CSkinBitmap empty;
    empty.Draw(surface.GetHandle(), {0, 0, 2, 1});
    empty.DrawTransparent(surface.GetHandle(), {0, 0, 2, 1}, magenta);
    empty.StretchDraw(surface.GetHandle(), {0, 0, 2, 1}, {0, 0, 1, 1});
    empty.DrawNineSlice(surface.GetHandle(), {0, 0, 2, 1}, 1, 0);
    empty.DrawGrayscale(surface.GetHandle());
    empty.DrawAlpha(surface.GetHandle(), 255);
    EXPECT_EQ(surface.Read(), Art{"  "});
}

void ExpectRegionIsOpaquePart(const CSkinBitmap& picture, const Art& art) {
    const CRgn region(picture.CreateRegion(magenta, tolerance));
    ASSERT_FALSE(region.IsEmpty());
    const auto width = static_cast<int>(art[0].size());
    const auto height = static_cast<int>(art.size());
    for (int y = -1; y <= height; ++y) {
        for (int x = -1; x <= width; ++x) {
            const bool inside = x >= 0 && y >= 0 && x < width && y < height;
            const bool opaque = inside && art[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] != '.';
            ASSERT_EQ(::PtInRegion(region.GetHandle(), x, y) != FALSE, opaque) << x << ' ' << y;
        }
    }
}

TEST(SkinBitmap, TheRegionIsWhatIsNotTransparent) {
    Art speckled(41, std::string(203, '#'));
    unsigned state = 1;
    for (std::string& row : speckled) {
        for (char& pixel : row) {
            state = state * 1'103'515'245 + 12'345;
            if ((state >> 16) % 2 == 0) pixel = '.';
        }
    }
    const auto runs = [](std::size_t count) {
        Art art;
        for (; count > 0; count -= std::min<std::size_t>(count, 50)) {
            std::string row(100, '.');
            for (std::size_t i = 0; i < std::min<std::size_t>(count, 50); ++i) row[2 * i] = '#';
            art.push_back(row);
        }
        return art;
    };
    for (const Art& art : {Art{"..##..", ".####.", "######"}, Art{"#"}, Art{"."}, Art{"..", ".."}, speckled, runs(1999),
                           runs(2000), runs(2001), runs(4000)}) {
        ExpectRegionIsOpaquePart(MakePicture(art), art);
    }
    // Rows in memory from the top one down.
    const BITMAPINFO format = TopDownFormat(4, 2);
    void* bits = nullptr;
    CSkinBitmap topDown;
    topDown.Attach(::CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    std::fill_n(static_cast<COLORREF*>(bits), 6, magenta);
    ExpectRegionIsOpaquePart(topDown, {"....", "..##"});
    EXPECT_EQ(CSkinBitmap().CreateRegion(magenta, tolerance), nullptr);
}

TEST(SkinBitmap, RegionsGrowRectangleByRectangle) {
    const CSkinBitmap picture = MakePicture({"#....#", "#....#"});
    const CRgn region(picture.CreateRegion(magenta, tolerance));
    const CRgn grown(CSkinBitmap::InflateRegion(region.GetHandle(), 1, 2));
    const CRgn expected(::CreateRectRgn(-1, -2, 2, 4));
    const CRgn right(::CreateRectRgn(4, -2, 7, 4));
    ::CombineRgn(expected.GetHandle(), expected.GetHandle(), right.GetHandle(), RGN_OR);
    EXPECT_TRUE(::EqualRgn(grown.GetHandle(), expected.GetHandle()));
    EXPECT_EQ(CSkinBitmap::InflateRegion(nullptr, 1, 1), nullptr);
}

TEST(SkinBitmap, EffectsChangeColorsAsTold) {
    const CSkinBitmap picture = MakePicture({"Ab"});
    {
        CSurface surface(3, 1);
        picture.DrawGrayscale(surface.GetHandle());
        // 'A': red 65, green 125, blue 195; 'b': 98, 59, 38.
        EXPECT_EQ(surface.Pixel(0, 0), RGB(114, 114, 114));
        EXPECT_EQ(surface.Pixel(1, 0), RGB(68, 68, 68));
        EXPECT_EQ(surface.Pixel(2, 0), ColorOf(' '));
    }
    {
        CSurface surface(3, 1);
        picture.DrawAlpha(surface.GetHandle(), 255);
        EXPECT_EQ(surface.Read(), Art{"Ab "});
        surface.FillSolidRect({0, 0, 3, 1}, RGB(0, 0, 0));
        picture.DrawAlpha(surface.GetHandle(), 128);
        EXPECT_NEAR(GetRValue(surface.Pixel(0, 0)), 65 / 2, 1);
        EXPECT_NEAR(GetBValue(surface.Pixel(0, 0)), 195 / 2, 1);
    }
    {
        // A white ground with one black pixel at (1, 1).
        const CBitmap drawn(::CreateBitmap(3, 3, 1, 1, std::array<WORD, 3>{0x00E0, 0x00A0, 0x00E0}.data()));
        CSurface surface(5, 5);
        CSkinBitmap::DrawEmbossed(surface.GetHandle(), 1, 1, 3, 3, drawn.GetHandle(), 0, 0);
        EXPECT_EQ(surface.Pixel(1, 1), ::GetSysColor(COLOR_BTNFACE));
        EXPECT_EQ(surface.Pixel(2, 2), ::GetSysColor(COLOR_BTNSHADOW));
        EXPECT_EQ(surface.Pixel(3, 3), ::GetSysColor(COLOR_BTNHIGHLIGHT));
        EXPECT_EQ(surface.Pixel(0, 0), ColorOf(' '));
    }
}

// 8 bits a pixel, one pixel of each colour but the rarest, which has none.
TEST(SkinBitmap, AReducedPaletteKeepsWhatIsUsed) {
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256];
    } info{};
    info.header = {sizeof info.header, 240, 1, 1, 8, BI_RGB, 0, 0, 0, 240, 0};
    for (int i = 0; i < 256; ++i) info.colors[i].rgbRed = static_cast<BYTE>(i);
    void* bits = nullptr;
    CSkinBitmap picture;
    const CClientDC screen(nullptr);
    picture.Attach(::CreateDIBSection(screen.GetHandle(), reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits,
                                      nullptr, 0));
    for (int x = 0; x < 240; ++x) static_cast<BYTE*>(bits)[x] = static_cast<BYTE>(x < 236 ? x : 0);
    const CGdiObject palette(picture.CreateReducedPalette(screen.GetHandle()));
    ASSERT_FALSE(palette.IsEmpty());
    PALETTEENTRY entries[256]{};
    EXPECT_EQ(::GetPaletteEntries(static_cast<HPALETTE>(palette.GetHandle()), 0, 256, entries), 236U);
    EXPECT_EQ(entries[0].peRed, 0);
    EXPECT_EQ(entries[235].peRed, 235);
    EXPECT_EQ(entries[235].peFlags, PC_RESERVED);
    EXPECT_EQ(MakePicture({"ab"}).CreateReducedPalette(screen.GetHandle()), nullptr);
}

} // namespace
