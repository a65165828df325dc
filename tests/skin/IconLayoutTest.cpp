// Places and colours of an icon button.
#include "skin/IconLayout.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | green << 8 | blue << 16;
}

TEST(IconLayout, ImageAndCaptionShareTheButton) {
    struct Row {
        ImageAlign align;
        bool hasCaption;
        int x, y;
        Box caption;
    };
    const Box item{0, 0, 101, 30};
    const Row rows[] = {{ImageAlign::Left, true, 3, 7, {19, 0, 82, 30}},    {ImageAlign::Left, false, 42, 7, item},
                        {ImageAlign::Above, true, 42, 3, {0, 16, 101, 14}}, {ImageAlign::Above, false, 42, 7, item},
                        {ImageAlign::Right, true, 82, 7, {3, 0, 79, 30}},   {ImageAlign::Right, false, 42, 0, item}};
    for (const Row& row : rows) {
        const ImagePlace expected{row.x, row.y, row.caption};
        EXPECT_EQ(PlaceImage(item, 101, 16, 16, row.align, row.hasCaption), expected)
            << static_cast<int>(row.align) << row.hasCaption;
    }
    // Too large an image: halves are cut toward zero.
    const ImagePlace place = PlaceImage({0, 0, 15, 15}, 15, 16, 20, ImageAlign::Left, false);
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, -2);
}

TEST(IconLayout, ShadesKeepTheHue) {
    struct Row {
        std::uint32_t color;
        int shade;
        std::optional<std::uint32_t> shifted;
    };
    const Row rows[] = {{Rgb(10, 20, 30), 5, Rgb(15, 25, 35)},     {Rgb(10, 20, 30), -255, Rgb(0, 10, 20)},
                        {Rgb(10, 20, 250), 255, Rgb(15, 25, 255)}, {Rgb(10, 0, 30), -7, Rgb(10, 0, 30)},
                        {Rgb(255, 0, 0), 1, Rgb(255, 0, 0)},       {Rgb(0, 0, 0), 255, Rgb(255, 255, 255)},
                        {Rgb(255, 255, 255), -255, Rgb(0, 0, 0)},  {Rgb(10, 20, 30), 0, Rgb(10, 20, 30)},
                        {Rgb(10, 20, 30), 256, std::nullopt},      {Rgb(10, 20, 30), -256, std::nullopt}};
    for (const Row& row : rows) EXPECT_EQ(ShiftedColor(row.color, row.shade), row.shifted) << row.shade;
}

TEST(IconLayout, GreyWeighsTheParts) {
    EXPECT_EQ(IconGray(Rgb(255, 0, 0)), Rgb(76, 76, 76));
    EXPECT_EQ(IconGray(Rgb(0, 255, 0)), Rgb(149, 149, 149));
    EXPECT_EQ(IconGray(Rgb(0, 0, 255)), Rgb(29, 29, 29));
    EXPECT_EQ(IconGray(Rgb(200, 100, 50)), Rgb(124, 124, 124));
}

} // namespace
