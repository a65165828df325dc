// Building a menu from a menu resource, and what is particular to the plain top level that comes of it.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>

#include "framework/ResourceModule.h"
#include "menu/MenuFont.h"
#include "menu/MenuTemplate.h"
#include "menu/PlatformMenu.h"

namespace {

// The font in which captions are measured, in a context, for the time of one pass over a menu.
class CMenuMeasure {
public:
    CMenuMeasure() : dc(MenuContextWindow()), font(MenuFontDescription()), selected(dc, font.GetHandle()) {}

    LONG Width(const std::wstring& text) const { return dc.GetTextExtent(text).cx; }

private:
    CClientDC dc;
    CFont font;
    CSelectObject selected;
};

std::wstring TextOf(const CMenuItemRecord& record) {
    return record.GetText() != nullptr ? record.GetText() : L"";
}

std::wstring BeforeTab(const std::wstring& text) {
    return text.substr(0, text.find(L'\t'));
}

// The caption with as many spaces behind it as bring it to the width, as if they were added one by one.
std::wstring PadTo(LONG width, std::wstring caption, const CMenuMeasure& measure) {
    const LONG space = measure.Width(L" ");
    LONG reached = measure.Width(caption);
    // Most of the way in one step: long captions are not measured for each space.
    if (space > 0 && width - reached > space) {
        caption.append(static_cast<std::size_t>((width - reached) / space - 1), L' ');
        reached = measure.Width(caption);
    }
    while (reached < width) {
        caption += L' ';
        const LONG now = measure.Width(caption);
        if (now <= reached) break; // too long to be measured, or no font
        reached = now;
    }
    return caption;
}

} // namespace

bool COwnerDrawMenu::LoadMenuResource(UINT resourceId) {
    return LoadMenuResource(MAKEINTRESOURCEA(LOWORD(resourceId)));
}

bool COwnerDrawMenu::LoadMenuResource(const char* name) {
    const std::span<const std::byte> resource = LoadResourceBytes(name, reinterpret_cast<const char*>(RT_MENU));
    if (resource.empty()) return false;
    DestroyMenu();
    if (BuildFromTemplate(resource)) return true;
    DestroyMenu();
    return false;
}

bool COwnerDrawMenu::BuildFromTemplate(std::span<const std::byte> resource) {
    const auto items = ParseMenuTemplate(resource);
    if (!items || !Attach(::CreateMenu())) return false;
    std::vector<COwnerDrawMenu*> levels{this};
    for (const MenuTemplateItem& item : *items) {
        const std::wstring text(item.text.begin(), item.text.end());
        if (item.IsPopup()) {
            auto subMenu = MakeSubMenu();
            if (!subMenu) return false;
            levels.back()->AppendItem(text.c_str(), item.flags, IdOfSubMenu(subMenu->GetHandle()), -1);
            levels.push_back(subMenu.release()); // its parent's, by the handle
        } else {
            levels.back()->AppendItem(text.c_str(), item.flags, item.id, -1);
        }
        for (int i = 0; i < item.closedLevels; ++i) {
            levels.back()->PadAccelerators();
            levels.pop_back();
        }
    }
    for (int position = 0; position < ::GetMenuItemCount(GetHandle()); ++position) {
        CMenuItemRecord* record = RecordOfItem(position);
        if (record == nullptr) continue;
        record->flags = MF_BYPOSITION | (record->flags & MF_POPUP);
        ::ModifyMenuA(GetHandle(), static_cast<UINT>(position), record->flags, record->id,
                      record->GetNarrowText().c_str());
    }
    loadedFromResource = true;
    return true;
}

int COwnerDrawMenu::CountForeignItems() const {
    if (!loadedFromResource) return 0;
    for (int position = 0; position < ::GetMenuItemCount(GetHandle()); ++position) {
        const std::string caption = PlatformCaption(GetHandle(), position);
        if (caption.empty()) continue;
        const auto match =
            std::ranges::find_if(itemRecords, [&](const auto& record) { return record->GetNarrowText() == caption; });
        if (match != itemRecords.end()) return std::max(0, position - static_cast<int>(match - itemRecords.begin()));
    }
    return 0;
}

void COwnerDrawMenu::ReattachTopLevelPopups() {
    for (int position = CountForeignItems(); position < ::GetMenuItemCount(GetHandle()); ++position) {
        const HMENU subMenu = ::GetSubMenu(GetHandle(), position);
        if (subMenu == nullptr) continue;
        CMenuItemRecord* record = RecordOfItem(position);
        if (record == nullptr) continue;
        record->flags = MF_BYPOSITION | MF_POPUP;
        record->id = IdOfSubMenu(subMenu); // perhaps not the one that the item had before
        ModifyPlatformItem(GetHandle(), position, record->flags, record->id, record->GetNarrowText().c_str());
    }
}

void COwnerDrawMenu::PadAccelerators() {
    const CMenuMeasure measure;
    LONG width = -1;
    for (const auto& record : itemRecords) {
        width = std::max(width, measure.Width(BeforeTab(TextOf(*record)) + L' '));
    }
    for (const auto& record : itemRecords) {
        const std::wstring text = TextOf(*record);
        const std::size_t tab = text.find(L'\t');
        if (tab == std::wstring::npos) continue;
        record->SetText((PadTo(width, text.substr(0, tab), measure) + text.substr(tab)).c_str());
    }
}
