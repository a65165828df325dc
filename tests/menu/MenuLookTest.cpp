// What is computed of an item's look without a device context: against plain formulas over whole ranges.
#include <algorithm>

#include <gtest/gtest.h>

#include "menu/MenuItemLook.h"
#include "menu/MenuLayout.h"
#include "menu/ResourceBitmap.h"
#include "menu/WindowsVersion.h"
#include "support/Seed.h"

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

TEST(MenuLayout, BothLooksAreLaidOutByPlainFormulas) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const auto within = [&](int lowest, int highest) { return std::uniform_int_distribution(lowest, highest)(random); };
    for (int round = 0; round < 2'000 && !testing::Test::HasFailure(); ++round) {
        const int left = within(-20, 50), top = within(-20, 50), wide = within(60, 300), high = within(0, 60);
        const int width = within(1, 40), height = within(1, 40), bar = within(0, 60), text = within(0, 300);
        const bool raised = within(0, 1) == 1;
        SCOPED_TRACE(testing::Message() << high << ": " << width << " by " << height << (raised ? ", raised" : ""));
        const CRect item = CRect::Sized(left, top, wide, high);
        const int right = left + wide, middle = top + high / 2, bottom = top + high;
        const int gap = raised ? 7 : 4, column = width + gap;

        const ModernLayout modern = LayOutModernItem(item, {width, height}, raised);
        EXPECT_EQ(modern.column, CRect::Sized(left, top, column, high));
        EXPECT_EQ(modern.imageBox, CRect::Sized(left + 1, top + 1, column - 2, high - 2));
        EXPECT_EQ(modern.image, CPoint(left + (gap + 1) / 2, top + std::max(0, (high - height + 1) / 2)));
        const CPoint tick{left + std::max(0, (column - 15) / 2), top + std::max(0, (high - 15) / 2)};
        EXPECT_EQ(modern.tickBox, CRect::Sized(tick.x, tick.y, 16, 16));
        EXPECT_EQ(modern.mark, CPoint(tick.x + 5, tick.y + 4));
        EXPECT_EQ(modern.text, CRect(left + column + 8, top - 1, right, bottom - 1));
        EXPECT_EQ(modern.etched, CRect(left + column + gap, middle, right, bottom));

        const ClassicLayout classic = LayOutClassicItem(item, {width, height});
        const int boxTop = top + std::max(0, (high - height - 4) / 2);
        EXPECT_EQ(classic.bar, CRect(left + width + 5, top, right, bottom));
        EXPECT_EQ(classic.box, CRect::Sized(left, boxTop, width + 4, height + 4));
        EXPECT_EQ(classic.inner, CRect::Sized(left + 1, boxTop + 1, width + 2, height + 2));
        EXPECT_EQ(classic.image, CPoint(left + 2, boxTop + 2));
        EXPECT_EQ(classic.tickBox, CRect::Sized(left + 1, boxTop + 2, width, height));
        EXPECT_EQ(classic.tick, CPoint(left + 5, boxTop + 6));
        EXPECT_EQ(classic.dot, CPoint(left + 6, boxTop + 6));
        EXPECT_EQ(classic.text, CRect(left + width + 9, top - 1, right, bottom - 1));
        EXPECT_EQ(classic.etched, CRect(left, middle, right, bottom));

        const int plainHeight = std::max(bar, height + 4), raisedHeight = std::max(bar, height + gap);
        EXPECT_EQ(MeasuredItem(text, {width, height}, true, raised, bar), CSize(width + text + gap + 8, raisedHeight));
        EXPECT_EQ(MeasuredItem(text, {width, height}, false, raised, bar), CSize(text + 2 * width + 1, plainHeight));
        EXPECT_EQ(MeasuredSeparator({width, height}, raised, bar), CSize(0, std::max(bar / 2, (height + gap) / 2)));
        EXPECT_EQ(MenuImageGap(raised), gap);
        EXPECT_EQ(item.Moved(3, 3), CRect::Sized(left + 3, top + 3, wide, high));
        const int letters = within(1, 40);
        EXPECT_EQ(TextWidthOfHostedWin32(text, static_cast<std::size_t>(letters)), text + 3 + (text + 3) / letters * 3);
    }
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
    for (int all = 0; all < 36; ++all) {
        const bool palette = all % 2 == 0, themed = all / 2 % 2 == 0;
        const int onThemed = all / 4 % 3, onOthers = all / 12;
        const bool modern = !palette && (themed ? onThemed : onOthers) == 1;
        EXPECT_EQ(ChooseMenuLook(palette, themed, onThemed, onOthers), modern ? MenuLook::Modern : MenuLook::Classic);
    }
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
