// Bringing the records back in line with a platform menu that was changed directly.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>

#include "menu/PlatformMenu.h"

namespace {

// What kind of item stands at a position, and what its record is to hold.
struct PlatformItem {
    enum class Kind { Popup, Separator, Command };

    int position;
    Kind kind;
    UINT_PTR key; // the record's id
    UINT flags;   // of a new record
    std::string caption;
    ULONG_PTR data;
    CMenuItemRecord* record = nullptr; // once it is known
};

PlatformItem ReadItem(HMENU menu, int position, UINT state) {
    const ULONG_PTR data = PlatformItemData(menu, position);
    constexpr UINT drawn = MF_OWNERDRAW | MF_BYPOSITION;
    // The high byte of a pop-up's state is a count, so its bits mean nothing.
    if ((state & MF_POPUP) != 0) {
        return {position,
                PlatformItem::Kind::Popup,
                IdOfSubMenu(::GetSubMenu(menu, position)),
                (state & 0xFF) | MF_POPUP | drawn,
                PlatformCaption(menu, position),
                data};
    }
    if ((state & MF_SEPARATOR) != 0) return {position, PlatformItem::Kind::Separator, 0, state | drawn, {}, data};
    return {position,      PlatformItem::Kind::Command,     ::GetMenuItemID(menu, position),
            state | drawn, PlatformCaption(menu, position), data};
}

std::vector<PlatformItem> ReadItems(HMENU menu) {
    std::vector<PlatformItem> items;
    for (int position = 0; position < ::GetMenuItemCount(menu); ++position) {
        const UINT state = ::GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION);
        if (state == static_cast<UINT>(-1)) break;
        items.push_back(ReadItem(menu, position, state));
    }
    return items;
}

// Hands the record to the item at the position.
void HandOver(HMENU menu, int position, const CMenuItemRecord& record) {
    ::ModifyMenuA(menu, static_cast<UINT>(position), record.flags | MF_BYPOSITION, record.id, record.AsItemText());
}

void Refresh(CMenuItemRecord& record, HMENU menu, const PlatformItem& item) {
    if (!item.caption.empty()) record.SetText(ToWide(item.caption).c_str());
    if (item.kind == PlatformItem::Kind::Command) record.flags = item.flags;
    if (item.kind != PlatformItem::Kind::Popup) HandOver(menu, item.position, record);
}

std::unique_ptr<CMenuItemRecord> MakeRecordAt(HMENU menu, const PlatformItem& item) {
    auto record = std::make_unique<CMenuItemRecord>();
    record->SetText(ToWide(item.caption).c_str());
    record->flags = item.flags;
    record->id = item.key;
    HandOver(menu, item.position, *record);
    return record;
}

} // namespace

void COwnerDrawMenu::SynchronizeRecords() {
    for (const auto& record : itemRecords) record->seen = 0;
    std::vector<PlatformItem> items = ReadItems(GetHandle());
    // Items that still have their own records keep them; the others take what is left, in the order of the records.
    for (PlatformItem& item : items) {
        const auto own = std::ranges::find_if(itemRecords, [&](const auto& record) {
            return record->seen == 0 && record->id == item.key && record->GetItemData() == item.data;
        });
        if (own == itemRecords.end()) continue;
        item.record = own->get();
        item.record->seen = item.position + 1;
    }
    for (PlatformItem& item : items) {
        if (item.record == nullptr) {
            const auto match = std::ranges::find_if(
                itemRecords, [&](const auto& record) { return record->seen == 0 && record->id == item.key; });
            if (match != itemRecords.end()) item.record = match->get();
        }
        if (item.record != nullptr) {
            Refresh(*item.record, GetHandle(), item);
        } else {
            item.record = itemRecords.emplace_back(MakeRecordAt(GetHandle(), item)).get();
        }
        item.record->seen = item.position + 1;
    }
    std::erase_if(itemRecords, [](const auto& record) { return record->seen == 0; });
    std::ranges::sort(itemRecords, {}, [](const auto& record) { return record->seen; });
}

void COwnerDrawMenu::SynchronizeMenu(COwnerDrawMenu* menu) {
    if (menu != nullptr) menu->SynchronizeRecords();
}
