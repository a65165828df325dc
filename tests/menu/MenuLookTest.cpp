// What is computed of an item's look without a device context.
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "menu/MenuColors.h"
#include "menu/MenuItemLook.h"
#include "menu/MenuLayout.h"
#include "menu/ResourceBitmap.h"

namespace {

constexpr std::uint32_t Rgb(unsigned red, unsigned green, unsigned blue) {
    return red | green << 8 | blue << 16;
}

constexpr MenuSize defaultImage{16, 15};

TEST(MenuColors, Blends) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const struct {
        std::uint32_t color;
        double factor;
        std::uint32_t towardWhite;
        std::uint32_t towardBlack;
    } cases[] = {
        {Rgb(192, 192, 192), 0.25, Rgb(207, 207, 207), Rgb(144, 144, 144)},
        {Rgb(10, 36, 106), 0.7, Rgb(181, 189, 210), Rgb(3, 10, 31)},
        {Rgb(0, 128, 255), 1, Rgb(255, 255, 255), 0},
        {Rgb(1, 2, 3), 0, Rgb(1, 2, 3), Rgb(1, 2, 3)},
        {Rgb(1, 2, 3), 1.5, Rgb(1, 2, 3), Rgb(1, 2, 3)},
        {Rgb(1, 2, 3), -0.1, Rgb(1, 2, 3), Rgb(1, 2, 3)},
        {Rgb(1, 2, 3), notANumber, Rgb(1, 2, 3), Rgb(1, 2, 3)},
    };
    for (const auto& [color, factor, towardWhite, towardBlack] : cases) {
        EXPECT_EQ(BlendedTowardWhite(color, factor), towardWhite) << color << ' ' << factor;
        EXPECT_EQ(BlendedTowardBlack(color, factor), towardBlack) << color << ' ' << factor;
    }
    EXPECT_EQ(MixedColor(Rgb(200, 0, 255), Rgb(100, 255, 0), 140), Rgb(145, 140, 115));
    EXPECT_EQ(MixedColor(Rgb(1, 2, 3), Rgb(4, 5, 6), 0), Rgb(1, 2, 3));
    EXPECT_EQ(MixedColor(Rgb(1, 2, 3), Rgb(4, 5, 6), 255), Rgb(4, 5, 6));
}

// Rows of the usual size are looked at pixel by pixel elsewhere; these are lower than their image.
TEST(MenuLayout, LowRows) {
    const ModernLayout modern = LayOutModernItem({3, 100, 203, 111}, defaultImage, false);
    EXPECT_EQ(modern.column, (MenuRect{3, 100, 23, 111}));
    EXPECT_EQ(modern.image, (MenuPoint{5, 100}));
    EXPECT_EQ(modern.tickBox, (MenuRect{5, 100, 21, 116}));
    EXPECT_EQ(modern.text, (MenuRect{31, 99, 203, 110}));
    EXPECT_EQ(modern.etched, (MenuRect{27, 105, 203, 111}));
    EXPECT_EQ(LayOutModernItem({0, 0, 50, 20}, {4, 4}, true).tickBox.left, 0); // a column narrower than its tick box
    const ClassicLayout classic = LayOutClassicItem({10, 40, 210, 50}, defaultImage);
    EXPECT_EQ(classic.box, (MenuRect{10, 40, 30, 59}));
    EXPECT_EQ(classic.tickBox, (MenuRect{11, 42, 27, 57}));
    EXPECT_EQ(classic.etched, (MenuRect{10, 45, 210, 50}));
}

TEST(MenuLayout, MeasuredSizes) {
    const struct {
        bool modern, raised;
        MenuSize image;
        int bar;
        MenuSize item, separator; // for a text 50 wide
    } cases[] = {
        {true, true, defaultImage, 19, {81, 22}, {0, 11}}, {true, false, defaultImage, 19, {78, 19}, {0, 9}},
        {false, true, defaultImage, 19, {83, 19}, {0, 9}}, {true, true, defaultImage, 40, {81, 40}, {0, 20}},
        {false, true, {24, 24}, 20, {99, 28}, {0, 14}},    {true, true, {32, 33}, 19, {97, 40}, {0, 20}},
    };
    for (const auto& [modern, raised, image, bar, item, separator] : cases) {
        EXPECT_EQ(MeasuredItem(50, image, modern, raised, bar), item) << modern << raised << image.width << bar;
        EXPECT_EQ(MeasuredSeparator(image, modern && raised, bar), separator) << modern << raised << image.width << bar;
    }
    EXPECT_EQ(TextWidthOfHostedWin32(37, 10), 40 + 3 * 4);
    EXPECT_EQ(TextWidthOfHostedWin32(0, 0), 3);
}

TEST(MenuLayout, TextIsPartedAtItsFirstAndLastTab) {
    const struct {
        const wchar_t *text, *caption, *accelerator;
    } cases[] = {{L"", L"", L""},          {L"Open", L"Open", L""}, {L"Open\tCtrl+O", L"Open", L"Ctrl+O"},
                 {L"a\tb\tc", L"a", L"c"}, {L"\tx", L"", L"x"},     {L"x\t", L"x", L""}};
    for (const auto& [text, caption, accelerator] : cases) {
        const MenuTextParts parts = SplitMenuText(text);
        EXPECT_TRUE(parts.caption == caption && parts.accelerator == accelerator) << testing::PrintToString(text);
        EXPECT_EQ(parts.hasTab, std::wstring_view(text).find(L'\t') != std::wstring_view::npos);
    }
}

TEST(MenuItemLook, PaletteDisplaysAreClassic) {
    EXPECT_EQ(ChooseMenuLook(true, true, 1, 1), MenuLook::Classic);
    EXPECT_EQ(ChooseMenuLook(false, true, 1, 0), MenuLook::Modern);
}

// "isc" in any subset: has an image, selected, checked; g: grayed; k: the unselected check image's id is set,
// K: the selected one's; l: the check images are loaded.
MenuItemState StateOf(std::string_view letters) {
    const auto has = [letters](char letter) { return letters.find(letter) != std::string_view::npos; };
    return {has('i') ? 0 : -1, has('K') ? 7 : -1, has('k') ? 8 : -1, has('l'), has('s'), has('g'), has('c')};
}

TEST(MenuItemLook, Boxes) {
    using enum MenuTint;
    using P = MenuPicture;
    const struct {
        const char* state;
        MenuBox modern;    // of an image with companions
        MenuPicture plain; // of one without, in the modern look
        MenuBox classic;
    } cases[] = {
        {"i", {Ground, Ground, Ground, P::Washed, 0}, P::Normal, {Ground, Ground, Ground, P::Normal, 0}},
        {"is", {Selection, None, None, P::Raised, 0}, P::Normal, {Ground, Light, Shadow, P::Normal, 0}},
        {"isc", {Selection, Highlight, Highlight, P::Normal, -1}, P::Normal, {Ground, Shadow, Light, P::Normal, 0}},
        {"ic", {CheckBox, Highlight, Highlight, P::Normal, -1}, P::Normal, {CheckBox, Shadow, Light, P::Normal, 0}},
        {"igsc", {None, None, None, P::Embossed, 0}, P::Embossed, {None, Ground, Ground, P::Embossed, 0}},
        {"ckl", {Ground, None, None, P::Check, 0}, P::Check, {Ground, Ground, Ground, P::Check, 0}},
        {"cklgs", {Ground, None, None, P::Check, 0}, P::Check, {Ground, Ground, Ground, P::Check, 0}},
        {"cksg", {CheckBox, Highlight, Highlight, P::Normal, -1}, P::Normal, {CheckBox, Shadow, Light, P::Normal, 0}},
    };
    for (const auto& [state, modern, plain, classic] : cases) {
        EXPECT_EQ(ModernBox(StateOf(state), true), modern) << state;
        EXPECT_EQ(ModernBox(StateOf(state), false).picture, plain) << state;
        EXPECT_EQ(ClassicBox(StateOf(state), true), classic) << state;
        const MenuBox old = ClassicBox(StateOf(state), false);
        EXPECT_EQ(old.frameTopLeft, classic.frameTopLeft == Ground ? Ground : None) << state;
    }
}

TEST(ResourceBitmap, CountsColors) {
    const struct {
        unsigned bits, used, count;
    } cases[] = {{1, 0, 2}, {4, 0, 16}, {8, 0, 256}, {24, 0, 0}, {0, 0, 0}, {4, 5, 5}, {8, 0x10010, 0x10010}};
    for (const auto& [bits, used, count] : cases) {
        std::vector<std::byte> header(40);
        header[14] = static_cast<std::byte>(bits);
        for (unsigned i = 0; i < 4; ++i) header[32 + i] = static_cast<std::byte>(used >> 8 * i);
        EXPECT_EQ(BitmapColorCount(header), count) << bits << ' ' << used;
        header.pop_back();
        EXPECT_EQ(BitmapColorCount(header), 0U);
    }
    EXPECT_EQ(BitmapColorCount({}), 0U);
}

} // namespace
