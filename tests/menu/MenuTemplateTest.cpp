// What is read from resources, hostile ones included. Each resource stands in a block of exactly its size, where the
// sanitizers of the host build see a read beyond it.
#include "menu/MenuTemplate.h"

#include <gtest/gtest.h>

#include "ResourceFaults.h"
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

// A menu of random items, pop-ups among them down to some level, and what is to be read from it.
void AddMenu(CTemplateBytes& to, std::vector<MenuTemplateItem>& items, std::mt19937& random, int level) {
    for (unsigned left = Below(random, 4) + 1; left-- > 0;) {
        const bool opens = level < 4 && Below(random, 3) == 0;
        const unsigned flags = Below(random, 2) * 0x09 | Below(random, 3) / 2 * 0x804, id = Below(random, 0x10000);
        const std::u16string text(Below(random, 4), u'二');
        to.Item(flags | (opens ? popup : 0) | (left == 0 ? last : 0), id, text);
        const unsigned kept = (flags & 0x809) | (opens ? popup : 0), keptId = opens ? 0 : id;
        items.push_back({level, static_cast<std::uint16_t>(kept), static_cast<std::uint16_t>(keptId), text, 0});
        if (opens) AddMenu(to, items, random, level + 1);
    }
    ++items.back().closedLevels;
}

TEST(MenuTemplate, RandomMenusAreReadAsTheyWereLaidOut) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 300 && !testing::Test::HasFailure(); ++round) {
        CTemplateBytes made;
        made.Words({0, round % 2 == 0 ? 0U : 2U});
        if (round % 2 != 0) made.Words({0xFFFF}); // something before the first item
        std::vector<MenuTemplateItem> wanted;
        AddMenu(made, wanted, random, 1);
        Bytes bytes = made.bytes;
        for (int padding = 0; padding < 5; ++padding, bytes.push_back(std::byte{0})) {
            const auto items = ParseMenuTemplate(bytes);
            ASSERT_EQ(items.has_value(), padding < 4) << padding;
            if (!items) continue;
            ASSERT_EQ(items->size(), wanted.size());
            for (std::size_t i = 0; i < items->size(); ++i) {
                const MenuTemplateItem &shown = (*items)[i], &want = wanted[i];
                EXPECT_TRUE(shown.level == want.level && shown.flags == want.flags && shown.id == want.id);
                EXPECT_TRUE(shown.text == want.text && shown.closedLevels == want.closedLevels);
            }
        }
        for (bytes = made.bytes; !bytes.empty();) {
            bytes.pop_back();
            EXPECT_FALSE(ParseMenuTemplate(bytes)) << bytes.size() << " of " << made.bytes.size();
        }
        for (int change = 0; change < 20; ++change) {
            bytes = made.bytes;
            constexpr unsigned values[] = {0, 1, 2, 0x10, 0x80, 0x90, 0xFF};
            bytes[Below(random, 0x10000) % bytes.size()] = static_cast<std::byte>(values[Below(random, 7)]);
            EXPECT_EQ(FaultOfMenu(bytes), "");
        }
    }
}

TEST(MenuTemplate, AcceptsAndRefuses) {
    const auto nested = [](int levels) {
        CTemplateBytes bytes = CTemplateBytes().Words({0, 0});
        for (int level = 1; level < levels; ++level) bytes.Item(last | popup, 0, u"deeper");
        return bytes.Item(last, 1, u"deepest");
    };
    const auto menu = [] { return CTemplateBytes().Words({0, 0}); };
    const struct {
        CTemplateBytes bytes;
        bool accepted;
    } cases[] = {{nested(16), true},
                 {nested(17), false},
                 {nested(1'000), false},
                 {menu().Item(last, 1, std::u16string(65'536, u'x')), true},
                 {menu().Item(last, 1, u"a").Words({1}), false},                   // padding that isn't zero
                 {menu().Item(last, 1, u"a").Item(last, 2, u"b"), false},          // an end mark too early
                 {menu().Item(popup, 0, u"a").Item(last, 2, u"b"), false},         // none of the outer level
                 {CTemplateBytes().Words({0, 0xFFFF}).Item(last, 1, u"a"), false}, // a header beyond the end
                 {CTemplateBytes().Words({1, 0}).Item(last, 1, u"a"), false},
                 {CTemplateBytes().Words({2, 0}).Item(last, 1, u"a"), false}};
    for (const auto& each : cases)
        EXPECT_EQ(ParseMenuTemplate(each.bytes.bytes).has_value(), each.accepted) << &each - cases;
}

TEST(ToolbarResource, GivesSizeAndCommandsUpToItsCount) {
    const std::vector<std::uint16_t> ids{100, 0, 101, 0xFFFF, 101};
    for (int all = 0; all < 3 * 5 * 5 * 5; ++all) {
        constexpr unsigned sizes[] = {1, 256, 0, 257, 0xFFFF}, counts[] = {0, 3, 5, 6, 0xFFFF};
        const unsigned version = static_cast<unsigned>(all % 3), count = counts[all / 3 % 5];
        const unsigned width = sizes[all / 15 % 5], height = sizes[all / 75];
        Bytes bytes = CTemplateBytes().Words({version, width, height, count, 100, 0, 101, 0xFFFF, 101}).bytes;
        const auto toolbar = ParseToolbarResource(bytes);
        const bool sized = all / 15 % 5 < 2 && all / 75 < 2;
        ASSERT_EQ(toolbar.has_value(), version == 1 && sized && count <= 5) << version << ' ' << width << ' ' << height;
        if (!toolbar) continue;
        EXPECT_TRUE(toolbar->imageWidth == static_cast<int>(width) && toolbar->imageHeight == static_cast<int>(height));
        EXPECT_EQ(toolbar->ids, std::vector(ids.begin(), ids.begin() + static_cast<int>(count)));
        for (bytes.resize(8 + 2 * count); !bytes.empty();) {
            bytes.pop_back();
            EXPECT_FALSE(ParseToolbarResource(bytes)) << bytes.size();
        }
    }
    const ToolbarResource toolbar{16, 15, ids};
    const std::pair<unsigned, int> buttons[] = {{100, 0}, {0, -1}, {101, 2}, {0xFFFF, 3}, {102, -1}, {0x10064, -1}};
    for (const auto& [id, button] : buttons) EXPECT_EQ(toolbar.ButtonIndex(id), button) << id;
    const int images[] = {-1, 0, -1, 1, 2, 3, -1};
    for (int button = -1; button < 6; ++button) EXPECT_EQ(toolbar.ImageIndex(button), images[button + 1]) << button;
}

} // namespace
