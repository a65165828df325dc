// Loading of pictures: bitmaps by the platform's own loader, the rest by OLE.
#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <vector>

#include <windows.h>
#include <ole2.h>
#include <olectl.h>

#include "framework/Dc.h"
#include "framework/FileStream.h"
#include "framework/SystemHandles.h"
#include "framework/SystemLibrary.h"
#include "pictures/PictureFile.h"
#include "pictures/SkinBitmap.h"

namespace {

struct GlobalMemoryTraits : NullTraits<HGLOBAL> {
    static void Close(HGLOBAL memory) { ::GlobalFree(memory); }
};
using CGlobalMemory = CHandle<GlobalMemoryTraits>;

constexpr std::uint64_t largestPicture = std::uint64_t{64} << 20; // bytes of a file; a theme's have some thousands

bool IsWorthLoading(const std::string& path) {
    const CFileStream file(std::fopen(path.c_str(), "rb"));
    if (file.IsEmpty()) return false;
    const std::uint64_t size = SizeOf(file.GetHandle());
    std::array<std::uint8_t, 54> header{};
    const std::size_t got = std::fread(header.data(), 1, header.size(), file.GetHandle());
    return IsPlausibleBitmap({header.data(), got}, size);
}

std::vector<std::uint8_t> ReadWhole(const std::string& path) {
    const CFileStream file(std::fopen(path.c_str(), "rb"));
    if (file.IsEmpty()) return {};
    const std::uint64_t size = SizeOf(file.GetHandle());
    if (size > largestPicture) return {};
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.GetHandle()));
    return bytes;
}

// A picture from bytes in any format that OLE reads; empty for what it can't read.
CInterface<IPicture> DecodePicture(std::span<const std::uint8_t> bytes) {
    CInterface<IPicture> picture;
    if (bytes.empty()) return picture;
    CGlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
    if (memory.IsEmpty()) return picture;
    if (void* target = ::GlobalLock(memory.GetHandle())) {
        std::copy(bytes.begin(), bytes.end(), static_cast<std::uint8_t*>(target));
        ::GlobalUnlock(memory.GetHandle());
    }
    CInterface<IStream> stream;
    if (FAILED(::CreateStreamOnHGlobal(memory.GetHandle(), TRUE, stream.Receive()))) return picture;
    memory.Detach(); // the stream's now
    // Loaded here alone: the theme's own pictures are bitmaps.
    decltype(&::OleLoadPicture) load = nullptr;
    FindFunction(LoadSystemLibrary(L"oleaut32.dll"), "OleLoadPicture", load);
    if (load == nullptr) return picture;
    load(stream.GetHandle(), static_cast<LONG>(bytes.size()), FALSE, IID_IPicture,
         reinterpret_cast<void**>(picture.Receive()));
    return picture;
}

} // namespace

int CSkinBitmap::GetFileKind(const std::string& path) {
    return static_cast<int>(KindOfPath(path));
}

HBITMAP CSkinBitmap::LoadBitmapFile(const std::string& path, COLORREF backColor) {
    switch (KindOfPath(path)) {
    case PictureKind::Bitmap:
        if (!IsWorthLoading(path)) return nullptr;
        return static_cast<HBITMAP>(::LoadImageA(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE));
    case PictureKind::Unknown:
        return nullptr;
    case PictureKind::Icon: {
        const std::vector<std::uint8_t> file = ReadWhole(path);
        return IsPlausibleIcon(file) ? RenderPicture(DecodePicture(file).GetHandle(), backColor) : nullptr;
    }
    default:
        return RenderPicture(DecodePicture(ReadWhole(path)).GetHandle(), backColor);
    }
}

bool CSkinBitmap::LoadFromFile(const std::string& path, COLORREF backColor) {
    Close();
    Attach(LoadBitmapFile(path, backColor));
    return !IsEmpty();
}

bool CSkinBitmap::LoadFromResource(std::uint16_t id, const char* type, HINSTANCE module, COLORREF backColor) {
    if (!IsEmpty()) return false;
    const HRSRC resource = ::FindResourceA(module, MAKEINTRESOURCEA(id), type);
    const HGLOBAL block = resource != nullptr ? ::LoadResource(module, resource) : nullptr;
    const void* bytes = block != nullptr ? ::LockResource(block) : nullptr;
    if (bytes == nullptr) return false;
    const auto picture = DecodePicture({static_cast<const std::uint8_t*>(bytes), ::SizeofResource(module, resource)});
    Attach(RenderPicture(picture.GetHandle(), backColor));
    return !IsEmpty();
}

HBITMAP CSkinBitmap::RenderPicture(IPicture* picture, COLORREF backColor) {
    if (picture == nullptr) return nullptr;
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (FAILED(picture->get_Width(&width)) || FAILED(picture->get_Height(&height))) return nullptr;
    const CClientDC desktop(nullptr);
    constexpr int himetricPerInch = 2540;
    const int pixelWidth = ::MulDiv(width, ::GetDeviceCaps(desktop.GetHandle(), LOGPIXELSX), himetricPerInch);
    const int pixelHeight = ::MulDiv(height, ::GetDeviceCaps(desktop.GetHandle(), LOGPIXELSY), himetricPerInch);
    if (pixelWidth <= 0 || pixelHeight <= 0 || std::int64_t{pixelWidth} * pixelHeight > mostPixels) return nullptr;
    CMemoryDC memory(desktop.GetHandle());
    CBitmap bitmap(::CreateCompatibleBitmap(desktop.GetHandle(), pixelWidth, pixelHeight));
    if (memory.GetHandle() == nullptr || bitmap.IsEmpty()) return nullptr;
    {
        const CSelectObject selected(memory, bitmap.GetHandle());
        const CRect whole(0, 0, pixelWidth, pixelHeight);
        if (backColor != noBackColor) memory.FillSolidRect(whole, backColor);
        // Pictures count their rows upward: from the top, by a negative height.
        picture->Render(memory.GetHandle(), 0, 0, pixelWidth, pixelHeight, 0, height, width, -height, nullptr);
    }
    return bitmap.Detach();
}
