// Menus from resources, and records that follow what was done to the platform's menu directly.
#include <algorithm>

#include "MenuTestIds.h"
#include "MenuTree.h"
#include "framework/Dc.h"
#include "menu/MenuFont.h"

namespace {

// What a bar shows: its own captions, flags and ids, as the platform has them.
std::string Bar(const COwnerDrawMenu& menu) {
    std::string items;
    for (int position = 0; position < ::GetMenuItemCount(menu.GetHandle()); ++position) {
        const UINT state = ::GetMenuState(menu.GetHandle(), static_cast<UINT>(position), MF_BYPOSITION);
        const bool isPopup = ::GetSubMenu(menu.GetHandle(), position) != nullptr;
        if (!items.empty()) items += ", ";
        items += !isPopup && (state & MF_OWNERDRAW) != 0 ? "drawn" : PlatformCaption(menu.GetHandle(), position);
        if (!isPopup) items += " " + std::to_string(::GetMenuItemID(menu.GetHandle(), position));
    }
    return items;
}

std::string WithoutPadding(std::string text) {
    for (std::size_t space = 0; (space = text.find(" \t")) != std::string::npos;) text.erase(space, 1);
    return text;
}

TEST(MenuResource, BuildsATreeUnderAPlainTopLevel) {
    COwnerDrawMenu menu;
    menu.CreatePopupMenu();
    menu.AppendSubMenu("former");
    ASSERT_TRUE(menu.LoadMenuResource(0x12340000U | IDM_BAR)) << "the low half of a number counts";
    EXPECT_TRUE(menu.loadedFromResource);
    EXPECT_EQ(
        WithoutPadding(Describe(menu)),
        "&File(&Open...\tCtrl+O100, -, &Recent(One\t1101, Number two\tTwo102)), 中文103, &View(Zoom(More(Wide104)))");
    EXPECT_EQ(Bar(menu), "&File, 中文 103, &View");
    EXPECT_EQ(menu.itemRecords[0]->flags, UINT{MF_POPUP | MF_BYPOSITION});
    EXPECT_EQ(menu.itemRecords[1]->flags, UINT{MF_BYPOSITION});
    EXPECT_EQ(COwnerDrawMenu::allSubMenus.size(), 5U);
    for (const HMENU subMenu : menu.subMenus) {
        const COwnerDrawMenu* object = OwnerDrawMenuOf(subMenu);
        ASSERT_NE(object, nullptr);
        ExpectInStep(*object);
        EXPECT_FALSE(object->loadedFromResource);
    }
    int position = 0;
    COwnerDrawMenu* recent = menu.LocateItem(101, position);
    ASSERT_NE(recent, nullptr);
    EXPECT_EQ(recent->itemRecords[0]->flags, UINT{MF_CHECKED | MF_OWNERDRAW});
    EXPECT_EQ(recent->itemRecords[1]->flags, UINT{MF_GRAYED | MF_OWNERDRAW});
    EXPECT_EQ(menu.FindSubMenuByText("&View"), menu.GetSubMenuAt(2));
    EXPECT_EQ(menu.FindSubMenuByText("View"), nullptr);
    EXPECT_TRUE(menu.LoadMenuResource("named"));
    EXPECT_EQ(Bar(menu), "Alone 110");
    EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty());
}

TEST(MenuResource, AMissingOneLeavesTheMenuAndABrokenOneLeavesItEmpty) {
    for (const UINT broken : {IDM_TOO_EARLY, IDM_CUT_OFF, IDM_EXTENDED}) {
        CMenuTree tree;
        EXPECT_FALSE(tree.LoadMenuResource(IDM_NONE));
        EXPECT_FALSE(tree.LoadMenuResource("none"));
        ExpectInStep(tree);
        EXPECT_EQ(tree.itemRecords.size(), 4U);
        EXPECT_FALSE(tree.LoadMenuResource(broken)) << broken;
        EXPECT_EQ(tree.GetHandle(), nullptr);
        EXPECT_TRUE(tree.itemRecords.empty() && tree.subMenus.empty() && COwnerDrawMenu::allSubMenus.empty());
        EXPECT_FALSE(tree.loadedFromResource);
        EXPECT_TRUE(tree.LoadMenuResource("named")) << "it can be filled again";
    }
}

TEST(MenuResource, AddedPopupsOfABarBecomePlainBehindThePlatformsOwnItems) {
    COwnerDrawMenu menu;
    ASSERT_TRUE(menu.LoadMenuResource(IDM_BAR));
    EXPECT_EQ(menu.CountForeignItems(), 0);
    ::InsertMenuA(menu.GetHandle(), 0, MF_BYPOSITION | MF_STRING, 900, "foreign");
    ::InsertMenuA(menu.GetHandle(), 1, MF_BYPOSITION | MF_STRING, 901, "");
    EXPECT_EQ(menu.CountForeignItems(), 2);

    ::EnableMenuItem(menu.GetHandle(), 2, MF_BYPOSITION | MF_GRAYED);
    menu.AppendSubMenu("&Last")->AppendItem("x", MF_STRING, 105, -1);
    EXPECT_EQ(::GetMenuState(menu.GetHandle(), 2, MF_BYPOSITION) & MF_GRAYED, UINT{MF_GRAYED});
    EXPECT_EQ(Bar(menu), "foreign 900,  901, &File, 中文 103, &View, &Last");
    EXPECT_EQ(menu.itemRecords[3]->flags, UINT{MF_POPUP | MF_BYPOSITION});

    auto subMenu = std::make_unique<COwnerDrawMenu>();
    subMenu->CreatePopupMenu();
    menu.InsertItem(2, "&First", MF_BYPOSITION | MF_POPUP, IdOfSubMenu(subMenu.release()->GetHandle()), -1);
    EXPECT_EQ(Bar(menu), "foreign 900,  901, &First, &File, 中文 103, &View, &Last");
    EXPECT_STREQ(menu.itemRecords[0]->GetText(), L"&First");
    EXPECT_EQ(menu.itemRecords.size(), 5U);
    menu.InsertItem(3, "command", MF_BYPOSITION, 106, -1);
    EXPECT_EQ(Bar(menu), "foreign 900,  901, &First, drawn 106, &File, 中文 103, &View, &Last");
    COwnerDrawMenu popup;
    popup.CreatePopupMenu();
    popup.AppendItem("x", MF_STRING, 1, -1);
    EXPECT_EQ(popup.CountForeignItems(), 0);
}

TEST(MenuResource, AcceleratorsStandInOneColumn) {
    const CClientDC dc(MenuContextWindow());
    const CFont font(MenuFontDescription());
    const CSelectObject selected(dc, font.GetHandle());
    const auto width = [&](const std::string& text) { return dc.GetTextExtent(text).cx; };

    for (const bool longCaption : {false, true}) {
        COwnerDrawMenu menu;
        menu.CreatePopupMenu();
        const std::string widest = longCaption ? std::string(500, 'w') : "Widest of all";
        for (const std::string& text : {std::string("&Cut\tCtrl+X"), widest + "\tF1\tF2", std::string("i\t"),
                                        std::string("\tCtrl+Y"), std::string("Plain"), std::string()}) {
            menu.AppendItem(text.c_str(), MF_STRING, 1, -1);
        }
        menu.AppendItem(static_cast<const char*>(nullptr), MF_STRING, 2, -1);
        menu.PadAccelerators();
        const LONG column = width(widest + " ");
        for (int i = 0; i < 4; ++i) {
            const std::string text = menu.itemRecords[static_cast<std::size_t>(i)]->GetNarrowText();
            const std::string caption = text.substr(0, text.find('\t'));
            EXPECT_GE(width(caption), column) << text;
            EXPECT_LT(width(caption.substr(0, caption.size() - 1)), column) << text;
        }
        EXPECT_EQ(menu.itemRecords[1]->GetNarrowText(), widest + " \tF1\tF2");
        EXPECT_STREQ(menu.itemRecords[4]->GetText(), L"Plain");
        EXPECT_EQ(menu.itemRecords[6]->GetText(), nullptr);
    }
}

TEST(MenuSynchronization, RecordsFollowWhatWasDoneToThePlatformsMenu) {
    constexpr UINT at = MF_BYPOSITION;
    const struct {
        const char* what;
        void (*edit)(HMENU menu);
        const char* left;
        std::array<int, 5> kept; // for each record, which it was; -1 for a new one
    } cases[] = {
        // clang-format off
        {"nothing", [](HMENU) {}, "a1, b2, a1, -, S()", {0, 1, 2, 3, 4}},
        {"append", [](HMENU m) { ::RemoveMenu(m, 1, at); ::AppendMenuA(m, 0, 9, "n"); }, "a1, a1, -, S(), n9", {0, 2, 3, 4, -1}},
        {"swap", [](HMENU m) { ::RemoveMenu(m, 3, at); ::InsertMenuA(m, 0, at | MF_SEPARATOR, 0, nullptr); },
         "-, a1, b2, a1, S()", {3, 0, 1, 2, 4}},
        {"new caption", [](HMENU m) { ::ModifyMenuA(m, 1, at, 2, "B"); }, "a1, B2, a1, -, S()", {0, 1, 2, 3, 4}},
        {"a third of one command", [](HMENU m) { ::InsertMenuA(m, 0, at, 1, "A"); ::RemoveMenu(m, 2, at); },
         "A1, a1, a1, -, S()", {-1, 0, 2, 3, 4}},
        {"the first of two", [](HMENU m) { ::AppendMenuA(m, 0, 9, "n"); ::RemoveMenu(m, 0, at); },
         "b2, a1, -, S(), n9", {1, 2, 3, 4, -1}},
        {"two made anew", [](HMENU m) { ::ModifyMenuA(m, 0, at, 1, "x"); ::ModifyMenuA(m, 2, at, 1, "y"); },
         "x1, b2, y1, -, S()", {0, 1, 2, 3, 4}},
        // clang-format on
    };
    for (const auto& [what, edit, left, kept] : cases) {
        SCOPED_TRACE(what);
        COwnerDrawMenu menu;
        menu.CreatePopupMenu();
        menu.AppendItem("a", MF_STRING, 1, -1);
        menu.AppendItem("b", MF_STRING, 2, -1);
        menu.AppendItem("a", MF_STRING, 1, -1);
        menu.AppendItem("", MF_SEPARATOR, 0, -1);
        COwnerDrawMenu* subMenu = menu.AppendSubMenu("S");
        std::vector<const CMenuItemRecord*> before;
        for (const auto& record : menu.itemRecords) before.push_back(record.get());

        edit(menu.GetHandle());
        COwnerDrawMenu::SynchronizeMenu(&menu);
        EXPECT_EQ(Describe(menu), left);
        ASSERT_EQ(menu.itemRecords.size(), kept.size());
        for (std::size_t i = 0; i < kept.size(); ++i) {
            const CMenuItemRecord* record = menu.itemRecords[i].get();
            const auto found = std::ranges::find(before, record) - before.begin();
            EXPECT_EQ(found < static_cast<std::ptrdiff_t>(before.size()) ? found : -1, kept[i]) << i;
            EXPECT_EQ(PlatformItemData(menu.GetHandle(), static_cast<int>(i)), record->GetItemData()) << i;
        }
        EXPECT_NE(OwnerDrawMenuOf(subMenu->GetHandle()), nullptr) << "its object isn't freed by synchronisation";
    }
    COwnerDrawMenu::SynchronizeMenu(nullptr);
}

TEST(MenuSynchronization, StateAndFlagsComeFromThePlatform) {
    COwnerDrawMenu menu;
    menu.CreatePopupMenu();
    for (UINT id = 1; id <= 3; ++id) menu.AppendItem("item", MF_STRING, id, -1);
    COwnerDrawMenu* subMenu = menu.AppendSubMenu("Sub");
    for (UINT id = 10; id < 20; ++id) subMenu->AppendItem("more than eight", MF_STRING, id, -1);
    ::CheckMenuItem(menu.GetHandle(), 1, MF_CHECKED);
    ::EnableMenuItem(menu.GetHandle(), 2, MF_GRAYED);
    menu.SynchronizeRecords();
    const UINT flags[] = {MF_CHECKED | 0x500U, MF_GRAYED | 0x500U, 0x500U, 0x110U};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(menu.itemRecords[i]->flags, flags[i]) << i;
    EXPECT_EQ(::GetMenuState(menu.GetHandle(), 1, MF_BYCOMMAND) & 0xFF, UINT{MF_CHECKED});
    ExpectInStep(menu);

    // A caption that was written since counts, not the one that the item had while it was plain.
    ::ModifyMenuA(menu.GetHandle(), 3, MF_BYCOMMAND | MF_HILITE, 3, "plain");
    for (const char* text : {"plain", "written"}) {
        menu.SynchronizeRecords();
        EXPECT_EQ(menu.itemRecords[2]->GetNarrowText(), text);
        EXPECT_EQ(menu.itemRecords[2]->flags, 0x500U);
        EXPECT_EQ(::GetMenuState(menu.GetHandle(), 3, MF_BYCOMMAND) & 0xFF, UINT{MF_HILITE});
        menu.WriteItemText(2, L"written", MF_BYPOSITION);
    }
    menu.itemRecords.clear();
    menu.SynchronizeRecords();
    EXPECT_EQ(menu.itemRecords[3]->flags, 0x510U) << "the count of its items is no flag";
    EXPECT_STREQ(menu.itemRecords[3]->GetText(), L"");
    ExpectInStep(menu);
    menu.DestroyMenu();
    menu.SynchronizeRecords();
    EXPECT_TRUE(menu.itemRecords.empty());
}

} // namespace
