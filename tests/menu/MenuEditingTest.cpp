// Editing a built menu: records, platform items and the lists of sub-menus after each operation.
#include "MenuTree.h"

namespace {

constexpr UINT at = MF_BYPOSITION;
constexpr UINT id = MF_BYCOMMAND;
constexpr const wchar_t* keepText = nullptr;
using Tree = CMenuTree;

TEST(MenuEditing, EachOperationLeavesRecordsAndItemsInStep) {
    constexpr const char* untouched = "a1, M(b2, D(c3, a1)), -, d4";
    const struct {
        const char* what;
        bool (*edit)(Tree& tree);
        bool result;
        const char* left;
    } cases[] = {
        // clang-format off
        {"at the head", [](Tree& t) { return t.InsertItem(0, "n", at, 9, -1); }, true, "n9, a1, M(b2, D(c3, a1)), -, d4"},
        {"at the end", [](Tree& t) { return t.InsertItem(-1, L"n", at, 9, -1); }, true, "a1, M(b2, D(c3, a1)), -, d4, n9"},
        {"beyond it", [](Tree& t) { return t.InsertMenuItem(99, at, 9, "n", -1); }, true, "a1, M(b2, D(c3, a1)), -, d4, n9"},
        {"before an id", [](Tree& t) { return t.InsertItem(3, "n", id, 9, -1); }, true, "a1, M(b2, D(n9, c3, a1)), -, d4"},
        {"before none", [](Tree& t) { return t.InsertItem(99, "n", id, 9, -1); }, false, untouched},
        {"no image list", [](Tree& t) { return t.InsertItem(4, "n", id, 9, nullptr, 0); }, true, "a1, M(b2, D(c3, a1)), -, n9, d4"},
        {"separator", [](Tree& t) { return t.InsertItem(1, "", at | MF_GRAYED, 0, -1); }, true, "a1, -, M(b2, D(c3, a1)), -, d4"},
        {"remove at", [](Tree& t) { return t.RemoveItem(3, at); }, true, "a1, M(b2, D(c3, a1)), -"},
        {"remove first", [](Tree& t) { return t.RemoveItem(1, id); }, true, "M(b2, D(c3, a1)), -, d4"},
        {"delete id below", [](Tree& t) { return t.DeleteItem(3, id); }, true, "a1, M(b2, D(a1)), -, d4"},
        {"remove twin", [](Tree& t) { t.AppendItem("twin", MF_STRING, 1, -1); return t.RemoveItem(4, at); }, true, untouched},
        {"remove none", [](Tree& t) { return t.RemoveItem(99, id); }, false, untouched},
        {"delete beyond", [](Tree& t) { return t.DeleteItem(4, at); }, false, untouched},
        {"remove line", [](Tree& t) { return t.RemoveItem(2, at); }, true, "a1, M(b2, D(c3, a1)), d4"},
        {"delete line", [](Tree& t) { return t.DeleteItem(2, at); }, true, "a1, M(b2, D(c3, a1)), d4"},
        {"remove branch", [](Tree& t) { return t.RemoveItem(1, at); }, true, "a1, -, d4"},
        {"delete branch", [](Tree& t) { return t.DeleteItem(1, at); }, true, "a1, -, d4"},
        {"modify all", [](Tree& t) { return t.ModifyItem("x", 1, -1); }, true, "x1, M(b2, D(c3, x1)), -, d4"},
        {"keep text", [](Tree& t) { return t.ModifyItem(keepText, 1, nullptr, 0); }, true, untouched},
        {"by text", [](Tree& t) { return t.ModifyItemByText("x", "c", -1); }, true, "a1, M(b2, D(x3, a1)), -, d4"},
        {"by no text", [](Tree& t) { return t.ModifyItemByText("x", "C", -1); }, false, untouched},
        {"write below", [](Tree& t) { return t.WriteItemText(3, L"x", id); }, true, "a1, M(b2, D(x3, a1)), -, d4"},
        {"write beyond", [](Tree& t) { return t.WriteItemText(4, "x", at); }, false, untouched},
        // clang-format on
    };
    for (const auto& [what, edit, result, left] : cases) {
        SCOPED_TRACE(what);
        Tree tree;
        EXPECT_EQ(edit(tree), result);
        EXPECT_EQ(Describe(tree), left);
        ExpectInStep(tree);
        const auto popups = std::ranges::count(std::string(left), '(');
        EXPECT_EQ(static_cast<std::ptrdiff_t>(COwnerDrawMenu::allSubMenus.size()), popups);
    }
    EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty());
}

TEST(MenuEditing, AnItemOfThePlatformsOwnAtTheHeadShiftsNothing) {
    const struct {
        const char* what;
        bool (*edit)(COwnerDrawMenu& menu);
        bool result;
        const char *records, *drawn; // what each item draws, `?` for one that has no record
    } cases[] = {
        // clang-format off
        {"modify", [](COwnerDrawMenu& m) { return m.ModifyItem("x", 9, -1); }, true, "x9, a1, -, b2", "xa-b"},
        {"keep caption", [](COwnerDrawMenu& m) { return m.ModifyItem(keepText, 9, -1); }, true, "F9, a1, -, b2", "Fa-b"},
        {"by text", [](COwnerDrawMenu& m) { return m.RemoveItemByText("a", 0) == 0; }, true, "-, b2", "?-b"},
        {"and the one before", [](COwnerDrawMenu& m) { return m.DeleteItemByText("b", 1) == 2; }, true, "a1", "?a"},
        {"write by id", [](COwnerDrawMenu& m) { return m.WriteItemText(1, "x", id); }, true, "x1, -, b2", "?x-b"},
        {"write at", [](COwnerDrawMenu& m) { return m.WriteItemText(3, "x", at); }, true, "a1, -, x2", "?a-x"},
        {"write its own", [](COwnerDrawMenu& m) { return m.WriteItemText(0, "x", at); }, false, "a1, -, b2", "?a-b"},
        {"twin", [](COwnerDrawMenu& m) { ::InsertMenuA(m.GetHandle(), 0, at, 2, "b"); return m.RemoveItem(0, at); },
         true, "a1, -, b2", "?a-b"},
        {"line", [](COwnerDrawMenu& m) { ::InsertMenuA(m.GetHandle(), 1, at | MF_SEPARATOR, 0, ""); return m.DeleteItem(1, at); },
         true, "a1, -, b2", "?a-b"},
        // clang-format on
    };
    for (const auto& [what, edit, result, records, drawn] : cases) {
        SCOPED_TRACE(what);
        COwnerDrawMenu menu;
        menu.CreatePopupMenu();
        menu.AppendItem("a", MF_STRING, 1, -1);
        menu.AppendItem("", MF_SEPARATOR, 0, -1);
        menu.AppendItem("b", MF_STRING, 2, -1);
        ::InsertMenuA(menu.GetHandle(), 0, at, 9, "F");
        EXPECT_EQ(edit(menu), result);
        EXPECT_EQ(Describe(menu), records);
        std::string items;
        for (int position = 0; position < ::GetMenuItemCount(menu.GetHandle()); ++position) {
            const CMenuItemRecord* record = menu.FindRecord(PlatformItemData(menu.GetHandle(), position));
            items += record == nullptr ? "?" : record->id == 0 ? "-" : record->GetNarrowText();
        }
        EXPECT_EQ(items, drawn);
    }
}

TEST(MenuEditing, FlagsOfInsertedAndChangedItems) {
    Tree tree;
    tree.InsertItem(0, "checked", at | MF_CHECKED, 9, -1);
    EXPECT_EQ(tree.itemRecords[0]->flags, UINT{MF_BYPOSITION | MF_CHECKED | MF_OWNERDRAW});
    tree.ModifyItem(keepText, 9, -1);
    EXPECT_EQ(tree.itemRecords[0]->flags, UINT{MF_CHECKED | MF_OWNERDRAW});
    ::CheckMenuItem(tree.GetHandle(), 9, MF_UNCHECKED);
    ::CheckMenuItem(tree.GetHandle(), 3, MF_CHECKED);
    ::EnableMenuItem(tree.GetHandle(), 3, MF_GRAYED);
    for (const UINT command : {9U, 3U}) EXPECT_TRUE(tree.ModifyItem("other", command, -1));
    const auto marks = [&](UINT command) { return ::GetMenuState(tree.GetHandle(), command, MF_BYCOMMAND) & 0xFF; };
    EXPECT_EQ(marks(9), 0U);
    EXPECT_EQ(marks(3), UINT{MF_CHECKED | MF_GRAYED});
    tree.InsertItem(0, "text", at | MF_GRAYED | MF_POPUP, 0, -1);
    EXPECT_EQ(tree.itemRecords[0]->flags, 0xD00U);

    auto subMenu = std::make_unique<COwnerDrawMenu>();
    subMenu->CreatePopupMenu();
    const HMENU handle = subMenu.release()->GetHandle();
    tree.InsertItem(0, "first", at | MF_POPUP, IdOfSubMenu(handle), -1);
    EXPECT_EQ(tree.itemRecords[0]->flags, 0x510U);
    EXPECT_EQ(tree.subMenus, (std::vector{handle, tree.more->GetHandle()}));
    EXPECT_EQ(COwnerDrawMenu::allSubMenus.back(), handle);
    ExpectInStep(tree);
}

TEST(MenuEditing, RecordsThatOutliveOrPrecedeTheirItems) {
    Tree tree;
    const HMENU plain = ::CreatePopupMenu();
    for (const UINT command : {9U, 1U}) ::AppendMenuA(plain, MF_STRING, command, "plain");
    ::InsertMenuA(tree.GetHandle(), 0, at | MF_POPUP, IdOfSubMenu(plain), "Plain");
    EXPECT_FALSE(tree.ModifyItem("n", 9, -1)) << "no item of this class has this id";
    EXPECT_TRUE(tree.ModifyItem(keepText, 1, -1));
    EXPECT_EQ(PlatformCaption(plain, 0) + PlatformCaption(plain, 1), "plainplain") << "and not owner-drawn";
    ::DeleteMenu(tree.GetHandle(), 0, at);
    EXPECT_EQ(Describe(tree), "a1, M(b2, D(c3, a1)), -, d4, n9");
    tree.WriteItemText(2, "text", at);
    EXPECT_TRUE(tree.DeleteItem(2, at));
    EXPECT_EQ(Describe(tree), "a1, M(b2, D(c3, a1)), -text, d4, n9") << "a separator with a text";
    EXPECT_EQ(::GetMenuItemCount(tree.GetHandle()), 3);
}

TEST(MenuEditing, ItemsGoByTextWithTheirNeighbours) {
    const struct {
        const char* text;
        int neighbours, result;
        const char* left;
    } cases[] = {
        {"5", 0, 5, "01234678"}, {"5", 1, 5, "0123678"},    {"5", 2, 5, "0123678"},  {"5", 3, 5, "012378"},
        {"5", 4, 5, "01234678"}, {"9", 3, -1, "012345678"}, {"0", 3, 0, "12345678"}, {"8", 3, 8, "0123456"},
    };
    for (const auto& [text, neighbours, result, left] : cases) {
        for (const bool deletes : {false, true}) {
            COwnerDrawMenu menu;
            menu.CreatePopupMenu();
            for (UINT i = 0; i < 9; ++i) menu.AppendItem(std::to_string(i).c_str(), MF_STRING, 200 + i, -1);
            EXPECT_EQ(deletes ? menu.DeleteItemByText(text, neighbours) : menu.RemoveItemByText(text, neighbours),
                      result);
            std::string items;
            for (const auto& record : menu.itemRecords) items += record->GetNarrowText();
            EXPECT_EQ(items, left) << text << " " << neighbours;
            ExpectInStep(menu);
        }
    }
}

TEST(MenuSearch, GoesDownBeforeItGoesOn) {
    Tree tree;
    tree.AppendItem("late", MF_STRING, 2, -1);
    const auto popup = static_cast<UINT>(IdOfSubMenu(tree.more->GetHandle()));
    const struct {
        COwnerDrawMenu* menu;
        UINT command;
        int position;
    } cases[] = {{&tree, 1, 0}, {tree.more, 2, 0},  {tree.deep, 3, 0},   {&tree, 4, 3},
                 {&tree, 0, 2}, {nullptr, 999, -1}, {nullptr, popup, -1}};
    int found = 77;
    for (const auto& [menu, command, position] : cases) {
        EXPECT_EQ(tree.LocateItem(command, found), menu) << command;
        EXPECT_EQ(found, position) << command;
    }
    COwnerDrawMenu* const menus[] = {&tree, tree.more};
    const int positions[] = {0, 0};
    EXPECT_EQ(tree.LocateNextItem(1, found, menus, positions), tree.deep);
    EXPECT_EQ(found, 1);
    EXPECT_EQ(tree.LocateNextItem(2, found, menus, positions), &tree);
    EXPECT_EQ(found, 4);
    EXPECT_EQ(COwnerDrawMenu().LocateItem(0, found), nullptr);
    EXPECT_EQ(found, -1);
}

TEST(MenuSearch, FindsAndReadsTexts) {
    Tree tree;
    tree.AppendItem(keepText, MF_STRING, 5, -1);
    EXPECT_EQ(tree.LocateRecordByText(L"a"), tree.itemRecords[0].get());
    EXPECT_EQ(tree.LocateRecordByText(L"c"), tree.deep->itemRecords[0].get());
    EXPECT_EQ(tree.LocateRecordByText(L"A"), nullptr);
    EXPECT_EQ(tree.GetItemPosition(L"d"), 3);
    EXPECT_EQ(tree.GetItemPosition(L"c"), -1);
    EXPECT_EQ(tree.FindSubMenuOfRecord("D"), tree.deep);
    EXPECT_EQ(tree.FindSubMenuOfRecord(L"b"), nullptr);
    EXPECT_EQ(tree.FindSubMenuByText("M"), nullptr) << "an owner-drawn item has no caption of the platform's";

    COwnerDrawMenu popupsAlone;
    popupsAlone.CreatePopupMenu();
    popupsAlone.AppendSubMenu("outer")->AppendItem("inner", MF_STRING, 1, -1);
    EXPECT_EQ(popupsAlone.LocateRecordByText(L"outer"), nullptr);
    EXPECT_NE(popupsAlone.LocateRecordByText(L"inner"), nullptr);
    EXPECT_EQ(popupsAlone.GetItemPosition(L"outer"), -1);

    std::string text = "untouched";
    ::AppendMenuA(tree.deep->GetHandle(), MF_STRING, 998, "no record");
    EXPECT_FALSE(tree.ReadItemText(5, text, at));
    EXPECT_FALSE(tree.ReadItemText(static_cast<UINT>(-1), text, at));
    EXPECT_FALSE(tree.ReadItemText(999, text, id));
    EXPECT_FALSE(tree.ReadItemText(998, text, id));
    EXPECT_EQ(text, "untouched");
    EXPECT_TRUE(tree.ReadItemText(3, text, id));
    EXPECT_EQ(text, "c");
}

TEST(MenuShortcut, ExecutesTheFirstItemWithTheMnemonic) {
    COwnerDrawMenu menu;
    menu.CreatePopupMenu();
    for (const char* text : {"&Open", "Cl&ose\tCtrl+&W", "Black && White", "&\xC3\x84ndern", "plain", ""}) {
        menu.AppendItem(text, MF_STRING, 100, -1);
    }
    menu.AppendSubMenu("&More");
    menu.AppendItem(keepText, MF_STRING, 101, -1);
    const struct {
        UINT character;
        int position;
    } cases[] = {{'o', 0}, {'O', 0}, {'w', 1}, {'m', 6}, {0xA4C3, 3}, {0x84C3, 3}, {'&', 2}, {' ', 2}};
    for (const auto& [character, position] : cases) {
        EXPECT_EQ(menu.MenuChar(character, MF_POPUP), MAKELRESULT(position, MNC_EXECUTE)) << character;
        EXPECT_EQ(COwnerDrawMenu::FindShortcut(character, MF_SYSMENU, &menu), 0) << character;
        EXPECT_EQ(COwnerDrawMenu::FindShortcut(character, MF_POPUP, nullptr), 0) << character;
    }
    for (const UINT character : {UINT{'p'}, 0U, 0xFFU}) EXPECT_EQ(menu.MenuChar(character, MF_POPUP), 0) << character;
    ::RemoveMenu(menu.GetHandle(), 0, MF_BYPOSITION);
    EXPECT_EQ(menu.MenuChar('o', MF_POPUP), MAKELRESULT(0, 2)) << "after the records are in step again";
    EXPECT_EQ(menu.itemRecords.size(), 7U);
}

} // namespace
