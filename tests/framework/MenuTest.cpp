// Menu objects: how owner-draw messages find them, at any depth.
#include "framework/Menu.h"

#include <gtest/gtest.h>

#include "framework/HandleMap.h"

namespace {

class CProbeMenu : public CMenu {
public:
    CProbeMenu() { CreatePopupMenu(); }
    void Append(ULONG_PTR data, const CProbeMenu* subMenu = nullptr) const {
        const auto id = subMenu != nullptr ? reinterpret_cast<UINT_PTR>(subMenu->GetHandle()) : 1200;
        const UINT kind = subMenu != nullptr ? MF_POPUP : MF_STRING;
        ::AppendMenuA(GetHandle(), MF_OWNERDRAW | kind, id, reinterpret_cast<LPCSTR>(data));
    }
    void DrawItem(DRAWITEMSTRUCT& item) override { item.itemState = 5; }
    void MeasureItem(MEASUREITEMSTRUCT& item) override { item.itemHeight = 17; }
};

// All ids are the same, or handles cut to 32 bits: an item is known by its data alone.
TEST(Menu, ItemsAreFoundByTheirDataInAnyMenuBelowAndEachMenuOnce) {
    CProbeMenu levels[100], other;
    const HMENU root = levels[0].GetHandle(), plain = ::CreatePopupMenu();
    ::AppendMenuA(plain, MF_OWNERDRAW, 1, reinterpret_cast<LPCSTR>(UINT_PTR{99})); // no object would draw it
    ::AppendMenuA(root, MF_POPUP, reinterpret_cast<UINT_PTR>(plain), "Plain");
    ::AppendMenuA(root, MF_STRING, 1, "not owner-drawn");
    for (ULONG_PTR i = 0; i < 99; ++i) levels[i].Append(i + 1000, &levels[i + 1]);
    levels[99].Append(99);
    levels[50].Append(7, &levels[51]); // met again
    levels[50].Append(8);
    EXPECT_EQ(FindMenuOfItem(root, 99), &levels[99]);
    EXPECT_EQ(FindMenuOfItem(root, 1042), &levels[42]);
    EXPECT_EQ(FindMenuOfItem(root, 5), nullptr);
    int items = 0;
    for (CMenuWalk walk(root); walk.Next();) ++items;
    EXPECT_EQ(items, 105);
    MEASUREITEMSTRUCT item{};
    item.itemData = 99;
    EXPECT_TRUE(RouteMenuMeasure(root, item) && !RouteMenuMeasure(other.GetHandle(), item));
    EXPECT_EQ(item.itemHeight, 17U);
    DRAWITEMSTRUCT drawn{};
    EXPECT_FALSE(RouteMenuDraw(drawn));
    drawn.hwndItem = reinterpret_cast<HWND>(root);
    EXPECT_TRUE(RouteMenuDraw(drawn) && drawn.itemState == 5);
    EXPECT_TRUE(levels[60].DestroyMenu() && !levels[60].DestroyMenu());
    EXPECT_EQ(FindMenuOfItem(root, 99), nullptr);
    CMenu* const wrapper = CMenu::FromHandle(plain);
    EXPECT_TRUE(wrapper == CMenu::FromHandle(plain) && CMenu::FromHandlePermanent(plain) == nullptr);
    DropTemporaryWrappers();
    EXPECT_TRUE(::IsMenu(plain) && !other.Attach(plain));
}

} // namespace
