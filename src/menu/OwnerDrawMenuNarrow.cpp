// The narrow forms of the menu's operations: each converts its text and goes on as the wide one.
#include "menu/OwnerDrawMenu.h"

namespace {

// A text in wide form for the time of one call; null stays null.
class CWideText {
public:
    explicit CWideText(const char* narrow) {
        if (narrow != nullptr) text = ToWide(narrow);
    }
    const wchar_t* Get() const { return text ? text->c_str() : nullptr; }

private:
    std::optional<std::wstring> text;
};

} // namespace

bool COwnerDrawMenu::AppendItem(const char* text, UINT flags, UINT_PTR id, int iconId) {
    return AppendItem(CWideText(text).Get(), flags, id, iconId);
}

bool COwnerDrawMenu::AppendItem(const char* text, UINT flags, UINT_PTR id, const CImageList* images, int index) {
    return AppendItem(CWideText(text).Get(), flags, id, images, index);
}

bool COwnerDrawMenu::AppendMenuItem(UINT flags, UINT_PTR id, const char* text, int iconId) {
    return AppendMenuItem(flags, id, CWideText(text).Get(), iconId);
}

bool COwnerDrawMenu::AppendMenuItem(UINT flags, UINT_PTR id, const char* text, const CImageList* images, int index) {
    return AppendMenuItem(flags, id, CWideText(text).Get(), images, index);
}

bool COwnerDrawMenu::AppendMenuItem(UINT flags, UINT_PTR id, const char* text, const CBitmap* bitmap) {
    return AppendMenuItem(flags, id, CWideText(text).Get(), bitmap);
}

COwnerDrawMenu* COwnerDrawMenu::AppendSubMenu(const char* text) {
    return AppendSubMenu(CWideText(text).Get());
}

bool COwnerDrawMenu::InsertItem(std::int32_t position, const char* text, UINT flags, UINT_PTR id, int iconId) {
    return InsertItem(position, CWideText(text).Get(), flags, id, iconId);
}

bool COwnerDrawMenu::InsertItem(std::int32_t position, const char* text, UINT flags, UINT_PTR id,
                                const CImageList* images, int index) {
    return InsertItem(position, CWideText(text).Get(), flags, id, images, index);
}

bool COwnerDrawMenu::InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const char* text, int iconId) {
    return InsertMenuItem(position, flags, id, CWideText(text).Get(), iconId);
}

bool COwnerDrawMenu::InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const char* text,
                                    const CImageList* images, int index) {
    return InsertMenuItem(position, flags, id, CWideText(text).Get(), images, index);
}

bool COwnerDrawMenu::InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const char* text,
                                    const CBitmap* bitmap) {
    return InsertMenuItem(position, flags, id, CWideText(text).Get(), bitmap);
}

bool COwnerDrawMenu::ModifyItem(const char* text, UINT id, int iconId) {
    return ModifyItem(CWideText(text).Get(), id, iconId);
}

bool COwnerDrawMenu::ModifyItem(const char* text, UINT id, const CImageList* images, int index) {
    return ModifyItem(CWideText(text).Get(), id, images, index);
}

bool COwnerDrawMenu::ModifyItem(const char* text, UINT id, const CBitmap* bitmap) {
    return ModifyItem(CWideText(text).Get(), id, bitmap);
}

bool COwnerDrawMenu::ModifyItem(const char* text, UINT id, COLORREF fill, COLORREF border, int hatch,
                                const SIZE* size) {
    return ModifyItem(CWideText(text).Get(), id, fill, border, hatch, size);
}

bool COwnerDrawMenu::ModifyItemByText(const char* newText, const char* oldText, int iconId) {
    return ModifyItemByText(CWideText(newText).Get(), CWideText(oldText).Get(), iconId);
}

int COwnerDrawMenu::RemoveItemByText(const char* text, int neighbours) {
    return RemoveItemByText(CWideText(text).Get(), neighbours);
}

int COwnerDrawMenu::DeleteItemByText(const char* text, int neighbours) {
    return DeleteItemByText(CWideText(text).Get(), neighbours);
}

COwnerDrawMenu* COwnerDrawMenu::FindSubMenuOfRecord(const char* text) {
    return FindSubMenuOfRecord(CWideText(text).Get());
}

bool COwnerDrawMenu::WriteItemText(UINT position, const char* text, UINT flags) {
    return WriteItemText(position, CWideText(text).Get(), flags);
}
