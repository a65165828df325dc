// Menu objects: how the owner-draw messages of a shown popup find them, at any depth.
#include "framework/Menu.h"

#include <set>

#include <gtest/gtest.h>

#include "TestDialog.h"
#include "TimeFactor.h"

namespace {

using Items = std::set<ULONG_PTR>;

class CProbeMenu : public CMenu {
public:
    static constexpr UINT_PTR chosen = 1200;

    CProbeMenu() { CreatePopupMenu(); }
    void Append(ULONG_PTR data, const CProbeMenu* subMenu = nullptr) {
        const UINT kind = subMenu != nullptr ? MF_POPUP : MF_STRING;
        const auto id = subMenu != nullptr ? reinterpret_cast<UINT_PTR>(subMenu->GetHandle()) : chosen;
        ::AppendMenuA(GetHandle(), MF_OWNERDRAW | kind, id, reinterpret_cast<LPCSTR>(data));
    }
    void DrawItem(DRAWITEMSTRUCT& item) override { drawn.insert(item.itemData); }
    void MeasureItem(MEASUREITEMSTRUCT& item) override {
        measured.insert(item.itemData);
        item.itemWidth = 60;
        item.itemHeight = 17;
    }

    Items measured, drawn;
};

class CMenuOwner : public CScriptedDialog {
public:
    CMenuOwner() : CScriptedDialog(IDD_PLAIN) {}
    bool OnCmdMsg(UINT id, UINT code) override {
        commands += id == CProbeMenu::chosen ? 1 : 0;
        return CScriptedDialog::OnCmdMsg(id, code);
    }
    // Shows the menu and presses the keys in it, each once `ready` allows the one of this number; gives its result.
    int Track(CMenu& menu, UINT flags, std::vector<WPARAM> keys, std::function<bool(std::size_t)> ready) {
        int result = 0;
        const DWORD start = ::GetTickCount();
        meanwhile = [&, pressed = std::size_t{0}]() mutable {
            if (::GetTickCount() - start > 20'000 * TimeFactor()) ::EndMenu();
            if (pressed < keys.size() && ready(pressed)) PostMessage(WM_KEYDOWN, keys[pressed++]);
        };
        steps = {[&] { result = menu.TrackPopupMenu(flags, 50, 50, *this); }, [] {}};
        DoModal();
        return result;
    }
    int commands = 0;
};

TEST(Menu, OwnerDrawMessagesReachEveryMenuOfAShownPopup) {
    CProbeMenu root, middle, deep;
    root.Append(1);
    root.Append(11, &middle);
    middle.Append(2);
    middle.Append(12, &deep);
    deep.Append(3);
    CMenuOwner owner;
    // Down to the last item of each menu, into its sub-menu, and at last the choice: each menu is drawn first.
    const int shown = owner.Track(root, TPM_LEFTALIGN, {VK_DOWN, VK_DOWN, VK_RIGHT, VK_DOWN, VK_RIGHT, VK_RETURN},
                                  [&](std::size_t key) {
                                      return root.drawn.size() == 2 && (key < 3 || middle.drawn.size() == 2) &&
                                             (key < 5 || deep.drawn.size() == 1);
                                  });
    EXPECT_NE(shown, 0);
    EXPECT_EQ(owner.commands, 1);
    EXPECT_EQ(root.measured, (Items{1, 11}));
    EXPECT_EQ(middle.measured, (Items{2, 12}));
    EXPECT_EQ(deep.measured, (Items{3}));
    EXPECT_EQ(root.drawn, root.measured);
    EXPECT_EQ(middle.drawn, middle.measured);
    EXPECT_EQ(deep.drawn, deep.measured);
}

TEST(Menu, GivesTheChoiceToItsCallerWhereThatIsAskedFor) {
    CProbeMenu menu;
    menu.Append(1);
    CMenuOwner owner;
    const int choice =
        owner.Track(menu, TPM_RETURNCMD, {VK_DOWN, VK_RETURN}, [&](std::size_t) { return !menu.drawn.empty(); });
    EXPECT_EQ(choice, int{CProbeMenu::chosen});
    EXPECT_EQ(owner.commands, 0);
}

// All ids are the same, or handles cut to 32 bits: an item is known by its data alone.
TEST(Menu, ItemsAreFoundByTheirDataInAnyMenuBelow) {
    CProbeMenu root, other;
    {
        CProbeMenu middle, deep;
        ::AppendMenuA(root.GetHandle(), MF_STRING, CProbeMenu::chosen, "not owner-drawn");
        const HMENU plain = ::CreatePopupMenu(); // has no object, so nobody would draw its items
        ::AppendMenuA(plain, MF_OWNERDRAW, CProbeMenu::chosen, reinterpret_cast<LPCSTR>(UINT_PTR{3}));
        ::AppendMenuA(root.GetHandle(), MF_POPUP, reinterpret_cast<UINT_PTR>(plain), "Plain");
        root.Append(11, &middle);
        middle.Append(12, &deep);
        deep.Append(3);
        EXPECT_EQ(FindMenuOfItem(root.GetHandle(), 3), &deep);
        EXPECT_EQ(FindMenuOfItem(root.GetHandle(), 12), &middle);
        EXPECT_EQ(FindMenuOfItem(root.GetHandle(), 0), nullptr);
        MEASUREITEMSTRUCT item{};
        item.CtlType = ODT_MENU;
        item.itemData = 3;
        EXPECT_TRUE(RouteMenuMeasure(root.GetHandle(), item));
        EXPECT_EQ(item.itemHeight, 17U);
        EXPECT_FALSE(RouteMenuMeasure(other.GetHandle(), item));
    }
    EXPECT_EQ(FindMenuOfItem(root.GetHandle(), 3), nullptr); // the sub-menus are gone
}

TEST(Menu, EachMenuIsGoneThroughOnceAtAnyDepth) {
    CProbeMenu levels[100];
    for (ULONG_PTR i = 0; i < 99; ++i) levels[i].Append(i, &levels[i + 1]);
    levels[99].Append(99);
    EXPECT_EQ(FindMenuOfItem(levels[0].GetHandle(), 99), &levels[99]);
    levels[50].Append(1000, &levels[51]); // met again
    levels[50].Append(1001);
    int items = 0;
    for (CMenuWalk walk(levels[0].GetHandle()); walk.Next();) ++items;
    EXPECT_EQ(items, 102);
}

} // namespace
