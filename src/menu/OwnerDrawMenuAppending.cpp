// Adding items: at the end of a menu, and before a place in it.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>

#include "menu/PlatformMenu.h"

namespace {

// Where `position` lies in an array of `count` entries: at its end, if it is none of its indices.
std::ptrdiff_t PlaceIn(std::size_t count, std::int32_t position) {
    const auto end = static_cast<std::ptrdiff_t>(count);
    return position < 0 ? end : std::min<std::ptrdiff_t>(position, end);
}

} // namespace

bool COwnerDrawMenu::AppendItem(const wchar_t* text, UINT flags, UINT_PTR id, int iconId) {
    flags = id == 0 ? (flags & MF_BYPOSITION) | MF_SEPARATOR | MF_OWNERDRAW : flags | MF_OWNERDRAW;
    if ((flags & MF_POPUP) != 0) RegisterSubMenu(id, -1);
    CMenuItemRecord& record = MakeRecord(-1, text, flags, id);
    TakeImage(record, iconId);
    const bool appended = ::AppendMenuA(GetHandle(), flags, id, record.AsItemText()) != FALSE;
    if (loadedFromResource) ReattachTopLevelPopups();
    return appended;
}

bool COwnerDrawMenu::AppendItem(const wchar_t* text, UINT flags, UINT_PTR id, const CImageList* images, int index) {
    flags = id == 0 ? (flags & MF_BYPOSITION) | MF_SEPARATOR | MF_OWNERDRAW : flags | MF_OWNERDRAW;
    if ((flags & MF_POPUP) != 0) RegisterSubMenu(id, -1);
    CMenuItemRecord& record = MakeRecord(-1, text, flags, id);
    if (images != nullptr) {
        record.iconId = record.imageIndex = 0;
        record.imageList = std::make_unique<CImageList>();
        CopyImageToList(images, index, *record.imageList);
    }
    return ::AppendMenuA(GetHandle(), flags, id, record.AsItemText()) != FALSE;
}

bool COwnerDrawMenu::AppendMenuItem(UINT flags, UINT_PTR id, const wchar_t* text, int iconId) {
    return AppendItem(text, flags, id, iconId);
}

bool COwnerDrawMenu::AppendMenuItem(UINT flags, UINT_PTR id, const wchar_t* text, const CImageList* images, int index) {
    return AppendItem(text, flags, id, images, index);
}

bool COwnerDrawMenu::AppendMenuItem(UINT flags, UINT_PTR id, const wchar_t* text, const CBitmap* bitmap) {
    const auto images = ListOfBitmap(bitmap);
    return AppendItem(text, flags, id, images.get(), 0);
}

COwnerDrawMenu* COwnerDrawMenu::AppendSubMenu(const wchar_t* text) {
    auto subMenu = MakeSubMenu();
    if (!subMenu) return nullptr;
    AppendItem(text, MF_POPUP, IdOfSubMenu(subMenu->GetHandle()), -1);
    return subMenu.release(); // from here on, DestroyMenu finds it by its handle
}

bool COwnerDrawMenu::InsertItem(std::int32_t position, const wchar_t* text, UINT flags, UINT_PTR id, int iconId) {
    if ((flags & MF_BYPOSITION) == 0) {
        int found = -1;
        COwnerDrawMenu* menu = LocateItem(static_cast<UINT>(position), found);
        return menu != nullptr && menu->InsertItem(found, text, flags | MF_BYPOSITION, id, iconId);
    }
    flags = id == 0 ? MF_SEPARATOR | MF_BYPOSITION | MF_OWNERDRAW : flags | MF_OWNERDRAW;
    if (position == -1) position = ::GetMenuItemCount(GetHandle());
    int offset = 0;
    if ((flags & MF_POPUP) != 0) {
        offset = CountForeignItems();
        if (position < offset) offset = 0;
        RegisterSubMenu(id, position);
    }
    CMenuItemRecord& record = MakeRecord(position - offset, text, flags, id);
    TakeImage(record, iconId);
    const bool inserted =
        ::InsertMenuA(GetHandle(), static_cast<UINT>(position), flags, id, record.AsItemText()) != FALSE;
    if (loadedFromResource) ReattachTopLevelPopups();
    return inserted;
}

bool COwnerDrawMenu::InsertItem(std::int32_t position, const wchar_t* text, UINT flags, UINT_PTR id,
                                const CImageList* images, int index) {
    if ((flags & MF_BYPOSITION) == 0) {
        int found = -1;
        COwnerDrawMenu* menu = LocateItem(static_cast<UINT>(position), found);
        return menu != nullptr && menu->InsertItem(found, text, flags | MF_BYPOSITION, id, images, index);
    }
    flags = id == 0 ? MF_SEPARATOR | MF_BYPOSITION | MF_OWNERDRAW : flags | MF_OWNERDRAW;
    if (position == -1) position = ::GetMenuItemCount(GetHandle());
    if ((flags & MF_POPUP) != 0) RegisterSubMenu(id, position);
    CMenuItemRecord& record = MakeRecord(position, text, flags, id);
    if (images != nullptr) record.sharedIndex = AddSharedImage(*images, index, static_cast<UINT>(id));
    return ::InsertMenuA(GetHandle(), static_cast<UINT>(position), flags, id, record.AsItemText()) != FALSE;
}

bool COwnerDrawMenu::InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const wchar_t* text, int iconId) {
    return InsertItem(position, text, flags, id, iconId);
}

bool COwnerDrawMenu::InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const wchar_t* text,
                                    const CImageList* images, int index) {
    return InsertItem(position, text, flags, id, images, index);
}

bool COwnerDrawMenu::InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const wchar_t* text,
                                    const CBitmap* bitmap) {
    const auto images = ListOfBitmap(bitmap);
    return InsertItem(position, text, flags, id, images.get(), 0);
}

void COwnerDrawMenu::RegisterSubMenu(UINT_PTR id, std::int32_t position) {
    allSubMenus.push_back(SubMenuOfId(id));
    subMenus.insert(subMenus.begin() + PlaceIn(subMenus.size(), position), SubMenuOfId(id));
}

CMenuItemRecord& COwnerDrawMenu::MakeRecord(std::int32_t index, const wchar_t* text, UINT flags, UINT_PTR id) {
    const auto place = itemRecords.begin() + PlaceIn(itemRecords.size(), index);
    CMenuItemRecord& record = **itemRecords.insert(place, std::make_unique<CMenuItemRecord>());
    record.SetText(text);
    record.flags = flags;
    record.id = id;
    return record;
}

void COwnerDrawMenu::TakeImage(CMenuItemRecord& record, int iconId) {
    const auto command = static_cast<UINT>(record.id);
    if (iconId < 0) {
        record.sharedIndex = FindSharedImage(command);
    } else {
        record.imageList.reset();
        LoadSharedImage(iconId, command, record.sharedIndex);
    }
}

std::unique_ptr<CImageList> COwnerDrawMenu::ListOfBitmap(const CBitmap* bitmap) const {
    if (bitmap == nullptr) return nullptr;
    auto images = std::make_unique<CImageList>();
    images->Create(imageWidth, imageHeight, imageListFlags, 1, 1);
    images->AddMasked(bitmap->GetHandle(), TransparentColor());
    return images;
}

std::unique_ptr<COwnerDrawMenu> COwnerDrawMenu::MakeSubMenu() const {
    auto subMenu = std::make_unique<COwnerDrawMenu>();
    if (!subMenu->CreatePopupMenu()) return nullptr;
    subMenu->checkImages = checkImages;
    subMenu->checkImagesShared = true;
    subMenu->checkSelectedId = checkSelectedId;
    subMenu->checkClearId = checkClearId;
    return subMenu;
}
