// The popups of the top bar: what they offer, where they hang, what a choice does.
#include <map>

#include "PanelFixture.h"
#include "Repeats.h"
#include "menu/OwnerDrawMenu.h"

namespace {

// A frame with ports at its rows. The panel only asks it, and tells it the choice.
class CPortRows : public CPanelFrame {
public:
    const AvailablePorts& GetAvailablePorts() const override { return ports; }
    void SelectPort(std::int32_t portNumber) override { selected = portNumber; }
    std::int32_t GetSelectedPort() const override { return selected; }
    int OpenSelectedPort() override { return 1; }
    bool IsChinese() const override { return chinese; }

    AvailablePorts ports{{3, 17}, 2};
    std::int32_t selected = 17;
    bool chinese = false;
};

// Reads the popup that comes up while it lives, and then presses the keys, one at each look.
class CPopupReader {
public:
    explicit CPopupReader(std::vector<WORD> pressed) : keys(std::move(pressed)) {
        current = this;
        timer = ::SetTimer(nullptr, 0, 20, &OnTimer);
    }
    CPopupReader(const CPopupReader&) = delete;
    CPopupReader& operator=(const CPopupReader&) = delete;
    ~CPopupReader() {
        ::KillTimer(nullptr, timer);
        current = nullptr;
    }

    bool AreKeysUsed() const { return next == keys.size(); }

    std::string tree; // "COM[COM3 COM17*] Open Log"
    RECT place{};
    std::vector<HMENU> menus; // its own, and those below

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (current != nullptr) current->Look();
    }

    void Look() {
        const HWND popup = ::FindWindowA("#32768", nullptr);
        if (popup == nullptr || !::IsWindowVisible(popup)) return;
        if (tree.empty()) {
            tree = Read(reinterpret_cast<HMENU>(::SendMessageA(popup, MN_GETHMENU, 0, 0)));
            ::GetWindowRect(popup, &place);
        }
        if (next == keys.size()) {
            ::EndMenu();
            return;
        }
        // The menu's own loop reads the posted key as it reads those of the keyboard.
        GUITHREADINFO thread{};
        thread.cbSize = sizeof thread;
        ::GetGUIThreadInfo(::GetCurrentThreadId(), &thread);
        ::PostMessageA(thread.hwndMenuOwner, WM_KEYDOWN, keys[next++], 1);
    }

    std::string Read(HMENU menu) {
        menus.push_back(menu);
        std::string text;
        for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
            MENUITEMINFOA item{};
            item.cbSize = sizeof item;
            item.fMask = MIIM_DATA | MIIM_STATE | MIIM_SUBMENU | MIIM_FTYPE;
            ::GetMenuItemInfoA(menu, static_cast<UINT>(i), TRUE, &item);
            EXPECT_TRUE(item.fType & MFT_OWNERDRAW);
            const auto& record = *reinterpret_cast<const CMenuItemRecord*>(item.dwItemData);
            text += (i > 0 ? " " : "") + record.GetNarrowText() + (item.fState & MFS_CHECKED ? "*" : "");
            if (item.hSubMenu != nullptr) text += "[" + Read(item.hSubMenu) + "]";
        }
        return text;
    }

    static inline CPopupReader* current = nullptr;

    std::vector<WORD> keys;
    std::size_t next = 0;
    UINT_PTR timer = 0;
};

class PanelMenus : public PanelTest {
protected:
    PanelMenus() { panel->frame = &frame; }

    RECT PlaceOf(int id) const {
        RECT place{};
        ::GetWindowRect(Control(id), &place);
        return place;
    }

    CPortRows frame;
};

TEST_F(PanelMenus, WhatTheyOffer) {
    const struct {
        int button;
        bool chinese;
        int ports;
        const char* tree;
    } rows[] = {
        {ID_PORT_MENU, false, 2, "COM[COM3 COM17*] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_PORT_MENU, false, 0, "COM[] Device[QX4101* QX4102 QX4103] Open Log"},
        {ID_HELP_MENU, false, 2, "&About ..."},
        {ID_LANGUAGE_MENU, false, 2, "English* Chinese"},
        {ID_LANGUAGE_MENU, true, 2, "English Chinese*"},
    };
    for (const auto& [button, chinese, ports, tree] : rows) {
        frame.chinese = chinese;
        frame.ports.count = ports;
        CPopupReader reader({});
        Click(button);
        EXPECT_EQ(reader.tree, tree);
        const RECT bar = PlaceOf(ID_PORT_MENU);
        EXPECT_EQ(reader.place.top, bar.bottom) << tree;
        EXPECT_NEAR((reader.place.left + reader.place.right) / 2, bar.left, 1) << tree;
    }
}

TEST_F(PanelMenus, AChoiceArrivesAtThePanel) {
    frame.selected = 17;
    {
        const CPopupReader reader({VK_DOWN, VK_RIGHT, VK_RETURN}); // COM, and its first row
        Click(ID_PORT_MENU);
        Pump();
    }
    EXPECT_EQ(frame.selected, 3);
    {
        CPopupReader reader({VK_DOWN, VK_DOWN, VK_RIGHT, VK_DOWN, VK_RETURN}); // the second device
        Click(ID_PORT_MENU);
        Pump();
        EXPECT_EQ(reader.tree, "COM[COM3* COM17] Device[QX4101* QX4102 QX4103] Open Log");
        EXPECT_TRUE(reader.AreKeysUsed());
    }
    {
        CPopupReader reader({VK_DOWN, VK_ESCAPE});
        Click(ID_PORT_MENU);
        Pump();
        EXPECT_EQ(reader.tree, "COM[COM3* COM17] Device[QX4101* QX4102 QX4103] Open Log");
    }
    EXPECT_EQ(frame.selected, 3);
}

TEST_F(PanelMenus, WithoutAFrameNothingComesUp) {
    panel->frame = nullptr;
    for (const int button : {ID_PORT_MENU, ID_LANGUAGE_MENU}) {
        CPopupReader reader({});
        Click(button);
        EXPECT_EQ(reader.tree, "");
    }
}

// Counts how often each of its rows is painted as the chosen one.
class CCountedMenu : public COwnerDrawMenu {
public:
    void DrawItem(DRAWITEMSTRUCT& item) override {
        if ((item.itemState & ODS_SELECTED) != 0) ++chosen[item.itemID];
        COwnerDrawMenu::DrawItem(item);
    }

    std::map<UINT, int> chosen;
};

TEST_F(PanelMenus, AWalkOverTwentyRowsPaintsEachAsChosenOnce) {
    CCountedMenu menu;
    menu.CreatePopupMenu();
    std::map<UINT, int> once;
    for (UINT id = 1; id <= 20; ++id) {
        menu.AppendMenuItem(MF_OWNERDRAW, id, "Row", -1);
        once[id] = 1;
    }
    const CPopupReader reader(std::vector<WORD>(20, VK_DOWN));
    menu.TrackPopupMenu(0, 10, 10, *panel);
    EXPECT_EQ(menu.chosen, once);
}

TEST_F(PanelMenus, ManyPopupsLeaveNothingBehind) {
    const std::size_t registered = COwnerDrawMenu::allSubMenus.size();
    for (int i = 0; i < Repeats(20); ++i) {
        CPopupReader reader({VK_DOWN, VK_RIGHT});
        Click(ID_PORT_MENU);
        ASSERT_EQ(reader.menus.size(), 3U);
        for (const HMENU menu : reader.menus) EXPECT_FALSE(::IsMenu(menu));
    }
    EXPECT_EQ(COwnerDrawMenu::allSubMenus.size(), registered);
}

} // namespace
