// Slots of a selector and places of a tool strip's buttons.
#include "skin/StripLayout.h"

#include <array>

#include <gtest/gtest.h>

namespace {

TEST(StripLayout, SlotsEndWithTheLimitWhateverThePicture) {
    struct Row {
        int y, pictureHeight;
        std::optional<int> slot;
    };
    const Row rows[] = {{0, 176, 0},    {43, 176, 0},  {44, 176, 1},  {175, 176, 3}, {176, 176, {}}, {175, 400, 1},
                        {176, 400, {}}, {175, 179, 3}, {-1, 176, {}}, {9, 0, {}},    {9, 3, {}}};
    for (const Row& row : rows)
        EXPECT_EQ(SlotAt(row.y, row.pictureHeight), row.slot) << row.y << " " << row.pictureHeight;
    EXPECT_EQ(SlotBox(3, 40, 44), (Box{0, 132, 40, 44}));
}

TEST(StripLayout, ButtonsStandWithoutGapsAndHaveRoomForTheirTexts) {
    EXPECT_EQ(FrameCount(90, 30), 3);
    EXPECT_EQ(FrameCount(89, 30), 2);
    EXPECT_EQ(FrameCount(90, 0), 0);
    const std::vector<Box> row = ButtonRow(3, 24, 20);
    EXPECT_EQ(row, (std::vector<Box>{{30, 2, 24, 20}, {54, 2, 24, 20}, {78, 2, 24, 20}}));
    EXPECT_EQ(WidenRow(row, std::array{5, 0, 2}, 7),
              (std::vector<Box>{{30, 2, 59, 20}, {89, 2, 24, 20}, {113, 2, 38, 20}}));
}

} // namespace
