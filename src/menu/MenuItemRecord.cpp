#include "menu/MenuItemRecord.h"

#include "framework/Text.h"

CMenuItemRecord::CMenuItemRecord() : MSAAMENUINFO{static_cast<DWORD>(MSAA_MENU_SIG), 0, nullptr} {
    SetText(nullptr);
}

std::string CMenuItemRecord::GetNarrowText() const {
    return text ? ToNarrow(*text) : std::string();
}

void CMenuItemRecord::SetText(const wchar_t* newText) {
    static wchar_t none[] = L"";
    // A copy first: the new text may be the old one.
    text = newText != nullptr ? std::optional<std::wstring>(std::in_place, newText) : std::nullopt;
    cchWText = text ? static_cast<DWORD>(text->size()) : 0;
    pszWText = text ? text->data() : none;
}
