// What the skin's plain parts promise in numbers and words.
#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "skin/IconLayout.h"
#include "skin/LinkTarget.h"
#include "skin/RoundShading.h"
#include "skin/SegmentGeometry.h"

namespace {

TEST(SkinTables, ImageAndCaptionShareTheButton) {
    const CRect item = CRect::Sized(5, 9, 101, 30);
    const auto place = [&](ImageAlign align, bool hasCaption) {
        return PlaceImage(item, 190, 18, 18, align, hasCaption);
    };
    EXPECT_EQ(place(ImageAlign::Left, true), (ImagePlace{{8, 15}, CRect::Sized(26, 9, 80, 30)}));
    EXPECT_EQ(place(ImageAlign::Left, false), (ImagePlace{{46, 15}, item}));
    EXPECT_EQ(place(ImageAlign::Above, true), (ImagePlace{{46, 3}, CRect::Sized(5, 27, 101, 12)}));
    EXPECT_EQ(place(ImageAlign::Above, false), (ImagePlace{{46, 15}, item}));
    EXPECT_EQ(place(ImageAlign::Right, true), (ImagePlace{{169, 15}, CRect::Sized(3, 9, 77, 30)}));
    EXPECT_EQ(place(ImageAlign::Right, false), (ImagePlace{{46, 9}, item}));
    // Too large an image: halves are cut toward zero.
    EXPECT_EQ(PlaceImage({0, 0, 15, 15}, 15, 16, 20, ImageAlign::Left, false),
              (ImagePlace{{0, -2}, CRect::Sized(0, 0, 15, 15)}));
}

TEST(SkinTables, LightComesFromTheUpperLeft) {
    EXPECT_EQ(AngleColor(-2.356, 0x123456, 0xFEDCBA), 0x123456U);
    EXPECT_EQ(AngleColor(0.7855, 0xFFFFFF, 0x696969), 0x696969U);
    EXPECT_EQ(AngleColor(0, 0x0000FF, 0), 37U);
    EXPECT_EQ(AngleColor(0, 0, 0x0000FF), 217U);
    EXPECT_EQ(AngleColor(-3.141592654, 0x0000FF, 0), 217U);
    EXPECT_EQ(AngleColor(3.141592654, 0x0000FF, 0), 216U); // not quite the same: the turn isn't two pi
    EXPECT_EQ(AngleColor(-7.3, 0x0000FF, 0), 155U);
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
    for (int height = -5; height < 180; ++height) {
        const SegmentMetrics found = SegmentMetrics::FromHeight(height);
        EXPECT_EQ(found.thickness, std::max(1, height * 6 / 100)) << height;
        EXPECT_EQ(found.segmentLength, std::max(1, height * 35 / 100)) << height;
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

TEST(SkinTables, AFailureToOpenIsToldInWordsOrByItsNumber) {
    std::istringstream words("0 memory or;2 file was;3 path;5 denied;8 not enough;11 .EXE;26 sharing;27 association;"
                             "28 timed out;29 transaction failed;30 other DDE;31 no application;32 dynamic-link");
    std::map<int, std::string> known;
    for (std::string each; std::getline(words, each, ';');) known[std::stoi(each)] = each.substr(each.find(' ') + 1);
    for (int code = -7; code < 40; ++code) {
        const std::string number = "Unknown Error (" + std::to_string(code) + ") occurred.",
                          text = OpenFailureText(code);
        EXPECT_EQ(text.find("Unable to open hyperlink:\n\n"), 0U);
        EXPECT_NE(text.find(known.contains(code) ? known[code] : number), std::string::npos) << text;
    }
}

} // namespace
