// The built theme pictures: the form that the program's layout asks of each, and clean cut-outs. Read as files,
// since GDI would forgive a wrong form.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "skin/PictureFiles.h"

namespace {

constexpr std::uint32_t magenta = 0xFF00FF;

// No picture is larger than the smallest place that it fills, but for the bar in the labels. Strips of buttons are cut
// out of magenta.
struct Form {
    std::string name;
    std::size_t minWidth, maxWidth, minHeight, maxHeight, columns, rows;
};
const Form forms[] = {{"BottomPanel", 51, 480, 41, 347, 0, 0}, {"BottomBorder", 51, 480, 3, 3, 0, 0},
                      {"LeftTitleBar", 31, 465, 26, 30, 0, 0}, {"DialogPanel", 21, 145, 11, 88, 0, 0},
                      {"TopBorder", 1, 464, 1, 5, 0, 0},       {"RightBorder", 1, 5, 1, 192, 0, 0},
                      {"TextBK", 1, 200, 1, 20, 0, 0},         {"TextBK2", 1, 110, 1, 24, 0, 0},
                      {"StatusToolBar", 84, 84, 60, 60, 4, 3}, {"XButton", 296, 296, 22, 22, 4, 1}};

TEST(ThemePictures, HaveTheFormOfTheirPlaceAndNoHoles) {
    for (const auto& [name, minWidth, maxWidth, minHeight, maxHeight, columns, rows] : forms) {
        std::ifstream stream("../bin/Themes/DefaultTheme/" + name + ".bmp", std::ios::binary);
        const FileBytes file{std::istreambuf_iterator<char>(stream), {}};
        ASSERT_GT(file.size(), 54U) << name;
        ASSERT_EQ(Number(file, 28, 4), 24U) << name;
        const std::size_t width = Number(file, 18, 4), height = Number(file, 22, 4);
        EXPECT_TRUE(width >= minWidth && width <= maxWidth && height >= minHeight && height <= maxHeight) << name;
        std::set<std::vector<std::uint32_t>> states;
        const std::size_t across = std::max<std::size_t>(columns, 1), down = std::max<std::size_t>(rows, 1);
        for (std::size_t cell = 0; cell < across * down; ++cell) {
            std::vector<std::uint32_t> pixels;
            for (std::size_t y = 0; y < height / down; ++y) {
                int edges = 0; // between face and magenta
                for (std::size_t x = 0; x < width / across; ++x) {
                    const auto color =
                        PlainPixel(file, cell % across * (width / across) + x, cell / across * (height / down) + y);
                    const auto green = color >> 8 & 255, least = std::min(color >> 16, color & 255);
                    ASSERT_TRUE(least <= green + 40 || (color == magenta && columns > 0)) << name << ": a blend";
                    if (x > 0 && (color == magenta) != (pixels.back() == magenta)) ++edges;
                    pixels.push_back(color);
                }
                ASSERT_LE(edges, 2) << name << " has a hole that the mouse falls through";
            }
            EXPECT_EQ(pixels.front() == magenta, columns > 0) << name;
            pixels.push_back(static_cast<std::uint32_t>(cell / across));
            EXPECT_TRUE(states.insert(pixels).second) << name << " repeats a state";
        }
    }
}

} // namespace
