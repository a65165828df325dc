// What is read from resources, hostile ones included. Each resource stands in a block of exactly its size, where the
// sanitizers of the host build see a read beyond it.
#include "menu/MenuTemplate.h"

#include <gtest/gtest.h>

#include "menu/ToolbarResource.h"
#include "menu/WindowsVersion.h"
#include "support/Seed.h"

namespace {

constexpr unsigned last = 0x80, popup = 0x10;
using Bytes = std::vector<std::byte>;

// Lays out a resource word by word.
class CTemplateBytes {
public:
    CTemplateBytes& Words(std::initializer_list<unsigned> words) {
        for (const unsigned word : words)
            bytes.insert(bytes.end(), {static_cast<std::byte>(word), static_cast<std::byte>(word >> 8)});
        return *this;
    }
    // An item, whose id is left out for a pop-up.
    CTemplateBytes& Item(unsigned flags, unsigned id, std::u16string_view text) {
        Words({flags});
        if ((flags & popup) == 0) Words({id});
        for (const char16_t character : text) Words({character});
        return Words({0});
    }

    Bytes bytes;
};

unsigned Below(std::mt19937& random, unsigned end) {
    return static_cast<unsigned>(random() % end);
}

// A menu of random items, pop-ups among them down to some level.
void AddMenu(CTemplateBytes& to, std::mt19937& random, int levels) {
    for (unsigned left = Below(random, 4) + 1; left-- > 0;) {
        const bool opens = levels > 0 && Below(random, 3) == 0;
        const unsigned flags = Below(random, 2) * 0x09 | Below(random, 3) / 2 * 0x804 | (left == 0 ? last : 0);
        to.Item(flags | (opens ? popup : 0), Below(random, 0x10000), std::u16string(Below(random, 4), u'二'));
        if (opens) AddMenu(to, random, levels - 1);
    }
}

// Reads a menu the plain way, level by level.
class CPlainReader {
public:
    explicit CPlainReader(const Bytes& resource) : bytes(resource) {
        const unsigned version = Word(), header = Word();
        sound = sound && version == 0 && at + header <= bytes.size();
        at += header;
        if (sound) ReadLevel(1);
        sound = sound && bytes.size() - at < 4;
        for (; sound && at < bytes.size(); ++at) sound = bytes[at] == std::byte{0};
    }

    std::vector<MenuTemplateItem> items;
    bool sound = true;

private:
    unsigned Word() {
        sound = sound && at + 2 <= bytes.size();
        if (!sound) return 0;
        at += 2;
        return std::to_integer<unsigned>(bytes[at - 2]) | std::to_integer<unsigned>(bytes[at - 1]) << 8;
    }
    void ReadLevel(int level) {
        for (bool ended = false; sound && !ended;) {
            const unsigned flags = Word();
            ended = (flags & last) != 0;
            const bool opens = (flags & popup) != 0;
            const unsigned id = opens ? 0 : Word();
            std::u16string text;
            while (const unsigned character = Word()) text += static_cast<char16_t>(character);
            sound = sound && !(opens && level == deepestMenuLevel);
            items.push_back(
                {level, static_cast<std::uint16_t>(flags & ~0x84U), static_cast<std::uint16_t>(id), text, 0});
            if (opens) ReadLevel(level + 1);
        }
        ++items.back().closedLevels;
    }

    const Bytes& bytes;
    std::size_t at = 0;
};

void ExpectAsPlain(const Bytes& bytes) {
    const CPlainReader plain(bytes);
    const auto items = ParseMenuTemplate(bytes);
    ASSERT_EQ(items.has_value(), plain.sound) << testing::PrintToString(bytes);
    if (!items) return;
    ASSERT_EQ(items->size(), plain.items.size());
    for (std::size_t i = 0; i < items->size(); ++i) {
        const MenuTemplateItem &shown = (*items)[i], &wanted = plain.items[i];
        EXPECT_TRUE(shown.level == wanted.level && shown.flags == wanted.flags && shown.id == wanted.id &&
                    shown.text == wanted.text && shown.closedLevels == wanted.closedLevels)
            << i << " of " << testing::PrintToString(bytes);
    }
}

TEST(MenuTemplate, ReadsAsAPlainReaderDoesWhatIsSoundAndWhatIsNot) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 300 && !testing::Test::HasFailure(); ++round) {
        CTemplateBytes made;
        const unsigned header = Below(random, 8) / 7 * 2;
        made.Words({0, header});
        if (header != 0) made.Words({0xFFFF});
        AddMenu(made, random, 3);
        ASSERT_TRUE(ParseMenuTemplate(made.bytes));
        ExpectAsPlain(made.bytes);
        for (std::size_t length = 0; length < made.bytes.size(); ++length)
            EXPECT_FALSE(ParseMenuTemplate(Bytes(made.bytes.begin(), made.bytes.begin() + static_cast<long>(length))));
        for (int change = 0; change < 20; ++change) {
            Bytes bytes = made.bytes;
            for (unsigned zeros = Below(random, 6); zeros > 0 && change % 4 == 0; --zeros)
                bytes.push_back(std::byte{0});
            constexpr unsigned values[] = {0, 1, 2, 0x10, 0x80, 0x90, 0xFF};
            bytes[random() % bytes.size()] = static_cast<std::byte>(values[random() % std::size(values)]);
            ExpectAsPlain(bytes);
        }
    }
}

TEST(MenuTemplate, DepthAndLengthHaveTheirLimits) {
    const auto nested = [](int levels) {
        CTemplateBytes bytes;
        bytes.Words({0, 0});
        for (int level = 1; level < levels; ++level) bytes.Item(last | popup, 0, u"deeper");
        return bytes.Item(last, 1, u"deepest").bytes;
    };
    const auto deepest = ParseMenuTemplate(nested(16));
    ASSERT_TRUE(deepest);
    EXPECT_EQ(deepest->back().closedLevels, 16);
    for (const int levels : {17, 1'000}) EXPECT_FALSE(ParseMenuTemplate(nested(levels))) << levels;
    const std::u16string longText(65'536, u'x');
    const auto items = ParseMenuTemplate(CTemplateBytes().Words({0, 0}).Item(last, 1, longText).bytes);
    EXPECT_TRUE(items && items->front().text == longText);
    EXPECT_FALSE(ParseMenuTemplate(CTemplateBytes().Words({1, 4, 0, 0}).Item(last, 1, u"a").bytes)) << "extended form";
}

TEST(ToolbarResource, GivesSizeAndCommandsUpToItsCount) {
    const struct {
        unsigned version, width, height, count;
        bool accepted;
    } cases[] = {{1, 16, 15, 5, true},      {1, 16, 15, 4, true},    {1, 16, 15, 0, true},  {1, 256, 256, 1, true},
                 {1, 16, 15, 6, false},     {2, 16, 15, 1, false},   {0, 16, 15, 1, false}, {1, 0, 15, 1, false},
                 {1, 16, 0, 1, false},      {1, 257, 1, 1, false},   {1, 1, 257, 1, false}, {1, 1, 1, 0xFFFF, false},
                 {1, 0xFFFF, 15, 1, false}, {1, 1, 0xFFFF, 1, false}};
    const std::vector<std::uint16_t> commands{100, 0, 101, 0xFFFF, 101};
    for (const auto& [version, width, height, count, accepted] : cases) {
        SCOPED_TRACE(std::to_string(version) + " " + std::to_string(width) + " " + std::to_string(count));
        Bytes bytes = CTemplateBytes().Words({version, width, height, count, 100, 0, 101, 0xFFFF, 101}).bytes;
        const auto toolbar = ParseToolbarResource(bytes);
        ASSERT_EQ(toolbar.has_value(), accepted);
        if (!accepted) continue;
        EXPECT_TRUE(toolbar->imageWidth == static_cast<int>(width) && toolbar->imageHeight == static_cast<int>(height));
        EXPECT_EQ(toolbar->ids, std::vector(commands.begin(), commands.begin() + static_cast<int>(count)));
        for (bytes.resize(8 + 2 * count); !bytes.empty();) {
            bytes.pop_back();
            EXPECT_FALSE(ParseToolbarResource(bytes)) << bytes.size();
        }
    }
    const ToolbarResource toolbar{16, 15, commands};
    const std::pair<unsigned, int> buttons[] = {{100, 0}, {0, -1}, {101, 2}, {0xFFFF, 3}, {102, -1}, {0x10064, -1}};
    for (const auto& [id, button] : buttons) EXPECT_EQ(toolbar.ButtonIndex(id), button) << id;
    const int images[] = {-1, 0, -1, 1, 2, 3, -1};
    for (int button = -1; button < 6; ++button) EXPECT_EQ(toolbar.ImageIndex(button), images[button + 1]) << button;
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
        {notNt | 0x0A05, SystemVersion{5, 10}, Windows95},
        {notNt | 0x5A05, SystemVersion{5, 90}, Windows95},
        {0x0004, SystemVersion{4, 0}, WindowsNt4},
        {0x0005, SystemVersion{5, 0}, Windows2000},
        {0x0105, SystemVersion{5, 1}, WindowsXp},
        {0x0105, std::nullopt, OtherNt},
        {0x0205, SystemVersion{5, 2}, OtherNt},
        {0x3303, SystemVersion{3, 51}, OtherNt},
        {0x0106, SystemVersion{6, 1}, OtherNt},
        {0x0006, SystemVersion{6, 0}, OtherNt},
        {0x000A, SystemVersion{10, 0}, OtherNt},
    };
    for (const auto& [versionWord, details, code] : cases)
        EXPECT_EQ(WindowsVersionCode(versionWord, details), code) << std::hex << versionWord;
}

} // namespace
