// Kinds of picture files by their path, and which bitmap files are handed to the platform.
#include "skin/PictureFile.h"

#include <gtest/gtest.h>

#include "PictureFiles.h"

namespace {

TEST(PictureKindOfPath, IsTheFirstMarkAnywhereButAtTheStart) {
    const std::pair<const char*, PictureKind> cases[] = {{"a.bmp", PictureKind::Bitmap},
                                                         {"Themes\\X.BMP", PictureKind::Bitmap},
                                                         {"old.bmp\\x.jpg", PictureKind::Bitmap},
                                                         {"x.bmp.gif", PictureKind::Bitmap},
                                                         {"x.gif.BmP", PictureKind::Bitmap},
                                                         {".bmp", PictureKind::Unknown},
                                                         {"..bmp", PictureKind::Bitmap},
                                                         {"a.ico", PictureKind::Icon},
                                                         {"a.jpeg", PictureKind::Jpeg},
                                                         {"a.JPG", PictureKind::Jpeg},
                                                         {"a.Gif", PictureKind::Gif},
                                                         {"a.png", PictureKind::Unknown},
                                                         {"bmp", PictureKind::Unknown},
                                                         {"", PictureKind::Unknown}};
    for (const auto& [path, kind] : cases) EXPECT_EQ(KindOfPath(path), kind) << path;
}

bool IsPlausible(const FileBytes& file) {
    return IsPlausibleBitmap({file.data(), std::min<std::size_t>(file.size(), 54)}, file.size());
}

TEST(PlausibleBitmap, NeedsAllThatItsHeadersPromise) {
    for (const FileBytes& file : {MakeBitmapFile(24, 5, 5), MakeBitmapFile(8, 5, 5), MakeBitmapFile(1, 40, 2),
                                  MakeCoreBitmapFile(4, 4), MakeRunLengthFile(5, 4)}) {
        for (std::size_t length = 0; length < file.size(); ++length) {
            EXPECT_FALSE(IsPlausible({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)})) << length;
        }
    }
}

TEST(PlausibleBitmap, BadHeadersAreRefused) {
    struct Case {
        const char* what;
        std::size_t offset, size;
        std::uint64_t value;
    };
    const Case cases[] = {{"signature", 0, 2, 0x4D43},
                          {"pixels inside the file header", 10, 4, 5},
                          {"pixels inside the info header", 10, 4, 50},
                          {"pixels beyond the end", 10, 4, 0xFFFFFFFF},
                          {"header size", 14, 4, 39},
                          {"huge header size", 14, 4, 0xFFFFFFF0},
                          {"no width", 18, 4, 0},
                          {"negative width", 18, 4, 0xFFFFFFFE},
                          {"no height", 22, 4, 0},
                          {"lowest height", 22, 4, 0x80000000},
                          {"huge height", 22, 4, 0x7FFFFFFF},
                          {"huge both", 18, 8, 0x7FFFFFFF7FFFFFFF},
                          {"depth 0", 28, 2, 0},
                          {"depth 2", 28, 2, 2},
                          {"depth 48", 28, 2, 48},
                          {"run lengths of another depth", 30, 4, 2},
                          {"bit fields in a palette", 30, 4, 3},
                          {"JPEG inside", 30, 4, 4},
                          {"palette beyond the end", 46, 4, 255}};
    for (const Case& each : cases) {
        FileBytes file = MakeBitmapFile(8, 5, 5);
        file.erase(file.begin() + 54 + 16 * 4, file.begin() + 54 + 256 * 4); // 16 colours
        Write(file, 10, 4, 54 + 16 * 4);
        Write(file, 46, 4, 16);
        ASSERT_TRUE(IsPlausible(file));
        Write(file, each.offset, each.size, each.value);
        EXPECT_FALSE(IsPlausible(file)) << each.what;
    }
    for (const std::uint64_t codedSize : {0, 1'000'000}) {
        FileBytes file = MakeRunLengthFile(5, 4);
        Write(file, 34, 4, codedSize);
        EXPECT_FALSE(IsPlausible(file)) << codedSize;
    }
    FileBytes coded = MakeRunLengthFile(5, 4);
    Write(coded, 22, 4, mostCodedPixels / 5 + 1);
    EXPECT_FALSE(IsPlausible(coded));
}

TEST(PlainLayout, RefersToNothingOutsideOfTheFile) {
    for (const FileBytes& whole : {MakeBitmapFile(1, 9, 5), MakeBitmapFile(8, 5, -5), MakeBitmapFile(24, 5, 5)}) {
        for (int change = 0; change < 54 * 256; ++change) {
            FileBytes file = whole;
            file[static_cast<std::size_t>(change / 256)] = static_cast<std::uint8_t>(change);
            const std::span<const std::uint8_t> header(file.data(), std::min(file.size(), largestPlainHeader));
            const PlainLayout layout = PlainLayoutOf(header, file.size());
            if (layout.width == 0) continue;
            for (const std::int64_t row : {std::int64_t{0}, layout.height - 1})
                ASSERT_LE(layout.OffsetOfRow(row) + layout.stride, file.size()) << change;
            ASSERT_LE(layout.colors + layout.colorsSize, header.size()) << change;
        }
    }
}

TEST(PlausibleIcon, NeedsEveryImageWhole) {
    const FileBytes icon = MakeIconFile();
    EXPECT_TRUE(IsPlausibleIcon(icon));
    for (std::size_t length = 0; length < icon.size(); ++length) {
        EXPECT_FALSE(IsPlausibleIcon({icon.data(), length})) << length;
    }
    struct Case {
        const char* what;
        std::size_t offset, size;
        std::uint64_t value;
    };
    const Case cases[] = {{"cursor", 2, 2, 2},
                          {"no image", 4, 2, 0},
                          {"more images", 4, 2, 0xFFFF},
                          {"short image", 14, 4, 100},
                          {"long image", 14, 4, 0xFFFFFFFF},
                          {"offset", 18, 4, 0xFFFFFFFF},
                          {"header size", 22, 4, 41},
                          {"width", 26, 4, 17},
                          {"height", 30, 4, 0x7FFFFFFF},
                          {"negative height", 30, 4, 0xFFFFFFE0},
                          {"depth", 36, 2, 5},
                          {"compression", 38, 4, 1},
                          {"colours", 54, 4, 256}};
    for (const Case& each : cases) {
        FileBytes file = icon;
        Write(file, each.offset, each.size, each.value);
        EXPECT_FALSE(IsPlausibleIcon(file)) << each.what;
    }
}

} // namespace
