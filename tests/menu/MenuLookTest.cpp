// What is computed of an item's look without a device context.
#include <algorithm>

#include <gtest/gtest.h>

#include "menu/MenuItemLook.h"
#include "menu/MenuLayout.h"
#include "menu/ResourceBitmap.h"
#include "menu/WindowsVersion.h"

namespace {

TEST(WindowsVersion, FamilyMajorAndMinorVersionGiveTheCode) {
    constexpr std::uint32_t nt = 0, other = 0x8000'0000,
                            codes[][4] = {{other, 3, 10, 0}, {nt, 3, 51, 1}, {other, 4, 0, 2},  {other, 4, 10, 3},
                                          {other, 4, 90, 4}, {nt, 4, 0, 5},  {nt, 5, 0, 6},     {nt, 5, 1, 7},
                                          {nt, 5, 2, 1},     {nt, 6, 1, 1},  {other, 5, 10, 2}, {other, 5, 90, 2}};
    for (const auto& [family, major, minor, code] : codes)
        EXPECT_EQ(WindowsVersionCode(family | major, SystemVersion{major, minor}), code) << major << '.' << minor;
    EXPECT_EQ(WindowsVersionCode(5, std::nullopt), OtherNt);
    EXPECT_EQ(WindowsVersionCode(other | 4, std::nullopt), Windows95);
}

// Where everything goes in a row of the usual size is seen in the approved sheet of rows.
TEST(MenuLayout, RowsHaveRoomForTheirImagesAndKeepThoseThatAreTooLarge) {
    const struct {
        CSize image;
        bool modern, raised;
        CSize item, separator;
    } rows[] = {{{16, 15}, true, true, {131, 22}, {0, 11}},
                {{16, 15}, true, false, {128, 20}, {0, 10}},
                {{16, 15}, false, true, {133, 20}, {0, 10}},
                {{32, 30}, true, true, {147, 37}, {0, 18}},
                {{32, 30}, false, false, {165, 34}, {0, 17}}};
    for (const auto& [image, modern, raised, item, separator] : rows) {
        EXPECT_EQ(MeasuredItem(100, image, modern, raised, 20), item) << image.cx << modern;
        EXPECT_EQ(MeasuredSeparator(image, modern && raised, 20), separator) << image.cx << modern;
    }
    const ModernLayout modern = LayOutModernItem({0, 50, 200, 60}, {32, 30}, true);
    const ClassicLayout classic = LayOutClassicItem({0, 50, 200, 60}, {32, 30});
    EXPECT_TRUE(modern.image.y == 50 && modern.tickBox.top == 50 && classic.box.top == 50) << "in the row above";
    EXPECT_EQ(TextWidthOfHostedWin32(40, 4), 73);
    EXPECT_EQ(TextWidthOfHostedWin32(0, 0), 3);
}

TEST(MenuLayout, TextIsPartedAtItsFirstAndLastTab) {
    const MenuTextParts parts = SplitMenuText(L"a\tb\tc"), whole = SplitMenuText(L"Open");
    EXPECT_TRUE(parts.caption == L"a" && parts.accelerator == L"c" && parts.hasTab);
    EXPECT_TRUE(whole.caption == L"Open" && whole.accelerator.empty() && !whole.hasTab);
}

// The first rule whose letters all hold: k shows a check image, l check images are loaded, i has an image, then
// selected, grayed, checked. The first picture is that with companions; the box has the second one without.
TEST(MenuItemLook, BoxesOfEveryStateFollowTheFirstRuleThatHolds) {
    using enum MenuTint;
    using P = MenuPicture;
    const struct {
        const char* letters;
        MenuBox modern;
        P plain;
        MenuBox classic;
    } rules[] = {
        {"kl", {Ground, None, None, P::Check, 0}, P::Check, {Ground, Ground, Ground, P::Check, 0}},
        {"ig", {None, None, None, P::Embossed, 0}, P::Embossed, {None, Ground, Ground, P::Embossed, 0}},
        {"isc", {Selection, Highlight, Highlight, P::Normal, -1}, P::Normal, {Ground, Shadow, Light, P::Normal, 0}},
        {"is", {Selection, None, None, P::Raised, 0}, P::Normal, {Ground, Light, Shadow, P::Normal, 0}},
        {"c", {CheckBox, Highlight, Highlight, P::Normal, -1}, P::Normal, {CheckBox, Shadow, Light, P::Normal, 0}},
        {"", {Ground, Ground, Ground, P::Washed, 0}, P::Normal, {Ground, Ground, Ground, P::Normal, 0}},
    };
    for (int all = 0; all < 3 * 9 * 16; ++all) {
        const auto bit = [all](int number) { return (all >> number & 1) != 0; };
        const int ids = all / 16 % 9;
        const MenuItemState state{all / 144 - 1, ids % 3 - 1, ids / 3 - 1, bit(0), bit(1), bit(2), bit(3)};
        const bool shows = state.checked && state.iconId == -1 && (ids / 3 == 2 || (ids % 3 == 2 && state.selected));
        std::string letters = shows ? "k" : state.iconId != -1 ? "i" : "";
        for (int i = 0; i < 4; ++i) letters += bit(i) ? "lsgc"[i] : ' ';
        SCOPED_TRACE(letters);
        EXPECT_EQ(state.UsesCheckImage(), shows);
        EXPECT_EQ(state.HasImage(), letters[0] == 'i');
        EXPECT_EQ(state.ShowsTick(), state.checked && !shows && state.iconId == -1);
        const auto& rule = *std::ranges::find_if(rules, [&](const auto& each) {
            return std::string_view(each.letters).find_first_not_of(letters) == std::string_view::npos;
        });
        const auto without = [](MenuTint tint) { return tint == Light || tint == Shadow ? None : tint; };
        const auto& [letter, modern, plain, classic] = rule;
        EXPECT_EQ(ModernBox(state, true), modern);
        EXPECT_EQ(ModernBox(state, false),
                  (MenuBox{modern.fill, modern.frameTopLeft, modern.frameBottomRight, plain, modern.shift}));
        EXPECT_EQ(ClassicBox(state, true), classic);
        EXPECT_EQ(ClassicBox(state, false),
                  (MenuBox{classic.fill, without(classic.frameTopLeft), without(classic.frameBottomRight),
                           classic.picture, classic.shift}));
    }
}

TEST(MenuItemLook, ADisplayWithAPaletteHasTheClassicOne) {
    EXPECT_EQ(ChooseMenuLook(true, true, 1, 1), MenuLook::Classic);
    EXPECT_EQ(ChooseMenuLook(false, true, 1, 2), MenuLook::Modern);
    EXPECT_EQ(ChooseMenuLook(false, false, 1, 2), MenuLook::Classic);
}

TEST(ResourceBitmap, CountsColors) {
    for (unsigned bits = 0; bits <= 32; ++bits) {
        std::vector<std::byte> header(40);
        header[0] = std::byte{40};
        header[14] = static_cast<std::byte>(bits);
        EXPECT_EQ(BitmapColorCount(header), bits == 1 || bits == 4 || bits == 8 ? 1U << bits : 0) << bits;
        header[32] = header[34] = std::byte{5};
        EXPECT_EQ(BitmapColorCount(header), 0x50005U);
        header.pop_back();
        EXPECT_EQ(BitmapColorCount(header), 0U);
        header.resize(108);
        header[0] = std::byte{108};
        EXPECT_EQ(BitmapColorCount(header), 0U) << "a later header";
    }
}

} // namespace
