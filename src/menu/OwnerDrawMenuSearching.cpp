// Finding items, records and sub-menus.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <set>

#include "menu/PlatformMenu.h"

namespace {

struct Occurrences {
    std::span<COwnerDrawMenu* const> menus;
    std::span<const int> positions;

    bool Contains(const COwnerDrawMenu* menu, int position) const {
        for (std::size_t i = 0; i < menus.size() && i < positions.size(); ++i) {
            if (menus[i] == menu && positions[i] == position) return true;
        }
        return false;
    }
};

COwnerDrawMenu* Locate(HMENU root, UINT id, int& position, const Occurrences& passed) {
    for (COwnerDrawMenuWalk walk(root); walk.Next();) {
        COwnerDrawMenu* menu = walk.GetMenu();
        position = walk.GetPosition();
        if (walk.IsPopup() || ::GetMenuItemID(menu->GetHandle(), position) != id) continue;
        if (!passed.Contains(menu, position)) return menu;
    }
    position = -1;
    return nullptr;
}

bool HasText(const CMenuItemRecord& record, const wchar_t* text) {
    return record.GetText() != nullptr && std::wcscmp(record.GetText(), text) == 0;
}

std::wstring LowerCase(std::wstring text) {
    ::CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

// A character of WM_MENUCHAR: one byte of the process's code page, or two with the first in the low byte.
std::wstring WideCharacter(UINT character) {
    const std::array bytes{static_cast<char>(character & 0xFF), static_cast<char>(character >> 8 & 0xFF)};
    return ToWide({bytes.data(), bytes[1] != '\0' ? 2U : 1U});
}

} // namespace

COwnerDrawMenu* COwnerDrawMenu::LocateItem(UINT id, int& position) {
    return Locate(GetHandle(), id, position, {});
}

COwnerDrawMenu* COwnerDrawMenu::LocateNextItem(UINT id, int& position, std::span<COwnerDrawMenu* const> menus,
                                               std::span<const int> positions) {
    return Locate(GetHandle(), id, position, {menus, positions});
}

CMenuItemRecord* COwnerDrawMenu::LocateRecordByText(const wchar_t* text) {
    std::set<const COwnerDrawMenu*> searched;
    for (COwnerDrawMenuWalk walk(GetHandle()); walk.Next();) {
        const COwnerDrawMenu* menu = walk.GetMenu();
        if (walk.IsPopup() || !searched.insert(menu).second) continue;
        for (const auto& record : menu->itemRecords) {
            if (HasText(*record, text)) return record.get();
        }
    }
    return nullptr;
}

int COwnerDrawMenu::GetItemPosition(const wchar_t* text) const {
    bool hasPlainItem = false;
    for (int each = ::GetMenuItemCount(GetHandle()) - 1; each >= 0; --each) {
        hasPlainItem = hasPlainItem || ::GetSubMenu(GetHandle(), each) == nullptr;
    }
    if (!hasPlainItem) return -1;
    const auto found = std::ranges::find_if(itemRecords, [&](const auto& record) { return HasText(*record, text); });
    return found == itemRecords.end() ? -1 : static_cast<int>(found - itemRecords.begin());
}

CMenu* COwnerDrawMenu::FindSubMenuByText(const char* text) const {
    for (int each = 0; each < ::GetMenuItemCount(GetHandle()); ++each) {
        CMenu* subMenu = GetSubMenuAt(each);
        if (subMenu != nullptr && PlatformCaption(GetHandle(), each) == text) return subMenu;
    }
    return nullptr;
}

COwnerDrawMenu* COwnerDrawMenu::FindSubMenuOfRecord(const wchar_t* text) {
    const CMenuItemRecord* record = LocateRecordByText(text);
    return record != nullptr ? OwnerDrawMenuOf(SubMenuOfId(record->id)) : nullptr;
}

CMenu* COwnerDrawMenu::GetSubMenuAt(int position) const {
    return CMenu::FromHandle(::GetSubMenu(GetHandle(), position));
}

bool COwnerDrawMenu::IsRegisteredSubMenu(const CMenu* menu) {
    return menu != nullptr && IsRegisteredSubMenu(menu->GetHandle());
}

bool COwnerDrawMenu::IsRegisteredSubMenu(HMENU menu) {
    return std::ranges::find(allSubMenus, menu) != allSubMenus.end();
}

LRESULT COwnerDrawMenu::FindShortcut(UINT character, UINT flags, COwnerDrawMenu* menu) {
    if (menu == nullptr || (flags & MF_POPUP) == 0) return 0;
    const std::wstring key = LowerCase(L'&' + WideCharacter(character));
    const int count = ::GetMenuItemCount(menu->GetHandle());
    if (count != static_cast<int>(menu->itemRecords.size())) menu->SynchronizeRecords();
    for (int position = 0; position < count; ++position) {
        std::string text;
        menu->ReadItemText(static_cast<UINT>(position), text, MF_BYPOSITION);
        if (LowerCase(ToWide(text)).find(key) != std::wstring::npos) return MAKELRESULT(position, MNC_EXECUTE);
    }
    return 0;
}
