// Cells of a strip. What the cells of a nine-slice stretch make of a picture is seen in SkinBitmapTest.cpp.
#include "skin/NineSlice.h"

#include <gtest/gtest.h>

namespace {

TEST(FrameCell, BordersComeFromTheWholeWidthAndWidthsAreTruncated) {
    struct Case {
        int width, columns;
        std::vector<int> lefts;
        int frameWidth;
    };
    const Case cases[] = {{100, 4, {0, 25, 50, 75}, 25},
                          {101, 4, {0, 25, 50, 75}, 25},
                          {103, 4, {0, 25, 51, 77}, 25},
                          {7, 4, {0, 1, 3, 5}, 1},
                          {296, 4, {0, 74, 148, 222}, 74}};
    for (const Case& each : cases) {
        for (int column = 1; column <= each.columns; ++column) {
            const int left = each.lefts[static_cast<std::size_t>(column - 1)];
            // Rows are cut like columns.
            EXPECT_EQ(FrameCell(each.width, 9, column, 1, each.columns, 1), (Box{left, 0, each.frameWidth, 9}));
            EXPECT_EQ(FrameCell(9, each.width, 1, column, 1, each.columns), (Box{0, left, 9, each.frameWidth}));
        }
    }
    EXPECT_TRUE(FrameCell(3, 9, 4, 1, 4, 1).IsEmpty()); // fewer pixels than columns
    EXPECT_TRUE(FrameCell(0, 0, 1, 1, 4, 1).IsEmpty());
    EXPECT_TRUE(FrameCell(100, 9, 1, 1, 0, 1).IsEmpty());
}

TEST(NineSliceCells, NothingIsMirroredWhereTheTargetIsSmaller) {
    for (int width = 0; width <= 12; ++width) {
        for (int height = 0; height <= 12; ++height) {
            for (const auto& [cx, cy] : {std::pair(0, 0), {3, 2}, {3, 0}, {0, 2}, {9, 9}}) {
                for (const SliceCell& cell : NineSliceCells({0, 0, width, height}, {0, 0, 6, 5}, cx, cy)) {
                    EXPECT_FALSE(cell.target.IsEmpty() || cell.source.IsEmpty()) << width << 'x' << height;
                }
            }
        }
    }
}

} // namespace
