// What is read from resources, hostile ones included. Each resource stands in a block of exactly its size, where the
// sanitizers of the host build see a read beyond it.
#include "menu/MenuTemplate.h"

#include <gtest/gtest.h>

#include "TemplateBytes.h"
#include "menu/ToolbarResource.h"
#include "menu/WindowsVersion.h"

namespace {

constexpr unsigned last = CTemplateBytes::last;
constexpr unsigned popup = CTemplateBytes::popup;

// File > (Open, -, Recent > (One, Two)), Help. "Two" is the last item of two levels.
CTemplateBytes Tree() {
    return CTemplateBytes::Menu()
        .Popup(0, u"&File")
        .Item(0, 100, u"&Open\tCtrl+O")
        .Item(0, 0, u"")
        .Popup(last, u"Recent")
        .Item(1, 101, u"One")
        .Item(last | 8, 102, u"二")
        .Item(last, 103, u"Help");
}

std::vector<std::byte> With(std::vector<std::byte> bytes, std::initializer_list<unsigned> tail) {
    for (const unsigned byte : tail) bytes.push_back(static_cast<std::byte>(byte));
    return bytes;
}

TEST(MenuTemplate, GivesItemsWithTheirLevelsAndTheLevelsThatTheyClose) {
    const auto items = ParseMenuTemplate(Tree().bytes);
    ASSERT_TRUE(items);
    const MenuTemplateItem expected[] = {
        {1, popup, 0, u"&File", 0},  {2, 0, 100, u"&Open\tCtrl+O", 0}, {2, 0, 0, u"", 0},
        {2, popup, 0, u"Recent", 0}, {3, 1, 101, u"One", 0},           {3, 8, 102, u"二", 2},
        {1, 0, 103, u"Help", 1},
    };
    ASSERT_EQ(items->size(), std::size(expected));
    for (std::size_t i = 0; i < items->size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ((*items)[i].level, expected[i].level);
        EXPECT_EQ((*items)[i].flags, expected[i].flags);
        EXPECT_EQ((*items)[i].id, expected[i].id);
        EXPECT_EQ((*items)[i].text, expected[i].text);
        EXPECT_EQ((*items)[i].closedLevels, expected[i].closedLevels);
    }
}

TEST(MenuTemplate, EveryTemplateThatIsCutOffIsRefused) {
    const std::vector<std::byte> whole = Tree().bytes;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::vector<std::byte> part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(ParseMenuTemplate(part)) << length;
    }
}

std::vector<std::byte> Nested(int levels) {
    CTemplateBytes bytes = CTemplateBytes::Menu();
    for (int level = 1; level < levels; ++level) bytes.Popup(last, u"deeper");
    return bytes.Item(last, 1, u"deepest").bytes;
}

TEST(MenuTemplate, AcceptsAndRefuses) {
    const struct {
        const char* what;
        std::vector<std::byte> bytes;
        bool accepted;
    } cases[] = {
        {"one item", CTemplateBytes::Menu().Item(last, 1, u"a").bytes, true},
        {"something before the first item", CTemplateBytes().Words({0, 2, 0xFFFF}).Item(last, 1, u"a").bytes, true},
        {"padding behind the last item", With(Tree().bytes, {0, 0, 0}), true},
        {"more than padding behind it", With(Tree().bytes, {0, 0, 0, 0}), false},
        {"padding that isn't zero", With(Tree().bytes, {0, 1}), false},
        {"an end mark too early", CTemplateBytes::Menu().Item(last, 1, u"a").Item(last, 2, u"b").bytes, false},
        {"no end mark", CTemplateBytes::Menu().Item(0, 1, u"a").Item(0, 2, u"b").bytes, false},
        {"an outer level without end mark", CTemplateBytes::Menu().Popup(0, u"a").Item(last, 2, u"b").bytes, false},
        {"a pop-up without items", CTemplateBytes::Menu().Popup(last, u"a").bytes, false},
        {"a header beyond the end", CTemplateBytes().Words({0, 0xFFFF}).Item(last, 1, u"a").bytes, false},
        {"a header up to the end", CTemplateBytes().Words({0, 6}).Item(last, 1, u"").bytes, false},
        {"the extended form", CTemplateBytes().Words({1, 4, 0, 0}).Item(last, 1, u"a").bytes, false},
        {"another version", CTemplateBytes().Words({2, 0}).Item(last, 1, u"a").bytes, false},
        {"as deep as is shown", Nested(deepestMenuLevel), true},
        {"a level deeper", Nested(deepestMenuLevel + 1), false},
        {"very deep", Nested(1'000), false},
        {"a text of 64 KiB", CTemplateBytes::Menu().Item(last, 1, std::u16string(65'536, u'x')).bytes, true},
    };
    for (const auto& [what, bytes, accepted] : cases) EXPECT_EQ(ParseMenuTemplate(bytes).has_value(), accepted) << what;
}

TEST(ToolbarResource, GivesSizeAndCommandsUpToItsCount) {
    const std::vector<std::byte> whole = CTemplateBytes().Words({1, 16, 15, 4, 100, 0, 101, 102}).bytes;
    const auto toolbar = ParseToolbarResource(whole);
    ASSERT_TRUE(toolbar);
    EXPECT_EQ(toolbar->imageWidth, 16);
    EXPECT_EQ(toolbar->imageHeight, 15);
    EXPECT_EQ(toolbar->ids, (std::vector<std::uint16_t>{100, 0, 101, 102}));
    EXPECT_TRUE(ParseToolbarResource(With(whole, {0, 0}))) << "padding";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(ParseToolbarResource(std::span(whole).first(length))) << length;
    }
    const struct {
        std::uint16_t version, width, height, count;
        bool accepted;
    } cases[] = {{1, 16, 15, 0xFFFF, false}, {2, 16, 15, 1, false},     {1, 0, 15, 1, false},  {1, 16, 0, 1, false},
                 {1, 0xFFFF, 15, 1, false},  {1, 16, 0xFFFF, 1, false}, {1, 257, 1, 1, false}, {1, 256, 256, 1, true}};
    for (const auto& [version, width, height, count, accepted] : cases) {
        const auto bytes = CTemplateBytes().Words({version, width, height, count, 100}).bytes;
        EXPECT_EQ(ParseToolbarResource(bytes).has_value(), accepted) << version << ' ' << width << ' ' << height;
    }
}

TEST(WindowsVersion, EverySystemHasItsCode) {
    constexpr std::uint32_t notNt = 0x80000000;
    const struct {
        std::uint32_t versionWord;
        std::optional<SystemVersion> details;
        WindowsVersion code;
    } cases[] = {
        {notNt | 0x0A03, SystemVersion{3, 10}, HostedWin32},
        {notNt | 0x0004, SystemVersion{4, 0}, Windows95},
        {notNt | 0x0A04, SystemVersion{4, 10}, Windows98},
        {notNt | 0x5A04, SystemVersion{4, 90}, WindowsMe},
        {notNt | 0x5A04, std::nullopt, Windows95},
        {0x0004, SystemVersion{4, 0}, WindowsNt4},
        {0x0005, SystemVersion{5, 0}, Windows2000},
        {0x0105, SystemVersion{5, 1}, WindowsXp},
        {0x0105, std::nullopt, OtherNt},
        {0x0205, SystemVersion{5, 2}, OtherNt},
        {0x3303, SystemVersion{3, 51}, OtherNt},
        {0x0206, SystemVersion{6, 2}, OtherNt},
        {0x000A, SystemVersion{10, 0}, OtherNt},
    };
    for (const auto& [versionWord, details, code] : cases) {
        EXPECT_EQ(WindowsVersionCode(versionWord, details), code) << std::hex << versionWord;
    }
}

} // namespace
