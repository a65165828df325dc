// Slots of a selector; a strip's rectangles in an archive.
#include "skin/StripLayout.h"

#include <array>
#include <limits>

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

// Left, top, right and bottom of each, whatever they are, behind a count of 16 or of 16 and 32 bits.
TEST(StripLayout, StoredRectanglesComeBackAndWhatIsCutOffIsRefused) {
    const auto bytes = [](std::initializer_list<int> values) {
        std::vector<std::byte> all;
        for (const int value : values) all.push_back(static_cast<std::byte>(value));
        return all;
    };
    CArchive one;
    StoreBoxes(one, std::array{Box{30, 2, 24, 0x1234}});
    EXPECT_EQ(one.GetStored(), bytes({1, 0, 30, 0, 0, 0, 2, 0, 0, 0, 54, 0, 0, 0, 0x36, 0x12, 0, 0}));
    for (const std::size_t count : {0, 2, 0xFFFE, 0xFFFF, 0x10000}) {
        const std::vector<Box> boxes(count, Box{std::numeric_limits<int>::min(), -2, -3, 7});
        CArchive storing;
        StoreBoxes(storing, boxes);
        const std::span all(storing.GetStored());
        ASSERT_EQ(all.size(), (count < 0xFFFF ? 2 : 6) + 16 * count);
        CArchive whole(all), cut(all.first(all.size() - 1));
        EXPECT_EQ(LoadBoxes(whole), boxes) << count;
        EXPECT_EQ(LoadBoxes(cut), std::nullopt) << count;
        EXPECT_EQ(cut.GetRest(), all.size() - 1) << "nothing is taken";
    }
    const auto endless = bytes({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
    CArchive hostile(endless);
    EXPECT_EQ(LoadBoxes(hostile), std::nullopt);
}

} // namespace
