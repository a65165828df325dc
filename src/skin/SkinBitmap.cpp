#include "skin/SkinBitmap.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "framework/Dc.h"
#include "skin/NineSlice.h"
#include "skin/RegionRuns.h"

namespace {

BITMAP DescribeBitmap(HBITMAP bitmap) {
    BITMAP record{};
    if (bitmap != nullptr) ::GetObjectA(bitmap, sizeof record, &record);
    return record;
}

// A bitmap compatible with the screen, not with a memory context, which would make it black and white.
HBITMAP CreateScreenBitmap(int width, int height) {
    const CClientDC screen(nullptr);
    return ::CreateCompatibleBitmap(screen.GetHandle(), width, height);
}

CRect ToRect(const Box& box) {
    return {box.x, box.y, box.x + box.width, box.y + box.height};
}

constexpr std::size_t roomStep = 100; // rectangles by which the region data grow

// `bytes` keeps its room from batch to batch, and the platform is told all of it.
HRGN RegionOfRuns(const std::vector<Box>& runs, std::vector<std::byte>& bytes) {
    // The platform refuses region data without rectangles, where an empty region is meant.
    if (runs.empty()) return ::CreateRectRgn(0, 0, 0, 0);
    const std::size_t room = (runs.size() + roomStep - 1) / roomStep * roomStep;
    bytes.resize(std::max(bytes.size(), sizeof(RGNDATAHEADER) + room * sizeof(RECT)));
    auto& data = *reinterpret_cast<RGNDATA*>(bytes.data());
    data.rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(runs.size()), 0, {MAXLONG, MAXLONG, 0, 0}};
    auto* rects = reinterpret_cast<RECT*>(data.Buffer);
    RECT& bounds = data.rdh.rcBound;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        rects[i] = ToRect(runs[i]);
        bounds.left = std::min(bounds.left, rects[i].left);
        bounds.top = std::min(bounds.top, rects[i].top);
        bounds.right = std::max(bounds.right, rects[i].right);
        bounds.bottom = std::max(bounds.bottom, rects[i].bottom);
    }
    return ::ExtCreateRegion(nullptr, static_cast<DWORD>(bytes.size()), &data);
}

// A bitmap with 4 bytes a pixel whose bytes can be read.
struct ReadablePixels {
    CBitmap section;
    const std::uint8_t* bytes = nullptr;
};

ReadablePixels MakeReadable(const CSkinBitmap& picture) {
    const int width = picture.GetWidth();
    const int height = picture.GetHeight();
    ReadablePixels pixels;
    const CMemoryDC target(nullptr);
    if (target.GetHandle() == nullptr) return pixels;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    pixels.section.Attach(::CreateDIBSection(target.GetHandle(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (pixels.section.IsEmpty()) return pixels;
    {
        const CSelectObject selected(target, pixels.section.GetHandle());
        picture.Draw(target.GetHandle(), picture.GetBounds());
        ::GdiFlush(); // the bytes are read past GDI
    }
    pixels.bytes = static_cast<const std::uint8_t*>(bits);
    return pixels;
}

} // namespace

int CSkinBitmap::GetFrame(CSkinBitmap& frame, int column, int row, int columns, int rows) const {
    frame.DeleteObject();
    const Box cell = FrameCell(GetWidth(), GetHeight(), column, row, columns, rows);
    if (cell.IsEmpty()) return 1;
    frame.Attach(CreateScreenBitmap(cell.width, cell.height));
    const CMemoryDC target(nullptr);
    const CSelectObject selected(target, frame.GetHandle());
    StretchDraw(target.GetHandle(), {0, 0, cell.width, cell.height}, ToRect(cell));
    return 1;
}

HRGN CSkinBitmap::CreateRegion(COLORREF transparent, COLORREF tolerance) const {
    if (IsEmpty()) return nullptr;
    const ReadablePixels pixels = MakeReadable(*this);
    if (pixels.bytes == nullptr) return nullptr;
    const auto stride = static_cast<std::size_t>(DescribeBitmap(pixels.section.GetHandle()).bmWidthBytes + 3) / 4 * 4;
    const auto height = static_cast<std::size_t>(GetHeight());
    const PixelRows rows{{pixels.bytes, stride * height}, GetWidth(), GetHeight(), stride};
    CRgn whole;
    std::vector<std::byte> regionData;
    ForEachRunBatch(rows, TransparentRange::From(transparent, tolerance), [&](const std::vector<Box>& runs) {
        CRgn part(RegionOfRuns(runs, regionData));
        if (whole.IsEmpty()) {
            whole = std::move(part);
        } else {
            ::CombineRgn(whole.GetHandle(), whole.GetHandle(), part.GetHandle(), RGN_OR);
        }
    });
    return static_cast<HRGN>(whole.Detach());
}

HBITMAP CSkinBitmap::CopyFrom(HBITMAP source) {
    CSkinBitmap borrowed;
    borrowed.Attach(source);
    CSkinBitmap copy;
    borrowed.GetFrame(copy, 1, 1, 1, 1);
    borrowed.Detach();
    const auto former = static_cast<HBITMAP>(Detach());
    Attach(copy.Detach());
    return former;
}

int CSkinBitmap::Draw(HDC dc, const CRect& rect) const {
    const CMemoryDC source(dc);
    const CSelectObject selected(source, GetHandle());
    if (!IsEmpty()) {
        ::BitBlt(dc, rect.left, rect.top, rect.Width(), rect.Height(), source.GetHandle(), 0, 0, SRCCOPY);
    }
    return 1;
}

void CSkinBitmap::DrawTransparent(HDC dc, const CRect& rect, COLORREF transparent) const {
    if (IsEmpty()) return;
    const CMemoryDC source(dc);
    const CSelectObject selected(source, GetHandle());
    ::TransparentBlt(dc, rect.left, rect.top, rect.Width(), rect.Height(), source.GetHandle(), 0, 0, GetWidth(),
                     GetHeight(), transparent);
}

int CSkinBitmap::StretchDraw(HDC dc, const CRect& target, const CRect& source) const {
    if (IsEmpty()) return 1;
    const CMemoryDC from(dc);
    const CSelectObject selected(from, GetHandle());
    ::StretchBlt(dc, target.left, target.top, target.Width(), target.Height(), from.GetHandle(), source.left,
                 source.top, source.Width(), source.Height(), SRCCOPY);
    return 1;
}

int CSkinBitmap::DrawNineSlice(HDC dc, const CRect& rect, int cornerWidth, int cornerHeight) const {
    CSkinBitmap stretched;
    BuildNineSlice(stretched, rect, cornerWidth, cornerHeight);
    return stretched.Draw(dc, rect);
}

int CSkinBitmap::BuildNineSlice(CSkinBitmap& out, const CRect& rect, int cornerWidth, int cornerHeight) const {
    out.DeleteObject();
    if (IsEmpty() || rect.Width() <= 0 || rect.Height() <= 0) return 1;
    out.Attach(CreateScreenBitmap(rect.Width(), rect.Height()));
    const CMemoryDC target(nullptr);
    const CSelectObject targetSelected(target, out.GetHandle());
    const CMemoryDC source(nullptr);
    const CSelectObject sourceSelected(source, GetHandle());
    const auto cells =
        NineSliceCells({0, 0, rect.Width(), rect.Height()}, {0, 0, GetWidth(), GetHeight()}, cornerWidth, cornerHeight);
    for (const SliceCell& cell : cells) {
        ::StretchBlt(target.GetHandle(), cell.target.x, cell.target.y, cell.target.width, cell.target.height,
                     source.GetHandle(), cell.source.x, cell.source.y, cell.source.width, cell.source.height, SRCCOPY);
    }
    return 1;
}

CRect CSkinBitmap::GetBounds() const {
    return {0, 0, GetWidth(), GetHeight()};
}

int CSkinBitmap::GetWidth() const {
    return DescribeBitmap(GetHandle()).bmWidth;
}

int CSkinBitmap::GetHeight() const {
    return DescribeBitmap(GetHandle()).bmHeight;
}

HRGN CSkinBitmap::RegionFromRects(DWORD count, const RGNDATA& data) {
    const HRGN whole = ::CreateRectRgn(0, 0, 0, 0);
    const auto* rects = reinterpret_cast<const RECT*>(data.Buffer);
    for (DWORD i = 0; i < count; ++i) {
        const CRgn part(::CreateRectRgnIndirect(&rects[i]));
        ::CombineRgn(whole, whole, part.GetHandle(), RGN_OR);
    }
    return whole;
}

HRGN CSkinBitmap::InflateRegion(HRGN region, int cx, int cy) {
    const DWORD size = ::GetRegionData(region, 0, nullptr);
    if (size < sizeof(RGNDATAHEADER)) return nullptr;
    std::vector<std::byte> bytes(size);
    auto& data = *reinterpret_cast<RGNDATA*>(bytes.data());
    if (::GetRegionData(region, size, &data) == 0) return nullptr;
    auto* rects = reinterpret_cast<RECT*>(data.Buffer);
    for (DWORD i = 0; i < data.rdh.nCount; ++i) ::InflateRect(&rects[i], cx, cy);
    return RegionFromRects(data.rdh.nCount, data);
}
