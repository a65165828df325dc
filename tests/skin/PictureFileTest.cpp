// Kinds of picture files by their path, and which files are handed to the platform.
#include "skin/PictureFile.h"

#include <gtest/gtest.h>

#include "PictureFiles.h"
#include "support/Seed.h"

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
                                                         {"", PictureKind::Unknown},
                                                         {"z.{ico}", PictureKind::Unknown},
                                                         {"a.zip.gif", PictureKind::Gif}};
    for (const auto& [path, kind] : cases) EXPECT_EQ(KindOfPath(path), kind) << path;
}

// The header alone, in memory of its own, so that reading beyond it is seen.
FileBytes HeaderOf(const FileBytes& file, std::size_t most = 54) {
    return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(std::min(file.size(), most))};
}

bool IsPlausible(const FileBytes& file) {
    return IsPlausibleBitmap(HeaderOf(file), file.size());
}

std::vector<FileBytes> GoodBitmaps() {
    std::vector<FileBytes> files;
    for (const int depth : {1, 4, 8, 16, 24, 32}) {
        files.push_back(MakeBitmapFile(depth, 9, 5));
        files.push_back(TopDown(files.back()));
    }
    files.insert(files.end(), {MakeBitmapFile(16, 5, 5, 0, true), MakeBitmapFile(32, 5, 5, 0, true),
                               RunLengths(MakeBitmapFile(4, 9, 5)), RunLengths(MakeBitmapFile(8, 9, 5)),
                               WithCoreHeader(MakeBitmapFile(24, 4, 4)), WithCoreHeader(MakeBitmapFile(8, 4, 4))});
    return files;
}

TEST(PlausibleBitmap, NeedsAllThatItsHeadersPromise) {
    for (const FileBytes& file : GoodBitmaps()) {
        EXPECT_TRUE(IsPlausible(file));
        for (std::size_t length = 0; length < file.size(); ++length)
            EXPECT_FALSE(IsPlausible({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)})) << length;
    }
}

struct Edge {
    const char* what;
    FileBytes file;
    std::size_t offset, size;
    std::uint64_t good, bad;    // neighbours, of which one goes just so
    std::uint64_t fileSize = 0; // if it is to be another one than the file has
};

TEST(PlausibleBitmap, EveryLimitIsExact) {
    const FileBytes file = MakeBitmapFile(8, 5, 5, 16); // 16 colours; the pixels, of 5 x 8 bytes, begin at 118
    const FileBytes fields = MakeBitmapFile(16, 5, 5, 0, true), coded = RunLengths(file);
    FileBytes longFields = fields, bits = MakeBitmapFile(1, 64, 1), coded4 = RunLengths(MakeBitmapFile(4, 9, 5));
    FileBytes core = WithCoreHeader(MakeBitmapFile(8, 4, 4)), noColors = MakeBitmapFile(8, 5, 5);
    Write(longFields, 14, 4, 56);
    Write(bits, 18, 4, 4096);
    Write(noColors, 46, 4, 0xFFFFFFFF); // as many as are read, then
    const Edge edges[] = {{"first mark", file, 0, 1, 'B', 'C'},
                          {"second mark", file, 1, 1, 'M', 'N'},
                          {"pixels to the end", file, 10, 4, 118, 119},
                          {"pixels beyond the end", file, 10, 4, 118, 0xFFFFFFFF},
                          {"pixels in the header", file, 10, 4, 54, 53},
                          {"pixels behind the masks", fields, 10, 4, 66, 65},
                          {"masks in a longer header", longFields, 10, 4, 70, 69, 200},
                          {"pixels in the core header", core, 10, 4, 26, 25},
                          {"header size", file, 14, 4, 40, 39},
                          {"header, then colours to the end", file, 14, 4, 80, 81},
                          {"huge header", file, 14, 4, 40, 0xFFFFFFF0},
                          {"width", file, 18, 4, 8, 9},
                          {"no width", file, 18, 4, 1, 0},
                          {"negative width", file, 18, 4, 1, 0xFFFFFFFF},
                          {"height", file, 22, 4, 5, 6},
                          {"no height", file, 22, 4, 1, 0},
                          {"rows from the top", file, 22, 4, 0xFFFFFFFB, 0xFFFFFFFA},
                          {"lowest height", file, 22, 4, 5, 0x80000000},
                          {"huge both", file, 18, 8, 0x0000000500000005, 0x7FFFFFFF7FFFFFFF},
                          {"all pixels", bits, 22, 4, 4096, 4097, 1ULL << 32},
                          {"all coded pixels", coded, 18, 8, 2048ULL << 32 | 2048, 2049ULL << 32 | 2048},
                          {"depth", file, 28, 2, 4, 2},
                          {"no depth", file, 28, 2, 1, 0},
                          {"deep", file, 28, 2, 24, 48, 500},
                          {"deeper", file, 28, 2, 32, 64, 500},
                          {"not so deep", file, 28, 2, 16, 15, 500},
                          {"run lengths of 8 bits", file, 30, 4, 1, 2},
                          {"run lengths of 4 bits", coded4, 30, 4, 2, 1},
                          {"bit fields in a palette", file, 30, 4, 0, 3, 500},
                          {"bit fields of 24 bits", fields, 28, 2, 32, 24, 500},
                          {"no known way", file, 30, 4, 0, 4},
                          {"no coded size", coded, 34, 4, 1, 0},
                          {"coded size", coded, 34, 4, 60, 61},
                          {"colours to the end", file, 46, 4, 26, 27},
                          {"all colours", noColors, 10, 4, 1078, 1079},
                          {"most colours that are read", file, 46, 4, 255, 0xFFFFFFFF, 1077}};
    for (const Edge& edge : edges) {
        FileBytes changed = edge.file;
        const std::uint64_t size = edge.fileSize != 0 ? edge.fileSize : changed.size();
        Write(changed, edge.offset, edge.size, edge.good);
        EXPECT_TRUE(IsPlausibleBitmap(HeaderOf(changed), size)) << edge.what;
        Write(changed, edge.offset, edge.size, edge.bad);
        EXPECT_FALSE(IsPlausibleBitmap(HeaderOf(changed), size)) << edge.what;
    }
}

TEST(PlainLayout, SaysWhereRowsAndColorsLie) {
    for (FileBytes file : GoodBitmaps()) {
        const std::size_t bits = Number(file, 28, 2), way = Number(file, 30, 4);
        const bool plain = Number(file, 14, 4) == 40 && (way == 0 || way == 3);
        const PlainLayout found = PlainLayoutOf(HeaderOf(file, largestPlainHeader), file.size());
        ASSERT_EQ(found.width != 0, plain) << bits;
        if (!plain) continue;
        const std::size_t offset = Number(file, 10, 4), height = 5;
        const bool topDown = Number(file, 22, 4) != height;
        EXPECT_EQ(found.width, static_cast<std::int64_t>(Number(file, 18, 4)));
        EXPECT_EQ(found.height, 5);
        EXPECT_EQ(found.bitsPerPixel, static_cast<std::int64_t>(bits));
        EXPECT_EQ(found.stride, (file.size() - offset) / height);
        EXPECT_EQ(found.OffsetOfRow(0), topDown ? offset : file.size() - found.stride);
        EXPECT_EQ(found.OffsetOfRow(3), topDown ? offset + 3 * found.stride : offset + found.stride);
        EXPECT_EQ(found.colorsAreMasks, way == 3);
        EXPECT_EQ(found.colors, 54U);
        EXPECT_EQ(found.colorsSize, offset - 54);
        // A longer header, up to the longest, and masks in it; colours beyond the depth's, and beyond what is there.
        Write(file, 14, 4, 124);
        file.insert(file.begin() + (way == 3 ? 66 : 54), way == 3 ? 72 : 84, std::uint8_t{0});
        Write(file, 10, 4, offset + (way == 3 ? 72 : 84));
        const auto longer = PlainLayoutOf(HeaderOf(file, largestPlainHeader), file.size());
        EXPECT_EQ(longer.colors, way == 3 ? 54U : 138U) << bits;
        EXPECT_EQ(longer.colorsSize, found.colorsSize);
        if (offset == 54 + (4U << bits) && bits <= 8) {
            EXPECT_EQ(PlainLayoutOf(HeaderOf(file, 138 + (4U << bits) - 1), file.size()).width, 0);
            Write(file, 46, 4, 256);
            file.resize(file.size() + 1024);
            EXPECT_EQ(PlainLayoutOf(HeaderOf(file, largestPlainHeader), file.size()).colorsSize, 4U << bits);
        }
        file.insert(file.begin() + 54, std::uint8_t{0});
        Write(file, 14, 4, 125);
        Write(file, 10, 4, Number(file, 10, 4) + 1);
        EXPECT_TRUE(IsPlausible(file));
        EXPECT_EQ(PlainLayoutOf(HeaderOf(file, 2000), file.size()).width, 0) << bits;
    }
}

TEST(PlausibleIcon, NeedsEveryImageWholeAndEveryLimitIsExact) {
    const FileBytes icon = MakeIconFile(), png = MakeIconFile({MakePngFile()});
    FileBytes shortPng = MakePngFile();
    shortPng.resize(40);
    for (const FileBytes& file : {icon, png, MakeIconFile({shortPng}), MakeIconFile({MakeIconImage(), shortPng})}) {
        EXPECT_TRUE(IsPlausibleIcon(file));
        for (std::size_t length = 0; length < file.size(); ++length)
            EXPECT_FALSE(IsPlausibleIcon(FileBytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length))));
    }
    FileBytes large = MakeIconFile();
    large.resize(22 + 40 + 8 + 4096 * 1032); // one bit a pixel, and a mask
    Write(large, 14, 4, large.size() - 22);
    Write(large, 26, 4, 4096);
    Write(large, 36, 2, 1);
    const Edge edges[] = {{"first word", icon, 0, 2, 0, 1},
                          {"cursor", icon, 2, 2, 1, 2},
                          {"no image", icon, 4, 2, 1, 0},
                          {"more images", icon, 4, 2, 1, 2},
                          {"very many", icon, 4, 2, 1, 0xFFFF},
                          {"short image", icon, 14, 4, 1128, 1127},
                          {"long image", icon, 14, 4, 1128, 1129},
                          {"huge image", icon, 14, 4, 1128, 0xFFFFFFFF},
                          {"hardly an image", MakeIconFile({shortPng}), 14, 4, 40, 39},
                          {"offset", icon, 18, 4, 22, 23},
                          {"huge offset", icon, 18, 4, 22, 0xFFFFFFFF},
                          {"header size", icon, 22, 4, 40, 41},
                          {"width", icon, 26, 4, 16, 17},
                          {"no width", icon, 26, 4, 1, 0},
                          {"height", icon, 30, 4, 33, 34},
                          {"no height", icon, 30, 4, 2, 1},
                          {"negative height", icon, 30, 4, 32, 0xFFFFFFE0},
                          {"all pixels", large, 30, 4, 8192, 8194},
                          {"depth", icon, 36, 2, 24, 5},
                          {"compression", icon, 38, 4, 0, 1},
                          {"colours", icon, 54, 4, 0, 1},
                          {"png mark", png, 29, 1, 0x0A, 0x0B}};
    for (const Edge& edge : edges) {
        FileBytes file = edge.file;
        Write(file, edge.offset, edge.size, edge.good);
        EXPECT_TRUE(IsPlausibleIcon(file)) << edge.what;
        Write(file, edge.offset, edge.size, edge.bad);
        EXPECT_FALSE(IsPlausibleIcon(file)) << edge.what;
    }
}

// Whatever the bytes: nothing beyond them is read, and what a layout refers to is there.
TEST(PictureFile, HostileBytesAreReadWithinTheirEnd) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const auto below = [&](std::size_t end) { return static_cast<unsigned>(random() % end); };
    std::vector<FileBytes> files = GoodBitmaps();
    files.insert(files.end(), {MakeIconFile(), MakeIconFile({MakePngFile(), MakeIconImage(8)})});
    for (int round = 0; round < 40'000; ++round) {
        FileBytes file = files[below(files.size())];
        const unsigned values[] = {0, 1, 255, 128, below(256)};
        for (unsigned i = below(6); i > 0; --i)
            file[below(std::min<std::size_t>(file.size(), 70))] = static_cast<std::uint8_t>(values[below(5)]);
        if (below(4) == 0) file.resize(below(file.size()));
        const FileBytes header = HeaderOf(file, below(4) == 0 ? below(200) : largestPlainHeader);
        const PlainLayout layout = PlainLayoutOf(header, file.size());
        IsPlausibleIcon(file);
        if (layout.width == 0) continue;
        for (const std::int64_t row : {std::int64_t{0}, layout.height - 1})
            ASSERT_LE(layout.OffsetOfRow(row) + layout.stride, file.size());
        ASSERT_LE(layout.colors + layout.colorsSize, header.size());
    }
}

} // namespace
