// The owner of a common-controls image list. Move-only; at most one list, destroyed at its end.
#pragma once

#include <utility>

#include <windows.h>
#include <commctrl.h>

#include "framework/Geometry.h"

class CImageList {
public:
    CImageList() = default;
    explicit CImageList(HIMAGELIST list) : handle(list) {}
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;
    CImageList(CImageList&& other) noexcept : handle(other.Detach()) {}
    CImageList& operator=(CImageList&& other) noexcept {
        if (this != &other) Attach(other.Detach());
        return *this;
    }
    ~CImageList() { DeleteImageList(); }

    // Makes an empty list in place of what was held. Sizes in pixels, `flags` of the ILC_ family. False on failure, and
    // for a size that isn't above 0: the platform makes such a list and divides by its size later.
    bool Create(int width, int height, UINT flags, int initial, int grow) {
        Attach(width > 0 && height > 0 ? ::ImageList_Create(width, height, flags, initial, grow) : nullptr);
        return handle != nullptr;
    }
    // Takes ownership; what was held before is destroyed.
    void Attach(HIMAGELIST list) {
        DeleteImageList();
        handle = list;
    }
    // Gives ownership to the caller.
    HIMAGELIST Detach() { return std::exchange(handle, nullptr); }
    void DeleteImageList() {
        if (handle != nullptr) ::ImageList_Destroy(std::exchange(handle, nullptr));
    }
    HIMAGELIST GetHandle() const { return handle; }
    bool IsEmpty() const { return handle == nullptr; }

    // 0 without a list.
    int GetImageCount() const { return handle != nullptr ? ::ImageList_GetImageCount(handle) : 0; }
    // 0 by 0 without a list.
    CSize GetImageSize() const {
        int width = 0;
        int height = 0;
        if (handle != nullptr) ::ImageList_GetIconSize(handle, &width, &height);
        return {width, height};
    }
    // Adds the bitmap's images, of which `transparent` becomes see-through; the index of the first, or -1. The bitmap
    // stays the caller's, with its transparent pixels possibly blackened. It must not be selected into a context.
    int AddMasked(HBITMAP bitmap, COLORREF transparent) { return ::ImageList_AddMasked(handle, bitmap, transparent); }
    // Index -1 appends. The index of the image, or -1. The icon stays the caller's.
    int ReplaceIcon(int index, HICON icon) { return ::ImageList_ReplaceIcon(handle, index, icon); }
    // A new icon, which the caller destroys; null for an index without an image.
    HICON GetIcon(int index) const { return ::ImageList_GetIcon(handle, index, ILD_TRANSPARENT); }
    bool Draw(HDC context, int index, int x, int y, UINT style) const {
        return handle != nullptr && ::ImageList_Draw(handle, index, context, x, y, style) != FALSE;
    }

private:
    HIMAGELIST handle = nullptr;
};
