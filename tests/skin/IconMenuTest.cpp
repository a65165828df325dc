// The drop-down menu of an icon button, shown for real and driven by keys.
#include "skin/IconButton.h"

#include <memory>

#include <gtest/gtest.h>

#include "Ground.h"
#include "IconMenuIds.h"
#include "MenuTestIds.h"
#include "support/Meanwhile.h"

namespace {

constexpr UINT buttonId = 1050;

class IconMenu : public testing::Test {
protected:
    IconMenu() {
        Put(*button, ground, "BUTTON", {10, 10, 70, 30}, BS_PUSHBUTTON, "", buttonId);
        for (const unsigned back : {0U, 2U, 4U}) button->SetColor(back, ColorOf(back == 0 ? 'a' : 'i'), false);
    }
    ~IconMenu() override { COwnerDrawMenu::lookOnThemedXp = 1, COwnerDrawMenu::lookOnOtherSystems = 0; }

    int SetMenu(int menuId, int toolbarId) {
        return button->SetDropMenu(menuId, ground.GetHandle(), 1, toolbarId, 16, 15, RGB(0xC0, 0xC0, 0xC0), true);
    }
    std::string Face() const { return ground.Look({40, 20, 41, 21})[0]; }
    void Click() {
        ground.commands.clear();
        ground.SendMessage(WM_COMMAND, MAKEWPARAM(buttonId, BN_CLICKED), reinterpret_cast<LPARAM>(button->GetHandle()));
        PumpMessages();
    }
    // Clicks, and presses the keys while the menu is open: what the ground was told then, without the button's click.
    std::vector<UINT> ChosenBy(const std::vector<WPARAM>& keys) {
        const CMeanwhile meanwhile([&] {
            if (ShownPopup() == nullptr || Face() != "a") return false;
            RECT menu{};
            ::GetWindowRect(ShownPopup(), &menu);
            const CRect window = button->GetWindowRect();
            EXPECT_TRUE(menu.left == window.left && menu.top == window.bottom && ground.commands.empty());
            for (const WPARAM key : keys) ::PostMessageA(button->GetHandle(), WM_KEYDOWN, key, 0);
            return true;
        });
        Click();
        EXPECT_EQ(std::erase_if(ground.commands, [](const auto& command) { return command.control != nullptr; }), 1U);
        std::vector<UINT> ids;
        for (const ReceivedCommand& command : ground.commands) ids.push_back(command.id);
        return ids;
    }

    CGround ground;
    std::unique_ptr<CIconButton> button = std::make_unique<CIconButton>();
};

TEST_F(IconMenu, AClickShowsTheMenuAndPostsTheChoice) {
    ASSERT_EQ(SetMenu(IDM_DROP, IDT_COMMANDS), CIconButton::Done);
    EXPECT_EQ(COwnerDrawMenu::lookOnOtherSystems, 1);
    EXPECT_EQ(COwnerDrawMenu::sharedImageIds, (std::vector<UINT>{501, 501, 501, 502, 502, 502, 503, 503, 503}));
    PumpMessages();
    EXPECT_EQ(Face(), "i");
    // clang-format off
    const std::pair<std::vector<WPARAM>, std::vector<UINT>> rows[] = {
        {{VK_DOWN, VK_DOWN, VK_RETURN}, {502}}, {{'M', VK_DOWN, VK_ESCAPE, VK_ESCAPE, VK_ESCAPE}, {}},
        {{'M', 'B'}, {503}}, {{'X', 'R'}, {501}}};
    // clang-format on
    for (const auto& [keys, chosen] : rows) {
        EXPECT_EQ(ChosenBy(keys), chosen);
        EXPECT_EQ(Face(), "i");
        EXPECT_EQ(::GetFocus(), button->GetHandle());
    }
}

TEST_F(IconMenu, WhatCanNotBeLoadedLeavesNoMenu) {
    // clang-format off
    const std::tuple<int, int, int, bool> rows[] = {
        {IDM_DROP, 0, 0, true}, {IDM_MISSING, 0, 1, false}, {IDM_DROP, IDM_MISSING, 1, false}, {IDM_DROP, 0, 0, true},
        {0, 0, 0, false}, {IDM_NO_POPUP, 0, 0, true}};
    // clang-format on
    for (const auto& [menu, toolbar, result, there] : rows) {
        EXPECT_EQ(SetMenu(menu, toolbar), result);
        EXPECT_EQ(button->HasDropMenu(), there);
        EXPECT_TRUE(menu == IDM_DROP || COwnerDrawMenu::allSubMenus.empty());
    }
    Click(); // a menu without a popup would show for good
}

TEST_F(IconMenu, AButtonMayEndWhileItsMenuIsOpen) {
    SetMenu(IDM_DROP, 0);
    const CMeanwhile meanwhile([&] {
        if (ShownPopup() == nullptr) return false;
        button.reset();
        return true;
    });
    Click();
    EXPECT_TRUE(ground.commands.empty() && COwnerDrawMenu::allSubMenus.empty());
}

} // namespace
