// Drawing, cutting and regions of a skin bitmap, whole areas against what is put together pixel by pixel.
#include "skin/SkinBitmap.h"

#include <functional>

#include <gtest/gtest.h>

#include "Pictures.h"
#include "SlowNineSlice.h"
#include "skin/ColorMath.h"
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
    for (int round = 0; round < 500; ++round) {
        const SlowSize size{Among(1, 7), Among(1, 7)}, corner{Among(0, 3), Among(0, 3)};
        const Art art = MakeArt(size.width, size.height, "abcdefgh.");
        const CSkinBitmap picture = MakePicture(art);
        const int kind = round % 5, times = Among(1, 3), x = Among(-2, 9), y = Among(-2, 9);
        int width = size.width * times, height = size.height * times;
        const int columns = Among(1, size.width), rows = Among(1, size.height);
        const int column = Among(1, columns), row = Among(1, rows);
        const Box cell = FrameCell(size.width, size.height, column, row, columns, rows);
        if (kind == 0) width = Among(1, size.width), height = Among(1, size.height);
        // What is stretched to no whole number of pixels each is the platform's affair, and so is a line outside.
        if (kind == 1 && corner.width > 0 && corner.width < size.width) width = Among(1, 18);
        if (kind == 1 && corner.height > 0 && corner.height < size.height) height = Among(1, 18);
        if (kind == 1 && (corner.width >= size.width || corner.height >= size.height))
            width = size.width, height = size.height;
        if (kind == 3) width = cell.width * times, height = cell.height * times;
        if (kind == 4) width = cell.width, height = cell.height;
        const CRect rect(x, y, x + width, y + height),
            source(cell.x, cell.y, cell.x + cell.width, cell.y + cell.height);
        CSurface surface(20, 18, '~');
        CSkinBitmap part;
        std::function<char(int, int)> shown = [&](int atX, int atY) { return At(art, atX, atY); };
        if (kind == 0) picture.Draw(surface.GetHandle(), rect);
        if (kind == 1) {
            picture.DrawNineSlice(surface.GetHandle(), rect, corner.width, corner.height);
            picture.BuildNineSlice(part, rect, corner.width, corner.height);
            shown = [&](int atX, int atY) {
                const auto [fromX, fromY] = SlowNineSlice(atX, atY, {width, height}, size, corner);
                return At(art, fromX, fromY);
            };
        }
        if (kind == 2) picture.DrawTransparent(surface.GetHandle(), rect, magenta);
        if (kind == 2) shown = [&](int atX, int atY) { return At(art, atX / times, atY / times); };
        if (kind == 3) picture.StretchDraw(surface.GetHandle(), rect, source);
        if (kind == 3) shown = [&](int atX, int atY) { return At(art, cell.x + atX / times, cell.y + atY / times); };
        if (kind == 4) picture.GetFrame(part, column, row, columns, rows), part.Draw(surface.GetHandle(), rect);
        if (kind == 4) shown = [&](int atX, int atY) { return At(art, cell.x + atX, cell.y + atY); };
        Art expected(18, std::string(20, '~')), whole;
        for (int atY = 0; atY < height; ++atY) {
            whole.emplace_back();
            for (int atX = 0; atX < width; ++atX) {
                whole.back() += shown(atX, atY);
                const bool seen = At(expected, x + atX, y + atY) == '~' && (kind != 2 || shown(atX, atY) != '.');
                if (seen)
                    expected[static_cast<std::size_t>(y + atY)][static_cast<std::size_t>(x + atX)] = shown(atX, atY);
            }
        }
        ASSERT_EQ(surface.Read(), expected) << kind << ", corner " << corner.width << ' ' << corner.height;
        if (!part.IsEmpty()) {
            ASSERT_EQ(ReadArt(part), whole) << kind;
        }
    }
}

TEST_F(CSkinBitmapTest, ACopyIsPrivateAndNothingIsDrawnOfNothing) {
    CSkinBitmap picture = MakePicture({"ab"}), frame;
    const HBITMAP first = picture.GetHandle();
    {
        const CBitmap given(MakeBitmap({"xyz"})), former(picture.CopyFrom(given.GetHandle()));
        EXPECT_EQ(former.GetHandle(), first);
    }
    EXPECT_EQ(ReadArt(picture), Art{"xyz"}); // the given one is gone
    for (const int columns : {4, 0}) {
        picture.GetFrame(frame, 1, 1, columns, 1);
        EXPECT_TRUE(frame.IsEmpty());
    }
    picture.BuildNineSlice(frame = MakePicture({"x"}), {0, 0, 0, 5}, 1, 1);
    EXPECT_TRUE(frame.IsEmpty());
    const CBitmap former(picture.CopyFrom(nullptr));
    CSurface surface(2, 1);
    picture.Draw(surface.GetHandle(), {0, 0, 2, 1});
    picture.DrawTransparent(surface.GetHandle(), {0, 0, 2, 1}, magenta);
    picture.StretchDraw(surface.GetHandle(), {0, 0, 2, 1}, {0, 0, 1, 1});
    picture.DrawNineSlice(surface.GetHandle(), {0, 0, 2, 1}, 1, 0);
    picture.DrawGrayscale(surface.GetHandle());
    picture.DrawAlpha(surface.GetHandle(), 255);
    EXPECT_EQ(surface.Read(), Art{"  "});
    EXPECT_EQ(picture.CreateRegion(magenta, tolerance), nullptr);
    EXPECT_EQ(picture.CreateOutline(magenta, tolerance), nullptr);
    EXPECT_EQ(CSkinBitmap::InflateRegion(nullptr, 1, 1), nullptr);
}

TEST_F(CSkinBitmapTest, RegionsAreWhatIsNotTransparent) {
    for (const auto& [width, height, grown] : {std::tuple(9, 7, 1), {1, 1, 2}, {20, 9, 0}, {203, 41, 0}, {99, 81, 0}}) {
        const Art art = MakeArt(width, height, width == 99 ? "#" : width == 1 ? "." : "##.");
        const CSkinBitmap picture = MakePicture(art);
        const CRgn region(picture.CreateRegion(magenta, tolerance));
        const CRgn outline(width < 30 || width == 99 ? picture.CreateOutline(magenta, tolerance)
                                                     : picture.CreateRegion(magenta, tolerance));
        const CRgn more(CSkinBitmap::InflateRegion(region.GetHandle(), grown, grown));
        for (const CRgn* each : {&region, &outline, &more}) {
            const int reach = each == &more ? grown : 0;
            for (int i = 0; i < (width + 4) * (height + 4); ++i) {
                const int x = i % (width + 4) - 2, y = i / (width + 4) - 2;
                bool opaque = false;
                for (int dx = -reach; dx <= reach; ++dx)
                    for (int dy = -reach; dy <= reach; ++dy) opaque = opaque || At(art, x + dx, y + dy) == '#';
                ASSERT_EQ(::PtInRegion(each->GetHandle(), x, y) != FALSE, opaque) << x << ' ' << y << ' ' << reach;
            }
        }
    }
}

TEST_F(CSkinBitmapTest, EffectsChangeEachColorAsTold) {
    const CClientDC screen(nullptr);
    for (const int depth : {1, 4, 8, 16, 24, 32}) {
        const FileBytes bytes = MakeBitmapFile(depth, 61, 40);
        const CPictureFile file("effects.bmp", bytes);
        CSkinBitmap picture;
        picture.Attach(static_cast<HBITMAP>(
            ::LoadImageA(nullptr, file.name.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
        CSurface gray(62, 41), mixed(62, 41);
        const int alpha = Among(0, 255);
        picture.DrawGrayscale(gray.GetHandle());
        picture.DrawAlpha(mixed.GetHandle(), static_cast<std::uint8_t>(alpha));
        std::vector<COLORREF> grays(62 * 41, ColorOf(' '));
        const auto pixels = mixed.Pixels();
        std::vector<std::uint32_t> uses(256);
        for (std::size_t i = 0; i < 61 * 40; ++i) {
            const std::size_t x = i % 61, y = i / 61;
            const std::uint32_t color = PlainPixel(bytes, x, y);
            const int parts[] = {static_cast<int>(color >> 16), static_cast<int>(color >> 8 & 255),
                                 static_cast<int>(color & 255)};
            int part = (30 * parts[0] + 59 * parts[1] + 11 * parts[2]) / 100;
            if (depth == 16) part = (30 * (parts[0] >> 3) + 59 * (parts[1] >> 3) + 11 * (parts[2] >> 3)) / 100;
            if (depth == 16) part = part << 3 | part >> 2;
            grays[y * 62 + x] = RGB(part, part, part);
            for (int channel = 0; channel < 3; ++channel) {
                const auto value = [&](COLORREF of) { return static_cast<int>(of >> (8 * channel) & 255); };
                const int blend = (parts[channel] * alpha + value(ColorOf(' ')) * (255 - alpha)) / 255;
                ASSERT_NEAR(value(pixels[y * 62 + x]), blend, 1) << depth;
            }
            if (depth == 8) ++uses[bytes[54 + 1024 + y * 64 + x]];
        }
        EXPECT_EQ(gray.Pixels(), grays) << depth;
        const CGdiObject palette(picture.CreateReducedPalette(screen.GetHandle()));
        ASSERT_EQ(palette.IsEmpty(), depth > 8);
        if (depth != 8) continue;
        PALETTEENTRY entries[256]{};
        ASSERT_EQ(::GetPaletteEntries(static_cast<HPALETTE>(palette.GetHandle()), 0, 256, entries), 236U);
        std::size_t at = 0;
        for (const std::size_t index : KeptColors(uses)) {
            const auto& entry = entries[at++];
            EXPECT_EQ(Number(bytes, 54 + 4 * index, 3), entry.peRed << 16 | entry.peGreen << 8 | entry.peBlue);
            EXPECT_EQ(entry.peFlags, PC_RESERVED);
        }
    }
}

TEST_F(CSkinBitmapTest, KeepsNoHandle) {
    const Art art = MakeArt(100, 50, "#.");
    ExpectNoGdiObjectLost(20, [&] {
        CSkinBitmap picture = MakePicture(art), part;
        CSurface surface(30, 30);
        picture.GetFrame(part, 1, 1, 2, 2);
        picture.DrawNineSlice(surface.GetHandle(), {0, 0, 150, 30}, 3, 0);
        picture.DrawNineSlice(surface.GetHandle(), {0, 0, 150, 60}, 3, 3);
        picture.DrawTransparent(surface.GetHandle(), {0, 0, 30, 30}, magenta);
        picture.StretchDraw(surface.GetHandle(), {0, 0, 30, 30}, {0, 0, 30, 30});
        picture.DrawGrayscale(surface.GetHandle());
        picture.DrawAlpha(surface.GetHandle(), 100);
        const CRgn region(picture.CreateRegion(magenta, tolerance)), outline(picture.CreateOutline(magenta, tolerance));
        const CRgn grown(CSkinBitmap::InflateRegion(outline.GetHandle(), 1, 1));
        const CBitmap former(picture.CopyFrom(part.GetHandle()));
        CSkinBitmap::DrawEmbossed(surface.GetHandle(), 1, 1, 9, 9, former.GetHandle(), 0, 0);
    });
}

} // namespace
