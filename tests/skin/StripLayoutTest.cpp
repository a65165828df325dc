// Slots of a selector; a strip's rectangles in an archive.
#include "skin/StripLayout.h"

#include <algorithm>
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
    constexpr int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
    CArchive one;
    StoreBoxes(one, std::array{Box{30, 2, 24, 0x1234}});
    const std::array<unsigned char, 18> bytes{1, 0, 30, 0, 0, 0, 2, 0, 0, 0, 54, 0, 0, 0, 0x36, 0x12, 0, 0};
    EXPECT_TRUE(std::ranges::equal(one.GetStored(), std::as_bytes(std::span(bytes))));
    const struct {
        std::size_t count, stored;
    } rows[] = {{0, 2}, {2, 34}, {0xFFFE, 2 + 16 * 0xFFFE}, {0xFFFF, 6 + 16 * 0xFFFF}, {0x10000, 6 + 16 * 0x10000}};
    for (const auto& [count, stored] : rows) {
        std::vector<Box> boxes(count, Box{least, most, -1, 7});
        if (count > 0) boxes.back() = {-5, 6, 7, 8};
        CArchive storing;
        StoreBoxes(storing, boxes);
        storing.WriteDword(0xFEDCBA98);
        const std::span all(storing.GetStored());
        ASSERT_EQ(all.size(), stored + 4);
        CArchive loading(all);
        EXPECT_EQ(LoadBoxes(loading), boxes) << count;
        EXPECT_EQ(loading.ReadDword(), 0xFEDCBA98);
        for (const std::size_t length : {std::size_t{0}, std::size_t{1}, stored - 1}) {
            CArchive cut(all.first(length));
            EXPECT_EQ(LoadBoxes(cut), std::nullopt) << count << ' ' << length;
            EXPECT_EQ(cut.GetRest(), length) << "nothing is taken";
        }
    }
    const std::array<unsigned char, 6> endless{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    CArchive hostile(std::as_bytes(std::span(endless)));
    EXPECT_EQ(LoadBoxes(hostile), std::nullopt);
}

} // namespace
