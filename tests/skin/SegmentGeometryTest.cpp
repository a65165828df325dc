// What a seven-segment display shows, as lines.
#include "skin/SegmentGeometry.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

namespace {

// A display of 36 pixels; the usual letters of the segments, clockwise from the top, g in the middle.
constexpr SegmentMetrics metrics{2, 12};
const std::map<char, SegmentLine> segments{{'a', {4, 2, 12, 2}},   {'b', {14, 4, 14, 16}}, {'c', {14, 20, 14, 30}},
                                           {'d', {4, 32, 12, 32}}, {'e', {2, 20, 2, 30}},  {'f', {2, 4, 2, 16}},
                                           {'g', {4, 18, 12, 18}}};

bool Contains(const std::vector<SegmentLine>& lines, const SegmentLine& wanted) {
    for (const SegmentLine& line : lines) {
        if (line == wanted) return true;
    }
    return false;
}

std::string Letters(const std::vector<SegmentLine>& lines) {
    std::string letters;
    for (const auto& [letter, line] : segments) {
        if (Contains(lines, line)) letters += letter;
    }
    return letters.size() == lines.size() ? letters : "lines that are no segments";
}

TEST(SegmentGeometry, SizesFollowFromTheHeight) {
    struct Row {
        int height, thickness, length;
    };
    for (const Row& row :
         {Row{36, 2, 12}, Row{10, 1, 3}, Row{17, 1, 5}, Row{50, 3, 17}, Row{100, 6, 35}, Row{0, 1, 1}}) {
        const SegmentMetrics found = SegmentMetrics::FromHeight(row.height);
        EXPECT_EQ(found.thickness, row.thickness) << row.height;
        EXPECT_EQ(found.segmentLength, row.length) << row.height;
    }
}

TEST(SegmentGeometry, CharactersLightTheirSegments) {
    const std::map<char, std::string> expected{{'0', "abcdef"},  {'1', "bc"},     {'2', "abdeg"},  {'3', "abcdg"},
                                               {'4', "bcfg"},    {'5', "acdfg"},  {'6', "acdefg"}, {'7', "abc"},
                                               {'8', "abcdefg"}, {'9', "abcdfg"}, {'-', "g"},      {' ', ""},
                                               {'E', ""},        {'\xFF', ""}};
    for (const auto& [character, lit] : expected) {
        const auto figures = LayOutSegments(std::string(1, character), metrics);
        ASSERT_EQ(figures.size(), 1U);
        EXPECT_EQ(Letters(figures[0].lit), lit) << character;
        EXPECT_EQ(Letters(figures[0].ghosts), "abcdefg") << character;
    }
    const auto point = LayOutSegments(".", metrics);
    EXPECT_EQ(point[0].lit, (std::vector<SegmentLine>{{4, 32, 6, 32}}));
    EXPECT_EQ(point[0].ghosts.size(), 7U);
    const auto colon = LayOutSegments(":", metrics);
    EXPECT_EQ(colon[0].lit, (std::vector<SegmentLine>{{8, 12, 10, 12}, {8, 26, 10, 26}}));
    EXPECT_TRUE(colon[0].ghosts.empty());
    EXPECT_TRUE(LayOutSegments("", metrics).empty());
}

TEST(SegmentGeometry, ColonsStandCloserThanDigits) {
    const std::map<std::string, std::vector<int>> expected{
        {"8-8", {0, 20, 40}}, {"8.8", {0, 20, 40}}, {"88:88", {0, 20, 34, 47, 67}}, {":8::8", {0, 13, 27, 41, 54}}};
    for (const auto& [text, places] : expected) {
        std::vector<int> found;
        for (const SegmentFigure& figure : LayOutSegments(text, metrics)) {
            // A colon's dots begin four units inside its cell, a digit's top segment two.
            found.push_back(figure.ghosts.empty() ? figure.lit[0].fromX - 8 : figure.ghosts[0].fromX - 4);
        }
        EXPECT_EQ(found, places) << text;
    }
}

} // namespace
