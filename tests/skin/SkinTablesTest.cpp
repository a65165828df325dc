// What the skin's plain parts promise in numbers and words.
#include <algorithm>
#include <map>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "skin/IconLayout.h"
#include "skin/LinkTarget.h"
#include "skin/RoundShading.h"
#include "skin/SegmentGeometry.h"

namespace {

TEST(SkinTables, ImageAndCaptionShareTheButton) {
    struct Row {
        ImageAlign align;
        bool hasCaption;
        int x, y;
        Box caption;
    };
    const Box item{5, 9, 101, 30};
    const Row rows[] = {{ImageAlign::Left, true, 8, 15, {26, 9, 80, 30}},   {ImageAlign::Left, false, 46, 15, item},
                        {ImageAlign::Above, true, 46, 3, {5, 27, 101, 12}}, {ImageAlign::Above, false, 46, 15, item},
                        {ImageAlign::Right, true, 169, 15, {3, 9, 77, 30}}, {ImageAlign::Right, false, 46, 9, item}};
    for (const Row& row : rows) {
        const ImagePlace expected{row.x, row.y, row.caption};
        EXPECT_EQ(PlaceImage(item, 190, 18, 18, row.align, row.hasCaption), expected)
            << static_cast<int>(row.align) << row.hasCaption;
    }
    // Too large an image: halves are cut toward zero.
    EXPECT_EQ(PlaceImage({0, 0, 15, 15}, 15, 16, 20, ImageAlign::Left, false), (ImagePlace{0, -2, {0, 0, 15, 15}}));
}

TEST(SkinTables, LightComesFromTheUpperLeft) {
    struct Row {
        double angle;
        std::uint32_t light, dark, color;
    };
    const Row rows[] = {{-2.356, 0x123456, 0xFEDCBA, 0x123456},
                        {0.7855, 0xFFFFFF, 0x696969, 0x696969},
                        {0.7855, 0xFF8040, 0x000000, 0x000000},
                        {0, 0x0000FF, 0, 37},  // 37.38
                        {0, 0, 0x0000FF, 217}, // 217.6
                        {-3.141592654, 0x0000FF, 0, 217},
                        {3.141592654, 0x0000FF, 0, 216}, // not quite the same: the turn isn't two pi
                        {-7.3, 0x0000FF, 0, 155}};
    for (const Row& row : rows) EXPECT_EQ(AngleColor(row.angle, row.light, row.dark), row.color) << row.angle;
}

// A display of 50 pixels; the usual letters of the segments, clockwise from the top, g in the middle.
TEST(SkinTables, CharactersLightTheirSegments) {
    const std::map<char, SegmentLine> segments{{'a', {6, 3, 17, 3}},   {'b', {20, 6, 20, 23}}, {'c', {20, 29, 20, 43}},
                                               {'d', {6, 46, 17, 46}}, {'e', {3, 29, 3, 43}},  {'f', {3, 6, 3, 23}},
                                               {'g', {6, 26, 17, 26}}, {'.', {6, 46, 8, 46}},  {'+', {12, 17, 14, 17}},
                                               {'*', {12, 37, 14, 37}}};
    const std::map<char, std::string> lit{{'0', "abcdef"},  {'1', "bc"},     {'2', "abged"},  {'3', "abcdg"},
                                          {'4', "bcfg"},    {'5', "acdfg"},  {'6', "acdefg"}, {'7', "abc"},
                                          {'8', "abcdefg"}, {'9', "abcdfg"}, {'-', "g"},      {' ', ""},
                                          {'/', ""},        {'\xFF', ""},    {'.', "."},      {':', "+*"}};
    const auto linesOf = [&](const std::string& letters, int x) {
        std::vector<SegmentLine> lines;
        for (const auto& [letter, line] : segments)
            if (letters.find(letter) != std::string::npos)
                lines.push_back({line.fromX + x, line.fromY, line.toX + x, line.toY});
        return lines;
    };
    const auto sorted = [](std::vector<SegmentLine> lines) {
        std::sort(lines.begin(), lines.end(), [](const SegmentLine& a, const SegmentLine& b) {
            return std::tie(a.fromX, a.fromY, a.toX, a.toY) < std::tie(b.fromX, b.fromY, b.toX, b.toY);
        });
        return lines;
    };
    // Every character in every neighbourhood: a colon stands closer to the others than digits do.
    for (const auto& [first, firstLit] : lit) {
        for (const auto& [second, secondLit] : lit) {
            const auto figures = LayOutSegments(std::string{first, second, '8'}, SegmentMetrics::FromHeight(50));
            ASSERT_EQ(figures.size(), 3U);
            const auto advance = [](char former, char next) { return next == ':' ? 20 : former == ':' ? 18 : 29; };
            const int x = advance(first, second);
            EXPECT_EQ(sorted(figures[0].lit), sorted(linesOf(firstLit, 0))) << first;
            EXPECT_EQ(sorted(figures[1].lit), sorted(linesOf(secondLit, x))) << first << second;
            EXPECT_EQ(sorted(figures[2].lit), sorted(linesOf("abcdefg", x + advance(second, '8')))) << first << second;
            EXPECT_EQ(sorted(figures[1].ghosts), sorted(linesOf(second == ':' ? "" : "abcdefg", x))) << second;
        }
    }
    EXPECT_TRUE(LayOutSegments("", {}).empty());
    for (int height = -5; height < 180; ++height) {
        const SegmentMetrics found = SegmentMetrics::FromHeight(height);
        EXPECT_EQ(found.thickness, std::max(1, height * 6 / 100)) << height;
        EXPECT_EQ(found.segmentLength, std::max(1, height * 35 / 100)) << height;
    }
}

TEST(SkinTables, ALinksTargetTakesThePlaceholder) {
    const std::pair<const char*, const char*> rows[] = {{"b.exe \"%1\"", "b.exe  T"},
                                                        {"b.exe \"%1\" -x", "b.exe  T"},
                                                        {"b.exe -u %1 -x", "b.exe -u  T"},
                                                        {"b.exe %1 \"%1\"", "b.exe %1  T"},
                                                        {"b.exe", "b.exe T"},
                                                        {"%1", " T"},
                                                        {"", " T"}};
    for (const auto& [registered, command] : rows) EXPECT_EQ(BrowserCommand(registered, "T"), command) << registered;
    const std::string browser(259, 'b'), longest(520 - 259 - 2, 't'); // a blank and the ending zero
    EXPECT_EQ(BrowserCommand(browser, longest), browser + " " + longest);
    EXPECT_EQ(BrowserCommand(browser, longest + "t"), std::nullopt);
    EXPECT_TRUE(BrowserCommand("b %1" + browser, longest + "t")); // what is cut off needs no room
}

TEST(SkinTables, AFailureToOpenIsToldInWordsOrByItsNumber) {
    const std::map<int, const char*> words{{0, "is out\nof memory"},
                                           {2, "file was not"},
                                           {3, "path was"},
                                           {5, "denied\naccess"},
                                           {8, "not enough"},
                                           {11, ".EXE file is invalid"},
                                           {26, "sharing"},
                                           {27, "association is\nincomplete"},
                                           {28, "timed out"},
                                           {29, "transaction failed"},
                                           {30, "other DDE"},
                                           {31, "no application"},
                                           {32, "dynamic-link library"}};
    for (int code = -7; code < 40; ++code) {
        const std::string text = OpenFailureText(code);
        const std::string expected =
            words.contains(code) ? words.at(code) : "Unknown Error (" + std::to_string(code) + ") occurred.";
        EXPECT_EQ(text.find("Unable to open hyperlink:\n\n"), 0U);
        EXPECT_NE(text.find(expected), std::string::npos) << text;
    }
}

} // namespace
