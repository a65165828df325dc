// The menu and its records on real platform menus: adding, texts, ownership, and what is asked of the system.
#include "menu/OwnerDrawMenu.h"

#include <utility>

#include "LiveBlocks.h"
#include "MenuTree.h"
#include "TimeFactor.h"
#include "framework/HandleMaps.h"
#include "framework/Wnd.h"
#include "menu/ClassicTheme.h"

namespace {

constexpr const wchar_t* noText = nullptr;

class CPopup : public COwnerDrawMenu {
public:
    CPopup() { CreatePopupMenu(); }
};

TEST(OwnerDrawMenu, EveryItemIsOwnerDrawnWithItsRecordAsData) {
    CPopup menu;
    CPopup subMenu;
    const UINT_PTR handle = IdOfSubMenu(subMenu.GetHandle());
    const struct {
        UINT_PTR id;
        UINT asked, flags;
    } cases[] = {
        {400, MF_OWNERDRAW, 0x100}, {401, MF_STRING, 0x100},  {402, MF_CHECKED | MF_GRAYED, 0x109},
        {0, MF_STRING, 0x900},      {0, MF_SEPARATOR, 0x900}, {0, MF_BYPOSITION | MF_GRAYED, 0xD00},
        {handle, MF_POPUP, 0x110},  {0, MF_POPUP, 0x900},     {400, MF_OWNERDRAW, 0x100},
    };
    for (const auto& [id, asked, flags] : cases) {
        EXPECT_TRUE(menu.AppendMenuItem(asked, id, "Text", -1));
        const CMenuItemRecord& record = *menu.itemRecords.back();
        EXPECT_EQ(record.flags, flags);
        EXPECT_EQ(record.id, id);
        EXPECT_STREQ(record.GetText(), L"Text");
        EXPECT_EQ(record.iconId, -1);
        EXPECT_EQ(record.imageIndex, -1);
        EXPECT_EQ(record.sharedIndex, -1);
        EXPECT_EQ(record.imageList, nullptr);
    }
    ExpectInStep(menu);
    EXPECT_EQ(menu.subMenus, (std::vector{subMenu.GetHandle()}));
    EXPECT_EQ(COwnerDrawMenu::allSubMenus, (std::vector{subMenu.GetHandle()}));
    EXPECT_EQ(menu.GetSubMenuAt(6), &subMenu);
    EXPECT_EQ(menu.GetSubMenuAt(0), nullptr);
}

TEST(OwnerDrawMenu, TextsOfAnyKindAreKeptAndReadableFromTheItemsData) {
    CPopup menu;
    menu.AppendItem(static_cast<const char*>(nullptr), MF_STRING, 1, -1);
    EXPECT_EQ(menu.itemRecords.back()->GetText(), nullptr);
    EXPECT_EQ(menu.itemRecords.back()->GetNarrowText(), "");
    menu.AppendItem(noText, MF_STRING, 2, -1);
    EXPECT_EQ(menu.itemRecords.back()->GetText(), nullptr);
    for (const std::string text : {"", "\t\t\t", "&&&&", "&", "About \xE4\xBA\x8C\t&Ctrl+A", "\xFF\xFE"}) {
        menu.AppendItem(text.c_str(), MF_STRING, 3, -1);
        EXPECT_EQ(menu.itemRecords.back()->GetText(), ToWide(text));
    }
    const std::wstring longText(65'536, L'x');
    menu.AppendItem(longText.c_str(), MF_STRING, 4, -1);

    menu.WriteItemText(2, "later", MF_BYPOSITION);
    menu.WriteItemText(3, noText, MF_BYPOSITION);
    menu.itemRecords[4]->SetText(menu.itemRecords[4]->GetText());
    for (int position = 0; position < ::GetMenuItemCount(menu.GetHandle()); ++position) {
        // As assistive software sees an item.
        const auto* item = reinterpret_cast<const MSAAMENUINFO*>(PlatformItemData(menu.GetHandle(), position));
        const CMenuItemRecord& record = *menu.itemRecords[static_cast<std::size_t>(position)];
        EXPECT_EQ(item->dwMSAASignature, static_cast<DWORD>(MSAA_MENU_SIG));
        EXPECT_EQ(std::wstring(item->pszWText), record.GetText() != nullptr ? record.GetText() : L"") << position;
        EXPECT_EQ(item->cchWText, std::wcslen(item->pszWText));
    }
    EXPECT_EQ(menu.itemRecords.back()->GetText(), longText);
    EXPECT_STREQ(menu.itemRecords[4]->GetText(), L"&&&&");
}

TEST(OwnerDrawMenu, RefusedItemsKeepTheirRecords) {
    COwnerDrawMenu unattached;
    EXPECT_FALSE(unattached.AppendItem("a", MF_STRING, 1, -1));
    EXPECT_FALSE(unattached.InsertItem(0, "b", MF_BYPOSITION, 2, -1));
    EXPECT_EQ(Describe(unattached), "b2, a1");
    CPopup menu;
    menu.AppendItem("no menu", MF_POPUP, 0x7FFF1234, -1);
    EXPECT_TRUE(COwnerDrawMenu::IsRegisteredSubMenu(SubMenuOfId(0x7FFF1234)));
    // A menu inside itself: nothing may walk for ever, and nobody is deleted twice.
    menu.AppendItem("self", MF_POPUP, IdOfSubMenu(menu.GetHandle()), -1);
    int position = 0;
    EXPECT_EQ(menu.LocateItem(77, position), nullptr);
    EXPECT_EQ(menu.FindRecord(77), nullptr);
    menu.DestroyMenu();
    EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty());
    EXPECT_FALSE(COwnerDrawMenu::IsRegisteredSubMenu(HMENU{}));
    EXPECT_FALSE(COwnerDrawMenu::IsRegisteredSubMenu(static_cast<CMenu*>(nullptr)));
}

TEST(OwnerDrawMenu, SubMenusOnTheStackEndBeforeTheirParent) {
    const HMENU left = [] {
        CPopup root, first, second;
        root.AppendMenuItem(MF_POPUP, IdOfSubMenu(first.GetHandle()), "First", -1);
        root.AppendMenuItem(MF_POPUP, IdOfSubMenu(second.GetHandle()), "Second", -1);
        first.AppendMenuItem(MF_OWNERDRAW, 400, "COM1", -1);
        ExpectInStep(root);
        return root.GetHandle();
    }();
    EXPECT_EQ(::IsMenu(left), FALSE);
    EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty());
}

TEST(OwnerDrawMenu, AHandleThatHasPassedToAnotherMenuIsNotTakenAlong) {
    CPopup root;
    COwnerDrawMenu later;
    {
        CPopup subMenu;
        root.AppendMenuItem(MF_POPUP, IdOfSubMenu(subMenu.GetHandle()), "Gone", -1);
    }
    later.Attach(root.subMenus.front()); // as if the platform had given the number out again
    root.DestroyMenu();
    EXPECT_EQ(CMenu::FromHandlePermanent(later.GetHandle()), &later);
    later.Detach();
}

TEST(OwnerDrawMenu, AParentOwnsTheSubMenusThatItMade) {
    const auto run = [] {
        CMenuTree tree;
        tree.embossViaDib = true;
        const HMENU handles[] = {tree.GetHandle(), tree.more->GetHandle(), tree.deep->GetHandle()};
        // The object can be filled again, and nothing of the former tree is left.
        EXPECT_TRUE(tree.DestroyMenu());
        for (const HMENU handle : handles) EXPECT_EQ(::IsMenu(handle), FALSE);
        EXPECT_TRUE(tree.itemRecords.empty() && tree.subMenus.empty() && COwnerDrawMenu::allSubMenus.empty());
        EXPECT_FALSE(tree.DestroyMenu());
        EXPECT_TRUE(tree.CreatePopupMenu());
        tree.AppendSubMenu("Again")->AppendSubMenu(L"and again")->AppendItem("x", MF_STRING, 9, -1);
        EXPECT_EQ(Describe(tree), "Again(and again(x9))");
        ExpectInStep(tree);
        EXPECT_TRUE(tree.GetEmbossViaDib());
        DropTemporaryWrappers();
    };
    run(); // lists that stay take their first room
    const std::size_t before = LiveBlocks();
    for (int round = 0; round < 200; ++round) run();
    EXPECT_EQ(LiveBlocks(), before);
}

TEST(OwnerDrawMenu, RecordsAreFoundByTheirItemsDataInTheWholeTree) {
    CMenuTree tree;
    CMenuItemRecord* paste = tree.deep->itemRecords[0].get();
    EXPECT_EQ(tree.FindRecord(paste->GetItemData()), paste);
    EXPECT_EQ(tree.FindRecord(tree.itemRecords[3]->GetItemData()), tree.itemRecords[3].get());
    EXPECT_EQ(tree.deep->FindRecord(tree.itemRecords[3]->GetItemData()), nullptr);
}

// Owns the menu that it shows, and presses a key in it as soon as it is up.
class CMenuOwner : public CWnd {
public:
    CMenuOwner() { Create("STATIC", "", WS_POPUP | WS_VISIBLE, {0, 0, 50, 50}, nullptr, 0); }

    int Choose(CMenu& menu, WPARAM character) {
        key = character;
        deadline = ::GetTickCount() + 20'000 * TimeFactor();
        SetTimer(1, 20);
        return menu.TrackPopupMenu(TPM_RETURNCMD, 60, 60, *this);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        isUp = isUp || message == WM_DRAWITEM;
        if (message == WM_TIMER) {
            if (isUp && key != 0) PostMessage(WM_CHAR, std::exchange(key, 0));
            if (::GetTickCount() > deadline) ::EndMenu();
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    WPARAM key = 0;
    DWORD deadline = 0;
    bool isUp = false;
};

TEST(OwnerDrawMenu, AMnemonicChoosesInAShownPopup) {
    CPopup root;
    CPopup subMenu;
    root.AppendMenuItem(MF_POPUP, IdOfSubMenu(subMenu.GetHandle()), "COM", -1);
    root.AppendMenuItem(MF_OWNERDRAW, 700, "Open &Log", -1);
    root.AppendMenuItem(MF_OWNERDRAW, 701, "&Other", -1);
    EXPECT_EQ(CMenuOwner().Choose(root, 'o'), 701);
}

TEST(MenuLook, DependsOnSystemAndThemeAtEachCall) {
    const std::int32_t version = COwnerDrawMenu::windowsVersion;
    const struct {
        std::int32_t version, onThemedXp, onOthers;
        bool newShell, modern;
    } cases[] = {{OtherNt, 1, 0, false, false},  {OtherNt, 0, 1, false, true},  {OtherNt, 0, 2, false, false},
                 {Windows95, 1, 0, true, false}, {WindowsXp, 1, 0, true, true}, {WindowsXp, 0, 1, true, false}};
    ASSERT_FALSE(COwnerDrawMenu::IsClassicThemeActive()) << "this user's theme is the classic one";
    for (const auto& [code, onThemedXp, onOthers, newShell, modern] : cases) {
        COwnerDrawMenu::windowsVersion = code;
        COwnerDrawMenu::lookOnThemedXp = onThemedXp;
        COwnerDrawMenu::lookOnOtherSystems = onOthers;
        EXPECT_EQ(COwnerDrawMenu::HasNewShell(), newShell) << code;
        EXPECT_EQ(COwnerDrawMenu::IsModernLook(), modern) << code << onThemedXp << onOthers;
    }
    COwnerDrawMenu::windowsVersion = version;
    COwnerDrawMenu::lookOnThemedXp = 1;
    COwnerDrawMenu::lookOnOtherSystems = 0;
}

TEST(ClassicTheme, IsKnownByTheEndOfItsFilesName) {
    const std::string path = R"(C:\WINDOWS\Resources\Themes\)";
    const std::string longName(300, 'x');
    const struct {
        std::string value;
        DWORD type;
        bool classic;
    } cases[] = {
        {"Windows Classic.theme", REG_SZ, true},
        {path + "WINDOWS CLASSIC.THEME", REG_SZ, true},
        {path + "Luna.theme", REG_SZ, false},
        {"ndows Classic.theme", REG_SZ, false},
        {path + "Windows Classic.theme2", REG_SZ, false},
        {"", REG_SZ, false},
        {"Windows Classic.theme", REG_BINARY, false},
        {longName + "Windows Classic.theme", REG_SZ, false}, // longer than a path can be
        {std::string(260, 'x'), REG_SZ, false},              // as long, and without an end
    };
    constexpr const char* root = "Software\\QuorvaneMenuTest";
    HKEY user = nullptr;
    ASSERT_EQ(::RegCreateKeyA(HKEY_CURRENT_USER, root, &user), ERROR_SUCCESS);
    EXPECT_FALSE(ReadClassicThemeActive(user)) << "no theme";
    HKEY theme = nullptr;
    ::RegCreateKeyA(user, R"(Software\Microsoft\Plus!\Themes\Current)", &theme);
    for (const auto& [value, type, classic] : cases) {
        // The stored string has no end of its own.
        ::RegSetValueExA(theme, nullptr, 0, type, reinterpret_cast<const BYTE*>(value.data()),
                         static_cast<DWORD>(value.size()));
        EXPECT_EQ(ReadClassicThemeActive(user), classic) << value;
    }
    ::RegCloseKey(theme);
    for (std::string key = R"(Software\Microsoft\Plus!\Themes\Current)"; !key.empty();) {
        ::RegDeleteKeyA(user, key.c_str());
        key.resize(key.find('\\') == std::string::npos ? 0 : key.rfind('\\'));
    }
    ::RegCloseKey(user);
    ::RegDeleteKeyA(HKEY_CURRENT_USER, root);
}

} // namespace
