// The images of an icon button: taking them over, and letting them go.
#include <utility>

#include "framework/ResourceModule.h"
#include "skin/IconButton.h"

namespace {

HANDLE LoadPicture(int id, UINT kind, const char* type) {
    const char* name = MAKEINTRESOURCEA(static_cast<WORD>(id));
    return ::LoadImageA(FindResourceModule(name, type), name, kind, 0, 0, LR_DEFAULTCOLOR);
}

HICON GrayOfFirstHandle() {
    return reinterpret_cast<HICON>(INT_PTR{CIconButton::grayOfFirst});
}

bool TakeSize(IconImage& image) {
    return !image.icon.IsEmpty() && MeasureIcon(image.icon.GetHandle(), image.width, image.height);
}

} // namespace

int CIconButton::SetIcons(int firstId, int secondId) {
    const auto first = static_cast<HICON>(LoadPicture(firstId, IMAGE_ICON, RT_GROUP_ICON));
    // Tested before the number is cut to a resource's 16 bits.
    if (secondId == grayOfFirst) return SetIconHandles(first, GrayOfFirstHandle());
    const HANDLE second = secondId != 0 ? LoadPicture(secondId, IMAGE_ICON, RT_GROUP_ICON) : nullptr;
    return SetIconHandles(first, static_cast<HICON>(second));
}

int CIconButton::SetIconHandles(HICON first, HICON second) {
    FreeImages();
    const bool wantsGray = second == GrayOfFirstHandle();
    CIcon ownSecond(wantsGray ? nullptr : second);
    if (first == nullptr) return Finish(true);
    icons[0].icon.Attach(first);
    icons[1].icon = wantsGray ? CreateGrayIcon(first) : std::move(ownSecond);
    const bool fillsSecond = second != nullptr;
    if (!TakeSize(icons[0]) || (fillsSecond && !TakeSize(icons[1]))) {
        FreeImages();
        return ImageUnreadable;
    }
    return Finish(true);
}

int CIconButton::SetBitmaps(int firstId, COLORREF firstTransparent, int secondId, COLORREF secondTransparent) {
    const auto first = static_cast<HBITMAP>(LoadPicture(firstId, IMAGE_BITMAP, RT_BITMAP));
    const auto second = secondId != 0 ? static_cast<HBITMAP>(LoadPicture(secondId, IMAGE_BITMAP, RT_BITMAP)) : nullptr;
    return SetBitmapHandles(first, firstTransparent, second, secondTransparent);
}

int CIconButton::SetBitmapHandles(HBITMAP first, COLORREF firstTransparent, HBITMAP second,
                                  COLORREF secondTransparent) {
    FreeImages();
    CBitmap ownSecond(second);
    if (first == nullptr) return Finish(true);
    bitmaps[0].bitmap.Attach(first);
    bitmaps[0].transparentColor = firstTransparent;
    bitmaps[1].bitmap = std::move(ownSecond);
    bitmaps[1].transparentColor = secondTransparent;
    for (BitmapImage& image : bitmaps) {
        if (image.bitmap.IsEmpty()) continue;
        BITMAP record{};
        if (::GetObjectA(image.bitmap.GetHandle(), sizeof record, &record) == 0) {
            FreeImages();
            return ImageUnreadable;
        }
        image.width = record.bmWidth;
        image.height = record.bmHeight;
        image.mask = PrepareMask(image.bitmap.GetHandle(), image.width, image.height, image.transparentColor);
        if (image.mask.IsEmpty()) {
            FreeImages();
            return MaskFailed;
        }
    }
    return Finish(true);
}

void CIconButton::FreeImages() {
    icons = {};
    bitmaps = {};
}
