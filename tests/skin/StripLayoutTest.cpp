// Slots of a selector.
#include "skin/StripLayout.h"

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

} // namespace
