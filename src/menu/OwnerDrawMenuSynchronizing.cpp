// Which record belongs to which item of the platform menu, and bringing the two back in line after the platform menu
// was changed directly.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>

#include "menu/PlatformMenu.h"

namespace {

// What the item's state says to a record. The highlight passes, the high byte of a pop-up's state is a count, and as a
// bitmap's the record would be taken for the bitmap.
UINT FlagsOfItem(HMENU menu, int position) {
    UINT state = ::GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION);
    if (state == static_cast<UINT>(-1)) state = MF_POPUP; // whose sub-menu has ended
    const UINT flags = (state & MF_POPUP) != 0 ? state & 0xFF : state;
    return (flags & ~UINT{MF_HILITE | MF_BITMAP}) | MF_OWNERDRAW | MF_BYPOSITION;
}

void HandOver(HMENU menu, int position, const CMenuItemRecord& record) {
    ModifyPlatformItem(menu, position, record.flags, record.id, record.AsItemText());
}

void Refresh(CMenuItemRecord& record, HMENU menu, int position) {
    const std::string caption = PlatformCaption(menu, position);
    if (!caption.empty()) record.SetText(ToWide(caption).c_str());
    const UINT flags = FlagsOfItem(menu, position);
    if ((flags & MF_POPUP) != 0) {
        // Its sub-menu may have been exchanged, and then the record that it had goes.
        SetPlatformItemData(menu, position, record);
        return;
    }
    if ((flags & record.flags & MF_SEPARATOR) == 0) record.flags = flags; // the record of a line keeps its own
    HandOver(menu, position, record);
}

std::unique_ptr<CMenuItemRecord> RecordFromItem(HMENU menu, int position) {
    auto record = std::make_unique<CMenuItemRecord>();
    record->SetText(ToWide(PlatformCaption(menu, position)).c_str());
    record->flags = FlagsOfItem(menu, position);
    record->id = PlatformItemKey(menu, position);
    record->seen = position + 1;
    return record;
}

} // namespace

void COwnerDrawMenu::MatchRecords() const {
    for (const auto& record : itemRecords) record->seen = 0;
    // Items that still have their own records keep them; the others take what is left, in the order of the records.
    for (const bool byData : {true, false}) {
        for (int position = 0; position < ::GetMenuItemCount(GetHandle()); ++position) {
            if (MatchedRecord(position) != nullptr) continue;
            const UINT_PTR key = PlatformItemKey(GetHandle(), position);
            const ULONG_PTR data = PlatformItemData(GetHandle(), position);
            const auto match = std::ranges::find_if(itemRecords, [&](const auto& record) {
                return record->seen == 0 && record->id == key && (!byData || record->GetItemData() == data);
            });
            if (match != itemRecords.end()) (*match)->seen = position + 1;
        }
    }
}

CMenuItemRecord* COwnerDrawMenu::MatchedRecord(int position) const {
    const auto match = std::ranges::find(itemRecords, position + 1, [](const auto& record) { return record->seen; });
    return match != itemRecords.end() ? match->get() : nullptr;
}

CMenuItemRecord* COwnerDrawMenu::RecordOfItem(int position) const {
    if (position < 0) return nullptr;
    const ULONG_PTR data = PlatformItemData(GetHandle(), position);
    const auto own = std::ranges::find(itemRecords, data, [](const auto& record) { return record->GetItemData(); });
    if (own != itemRecords.end()) return own->get();
    MatchRecords();
    return MatchedRecord(position);
}

CMenuItemRecord* COwnerDrawMenu::RecordAt(int position) const {
    if (CMenuItemRecord* own = RecordOfItem(position)) return own;
    const auto index = static_cast<std::size_t>(position);
    const bool isFree = index < itemRecords.size() && PositionOf(*itemRecords[index]) == -1;
    return isFree ? itemRecords[index].get() : nullptr;
}

int COwnerDrawMenu::PositionOf(const CMenuItemRecord& record) const {
    int position = ::GetMenuItemCount(GetHandle()) - 1;
    while (position >= 0 && RecordOfItem(position) != &record) --position;
    return std::max(position, -1);
}

CMenuItemRecord& COwnerDrawMenu::MakeRecordOfItem(int position, UINT id) {
    if (position < 0) return MakeRecord(-1, nullptr, 0, id);
    MatchRecords();
    // Behind the record of the nearest item before it.
    int nearest = 0;
    int place = 0;
    for (std::size_t index = 0; index < itemRecords.size(); ++index) {
        const int seen = itemRecords[index]->seen;
        if (seen <= nearest || seen > position) continue;
        nearest = seen;
        place = static_cast<int>(index) + 1;
    }
    return MakeRecord(place, ToWide(PlatformCaption(GetHandle(), position)).c_str(), 0, id);
}

void COwnerDrawMenu::SynchronizeRecords() {
    MatchRecords();
    for (int position = 0; position < ::GetMenuItemCount(GetHandle()); ++position) {
        if (CMenuItemRecord* record = MatchedRecord(position)) {
            Refresh(*record, GetHandle(), position);
        } else {
            itemRecords.push_back(RecordFromItem(GetHandle(), position));
            HandOver(GetHandle(), position, *itemRecords.back());
        }
    }
    std::erase_if(itemRecords, [](const auto& record) { return record->seen == 0; });
    std::ranges::sort(itemRecords, {}, [](const auto& record) { return record->seen; });
}

void COwnerDrawMenu::SynchronizeMenu(COwnerDrawMenu* menu) {
    if (menu != nullptr) menu->SynchronizeRecords();
}
