// Drawing, cutting and regions of skin bitmaps, whole areas against what is put together pixel by pixel.
#include "pictures/SkinBitmap.h"

#include <array>
#include <tuple>

#include <gtest/gtest.h>

#include "pictures/ColorMath.h"
#include "pictures/Pictures.h"
#include "pictures/SkinPicture.h"
#include "pictures/SlowNineSlice.h"
#include "support/Seed.h"

namespace {

constexpr COLORREF magenta = 0xFF00FF, tolerance = 0x101010;

class CSkinBitmapTest : public testing::Test {
protected:
    int Among(int from, int to) { return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1)); }
    Art MakeArt(int width, int height, const std::string& characters) {
        Art art(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), ' '));
        for (std::string& row : art)
            for (char& each : row) each = characters[random() % characters.size()];
        return art;
    }

    const unsigned seed = TestSeed();
    const testing::ScopedTrace trace{__FILE__, __LINE__, SeedText(seed)};
    std::mt19937 random{seed};
};

char At(const Art& art, int x, int y) {
    const bool inside = y >= 0 && y < static_cast<int>(art.size()) && x >= 0 && x < static_cast<int>(art[0].size());
    return inside ? art[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] : '?';
}

TEST_F(CSkinBitmapTest, DrawingsAreWhatEachPixelIsToldToShow) {
    ExpectNoGdiObjectLost(20, [&] {
        for (int kind = 0; kind < 25; ++kind) {
            const bool isStretch = kind % 5 == 0, isDraw = kind % 5 == 1, isTransparent = kind % 5 == 2,
                       isFrame = kind % 5 == 3, isSlices = kind % 5 == 4;
            const SlowSize size{Among(1, 7), Among(1, 7)}, corner{Among(0, 3), Among(0, 3)};
            const Art art = MakeArt(size.width, size.height, "abcdefgh.");
            const CSkinBitmap picture = MakePicture(art);
            const int times = isDraw || isFrame ? 1 : Among(1, 3), x = Among(-2, 9), y = Among(-2, 9);
            const int columns = isStretch || isFrame ? Among(1, size.width) : 1, column = Among(1, columns);
            const int rows = isStretch || isFrame ? Among(1, size.height) : 1, row = Among(1, rows);
            const CRect cell = FrameCell(size.width, size.height, column, row, columns, rows);
            int width = cell.Width() * times, height = cell.Height() * times;
            if (isDraw) width = Among(1, width), height = Among(1, height);
            // What is stretched to no whole number of pixels each is the platform's affair, and so is a line outside.
            if (isSlices && corner.width > 0 && corner.width < size.width) width = Among(1, 18);
            if (isSlices && corner.height > 0 && corner.height < size.height) height = Among(1, 18);
            if (isSlices && (corner.width >= size.width || corner.height >= size.height))
                width = size.width, height = size.height;
            const CRect rect = CRect::Sized(x, y, width, height);
            CSurface surface(20, 18, '~');
            CSkinBitmap part;
            if (isDraw) picture.Draw(surface.GetHandle(), rect);
            if (isTransparent) picture.DrawTransparent(surface.GetHandle(), rect, magenta);
            if (isStretch) picture.StretchDraw(surface.GetHandle(), rect, cell);
            if (isFrame) picture.GetFrame(part, column, row, columns, rows), part.Draw(surface.GetHandle(), rect);
            if (isSlices) picture.DrawNineSlice(surface.GetHandle(), rect, corner.width, corner.height);
            if (isSlices) picture.BuildNineSlice(part, rect, corner.width, corner.height);
            Art expected(18, std::string(20, '~')), whole(static_cast<std::size_t>(height));
            for (int i = 0; i < width * height; ++i) {
                const int atX = i % width, atY = i / width;
                const auto [fromX, fromY] = isSlices
                                                ? SlowNineSlice(atX, atY, {width, height}, size, corner)
                                                : std::pair<int, int>{cell.left + atX / times, cell.top + atY / times};
                const char shown = At(art, fromX, fromY);
                whole[static_cast<std::size_t>(atY)] += shown;
                if (At(expected, x + atX, y + atY) == '~' && (!isTransparent || shown != '.'))
                    expected[static_cast<std::size_t>(y + atY)][static_cast<std::size_t>(x + atX)] = shown;
            }
            ASSERT_EQ(surface.Read(), expected) << kind % 5 << ", corner " << corner.width << ' ' << corner.height;
            ASSERT_TRUE(part.IsEmpty() || ReadArt(part) == whole) << kind % 5;
        }
    });
}

TEST_F(CSkinBitmapTest, ACopyIsPrivateAndNothingIsDrawnOfNothing) {
    CSkinBitmap picture = MakePicture({"ab"}), frame = MakePicture({"x"});
    const HBITMAP first = picture.GetHandle();
    {
        const CBitmap given(MakeBitmap({"xyz"})), former(picture.CopyFrom(given.GetHandle()));
        EXPECT_EQ(former.GetHandle(), first);
    }
    EXPECT_EQ(ReadArt(picture), Art{"xyz"}); // the given one is gone
    picture.GetFrame(frame, 1, 1, 4, 1);
    CSurface surface(2, 1);
    frame.Draw(surface.GetHandle(), {0, 0, 2, 1});
    frame.DrawGrayscale(surface.GetHandle());
    EXPECT_EQ(surface.Read(), Art{"  "});
    EXPECT_EQ(frame.CreateRegion(magenta, tolerance), nullptr);
    EXPECT_EQ(CSkinBitmap::InflateRegion(nullptr, 1, 1), nullptr);
}

TEST_F(CSkinBitmapTest, RegionsAreWhatIsNotTransparent) {
    ExpectNoGdiObjectLost(20, [&] {
        for (const auto& [width, grown, characters] :
             {std::tuple(9, 1, "##."), {1, 2, "."}, {99, 0, "#"}, {203, 0, "##."}}) {
            const int height = 41;
            const Art art = MakeArt(width, height, characters);
            const CSkinBitmap picture = MakePicture(art);
            const CRgn region(picture.CreateRegion(magenta, tolerance));
            const CRgn outline(width < 200 ? picture.CreateOutline(magenta, tolerance)
                                           : CSkinBitmap::InflateRegion(region.GetHandle(), 0, 0));
            const CRgn more(CSkinBitmap::InflateRegion(region.GetHandle(), grown, grown));
            for (int i = 0; i < (width + 4) * (height + 4); ++i) {
                const int x = i % (width + 4) - 2, y = i / (width + 4) - 2;
                const auto within = [&](const CRgn& each) { return ::PtInRegion(each.GetHandle(), x, y) != FALSE; };
                bool isNear = false;
                for (int dx = -grown; dx <= grown; ++dx)
                    for (int dy = -grown; dy <= grown; ++dy) isNear = isNear || At(art, x + dx, y + dy) == '#';
                ASSERT_EQ(within(region), At(art, x, y) == '#') << x << ' ' << y;
                ASSERT_EQ(within(outline), At(art, x, y) == '#') << x << ' ' << y;
                ASSERT_EQ(within(more), isNear) << x << ' ' << y;
            }
        }
    });
}

TEST_F(CSkinBitmapTest, EffectsChangeEachColorAsTold) {
    constexpr std::size_t width = 61, height = 40;
    std::size_t round = 0;
    ExpectNoGdiObjectLost(20, [&] {
        const int depth = std::array{1, 4, 8, 16, 24, 32}[round++ % 6], alpha = Among(0, 255);
        const FileBytes bytes = MakeBitmapFile(depth, width, height);
        const CPictureFile file("effects.bmp", bytes);
        CSkinBitmap picture;
        picture.Attach(static_cast<HBITMAP>(
            ::LoadImageA(nullptr, file.name.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
        CSurface gray(width, height), mixed(width, height);
        picture.DrawGrayscale(gray.GetHandle());
        picture.DrawAlpha(mixed.GetHandle(), static_cast<std::uint8_t>(alpha));
        CSkinBitmap::DrawEmbossed(CSurface(9, 9).GetHandle(), 1, 1, 8, 8, picture.GetHandle(), 0, 0);
        const auto grays = gray.Pixels(), mixes = mixed.Pixels();
        std::vector<std::uint32_t> uses(256);
        for (std::size_t i = 0; i < width * height; ++i) {
            const std::uint32_t color = PlainPixel(bytes, i % width, i / width);
            const auto partOf = [](std::uint32_t of, int shift) { return static_cast<int>(of >> shift & 255); };
            const int lost = depth == 16 ? 3 : 0, parts[] = {partOf(color, 16), partOf(color, 8), partOf(color, 0)};
            int part = (30 * (parts[0] >> lost) + 59 * (parts[1] >> lost) + 11 * (parts[2] >> lost)) / 100;
            if (depth == 16) part = part << 3 | part >> 2;
            ASSERT_EQ(grays[i], RGB(part, part, part)) << depth;
            for (int channel = 0; channel < 3; ++channel) {
                const int blend = (parts[channel] * alpha + partOf(ColorOf(' '), 8 * channel) * (255 - alpha)) / 255;
                ASSERT_NEAR(partOf(mixes[i], 8 * channel), blend, 1) << depth;
            }
            if (depth == 8) ++uses[bytes[54 + 1024 + i / width * 64 + i % width]];
        }
        const CGdiObject palette(picture.CreateReducedPalette(CClientDC(nullptr).GetHandle()));
        ASSERT_EQ(palette.IsEmpty(), depth > 8);
        if (depth != 8) return;
        PALETTEENTRY entries[256]{};
        const auto kept = KeptColors(uses);
        ASSERT_EQ(::GetPaletteEntries(static_cast<HPALETTE>(palette.GetHandle()), 0, 256, entries), kept.size());
        for (std::size_t i = 0; i < kept.size(); ++i) {
            const auto& [red, green, blue, flags] = entries[i];
            EXPECT_EQ(Number(bytes, 54 + 4 * kept[i], 3) | PC_RESERVED << 24,
                      red << 16 | green << 8 | blue | flags << 24);
        }
    });
}

// What is read piece by piece of a file too large to be kept is what the platform's loader makes of it.
TEST(SkinPicture, PiecesOfALargeFileAreThoseOfTheWholePicture) {
    constexpr int width = 1002, height = 600;
    for (const int depth : {1, 4, 8, 16, -16, 24, 32, -32}) { // negative: bit fields
        const FileBytes bytes = MakeBitmapFile(std::abs(depth), width, height, 0, depth < 0);
        FileBytes rows = bytes;
        if (depth % 3 != 0) { // top row first
            const std::size_t pixels = Number(bytes, 10, 4), stride = (bytes.size() - pixels) / height;
            for (std::size_t to = pixels, from = bytes.size() - stride; to < bytes.size(); to += stride, from -= stride)
                std::copy_n(&bytes[from], stride, &rows[to]);
            Write(rows, 22, 4, static_cast<std::uint32_t>(-height));
        }
        CSkinBitmap whole, expected, made;
        CSkinPicture picture;
        {
            const CPictureFile file("whole.bmp", bytes), large("large.bmp", rows);
            ASSERT_TRUE(whole.LoadFromFile(file.name, 0) && picture.LoadFromFile(large.name)) << depth;
            for (const auto& [w, h, cx, cy] : {std::array{480, 347, 50, 40},
                                               {1100, 700, 50, 40},
                                               {480, height, 50, 0},
                                               {1100, 700, 0, 40},
                                               {2 * width, 2 * height, 0, 0}}) {
                whole.BuildNineSlice(expected, {0, 0, w, h}, cx, cy);
                picture.BuildNineSlice(made, {0, 0, w, h}, cx, cy);
                ASSERT_EQ(PixelsOf(made), PixelsOf(expected)) << depth << ' ' << w << 'x' << h;
            }
            expected.CreateBlank({0, 0, 4 * 74, 22});
            for (int i = 0; i < 4; ++i)
                whole.CopyCells(expected,
                                {{CRect::Sized(74 * i, 0, 74, 22), CRect::Sized(width * i / 4, 200, 74, 22)}});
            EXPECT_EQ(PixelsOf(picture.GetRow(2, 4, 3, {74, 22})), PixelsOf(expected)) << depth;
            CRect place(-500, -300, width - 500, height - 300);
            expected.CreateBlank({0, 0, 60, 20});
            whole.CopyCells(expected, {{{0, 0, 60, 20}, CRect::Sized(500, 300, 60, 20)}});
            EXPECT_EQ(PixelsOf(picture.CutTo({0, 0, 60, 20}, place)), PixelsOf(expected)) << depth;
        }
        const auto isDrawn = [&] { return !picture.GetRow(1, 1, 1, {4, 4}).IsEmpty(); };
        EXPECT_FALSE(isDrawn()) << "file gone";
        for (const bool isBack : {false, true}) {
            const CPictureFile file("large.bmp", isBack ? rows : MakeBitmapFile(24, 8, 8));
            EXPECT_EQ(isDrawn(), isBack) << "another file, and its own again";
        }
    }
}

} // namespace
