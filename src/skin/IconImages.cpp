#include "skin/IconImages.h"

#include <map>
#include <utility>

#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "pictures/ColorMath.h"

namespace {

// The two bitmaps of an icon's description belong to whoever asked for it.
struct IconParts {
    explicit IconParts(HICON icon) : known(::GetIconInfo(icon, &info) != FALSE) {
        if (!known) return;
        color.Attach(info.hbmColor);
        mask.Attach(info.hbmMask);
    }

    ICONINFO info{};
    bool known;
    CBitmap color;
    CBitmap mask;
};

void GrayPixels(HDC from, HDC to, int width, int height) {
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const COLORREF color = ::GetPixel(from, x, y);
            ::SetPixelV(to, x, y, color == RGB(0, 0, 0) ? color : IconGray(color));
        }
    }
}

} // namespace

SharedIcon MeasureIcon(CIcon icon) {
    const IconParts parts(icon.GetHandle());
    if (!parts.known) return nullptr;
    const auto width = static_cast<int>(parts.info.xHotspot * 2);
    const auto height = static_cast<int>(parts.info.yHotspot * 2);
    return std::make_shared<const IconImage>(IconImage{std::move(icon), width, height});
}

SharedIcon LoadSharedIcon(int id) {
    static std::map<std::pair<HINSTANCE, int>, std::weak_ptr<const IconImage>> held;
    const char* name = MAKEINTRESOURCEA(static_cast<WORD>(id));
    const HINSTANCE module = FindResourceModule(name, RT_GROUP_ICON);
    auto& entry = held[{module, id}];
    SharedIcon icon = entry.lock();
    if (icon == nullptr) {
        const HANDLE loaded = ::LoadImageA(module, name, IMAGE_ICON, 0, 0, LR_DEFAULTCOLOR);
        entry = icon = MeasureIcon(CIcon(static_cast<HICON>(loaded)));
    }
    return icon;
}

CIcon CreateGrayIcon(HICON icon) {
    IconParts parts(icon);
    if (!parts.known || parts.color.IsEmpty()) return {};
    const int width = static_cast<int>(parts.info.xHotspot * 2);
    const int height = static_cast<int>(parts.info.yHotspot * 2);
    const CClientDC screen(nullptr);
    const CMemoryDC source(screen.GetHandle());
    const CMemoryDC target(screen.GetHandle());
    const CBitmap gray(::CreateCompatibleBitmap(screen.GetHandle(), width, height));
    if (source.GetHandle() == nullptr || target.GetHandle() == nullptr || gray.IsEmpty()) return {};
    {
        const CSelectObject sourceSelected(source, parts.color.GetHandle());
        const CSelectObject targetSelected(target, gray.GetHandle());
        GrayPixels(source.GetHandle(), target.GetHandle(), width, height);
    }
    ICONINFO info = parts.info;
    info.hbmColor = gray.GetHandle();
    return CIcon(::CreateIconIndirect(&info)); // copies both bitmaps
}

CBitmap PrepareMask(HBITMAP bitmap, int width, int height, COLORREF transparentColor) {
    CBitmap mask(::CreateBitmap(width, height, 1, 1, nullptr));
    const CMemoryDC source(nullptr);
    const CMemoryDC target(nullptr);
    if (mask.IsEmpty() || source.GetHandle() == nullptr || target.GetHandle() == nullptr) return CBitmap();
    const CSelectObject sourceSelected(source, bitmap);
    const CSelectObject targetSelected(target, mask.GetHandle());
    // A bitmap of another format than the screen's, or one that is in use, can't be selected.
    if (::GetCurrentObject(source.GetHandle(), OBJ_BITMAP) != bitmap) return CBitmap();
    // Going to black and white, the source's background colour becomes white; going back, the colours are the target's.
    ::SetBkColor(source.GetHandle(), transparentColor);
    ::BitBlt(target.GetHandle(), 0, 0, width, height, source.GetHandle(), 0, 0, SRCCOPY);
    ::SetTextColor(source.GetHandle(), RGB(255, 255, 255));
    ::SetBkColor(source.GetHandle(), RGB(0, 0, 0));
    ::BitBlt(source.GetHandle(), 0, 0, width, height, target.GetHandle(), 0, 0, SRCAND);
    return mask;
}
