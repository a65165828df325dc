// The images of an icon button: taking them over, and letting them go.
#include <utility>

#include "framework/ResourceModule.h"
#include "skin/IconButton.h"

namespace {

HBITMAP LoadPicture(int id) {
    const char* name = MAKEINTRESOURCEA(static_cast<WORD>(id));
    const HINSTANCE module = FindResourceModule(name, RT_BITMAP);
    return static_cast<HBITMAP>(::LoadImageA(module, name, IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR));
}

HICON GrayOfFirstHandle() {
    return reinterpret_cast<HICON>(INT_PTR{CIconButton::grayOfFirst});
}

} // namespace

int CIconButton::SetIcons(int firstId, int secondId) {
    const SharedIcon first = LoadSharedIcon(firstId);
    if (first == nullptr) return SetIconHandles(nullptr, nullptr);
    // Tested before the number is cut to a resource's 16 bits.
    if (secondId == grayOfFirst) return TakeIcons(first, true, MeasureIcon(CreateGrayIcon(first->icon.GetHandle())));
    const SharedIcon second = secondId != 0 ? LoadSharedIcon(secondId) : nullptr;
    return TakeIcons(first, second != nullptr, second);
}

int CIconButton::SetIconHandles(HICON first, HICON second) {
    const bool wantsGray = second == GrayOfFirstHandle();
    CIcon ownFirst(first), ownSecond(wantsGray ? nullptr : second);
    if (first == nullptr) {
        FreeImages();
        return Finish(true);
    }
    if (wantsGray) ownSecond = CreateGrayIcon(first);
    return TakeIcons(MeasureIcon(std::move(ownFirst)), second != nullptr, MeasureIcon(std::move(ownSecond)));
}

int CIconButton::TakeIcons(SharedIcon first, bool fillsSecond, SharedIcon second) {
    FreeImages();
    if (first == nullptr || (fillsSecond && second == nullptr)) return ImageUnreadable;
    icons = {std::move(first), std::move(second)};
    return Finish(true);
}

int CIconButton::SetBitmaps(int firstId, COLORREF firstTransparent, int secondId, COLORREF secondTransparent) {
    const HBITMAP first = LoadPicture(firstId), second = secondId != 0 ? LoadPicture(secondId) : nullptr;
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
