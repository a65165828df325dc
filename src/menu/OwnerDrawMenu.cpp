// The menu as a whole: its end, its records, and what it asks of the system.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>

#include "menu/ClassicTheme.h"
#include "menu/PlatformMenu.h"

namespace {

CMenuItemRecord* FindRecordIn(const COwnerDrawMenu& menu, ULONG_PTR itemData) {
    const auto found =
        std::ranges::find(menu.itemRecords, itemData, [](const auto& record) { return record->GetItemData(); });
    return found != menu.itemRecords.end() ? found->get() : nullptr;
}

} // namespace

COwnerDrawMenu::~COwnerDrawMenu() {
    COwnerDrawMenu::DestroyMenu();
}

bool COwnerDrawMenu::DestroyMenu() {
    std::erase(allSubMenus, GetHandle());
    while (!subMenus.empty()) {
        const HMENU subMenu = subMenus.back();
        subMenus.pop_back();
        // A handle that has left the class-wide list belonged to an object that is gone. By now it may be another
        // menu's.
        if (std::erase(allSubMenus, subMenu) == 0) continue;
        if (COwnerDrawMenu* object = OwnerDrawMenuOf(subMenu); object != this) delete object;
    }
    itemRecords.clear();
    checkImages.reset();
    return CMenu::DestroyMenu();
}

CMenuItemRecord* COwnerDrawMenu::FindRecord(ULONG_PTR itemData) const {
    CMenuItemRecord* record = FindRecordIn(*this, itemData);
    for (COwnerDrawMenuWalk walk(GetHandle()); record == nullptr && walk.Next();) {
        if (const COwnerDrawMenu* subMenu = walk.GetSubMenu()) record = FindRecordIn(*subMenu, itemData);
    }
    return record;
}

LRESULT COwnerDrawMenu::MenuChar(UINT character, UINT flags) {
    return FindShortcut(character, flags, this);
}

bool COwnerDrawMenu::IsClassicThemeActive() {
    static const bool active = ReadClassicThemeActive(HKEY_CURRENT_USER);
    return active;
}

WindowsVersion COwnerDrawMenu::QueryWindowsVersion() {
    const DWORD versionWord = ::GetVersion();
    OSVERSIONINFOA record{};
    record.dwOSVersionInfoSize = sizeof record;
    std::optional<SystemVersion> details;
    if (::GetVersionExA(&record) != FALSE) details = SystemVersion{record.dwMajorVersion, record.dwMinorVersion};
    return WindowsVersionCode(versionWord, details);
}
