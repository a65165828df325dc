// Colour arithmetic: grey values, and which colours a reduced palette keeps.
#include "skin/ColorMath.h"

#include <gtest/gtest.h>

namespace {

TEST(ColorMath, GreyIsWeightedAndTruncated) {
    EXPECT_EQ(GrayOf(255, 255, 255), 255);
    EXPECT_EQ(GrayOf(255, 0, 0), 76); // 76.5
    EXPECT_EQ(GrayOf(0, 255, 0), 150);
    EXPECT_EQ(GrayOf(0, 0, 255), 28);
    EXPECT_EQ(GrayOf555(0x7FFF), 0x7FFF);
    EXPECT_EQ(GrayOf555(31 << 5), 18 << 10 | 18 << 5 | 18); // green alone: 18.29
    EXPECT_EQ(GrayOf555(0x8000 | 31 << 10), 9 << 10 | 9 << 5 | 9);
}

TEST(ColorMath, RareColorsGiveWayInAReducedPalette) {
    EXPECT_EQ(KeptColors(std::vector<std::uint32_t>(reducedPaletteSize, 0)).size(), reducedPaletteSize);

    // Two too many: 0 and 1 are dropped at first. 10 takes the place of 1, 20 that of 0; 30 then that of 10, as the
    // first listed that is used more.
    std::vector<std::uint32_t> uses(reducedPaletteSize + 2, 100);
    uses[0] = 5;
    uses[1] = 7;
    uses[10] = 6;
    uses[20] = 1;
    uses[30] = 3;
    const std::vector<std::size_t> kept = KeptColors(uses);
    std::vector<std::size_t> expected;
    for (std::size_t i = 0; i < uses.size(); ++i) {
        if (i != 20 && i != 30) expected.push_back(i);
    }
    EXPECT_EQ(kept, expected);
}

} // namespace
