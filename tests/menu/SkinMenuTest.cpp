// The skin menu: rows in its own five colours, and what becomes of its platform menu.
#include "menu/SkinMenu.h"

#include <gtest/gtest.h>

#include "Pictures.h"

namespace {

class SkinMenuRow : public testing::Test {
protected:
    SkinMenuRow() {
        menu.backColor = ColorOf('b');
        menu.selectColor = ColorOf('s');
        menu.stripeColor = ColorOf('t');
        menu.frameColor = ColorOf('f');
        menu.selectTextColor = ColorOf('x');
    }

    // Compares a row of 90 by 28 at 2, 3 with what `draw` puts there.
    template <class Draw>
    void ExpectRow(const char* text, UINT state, UINT action, Draw draw) {
        CSurface shown(100, 36, '#');
        DRAWITEMSTRUCT item{};
        item.itemState = state;
        item.itemAction = action;
        item.hDC = shown.GetHandle();
        item.rcItem = {2, 3, 92, 31};
        item.itemData = reinterpret_cast<ULONG_PTR>(text);
        menu.DrawItem(item);
        CSurface expected(100, 36, '#');
        expected.SetBkMode(TRANSPARENT);
        expected.FillSolidRect({2, 3, 92, 31}, ColorOf('b'));
        expected.FillSolidRect({2, 3, 30, 31}, ColorOf('t'));
        draw(expected);
        EXPECT_TRUE(shown.Pixels() == expected.Pixels()) << "state " << state << ", action " << action;
    }
    static void Text(CDC& dc, const wchar_t* text, CRect rect, COLORREF color, UINT format) {
        dc.SetTextColor(color);
        dc.DrawText(std::wstring_view(text), rect, format | DT_VCENTER | DT_SINGLELINE);
    }
    static void Bar(CDC& dc) {
        dc.Draw3dRect({3, 4, 91, 30}, ColorOf('f'), ColorOf('f'));
        dc.FillSolidRect({4, 5, 90, 29}, ColorOf('s'));
    }
    static void Check(CDC& dc, COLORREF tint) {
        dc.Draw3dRect({5, 6, 27, 28}, ColorOf('f'), ColorOf('f'));
        dc.FillSolidRect({6, 7, 26, 27}, tint);
        Text(dc, L"\u221A", {6, 7, 26, 27}, 0, DT_CENTER);
    }

    CSkinMenu menu;
};

TEST_F(SkinMenuRow, States) {
    const COLORREF tint = CSkinMenu::BlendColors(ColorOf('s'), ColorOf('b'), 140);
    const COLORREF selectedTint = CSkinMenu::BlendColors(ColorOf('s'), tint, 140);
    ExpectRow("Menu", 0, ODA_DRAWENTIRE, [](CDC& dc) { Text(dc, L"Menu", {31, 3, 92, 31}, 0, 0); });
    for (const UINT action : {ODA_DRAWENTIRE, ODA_SELECT}) {
        ExpectRow("Menu", ODS_SELECTED, action, [](CDC& dc) {
            Bar(dc);
            Text(dc, L"Menu", {31, 5, 90, 29}, ColorOf('x'), 0);
        });
    }
    ExpectRow("Menu", ODS_SELECTED, ODA_FOCUS, [](CDC& dc) { Text(dc, L"Menu", {31, 3, 92, 31}, ColorOf('x'), 0); });
    ExpectRow("", ODS_CHECKED, ODA_DRAWENTIRE, [tint](CDC& dc) { Check(dc, tint); });
    ExpectRow(nullptr, ODS_CHECKED | ODS_SELECTED, ODA_SELECT, [selectedTint](CDC& dc) {
        Bar(dc);
        Check(dc, selectedTint);
    });
}

TEST_F(SkinMenuRow, MeasuredSizes) {
    const CClientDC screen(nullptr);
    for (const char* text : {"Menu", "", static_cast<const char*>(nullptr)}) {
        MEASUREITEMSTRUCT item{};
        item.itemData = reinterpret_cast<ULONG_PTR>(text);
        menu.MeasureItem(item);
        const std::string_view measured(text != nullptr ? text : "");
        EXPECT_EQ(item.itemWidth, static_cast<UINT>(screen.GetTextExtent(measured).cx + 28));
        EXPECT_EQ(item.itemHeight, 28U);
    }
}

TEST(SkinMenu, ItsPlatformMenuOutlivesIt) {
    const HMENU handle = ::CreatePopupMenu();
    {
        const std::unique_ptr<CObject> made = CSkinMenu::classInfo.CreateObject();
        ASSERT_TRUE(made != nullptr && made->IsKindOf(CSkinMenu::classInfo) && made->IsKindOf(CMenu::classInfo));
        EXPECT_STREQ(made->GetRuntimeClass().name, "CSkinMenu");
        EXPECT_TRUE(static_cast<CSkinMenu&>(*made).Attach(handle));
    }
    EXPECT_TRUE(::IsMenu(handle));
    EXPECT_EQ(CMenu::FromHandlePermanent(handle), nullptr);
    ::DestroyMenu(handle);
    EXPECT_EQ(CMenu::classInfo.CreateObject(), nullptr);
}

} // namespace
