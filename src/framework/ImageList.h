// The owner of a common-controls image list.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include "framework/CommonControls.h"
#include "framework/Gdi.h"
#include "framework/Geometry.h"

struct ImageListTraits : NullTraits<HIMAGELIST> {
    static void Close(HIMAGELIST list) { SystemCommonControls().destroyList(list); }
};

class CImageList : public CHandle<ImageListTraits> {
public:
    using CHandle::CHandle;

    // Makes an empty list in place of what was held. Sizes in pixels, `flags` of the ILC_ family. False on failure, and
    // for a size that isn't above 0: the platform makes such a list and divides by its size later.
    bool Create(int width, int height, UINT flags, int initial, int grow) {
        Attach(width > 0 && height > 0 ? SystemCommonControls().createList(width, height, flags, initial, grow)
                                       : nullptr);
        return !IsEmpty();
    }
    void DeleteImageList() { Close(); }

    // 0 without a list.
    int GetImageCount() const { return !IsEmpty() ? SystemCommonControls().getImageCount(GetHandle()) : 0; }
    // 0 by 0 without a list.
    CSize GetImageSize() const {
        int width = 0;
        int height = 0;
        if (!IsEmpty()) SystemCommonControls().getIconSize(GetHandle(), &width, &height);
        return {width, height};
    }
    // Adds the bitmap's images, of which `transparent` becomes see-through; the index of the first, or -1. The bitmap
    // stays the caller's, with its transparent pixels possibly blackened. It must not be selected into a context.
    int AddMasked(HBITMAP bitmap, COLORREF transparent) {
        return SystemCommonControls().addMasked(GetHandle(), bitmap, transparent);
    }
    // Index -1 appends. The index of the image, or -1. The icon stays the caller's.
    int ReplaceIcon(int index, HICON icon) { return SystemCommonControls().replaceIcon(GetHandle(), index, icon); }
    // A new icon; empty for an index without an image.
    CIcon GetIcon(int index) const {
        return CIcon(SystemCommonControls().getIcon(GetHandle(), index, ILD_TRANSPARENT));
    }
    bool Draw(HDC context, int index, int x, int y, UINT style) const {
        return !IsEmpty() && SystemCommonControls().draw(GetHandle(), index, context, x, y, style) != FALSE;
    }
};
