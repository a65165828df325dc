// Images of items: the shared store, the lists of single items, and the companions that the modern look shows beside
// them.
//
// Companions are made when an image is added, since they cost a call for each pixel; menus are painted from ready
// images.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "framework/CommonControls.h"
#include "framework/ResourceModule.h"
#include "menu/MenuFont.h"
#include "menu/ResourceBitmap.h"
#include "pictures/PixelFormat.h"

namespace {

// Empty if there is no such resource. The standard colours of a bitmap of 16 become the system's.
CBitmap LoadMenuBitmap(int resourceId) {
    const char* name = MAKEINTRESOURCEA(static_cast<WORD>(resourceId));
    if (name == nullptr) return {};
    const HINSTANCE module = FindResourceModule(name, RT_BITMAP);
    if (BitmapColorCount(LoadResourceBytes(name, RT_BITMAP)) != 16) return CBitmap(::LoadBitmapA(module, name));
    std::array<COLORMAP, 4> map{{{RGB(0, 0, 0), ::GetSysColor(COLOR_BTNTEXT)},
                                 {RGB(0x80, 0x80, 0x80), ::GetSysColor(COLOR_BTNSHADOW)},
                                 {RGB(0xC0, 0xC0, 0xC0), ::GetSysColor(COLOR_BTNFACE)},
                                 {RGB(0xFF, 0xFF, 0xFF), ::GetSysColor(COLOR_BTNHIGHLIGHT)}}};
    return CBitmap(SystemCommonControls().createMappedBitmap(module, reinterpret_cast<INT_PTR>(name), 0, map.data(),
                                                             static_cast<int>(map.size())));
}

bool AddResourceBitmap(CImageList& list, int resourceId, COLORREF transparent) {
    const CBitmap bitmap = LoadMenuBitmap(resourceId);
    return !bitmap.IsEmpty() && list.AddMasked(bitmap.GetHandle(), transparent) >= 0;
}

bool WantsCompanions() {
    return COwnerDrawMenu::IsModernLook() && COwnerDrawMenu::raisedImages != 0;
}

CSize SizeOf(const CBitmap& bitmap) {
    BITMAP info{};
    ::GetObjectA(bitmap.GetHandle(), sizeof info, &info);
    return {info.bmWidth, info.bmHeight};
}

// A bitmap's pixels, 0x00RRGGBB; empty on failure. It isn't selected into a context.
std::vector<std::uint32_t> GetPixels(HBITMAP bitmap, CSize size) {
    BITMAPINFO format = PixelFormat(size.cx, size.cy);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
    const CMemoryDC dc(nullptr);
    const auto rows = static_cast<UINT>(size.cy);
    if (::GetDIBits(dc.GetHandle(), bitmap, 0, rows, pixels.data(), &format, DIB_RGB_COLORS) == 0) pixels.clear();
    for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
    return pixels;
}

COLORREF SwapRedAndBlue(std::uint32_t color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

// What a bitmap of this kind makes of the face colour.
std::uint32_t StoredFaceColor(HBITMAP bitmap) {
    CBitmap scratch;
    {
        const CMemoryDC dc(nullptr);
        const CSelectObject selected(dc, bitmap);
        scratch.Attach(::CreateCompatibleBitmap(dc.GetHandle(), 1, 1));
        CMemoryDC memory(dc.GetHandle());
        const CSelectObject scratchSelected(memory, scratch.GetHandle());
        memory.FillSolidRect({0, 0, 1, 1}, ::GetSysColor(COLOR_3DFACE));
    }
    const auto pixels = GetPixels(scratch.GetHandle(), {1, 1});
    return pixels.empty() ? SwapRedAndBlue(::GetSysColor(COLOR_3DFACE)) : pixels[0];
}

// Replaces all pixels that aren't of the face colour.
template <class Replace>
void ReplacePixels(const CBitmap& bitmap, Replace replace) {
    const std::uint32_t background = StoredFaceColor(bitmap.GetHandle());
    const CSize size = SizeOf(bitmap);
    auto pixels = GetPixels(bitmap.GetHandle(), size);
    if (pixels.empty()) return;
    for (std::uint32_t& pixel : pixels) {
        if (pixel != background) pixel = SwapRedAndBlue(replace(SwapRedAndBlue(pixel)));
    }
    const CMemoryDC dc(nullptr);
    const BITMAPINFO format = PixelFormat(size.cx, size.cy);
    ::SetDIBits(dc.GetHandle(), bitmap.GetHandle(), 0, static_cast<UINT>(size.cy), pixels.data(), &format,
                DIB_RGB_COLORS);
}

// Washed-out and shadow companion of an image, as icons that fit into a list of any image size.
struct Companions {
    CIcon washed;
    CIcon shadow;
};

CIcon MakeCompanion(const COwnerDrawMenu& menu, const CImageList& list, int index, void (*change)(CBitmap&)) {
    CBitmap bitmap;
    {
        const CClientDC dc(MenuContextWindow());
        menu.ImageToBitmap(dc, list, index, bitmap);
    }
    change(bitmap);
    CImageList scratch;
    const CSize size = SizeOf(bitmap);
    scratch.Create(size.cx, size.cy, COwnerDrawMenu::imageListFlags, 1, 1);
    scratch.AddMasked(bitmap.GetHandle(), ::GetSysColor(COLOR_3DFACE));
    return scratch.GetIcon(0);
}

// Both empty where the look has no companions.
Companions MakeCompanions(const COwnerDrawMenu& menu, const CImageList& list, int index) {
    if (!WantsCompanions()) return {};
    return {MakeCompanion(menu, list, index, &COwnerDrawMenu::MakeWashedImage),
            MakeCompanion(menu, list, index, &COwnerDrawMenu::MakeShadowImage)};
}

void AddCompanions(const COwnerDrawMenu& menu, CImageList& list) {
    const Companions companions = MakeCompanions(menu, list, 0);
    if (companions.washed.IsEmpty() || companions.shadow.IsEmpty()) return;
    list.ReplaceIcon(-1, companions.washed.GetHandle());
    list.ReplaceIcon(-1, companions.shadow.GetHandle());
}

} // namespace

bool COwnerDrawMenu::LoadSharedImage(int iconId, UINT id, std::int32_t& sharedIndex) {
    int index = 0;
    LookUpToolbarImage(id, static_cast<UINT>(iconId), index); // a plain bitmap is no toolbar and has one image
    const CImageList images = LoadStrip(iconId, {imageWidth, imageHeight});
    if (images.IsEmpty()) return false;
    sharedIndex = AddSharedImage(images, index, id);
    return true;
}

CImageList COwnerDrawMenu::LoadStrip(int resourceId, CSize imageSize) const {
    CImageList images;
    images.Create(imageSize.cx, imageSize.cy, imageListFlags, 1, 1);
    return AddResourceBitmap(images, resourceId, TransparentColor()) ? std::move(images) : CImageList();
}

bool COwnerDrawMenu::AddBitmapToList(CImageList& list, int resourceId) {
    if (!AddResourceBitmap(list, resourceId, TransparentColor())) return false;
    AddCompanions(*this, list);
    return true;
}

int COwnerDrawMenu::AddSharedImage(const CImageList& list, int index, UINT id) {
    if (sharedImages.IsEmpty()) sharedImages.Create(imageWidth, imageHeight, imageListFlags, 1, 1);
    const CIcon icon = list.GetIcon(index);
    if (icon.IsEmpty()) return -1;
    const Companions companions = MakeCompanions(*this, list, index);
    const bool hasCompanions = !companions.washed.IsEmpty() && !companions.shadow.IsEmpty();
    const int found = FindSharedImage(id);
    if (found >= 0) {
        sharedImages.ReplaceIcon(found, icon.GetHandle());
        if (hasCompanions && HasRaisedSet(found)) {
            sharedImages.ReplaceIcon(found + 1, companions.washed.GetHandle());
            sharedImages.ReplaceIcon(found + 2, companions.shadow.GetHandle());
        }
        return found;
    }
    // An image that the list doesn't take has no entry, so that both stay of one length.
    const auto add = [id](HICON image) {
        const int place = sharedImages.ReplaceIcon(-1, image);
        if (place >= 0) sharedImageIds.push_back(id);
        return place;
    };
    const int place = add(icon.GetHandle());
    if (place >= 0 && hasCompanions) {
        add(companions.washed.GetHandle());
        add(companions.shadow.GetHandle());
    }
    return place;
}

int COwnerDrawMenu::FindSharedImage(UINT id) {
    const auto found = std::ranges::find(sharedImageIds, id);
    return found == sharedImageIds.end() ? -1 : static_cast<int>(found - sharedImageIds.begin());
}

bool COwnerDrawMenu::HasRaisedSet(int index) {
    const auto first = static_cast<std::size_t>(index);
    if (index < 0 || sharedImageIds.size() < 3 || first > sharedImageIds.size() - 3) return false;
    const UINT id = sharedImageIds[first];
    return sharedImageIds[first + 1] == id && sharedImageIds[first + 2] == id;
}

bool COwnerDrawMenu::CopyImageToList(const CImageList* source, int index, CImageList& target) {
    if (source == nullptr || index < 0) return false;
    const CIcon icon = source->GetIcon(index);
    const CSize size = source->GetImageSize();
    target.Create(size.cx, size.cy, imageListFlags, 1, 1);
    if (icon.IsEmpty()) return true; // an empty box will show
    target.ReplaceIcon(-1, icon.GetHandle());
    AddCompanions(*this, target);
    return true;
}

bool COwnerDrawMenu::ImageToBitmap(const CDC& dc, const CImageList& list, int index, CBitmap& bitmap) const {
    const CIcon icon = list.GetIcon(index);
    CMemoryDC memory(dc.GetHandle());
    bitmap.Attach(::CreateCompatibleBitmap(dc.GetHandle(), imageWidth, imageHeight));
    const CSelectObject selected(memory, bitmap.GetHandle());
    const COLORREF face = ::GetSysColor(COLOR_3DFACE);
    memory.FillSolidRect({0, 0, imageWidth, imageHeight}, face);
    const CBrush ground(face);
    ::DrawIconEx(memory.GetHandle(), 0, 0, icon.GetHandle(), imageWidth, imageHeight, 0, ground.GetHandle(), DI_NORMAL);
    return true;
}

void COwnerDrawMenu::MakeWashedImage(CBitmap& bitmap) {
    ReplacePixels(bitmap, [](COLORREF color) { return BlendTowardWhite(color, 0.3); });
}

void COwnerDrawMenu::MakeShadowImage(CBitmap& bitmap) {
    const COLORREF shadow = ::GetSysColor(COLOR_3DSHADOW);
    const COLORREF shown = IsThemedXp() ? shadow : BlendTowardWhite(shadow, 0.49);
    ReplacePixels(bitmap, [shown](COLORREF) { return shown; });
}

void COwnerDrawMenu::MakeSwatch(const CDC& dc, CBitmap& bitmap, CSize size, CSize imageSize, COLORREF fill,
                                COLORREF border, int hatch) {
    CMemoryDC memory(dc.GetHandle());
    bitmap.Attach(::CreateCompatibleBitmap(dc.GetHandle(), imageSize.cx, imageSize.cy));
    const CSelectObject selected(memory, bitmap.GetHandle());
    if (!(size == imageSize))
        memory.FillSolidRect({0, 0, imageSize.cx, imageSize.cy},
                             ::GetSysColor(IsThemedXp() ? COLOR_3DFACE : COLOR_MENU));
    const CPen pen(PS_SOLID, 1, border);
    const CGdiObject brush(hatch == -1 ? ::CreateSolidBrush(fill) : ::CreateHatchBrush(hatch, fill));
    const CSelectObject penSelected(memory, pen.GetHandle());
    const CSelectObject brushSelected(memory, brush.GetHandle());
    const LONG left = (imageSize.cx - size.cx) / 2;
    const LONG top = (imageSize.cy - size.cy) / 2;
    ::Rectangle(memory.GetHandle(), left, top, left + size.cx, top + size.cy);
}

void COwnerDrawMenu::LoadCheckImages(int clearId, int selectedId) {
    if (clearId <= 0 || selectedId <= 0) return;
    checkClearId = clearId;
    checkSelectedId = selectedId;
    // Sub-menus that share this menu's list show the new marks too; a list of the parent's isn't this menu's to change.
    if (checkImages == nullptr || checkImagesShared) checkImages = std::make_shared<CImageList>();
    checkImagesShared = false;
    checkImages->Create(imageWidth, imageHeight, ILC_MASK, 2, 1);
    const bool complete = AddResourceBitmap(*checkImages, clearId, TransparentColor()) &&
                          AddResourceBitmap(*checkImages, selectedId, TransparentColor());
    if (!complete) checkImages.reset();
}
