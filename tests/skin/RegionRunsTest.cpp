// Opaque runs: which pixels are transparent, in which order runs come, and in which batches.
#include "skin/RegionRuns.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t magenta = 0xFF00FF, tolerance = 0x101010;

TEST(TransparentRange, ReachesFromTheColorUpward) {
    struct Case {
        std::uint8_t red, green, blue;
        bool transparent;
    };
    const Case cases[] = {{255, 0, 255, true},  {255, 16, 255, true}, {255, 17, 255, false},
                          {254, 0, 255, false}, {255, 0, 254, false}, {254, 16, 254, false},
                          {0, 0, 0, false},     {0, 255, 0, false},   {255, 255, 255, false}};
    const TransparentRange range = TransparentRange::From(magenta, tolerance);
    for (const Case& each : cases) {
        const std::uint8_t pixel[] = {each.blue, each.green, each.red, 0};
        EXPECT_EQ(range.Contains(pixel), each.transparent)
            << int{each.red} << ' ' << int{each.green} << ' ' << int{each.blue};
    }
    // The pixel's bytes from the blue one on meet the colour's from the lowest one, red, on.
    const TransparentRange lowest = TransparentRange::From(0x000080, 0);
    const std::uint8_t blue[] = {0x80, 0, 0, 0}, red[] = {0, 0, 0x80, 0};
    EXPECT_TRUE(lowest.Contains(blue));
    EXPECT_FALSE(lowest.Contains(red));
}

// Pixels from characters, the top row first; '.' is transparent. Memory beyond a row is opaque, to show itself.
class CPixels {
public:
    explicit CPixels(const std::vector<std::string>& art) {
        rows.width = static_cast<int>(art[0].size());
        rows.height = static_cast<int>(art.size());
        rows.stride = art[0].size() * 4 + 8;
        bytes.assign(rows.stride * art.size(), 0x20);
        for (std::size_t y = 0; y < art.size(); ++y) {
            for (std::size_t x = 0; x < art[0].size(); ++x) {
                std::uint8_t* pixel = &bytes[(art.size() - 1 - y) * rows.stride + x * 4];
                if (art[y][x] == '.') pixel[0] = 255, pixel[1] = 16, pixel[2] = 255;
            }
        }
        rows.bytes = bytes;
    }

    using Batch = std::vector<Box>;
    std::vector<Batch> Batches() const {
        std::vector<Batch> batches;
        ForEachRunBatch(rows, TransparentRange::From(magenta, tolerance),
                        [&](const Batch& runs) { batches.push_back(runs); });
        return batches;
    }

    Batch Outline() const { return OutlineRuns(rows, TransparentRange::From(magenta, tolerance)); }

private:
    std::vector<std::uint8_t> bytes;
    PixelRows rows{};
};

TEST(RunBatches, RunsComeFromTheTopRowDownAndFromLeftToRight) {
    const CPixels pixels({"##..#", //
                          ".....", //
                          "#####", //
                          "..#.."});
    const CPixels::Batch expected{{0, 0, 2, 1}, {4, 0, 1, 1}, {0, 2, 5, 1}, {2, 3, 1, 1}};
    EXPECT_EQ(pixels.Batches(), std::vector<CPixels::Batch>{expected});
    EXPECT_EQ(CPixels({"...", "..."}).Batches(), std::vector<CPixels::Batch>{{}});
}

TEST(Outline, EqualRowsAreOneAndVeryManyPiecesLoseTheirGaps) {
    const std::vector<std::string> ring{".##.", "#..#", "#..#", ".##."};
    EXPECT_EQ(CPixels(ring).Outline(), (CPixels::Batch{{1, 0, 2, 1}, {0, 1, 1, 2}, {3, 1, 1, 2}, {1, 3, 2, 1}}));
    std::string most, more = "#.";
    for (std::size_t i = 0; i < mostOutlineBoxes; ++i) most += "#.", more += "#.";
    const int width = static_cast<int>(more.size()) - 1;
    EXPECT_EQ(CPixels({most, most}).Outline().size(), mostOutlineBoxes);
    EXPECT_EQ(CPixels({more, more, std::string(more.size(), '.')}).Outline(), (CPixels::Batch{{0, 0, width, 2}}));
}

} // namespace
