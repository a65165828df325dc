// Menus from resources, what items say to keys and to assistive software, who owns sub-menus, and what is asked of the
// system.
#include <gtest/gtest.h>

#include "framework/Wnd.h"
#include "menu/MenuFont.h"
#include "menu/OwnerDrawMenu.h"
#include "menu/PlatformMenu.h"
#include "MenuTestIds.h"
#include "support/Meanwhile.h"

namespace {

class CPopup : public COwnerDrawMenu {
public:
    CPopup() { CreatePopupMenu(); }
};

// The items as they show: the plain caption or, in brackets, that of the record, without padding; then what is not
// usual, the id or the sub-menu.
std::string Shown(const COwnerDrawMenu& menu) {
    std::string text;
    for (int i = 0; i < ::GetMenuItemCount(menu.GetHandle()); ++i) {
        const CMenuItemRecord* record = menu.FindRecord(PlatformItemData(menu.GetHandle(), i));
        const UINT state = ::GetMenuState(menu.GetHandle(), i, MF_BYPOSITION);
        std::string caption = PlatformCaption(menu.GetHandle(), i);
        if (caption.empty() && record != nullptr) caption = "[" + record->GetNarrowText() + "]";
        for (std::size_t pad = 0; (pad = caption.find(" \t")) != std::string::npos;) caption.erase(pad, 1);
        const COwnerDrawMenu* object = OwnerDrawMenuOf(::GetSubMenu(menu.GetHandle(), i));
        text += (i != 0 ? ", " : "") + caption + ((state & MF_CHECKED) != 0 ? "+" : "");
        if ((state & MF_GRAYED) != 0 && object == nullptr) text += "-";
        text += object != nullptr ? "(" + Shown(*object) + ")" : std::to_string(::GetMenuItemID(menu.GetHandle(), i));
    }
    return text;
}

TEST(MenuResource, BuildsATreeUnderAPlainTopLevelOrLeavesNothing) {
    CPopup menu;
    menu.AppendSubMenu("former");
    EXPECT_FALSE(menu.LoadMenuResource(ID_NONE) || menu.LoadMenuResource("none"));
    EXPECT_EQ(Shown(menu), "[former]()");
    ASSERT_TRUE(menu.LoadMenuResource(0x12340000U | IDM_BAR)) << "the low half of a number counts";
    EXPECT_EQ(Shown(menu),
              "&File([&Open...\tCtrl+O]100, []-0, [&Recent]([One\t1]+101, [Number two\tTwo]-102)), 中文103, "
              "&View([Zoom]([More]([Wide]104)))");
    EXPECT_EQ(menu.itemRecords[0]->flags, UINT{MF_POPUP | MF_BYPOSITION});
    EXPECT_TRUE(menu.FindSubMenuByText("&View") == menu.GetSubMenuAt(2) && menu.FindSubMenuByText("View") == nullptr);
    for (const UINT broken : {IDM_TOO_EARLY, IDM_CUT_OFF, IDM_EXTENDED}) {
        EXPECT_TRUE(menu.LoadMenuResource("named"));
        EXPECT_EQ(Shown(menu), "Alone110");
        EXPECT_FALSE(menu.LoadMenuResource(broken)) << broken;
        EXPECT_TRUE(menu.GetHandle() == nullptr && menu.itemRecords.empty() && COwnerDrawMenu::allSubMenus.empty());
    }
}

TEST(MenuResource, AddedPopupsOfABarBecomePlainBehindThePlatformsOwnItems) {
    COwnerDrawMenu menu;
    ASSERT_TRUE(menu.LoadMenuResource("named"));
    ::InsertMenuA(menu.GetHandle(), 0, MF_BYPOSITION | MF_STRING, 900, "foreign");
    ::InsertMenuA(menu.GetHandle(), 1, MF_BYPOSITION | MF_STRING, 901, "");
    EXPECT_EQ(menu.CountForeignItems(), 2);
    menu.AppendSubMenu("&Last")->AppendItem("x", MF_STRING, 105, -1);
    ::EnableMenuItem(menu.GetHandle(), 2, MF_BYPOSITION | MF_GRAYED);
    menu.InsertItem(2, "&First", MF_BYPOSITION | MF_POPUP, IdOfSubMenu((new CPopup)->GetHandle()), -1);
    EXPECT_STREQ(menu.itemRecords[0]->GetText(), L"&First");
    EXPECT_EQ(menu.itemRecords[0]->flags, UINT{MF_POPUP | MF_BYPOSITION});
    CPopup foreign;
    foreign.AppendItem("y", MF_STRING, 107, -1);
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_SUBMENU;
    info.hSubMenu = foreign.GetHandle();
    ::SetMenuItemInfoA(menu.GetHandle(), 2, TRUE, &info);
    menu.InsertItem(3, "command", MF_BYPOSITION, 106, -1);
    EXPECT_EQ(Shown(menu), "foreign900, 901, &First([y]107), [command]106, Alone-110, &Last([x]105)");
}

TEST(MenuResource, AcceleratorsStandInOneColumn) {
    const CClientDC dc(MenuContextWindow());
    const CFont font(MenuFontDescription());
    const CSelectObject selected(dc, font.GetHandle());
    CPopup menu;
    // The last one holds half a pair, which no code page has.
    const std::wstring widest(500, L'w'),
        texts[] = {L"&Cut\tCtrl+X", widest + L"\tF1\tF2", L"i\t", L"\tCtrl+Y", L"Plain", L"", L"\xD800\tF3"};
    for (const std::wstring& text : texts) menu.AppendItem(text.c_str(), MF_STRING, 1, -1);
    menu.PadAccelerators();
    const LONG column = dc.GetTextExtent(widest + L" ").cx;
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        std::wstring wanted = texts[i];
        std::size_t tab = wanted.find(L'\t');
        for (; tab != std::wstring::npos && dc.GetTextExtent(wanted.substr(0, tab)).cx < column; ++tab)
            wanted.insert(tab, L" ");
        EXPECT_EQ(menu.itemRecords[i]->GetText(), wanted);
    }
}

TEST(MenuShortcut, ExecutesTheFirstItemWithTheMnemonic) {
    CPopup menu;
    for (const char* text : {"&Open", "Cl&ose\tCtrl+&W", "Black && White", "&\xC3\x84ndern", "plain", "", "&Last"})
        menu.AppendItem(text, MF_STRING, 100, -1);
    const std::pair<UINT, LRESULT> cases[] = {{'o', 0},    {'O', 0}, {'w', 1}, {0xA4C3, 3},
                                              {0x84C3, 3}, {'&', 2}, {' ', 2}};
    for (const auto& [character, position] : cases) {
        EXPECT_EQ(menu.MenuChar(character, MF_POPUP), MAKELRESULT(position, MNC_EXECUTE)) << character;
        EXPECT_EQ(menu.MenuChar(character, MF_SYSMENU), 0) << character;
    }
    for (const UINT character : {UINT{'p'}, 0U, 0xFFU}) EXPECT_EQ(menu.MenuChar(character, MF_POPUP), 0) << character;
    ::RemoveMenu(menu.GetHandle(), 0, MF_BYPOSITION);
    EXPECT_EQ(menu.MenuChar('o', MF_POPUP), MAKELRESULT(0, 2)) << "after the records are in step again";
    CWnd owner;
    owner.Create("STATIC", "", WS_POPUP | WS_VISIBLE, {0, 0, 50, 50}, nullptr, 0);
    const CMeanwhile press([&] { return ShownPopup() != nullptr && owner.PostMessage(WM_CHAR, 'l'); });
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 60, 60, owner), 100);
}

} // namespace
