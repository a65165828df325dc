// Kinds of picture files by their path, and which files are handed to the platform.
#include "pictures/PictureFile.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "pictures/PictureFiles.h"

namespace {

TEST(PictureKindOfPath, IsTheFirstMarkAnywhereButAtTheStart) {
    const std::map<PictureKind, std::vector<const char*>> kinds{
        {PictureKind::Bitmap, {"Themes\\X.BMP", "old.bmp\\x.jpg", "x.bmp.gif", "x.gif.BmP", "..bmp"}},
        {PictureKind::Icon, {"a.ico"}},
        {PictureKind::Jpeg, {"a.jpeg", "a.JPG"}},
        {PictureKind::Gif, {"a.Gif", "a.zip.gif"}},
        {PictureKind::Unknown, {".bmp", "a.png", "bmp", "", "z.{ico}"}}};
    for (const auto& [kind, paths] : kinds)
        for (const char* const path : paths) EXPECT_EQ(KindOfPath(path), kind) << path;
}

// The file's beginning in memory of its own, so that reading beyond it is seen.
FileBytes HeaderOf(const FileBytes& file, std::size_t most = 54) {
    return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(std::min(file.size(), most))};
}

bool IsPlausible(const FileBytes& file) {
    return file[0] == 0 ? IsPlausibleIcon(file) : IsPlausibleBitmap(HeaderOf(file), file.size());
}

// Both palette and pixels go to the file's end.
FileBytes CoreFile() {
    FileBytes file = BytesOf("42 4d 00 00 00 00 00 00 00 00 1a 00 00 00 0c 00 00 00 04 00 0c 00 01 00 04 00");
    file.resize(74);
    return file;
}

FileBytes With(FileBytes file, std::uint64_t offset, std::uint64_t size, std::uint64_t value) {
    Write(file, static_cast<std::size_t>(offset), static_cast<std::size_t>(size), value);
    return file;
}

TEST(PlausiblePicture, HasAllThatItsHeadersPromiseAndEveryLimitIsExact) {
    const FileBytes plain = MakeBitmapFile(8, 5, 5, 16), fields = MakeBitmapFile(16, 5, 5, 0, true);
    FileBytes roomy = plain, longFields = With(fields, 14, 4, 56), hardlyPng = MakePngFile(), large = MakeIconImage();
    roomy.resize(500);
    longFields.resize(126 + 4);
    hardlyPng.resize(40);
    large.resize(40 + 8 + 4096 * 1032); // one bit a pixel, and a mask
    Write(large, 4, 4, 4096);
    Write(large, 14, 2, 1);
    const FileBytes coded8 = With(With(plain, 30, 4, 1), 34, 4, 40);
    const FileBytes files[] = {plain, fields, CoreFile(), coded8, With(With(coded8, 28, 2, 4), 30, 4, 2), // to 4
                               MakeIconFile(), MakeIconFile({hardlyPng}),
                               MakeIconFile({MakePngFile(), MakeIconImage()}),
                               // From 8: neither whole nor cut
                               roomy, longFields, MakeBitmapFile(32, 5, 5, 0, true), MakeBitmapFile(1, 4096, 4096),
                               With(MakeBitmapFile(8, 5, 5), 46, 4, 0xFFFFFFFF), MakeIconFile({large})};
    for (std::size_t i = 0; i < 8; ++i)
        for (std::size_t length = 1; length <= files[i].size(); ++length)
            EXPECT_EQ(IsPlausible(HeaderOf(files[i], length)), length == files[i].size()) << i << ' ' << length;
    // File, offset and size of a number, and two neighbours for it, of which the first goes just so.
    std::istringstream edges(
        // Marks; start of the pixels; size of the header
        "0 0 1 66 67    0 1 1 77 78    0 10 4 118 119  0 10 4 118 0xFFFFFFFF  0 10 4 54 53  1 10 4 66 65 "
        "9 10 4 70 69   2 10 4 26 25   2 10 4 26 27    0 14 4 40 0xFFFFFFF0   0 14 4 40 39  0 14 4 80 81 "
        // Width and height
        "0 18 4 8 9     0 18 4 1 0     0 22 4 5 6      0 18 4 1 0xFFFFFFFF    0 22 4 1 0    11 22 4 4096 4097 "
        "2 18 2 8 9     2 20 2 12 13   0 22 4 5 0x80000000                    0 22 4 0xFFFFFFFB 0xFFFFFFFA "
        "3 18 8 0x80000000800 0x80100000800            0 18 8 0x500000005 0x7FFFFFFF7FFFFFFF "
        // Depth; compression and its size; colours
        "0 28 2 4 2     0 28 2 1 0     8 28 2 24 48    8 28 2 32 64           8 28 2 16 15  10 28 2 32 24 "
        "3 30 4 1 2     4 30 4 2 1     8 30 4 0 3      0 30 4 0 4             3 34 4 1 0    3 34 4 40 41 "
        "0 46 4 26 27   12 10 4 1078 1079 "
        // Icons: kind; number, size and start of images
        "5 0 2 0 1      5 2 2 1 2      5 4 2 1 0       5 4 2 1 0xFFFF         5 4 2 1 2     5 14 4 1128 1127 "
        "6 14 4 40 39   5 18 4 22 23   5 18 4 22 0xFFFFFFFF                   5 14 4 1128 0xFFFFFFFF "
        // An image's header
        "5 22 4 40 41   5 26 4 16 17   5 26 4 1 0      5 30 4 32 0xFFFFFFE0   5 30 4 33 34  5 30 4 2 1 "
        "5 36 2 24 5    5 38 4 0 1     5 54 4 0 1      13 30 4 8192 8194      7 45 1 10 11");
    std::uint64_t number = 0, offset = 0, size = 0, good = 0, bad = 0;
    while (edges >> std::setbase(0) >> number >> offset >> size >> good >> bad) {
        const FileBytes& file = files[static_cast<std::size_t>(number)];
        EXPECT_TRUE(IsPlausible(With(file, offset, size, good))) << number << ' ' << offset << ' ' << good;
        EXPECT_FALSE(IsPlausible(With(file, offset, size, bad))) << number << ' ' << offset << ' ' << bad;
    }
    EXPECT_TRUE(edges.eof());
}

TEST(PlainLayout, SaysWhereRowsAndColorsLie) {
    for (int i = 0; i < 8 * 2 * 2; ++i) {
        const int depth = std::array{1, 4, 8, 16, -16, 24, 32, -32}[static_cast<std::size_t>(i) / 4];
        const bool fields = depth < 0, topDown = i % 2 != 0; // negative: bit fields
        const std::size_t bits = static_cast<std::size_t>(std::abs(depth)), stride = (9 * bits + 31) / 32 * 4;
        const std::size_t more = i % 4 < 2 ? 0 : fields ? 72 : 84; // of the longest header, which has room for masks
        const std::size_t colorsSize = fields ? 12 : bits <= 8 ? 4U << bits : 0, pixels = 54 + colorsSize + more;
        FileBytes file = With(MakeBitmapFile(std::abs(depth), 9, 5, 0, fields), 10, 4, pixels);
        if (topDown) Write(file, 22, 4, 0xFFFFFFFB);
        if (more > 0) Write(file, 14, 4, 124);
        file.insert(file.begin() + (fields ? 66 : 54), more, 0);
        const PlainLayout found = PlainLayoutOf(HeaderOf(file, largestPlainHeader), file.size());
        EXPECT_TRUE(found.width == 9 && found.height == 5 && found.bitsPerPixel == std::abs(depth)) << i;
        EXPECT_EQ(found.stride, stride);
        EXPECT_EQ(found.OffsetOfRow(1), pixels + (topDown ? 1 : 3) * stride);
        EXPECT_EQ(found.colorsAreMasks, fields);
        EXPECT_EQ(found.colors, fields ? 54 : 54 + more);
        EXPECT_EQ(found.colorsSize, colorsSize);
        EXPECT_EQ(PlainLayoutOf(HeaderOf(file, found.colors + colorsSize - 1), file.size()).width, 0);
        file.insert(file.begin() + 54, 125, 0);
        EXPECT_EQ(PlainLayoutOf(HeaderOf(With(With(file, 14, 4, 125), 10, 4, pixels + 125), 2000), 9999).width, 0) << i;
    }
    const FileBytes many = MakeBitmapFile(4, 9, 5, 256), coded = With(MakeBitmapFile(8, 9, 5), 30, 4, 1);
    EXPECT_EQ(PlainLayoutOf(HeaderOf(many, largestPlainHeader), many.size()).colorsSize, 64U);
    for (const FileBytes& file : {coded, CoreFile()}) {
        EXPECT_TRUE(IsPlausible(file));
        EXPECT_EQ(PlainLayoutOf(HeaderOf(file, largestPlainHeader), file.size()).width, 0);
    }
}

} // namespace
