// The record behind one item of an owner-drawn menu: what the item says and shows. Its address is the item's data in
// the platform menu, so a record never moves while its item exists.
//
// It begins with the structure by which assistive software reads owner-drawn items (MSAAMENUINFO, at the start of the
// item's data): the text of the caption, verbatim, mnemonic mark and tab included, as a plain item would give it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <windows.h>
#include <oleacc.h>

#include "framework/ImageList.h"

class CMenuItemRecord : private MSAAMENUINFO {
public:
    CMenuItemRecord();
    CMenuItemRecord(const CMenuItemRecord&) = delete;
    CMenuItemRecord& operator=(const CMenuItemRecord&) = delete;
    ~CMenuItemRecord() = default;

    // The caption, or null for none. `&` marks the mnemonic, a tab parts the caption from its accelerator text.
    const wchar_t* GetText() const { return text ? text->c_str() : nullptr; }
    // The caption in the process's code page; empty for none.
    std::string GetNarrowText() const;
    // Takes a copy; null for no caption.
    void SetText(const wchar_t* newText);

    // What the platform keeps as the item's data, and the same in the form in which it is handed over.
    ULONG_PTR GetItemData() const { return reinterpret_cast<ULONG_PTR>(this); }
    const char* AsItemText() const { return reinterpret_cast<const char*>(this); }

    std::int32_t imageIndex = -1;  // in `imageList`; -1 for none
    std::int32_t sharedIndex = -1; // in COwnerDrawMenu::sharedImages; -1 for none
    std::int32_t iconId = -1;      // 0 or more: the item has an image of its own, told by imageIndex and imageList
    UINT flags = 0;                // MF_ flags last given to the platform for this item
    UINT_PTR id = 0;               // command; the handle of a pop-up item's sub-menu; 0 for a separator
    std::int32_t seen = 0; // where the menu last found its item, from 1; 0 for nowhere; goes out of date at once
    std::unique_ptr<CImageList> imageList; // the item's own images: normal, then perhaps washed-out and shadow

private:
    std::optional<std::wstring> text;
};
