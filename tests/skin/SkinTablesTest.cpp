// What the skin's plain parts promise in numbers and words.
#include <algorithm>
#include <map>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "skin/LinkTarget.h"
#include "skin/SegmentGeometry.h"

namespace {

// A display of 50 pixels; the usual letters of the segments, clockwise from the top, g in the middle.
TEST(SkinTables, CharactersLightTheirSegments) {
    const std::map<char, SegmentLine> segments{{'a', {6, 3, 17, 3}},   {'b', {20, 6, 20, 23}}, {'c', {20, 29, 20, 43}},
                                               {'d', {6, 46, 17, 46}}, {'e', {3, 29, 3, 43}},  {'f', {3, 6, 3, 23}},
                                               {'g', {6, 26, 17, 26}}, {'.', {6, 46, 8, 46}},  {'+', {12, 17, 14, 17}},
                                               {'*', {12, 37, 14, 37}}};
    const std::map<char, std::string> lit{
        {'0', "abcdef"}, {'1', "bc"},  {'2', "abged"},   {'3', "abcdg"},  {'4', "bcfg"}, {'5', "acdfg"},
        {'6', "acdefg"}, {'7', "abc"}, {'8', "abcdefg"}, {'9', "abcdfg"}, {'-', "g"},    {' ', ""},
        {'/', ""},       {'A', ""},    {'\xFF', ""},     {'.', "."},      {':', "+*"}};
    const auto linesOf = [&](const std::string& letters, int x) {
        std::vector<SegmentLine> lines;
        for (const auto& [letter, line] : segments)
            if (letters.find(letter) != std::string::npos)
                lines.push_back({line.fromX + x, line.fromY, line.toX + x, line.toY});
        return lines;
    };
    const auto sorted = [](std::vector<SegmentLine> lines) {
        std::ranges::sort(lines, {},
                          [](const SegmentLine& line) { return std::tie(line.fromX, line.fromY, line.toX); });
        return lines;
    };
    // Every character beside every other: a colon stands closer to the others than digits do.
    for (const auto& [first, firstLit] : lit) {
        for (const auto& [second, secondLit] : lit) {
            const auto figures = LayOutSegments(std::string{first, second}, SegmentMetrics::FromHeight(50));
            ASSERT_EQ(figures.size(), 2U);
            const int x = second == ':' ? 20 : first == ':' ? 18 : 29;
            EXPECT_EQ(sorted(figures[0].lit), sorted(linesOf(firstLit, 0))) << first;
            EXPECT_EQ(sorted(figures[1].lit), sorted(linesOf(secondLit, x))) << first << second;
            EXPECT_EQ(sorted(figures[1].ghosts), sorted(linesOf(second == ':' ? "" : "abcdefg", x))) << second;
        }
    }
}

TEST(SkinTables, ALinksTargetTakesThePlaceholder) {
    EXPECT_EQ(BrowserCommand("b.exe \"%1\" -x", "T"), "b.exe  T");
    EXPECT_EQ(BrowserCommand("b.exe -u %1 -x", "T"), "b.exe -u  T");
    EXPECT_EQ(BrowserCommand("b.exe %1 \"%1\"", "T"), "b.exe %1  T");
    EXPECT_EQ(BrowserCommand("b.exe", "T"), "b.exe T");
    const std::string browser(259, 'b'), longest(520 - 259 - 2, 't'); // a blank and the ending zero
    EXPECT_EQ(BrowserCommand(browser, longest), browser + " " + longest);
    EXPECT_EQ(BrowserCommand(browser, longest + "t"), std::nullopt);
    EXPECT_TRUE(BrowserCommand("b %1" + browser, longest + "t")); // what is cut off needs no room
}

TEST(SkinTables, AFailureToOpenIsToldByItsCode) {
    const std::string opening = "Unable to open hyperlink:\n\n";
    EXPECT_EQ(OpenFailureText(2), opening + "The specified file was not found.");
    EXPECT_EQ(OpenFailureText(32), opening + "The specified dynamic-link library was not found.");
    EXPECT_EQ(OpenFailureText(1), opening + "Unknown Error (1) occurred.");
}

} // namespace
