// Templates and initialisation lists as bytes, cut and hostile ones included. Each input lies in a block of just its
// own size, so that a sanitizer sees a read beyond it.
#include "framework/DialogTemplate.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

namespace {

std::vector<std::byte> Bytes(std::initializer_list<int> values) {
    std::vector<std::byte> bytes;
    for (const int value : values) bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

std::vector<std::byte> Prefix(const std::vector<std::byte>& bytes, std::size_t size) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

TEST(HideDialogTemplate, ClearsOneBitOfTheStyleAndNothingElse) {
    const struct {
        const char* name;
        std::vector<std::byte> bytes;
        std::size_t styleEnd;
    } cases[] = {
        {"plain", Bytes({0xC0, 0, 0xC8, 0x90, 0xFF, 0xFF, 0xFF, 0xFF, 3, 0}), 4},
        {"extended", Bytes({1, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xC8, 0, 0xC8, 0x94, 5}),
         16},
    };
    for (const auto& each : cases) {
        for (std::size_t size = 0; size <= each.bytes.size(); ++size) {
            SCOPED_TRACE(each.name + std::string(" cut to ") + std::to_string(size));
            std::vector<std::byte> cut = Prefix(each.bytes, size);
            std::vector<std::byte> expected = cut;
            if (size >= each.styleEnd) expected[each.styleEnd - 1] &= std::byte{0xEF};
            EXPECT_EQ(HideDialogTemplate(cut), size >= each.styleEnd);
            EXPECT_EQ(cut, expected);
        }
    }
}

// Both forms of a dialog at 1, -2 of 240 by 173 units, in "System" 10, with a caption, a control of a named class with
// data and one of a class by number. The items begin at multiples of four bytes.
TEST(ReadDialogLayout, BothFormsAndEveryCut) {
    const auto words = [](std::initializer_list<int> values) {
        std::vector<std::byte> bytes;
        for (const int value : values) {
            bytes.push_back(static_cast<std::byte>(value & 0xFF));
            bytes.push_back(static_cast<std::byte>((value >> 8) & 0xFF));
        }
        return bytes;
    };
    const struct {
        const char* name;
        std::vector<std::byte> bytes;
        DialogFont font;
    } rows[] = {
        {"plain",
         words({0x40, 0x80C8, 0, 0, 2, 1, -2, 240, 173, 0,      0,    'Q', 0, 10, 'S', 'y', 's', 't', 'e', 'm', 0, 0, //
                0,    0,      0, 0, 4, 5, 6,  7,   100, 'A',    0,    0,   6, 1,  2,   0,                             //
                0,    0,      0, 0, 8, 9, 10, 11,  101, 0xFFFF, 0x80, 'x', 0, 0}),
         {10, 0, false, 1, u"System"}},
        {"extended",
         words({1,   0xFFFF, 0,   0,   0,   0,   0x48, 0x80C8, 2,  1,  -2,  240, 173,    0,    0,   'Q', 0, 10,
                700, 0x8601, 'S', 'y', 's', 't', 'e',  'm',    0,  0,                                          //
                0,   0,      0,   0,   0,   0,   4,    5,      6,  7,  100, 0,   'A',    0,    0,   4,   1, 2, //
                0,   0,      0,   0,   0,   0,   8,    9,      10, 11, 101, 0,   0xFFFF, 0x80, 'x', 0,   0}),
         {10, 700, true, 134, u"System"}}};
    for (const auto& row : rows) {
        const auto layout = ReadDialogLayout(row.bytes);
        ASSERT_TRUE(layout) << row.name;
        EXPECT_EQ(layout->place, (DialogPlace{1, -2, 240, 173})) << row.name;
        EXPECT_EQ(layout->font, row.font) << row.name;
        EXPECT_EQ(layout->items, (std::vector<DialogPlace>{{4, 5, 6, 7}, {8, 9, 10, 11}})) << row.name;
        for (std::size_t size = 0; size < row.bytes.size(); ++size) {
            EXPECT_FALSE(ReadDialogLayout(Prefix(row.bytes, size))) << row.name << " cut to " << size;
        }
    }
}

TEST(DialogUnits, OfTheClassicFontsRoundToTheNearestPixel) {
    EXPECT_EQ(BaseUnitsOf({10, 700, false, 134, u"System"}), (BaseUnits{8, 16}));
    EXPECT_EQ(BaseUnitsOf({8, 0, false, 1, u"MS Sans Serif"}), (BaseUnits{6, 13}));
    for (const DialogFont& other :
         {DialogFont{8, 0, false, 1, u"System"}, DialogFont{9, 0, false, 134, u"SimSun"}, DialogFont{}})
        EXPECT_EQ(BaseUnitsOf(other), std::nullopt);
    EXPECT_EQ(ToPixels(283, 6, 4), 425); // 424.5
    EXPECT_EQ(ToPixels(-3, 6, 4), -5);   // -4.5
    EXPECT_EQ(ToPixels(5, 13, 8), 8);    // 8.1
}

// Control 300 gets "ab" with its zero, control 301 no data at all; an entry that no longer counts follows the end mark.
const std::vector<std::byte> goodList =
    Bytes({0x2C, 1, 3, 4, 3, 0, 0, 0, 'a', 'b', 0, 0x2D, 1, 1, 4, 0, 0, 0, 0, 0, 0, 0x2E, 1, 3, 4, 0, 0, 0, 0});

TEST(ParseDialogInit, EveryCutGivesTheEntriesThatAreWhole) {
    for (std::size_t size = 0; size <= goodList.size(); ++size) {
        SCOPED_TRACE(size);
        const std::vector<std::byte> cut = Prefix(goodList, size);
        const std::vector<DialogInitEntry> entries = ParseDialogInit(cut);
        ASSERT_EQ(entries.size(), size < 11 ? 0U : size < 19 ? 1U : 2U);
        if (!entries.empty()) {
            EXPECT_EQ(entries[0].controlId, 300);
            EXPECT_EQ(entries[0].message, 0x403);
            EXPECT_TRUE(std::ranges::equal(entries[0].data, Bytes({'a', 'b', 0})));
        }
        if (entries.size() == 2) {
            EXPECT_EQ(entries[1].controlId, 301);
            EXPECT_TRUE(entries[1].data.empty());
        }
    }
}

TEST(ParseDialogInit, LengthsBeyondTheListEndIt) {
    for (const std::vector<std::byte>& list : {Bytes({1, 0, 3, 4, 0xFF, 0xFF, 0xFF, 0xFF, 'a'}), // wraps when added up
                                               Bytes({1, 0, 3, 4, 0xF8, 0xFF, 0xFF, 0xFF, 'a'}), // exactly to 0
                                               Bytes({1, 0, 3, 4, 2, 0, 0, 0, 'a'}),             // by one byte
                                               Bytes({1, 0, 3, 4, 0, 0, 0, 0x80, 'a'})}) {       // negative as signed
        EXPECT_TRUE(ParseDialogInit(list).empty());
    }
}

} // namespace
