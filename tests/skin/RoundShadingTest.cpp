// The rings of a round button as plain points and colours.
#include "skin/RoundShading.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace {

using Art = std::vector<std::string>;

Art Draw(const std::vector<CirclePoint>& points, int size) {
    Art art(static_cast<std::size_t>(size), std::string(static_cast<std::size_t>(size), '.'));
    for (const CirclePoint& point : points)
        art.at(static_cast<std::size_t>(point.y)).at(static_cast<std::size_t>(point.x)) = '#';
    return art;
}

TEST(RoundShading, CirclesAreRoundOrDotted) {
    EXPECT_EQ(Draw(CirclePoints(3, 3, 3), 7),
              (Art{"..###..", ".#...#.", "#.....#", "#.....#", "#.....#", ".#...#.", "..###.."}));
    EXPECT_EQ(Draw(CirclePoints(3, 3, 3, true), 7),
              (Art{"...#...", ".#...#.", ".......", "#.....#", ".......", ".#...#.", "...#..."}));
    EXPECT_EQ(Draw(CirclePoints(1, 1, 0), 3), (Art{"...", ".#.", "..."}));
    EXPECT_TRUE(CirclePoints(1, 1, -1).empty());
}

TEST(RoundShading, EveryPointKnowsItsAngle) {
    for (const CirclePoint& point : CirclePoints(20, 30, 14)) {
        const double angle = std::atan2(point.y - 30, point.x - 20);
        EXPECT_NEAR(std::cos(point.angle), std::cos(angle), 1e-6) << point.x << "," << point.y;
        EXPECT_NEAR(std::sin(point.angle), std::sin(angle), 1e-6) << point.x << "," << point.y;
    }
}

TEST(RoundShading, LightComesFromTheUpperLeft) {
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

} // namespace
