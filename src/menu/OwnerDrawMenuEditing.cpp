// Changing the items of a built menu, and reading and writing their texts.
#include "menu/OwnerDrawMenu.h"

#include "menu/MenuFont.h"
#include "menu/PlatformMenu.h"

template <class GiveImage>
bool COwnerDrawMenu::ModifyItems(const wchar_t* text, UINT id, GiveImage giveImage) {
    std::vector<COwnerDrawMenu*> menus;
    std::vector<int> positions;
    std::vector<CMenuItemRecord*> records;
    int position = -1;
    COwnerDrawMenu* menu = LocateItem(id, position);
    do {
        // An item that the platform holds without a record gets one, and so does an id that no item has.
        COwnerDrawMenu& holder = menu != nullptr ? *menu : *this;
        CMenuItemRecord* record = holder.RecordAt(position);
        if (record == nullptr) record = &holder.MakeRecordOfItem(position, id);
        if (text != nullptr) record->SetText(text);
        record->iconId = record->imageIndex = -1;
        // The record may have been that of a separator or a pop-up; what the item is, the platform knows.
        const UINT state = ::GetMenuState(holder.GetHandle(), static_cast<UINT>(position), MF_BYPOSITION);
        const UINT line = menu != nullptr ? state & MF_SEPARATOR : 0;
        record->flags = (record->flags & ~UINT{MF_BYPOSITION | MF_SEPARATOR | MF_POPUP}) | MF_OWNERDRAW | line;
        record->id = id;
        giveImage(*record);
        records.push_back(record);
        if (menu == nullptr) break;
        menus.push_back(menu);
        positions.push_back(position);
        menu = LocateNextItem(id, position, menus, positions);
    } while (menu != nullptr);

    // Each item with its own record and flags: one may have been plain, and a record lives only as long as the menu
    // that holds it. An item of a plain sub-menu stays as it is: nobody would measure it if it became owner-drawn.
    bool modified = !menus.empty();
    for (std::size_t i = 0; i < menus.size(); ++i) {
        const CMenuItemRecord& own = *records[i];
        const HMENU holder = menus[i]->GetHandle();
        modified = ModifyPlatformItem(holder, positions[i], own.flags, id, own.AsItemText()) && modified;
    }
    return modified;
}

bool COwnerDrawMenu::ModifyItem(const wchar_t* text, UINT id, int iconId) {
    return ModifyItems(text, id, [&](CMenuItemRecord& record) { TakeImage(record, iconId); });
}

bool COwnerDrawMenu::ModifyItem(const wchar_t* text, UINT id, const CImageList* images, int index) {
    return ModifyItems(text, id, [&](CMenuItemRecord& record) {
        if (images == nullptr) return;
        record.imageList.reset();
        record.sharedIndex = AddSharedImage(*images, index, id);
    });
}

bool COwnerDrawMenu::ModifyItem(const wchar_t* text, UINT id, const CBitmap* bitmap) {
    const auto images = ListOfBitmap(bitmap);
    return ModifyItem(text, id, images.get(), 0);
}

bool COwnerDrawMenu::ModifyItem(const wchar_t* text, UINT id, COLORREF fill, COLORREF border, int hatch,
                                const SIZE* size) {
    const CSize imageSize(imageWidth, imageHeight);
    CBitmap swatch;
    {
        const CClientDC dc(MenuContextWindow());
        MakeSwatch(dc, swatch, size != nullptr ? CSize(size->cx, size->cy) : imageSize, imageSize, fill, border, hatch);
    }
    return ModifyItem(text, id, &swatch);
}

bool COwnerDrawMenu::ModifyItemByText(const wchar_t* newText, const wchar_t* oldText, int iconId) {
    CMenuItemRecord* record = LocateRecordByText(oldText);
    if (record == nullptr) return false;
    if (newText != nullptr) record->SetText(newText);
    record->iconId = iconId;
    record->imageIndex = -1;
    if (iconId < 0) return true;
    // A strip's other images would stand where the companions do.
    const CImageList strip = LoadStrip(iconId, {imageWidth, imageHeight});
    if (strip.IsEmpty()) {
        record->iconId = -1;
        record->imageList.reset();
    } else {
        record->imageIndex = 0;
        record->imageList = std::make_unique<CImageList>();
        CopyImageToList(&strip, 0, *record->imageList);
    }
    return true;
}

bool COwnerDrawMenu::ReadItemText(UINT position, std::string& text, UINT flags) {
    const CMenuItemRecord* record = RecordOf(position, flags);
    if (record == nullptr) return false;
    text = record->GetNarrowText();
    return true;
}

bool COwnerDrawMenu::WriteItemText(UINT position, const wchar_t* text, UINT flags) {
    CMenuItemRecord* record = RecordOf(position, flags);
    if (record == nullptr) return false;
    record->SetText(text);
    return true;
}

CMenuItemRecord* COwnerDrawMenu::RecordOf(UINT position, UINT flags) {
    if ((flags & MF_BYPOSITION) != 0) return RecordAt(static_cast<int>(position));
    int found = -1;
    const COwnerDrawMenu* menu = LocateItem(position, found);
    return menu != nullptr ? menu->RecordAt(found) : nullptr;
}
