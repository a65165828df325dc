// The popups of the top bar: what they offer and mark, and that nothing of them stays.
#include "PanelFixture.h"
#include "menu/OwnerDrawMenu.h"
#include "support/Meanwhile.h"

namespace {

// "COM[COM3 COM17*] Open Log": the rows with what hangs in them, those with a mark starred.
std::string TreeOf(HMENU menu, std::vector<HMENU>& menus) {
    menus.push_back(menu);
    std::string text;
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        MENUITEMINFOA item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_DATA | MIIM_STATE | MIIM_SUBMENU;
        ::GetMenuItemInfoA(menu, static_cast<UINT>(i), TRUE, &item);
        const auto& record = *reinterpret_cast<const CMenuItemRecord*>(item.dwItemData);
        text += (i > 0 ? " " : "") + record.GetNarrowText() + ((item.fState & MFS_CHECKED) != 0 ? "*" : "");
        if (item.hSubMenu != nullptr) text += "[" + TreeOf(item.hSubMenu, menus) + "]";
    }
    return text;
}

TEST_F(PanelTest, PopupsMarkWhatIsInForceAndLeaveNothing) {
    const std::tuple<int, bool, int, int, std::string> rows[] = {
        {ID_PORT_MENU, false, 2, 17, "COM[COM3 COM17*] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_PORT_MENU, true, 2, 3, "COM[COM3* COM17] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_PORT_MENU, false, 0, 3, "COM[] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_HELP_MENU, false, 2, 17, "&About ..."},
        {ID_LANGUAGE_MENU, false, 2, 17, "English* Chinese"},
        {ID_LANGUAGE_MENU, true, 2, 17, "English Chinese*"}};
    const std::size_t registered = COwnerDrawMenu::allSubMenus.size();
    for (const auto& [button, chinese, ports, selected, tree] : rows) {
        frame.chinese = chinese, frame.ports.count = ports, frame.selected = selected;
        std::vector<HMENU> menus;
        const CMeanwhile meanwhile([&, &expected = tree] {
            const HWND popup = ShownPopup();
            if (popup == nullptr) return false;
            EXPECT_EQ(TreeOf(reinterpret_cast<HMENU>(::SendMessageA(popup, MN_GETHMENU, 0, 0)), menus), expected);
            return ::EndMenu() != FALSE;
        });
        Click(button);
        for (const HMENU menu : menus) EXPECT_FALSE(::IsMenu(menu)) << tree;
    }
    EXPECT_EQ(COwnerDrawMenu::allSubMenus.size(), registered);
}

} // namespace
