// The drop-down menu of an icon button, shown for real and driven by keys.
#include "skin/IconButton.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ControlGround.h"
#include "IconMenuIds.h"
#include "MenuImageIds.h"
#include "TimeFactor.h"

namespace {

constexpr UINT buttonId = 1050;
constexpr COLORREF active = RGB(200, 30, 30), idle = RGB(30, 30, 200);
const CRect place(10, 10, 70, 30);

// Runs a step of the test while a menu is shown, until it says that it has done its part; ends the menu at a deadline.
class CMeanwhile {
public:
    explicit CMeanwhile(std::function<bool()> work) : deadline(::GetTickCount() + 10'000 * TimeFactor()) {
        step = std::move(work);
        timer = ::SetTimer(nullptr, 0, 10, &CMeanwhile::OnTimer);
        current = this;
    }
    CMeanwhile(const CMeanwhile&) = delete;
    CMeanwhile& operator=(const CMeanwhile&) = delete;
    ~CMeanwhile() {
        ::KillTimer(nullptr, timer);
        current = nullptr;
    }
    bool IsDone() const { return done; }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD now) {
        if (current == nullptr) return;
        if (!current->done && ::FindWindowA("#32768", nullptr) != nullptr) current->done = current->step();
        if (static_cast<LONG>(now - current->deadline) > 0) ::EndMenu();
    }

    inline static CMeanwhile* current = nullptr;
    std::function<bool()> step;
    DWORD deadline;
    UINT_PTR timer;
    bool done = false;
};

class IconMenu : public testing::Test {
protected:
    IconMenu() { Make(BS_PUSHBUTTON); }
    ~IconMenu() override {
        COwnerDrawMenu::lookOnThemedXp = 1;
        COwnerDrawMenu::lookOnOtherSystems = 0;
    }

    void Make(DWORD type) {
        ::SetCursorPos(700, 700);
        button = std::make_unique<CIconButton>();
        button->Create("BUTTON", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP | type, place, ground.GetHandle(), buttonId);
        button->SetColor(CIconButton::ActiveBack, active, false);
        for (const auto index : {CIconButton::IdleBack, CIconButton::FocusBack}) button->SetColor(index, idle, false);
        CGround::Pump();
    }
    int SetMenu(UINT menuId, UINT toolbarId) {
        return button->SetDropMenu(menuId, ground.GetHandle(), 1, toolbarId, 16, 15, RGB(0xC0, 0xC0, 0xC0), true);
    }
    COLORREF Face() const { return ground.Pixels({40, 20, 41, 21})[0]; }
    void Press(std::initializer_list<WPARAM> keys) const {
        for (const WPARAM key : keys) ::PostMessageA(button->GetHandle(), WM_KEYDOWN, key, 0);
    }
    // Clicks, and does the work while the menu is open. Whether that was done.
    bool Click(std::function<bool()> work) {
        const CMeanwhile meanwhile(std::move(work));
        ground.SendMessage(WM_COMMAND, MAKEWPARAM(buttonId, BN_CLICKED), reinterpret_cast<LPARAM>(button->GetHandle()));
        CGround::Pump();
        return meanwhile.IsDone();
    }
    // Ids of what the ground was told, without the button's own clicks.
    std::vector<UINT> Choices() const {
        std::vector<UINT> ids;
        for (const ReceivedCommand& command : ground.commands) {
            if (command.control == nullptr) ids.push_back(command.id);
        }
        return ids;
    }

    CControlGround ground;
    std::unique_ptr<CIconButton> button;
};

TEST_F(IconMenu, AClickShowsTheMenuAndPostsTheChoice) {
    ASSERT_EQ(SetMenu(IDM_DROP, IDT_COMMANDS), CIconButton::Done);
    EXPECT_EQ(COwnerDrawMenu::lookOnOtherSystems, 1);
    EXPECT_EQ(COwnerDrawMenu::sharedImageIds, (std::vector<UINT>{501, 501, 501, 502, 502, 502, 503, 503, 503}));
    CGround::Pump();
    EXPECT_EQ(Face(), idle);
    bool closed = true;
    ground.atCommand = [&] { closed = closed && ::FindWindowA("#32768", nullptr) == nullptr; };
    EXPECT_TRUE(Click([&] {
        RECT menu{};
        ::GetWindowRect(::FindWindowA("#32768", nullptr), &menu);
        const CRect window = button->GetWindowRect();
        EXPECT_EQ(menu.left, window.left);
        EXPECT_EQ(menu.top, window.bottom);
        if (Face() != active || !Choices().empty()) return false;
        Press({VK_DOWN, VK_DOWN, VK_RETURN});
        return true;
    }));
    EXPECT_EQ(Choices(), std::vector<UINT>{502});
    EXPECT_TRUE(closed);
    EXPECT_EQ(Face(), idle);
    EXPECT_EQ(::GetFocus(), button->GetHandle());
}

TEST_F(IconMenu, CancellingPostsNothing) {
    SetMenu(IDM_DROP, 0);
    for (const bool inSubMenu : {false, true}) {
        ground.commands.clear();
        bool opening = false;
        EXPECT_TRUE(Click([&] {
            if (inSubMenu && !std::exchange(opening, true)) Press({'M'});
            const HWND menu = ::FindWindowA("#32768", nullptr);
            if (inSubMenu && ::FindWindowExA(nullptr, menu, "#32768", nullptr) == nullptr) return false;
            Press({VK_DOWN, VK_ESCAPE, VK_ESCAPE});
            return true;
        }));
        EXPECT_EQ(Choices(), std::vector<UINT>{});
        EXPECT_EQ(ground.commands.size(), 1U) << "the click itself";
        EXPECT_EQ(Face(), idle);
    }
}

TEST_F(IconMenu, MnemonicsWork) {
    SetMenu(IDM_DROP, 0);
    EXPECT_TRUE(Click([&] {
        Press({'G'});
        return true;
    }));
    EXPECT_EQ(Choices(), std::vector<UINT>{502});
    ground.commands.clear();
    EXPECT_TRUE(Click([&] {
        Press({'M', 'B'});
        return true;
    }));
    EXPECT_EQ(Choices(), std::vector<UINT>{503});
}

TEST_F(IconMenu, WhatCanNotBeLoadedLeavesNoMenu) {
    EXPECT_FALSE(button->HasDropMenu());
    EXPECT_EQ(SetMenu(IDM_DROP, 0), CIconButton::Done);
    EXPECT_TRUE(button->HasDropMenu());
    EXPECT_EQ(SetMenu(IDM_MISSING, 0), CIconButton::ImageUnreadable);
    EXPECT_FALSE(button->HasDropMenu());
    EXPECT_EQ(SetMenu(IDM_DROP, IDM_MISSING), CIconButton::ImageUnreadable);
    EXPECT_FALSE(button->HasDropMenu());
    EXPECT_EQ(SetMenu(IDM_DROP, 0), CIconButton::Done);
    EXPECT_EQ(SetMenu(0, 0), CIconButton::Done);
    EXPECT_FALSE(button->HasDropMenu());
    EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty());
    EXPECT_EQ(SetMenu(IDM_NO_POPUP, 0), CIconButton::Done);
    EXPECT_FALSE(Click([] { return true; })) << "a menu without a popup showed";
}

TEST_F(IconMenu, ACheckBoxOnlyFlips) {
    Make(BS_AUTOCHECKBOX);
    SetMenu(IDM_DROP, 0);
    EXPECT_FALSE(Click([] { return true; }));
    EXPECT_EQ(button->GetCheck(), 1);
}

TEST_F(IconMenu, AButtonMayEndWhileItsMenuIsOpen) {
    SetMenu(IDM_DROP, 0);
    EXPECT_TRUE(Click([&] {
        button.reset();
        return true;
    }));
    EXPECT_TRUE(Choices().empty());
    EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty());
}

} // namespace
