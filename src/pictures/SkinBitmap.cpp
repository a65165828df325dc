#include "pictures/SkinBitmap.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "framework/Dc.h"
#include "pictures/PixelFormat.h"
#include "pictures/RegionRuns.h"

namespace {

BITMAP DescribeBitmap(HBITMAP bitmap) {
    BITMAP record{};
    if (bitmap != nullptr) ::GetObjectA(bitmap, sizeof record, &record);
    return record;
}

// Not device-dependent: some systems ask the display driver anew each time that such a bitmap is made or selected,
// which costs more than all the drawing.
HBITMAP CreatePixels(int width, int height) {
    const BITMAPINFO info = PixelFormat(width, height);
    void* bits = nullptr;
    return ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
}

// The one context that bitmaps are copied from: making one costs more than most copies. Never destroyed, as bitmaps of
// static storage may be drawn late. Tried again at each call until the system gives one. User-interface thread only.
const CMemoryDC& SourceContext() {
    static const auto* context = new CMemoryDC(nullptr);
    if (context->GetHandle() == nullptr) {
        delete context;
        context = new CMemoryDC(nullptr);
    }
    return *context;
}

constexpr std::size_t roomStep = 100; // rectangles by which the region data grow

// `bytes` grows to the largest batch so far, and the platform is told its whole size.
HRGN RegionOfRuns(const std::vector<CRect>& runs, std::vector<std::byte>& bytes) {
    // The platform refuses region data without rectangles, where an empty region is meant.
    if (runs.empty()) return ::CreateRectRgn(0, 0, 0, 0);
    const std::size_t room = (runs.size() + roomStep - 1) / roomStep * roomStep;
    bytes.resize(std::max(bytes.size(), sizeof(RGNDATAHEADER) + room * sizeof(RECT)));
    auto& data = *reinterpret_cast<RGNDATA*>(bytes.data());
    data.rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(runs.size()), 0, {MAXLONG, MAXLONG, 0, 0}};
    auto* rects = reinterpret_cast<RECT*>(data.Buffer);
    RECT& bounds = data.rdh.rcBound;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        rects[i] = runs[i];
        bounds.left = std::min(bounds.left, rects[i].left);
        bounds.top = std::min(bounds.top, rects[i].top);
        bounds.right = std::max(bounds.right, rects[i].right);
        bounds.bottom = std::max(bounds.bottom, rects[i].bottom);
    }
    return ::ExtCreateRegion(nullptr, static_cast<DWORD>(bytes.size()), &data);
}

// Its pixels as 32-bit rows in `bytes`, whatever the bitmap's depth and the order of its rows. Without bytes on
// failure.
PixelRows ReadRows(const CSkinBitmap& bitmap, std::vector<std::uint8_t>& bytes) {
    const int width = bitmap.GetWidth(), height = bitmap.GetHeight();
    BITMAPINFO info = PixelFormat(width, height);
    const std::size_t stride = static_cast<std::size_t>(width) * 4;
    bytes.resize(stride * static_cast<std::size_t>(height));
    if (::GetDIBits(SourceContext().GetHandle(), bitmap.GetHandle(), 0, static_cast<UINT>(height), bytes.data(), &info,
                    DIB_RGB_COLORS) == 0) {
        return {};
    }
    return {bytes, width, height, stride};
}

} // namespace

int CSkinBitmap::GetFrame(CSkinBitmap& frame, int column, int row, int columns, int rows) const {
    frame.Close();
    const CRect cell = FrameCell(GetWidth(), GetHeight(), column, row, columns, rows);
    if (cell.IsEmpty()) return 1;
    frame.CreateBlank(cell);
    CopyCells(frame, {{{0, 0, cell.Width(), cell.Height()}, cell}});
    return 1;
}

HRGN CSkinBitmap::CreateRegion(COLORREF transparent, COLORREF tolerance) const {
    if (IsEmpty()) return nullptr;
    std::vector<std::uint8_t> bytes;
    const PixelRows rows = ReadRows(*this, bytes);
    if (rows.bytes.empty()) return nullptr;
    CRgn whole;
    std::vector<std::byte> regionData;
    ForEachRunBatch(rows, TransparentRange::From(transparent, tolerance), [&](const std::vector<CRect>& runs) {
        CRgn part(RegionOfRuns(runs, regionData));
        if (whole.IsEmpty()) {
            whole = std::move(part);
        } else {
            ::CombineRgn(whole.GetHandle(), whole.GetHandle(), part.GetHandle(), RGN_OR);
        }
    });
    return whole.Detach();
}

HRGN CSkinBitmap::CreateOutline(COLORREF transparent, COLORREF tolerance) const {
    std::vector<std::uint8_t> bytes;
    const PixelRows rows = ReadRows(*this, bytes);
    if (rows.bytes.empty()) return nullptr;
    std::vector<std::byte> regionData;
    return RegionOfRuns(OutlineRuns(rows, TransparentRange::From(transparent, tolerance)), regionData);
}

HBITMAP CSkinBitmap::CopyFrom(HBITMAP source) {
    CSkinBitmap borrowed;
    borrowed.Attach(source);
    CSkinBitmap copy;
    borrowed.GetFrame(copy, 1, 1, 1, 1);
    borrowed.Detach();
    const HBITMAP former = Detach();
    Attach(copy.Detach());
    return former;
}

int CSkinBitmap::Draw(HDC dc, const CRect& rect) const {
    const CMemoryDC& source = SourceContext();
    const CSelectObject selected(source, GetHandle());
    if (!IsEmpty()) {
        ::BitBlt(dc, rect.left, rect.top, rect.Width(), rect.Height(), source.GetHandle(), 0, 0, SRCCOPY);
    }
    return 1;
}

void CSkinBitmap::DrawTransparent(HDC dc, const CRect& rect, COLORREF transparent) const {
    if (IsEmpty()) return;
    const CMemoryDC& source = SourceContext();
    const CSelectObject selected(source, GetHandle());
    ::GdiTransparentBlt(dc, rect.left, rect.top, rect.Width(), rect.Height(), source.GetHandle(), 0, 0, GetWidth(),
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
    if (IsEmpty()) return 1;
    const CRect whole = GetBounds();
    const auto cells = NineSliceCells(rect, whole, cornerWidth, cornerHeight);
    if (!CellsFill(cells, rect, whole)) {
        CSkinBitmap stretched;
        BuildNineSlice(stretched, rect, cornerWidth, cornerHeight);
        return stretched.Draw(dc, rect);
    }
    const CMemoryDC& source = SourceContext();
    const CSelectObject picture(source, GetHandle());
    for (const auto& [to, from] : cells) {
        ::StretchBlt(dc, rect.left + to.left, rect.top + to.top, to.Width(), to.Height(), source.GetHandle(), from.left,
                     from.top, from.Width(), from.Height(), SRCCOPY);
    }
    return 1;
}

int CSkinBitmap::BuildNineSlice(CSkinBitmap& out, const CRect& rect, int cornerWidth, int cornerHeight) const {
    out.Close();
    if (IsEmpty()) return 1;
    out.CreateBlank(rect);
    CopyCells(out, NineSliceCells(out.GetBounds(), GetBounds(), cornerWidth, cornerHeight));
    return 1;
}

void CSkinBitmap::CreateBlank(const CRect& rect) {
    Close();
    if (!rect.IsEmpty()) Attach(CreatePixels(rect.Width(), rect.Height()));
}

void CSkinBitmap::CopyCells(CSkinBitmap& out, const std::vector<SliceCell>& cells) const {
    if (IsEmpty() || out.IsEmpty()) return;
    const CMemoryDC& source = SourceContext();
    const CSelectObject picture(source, GetHandle());
    const CMemoryDC target(nullptr);
    if (source.GetHandle() == nullptr || target.GetHandle() == nullptr) {
        out.Close(); // who keeps it would show black; without it the next paint tries again
        return;
    }
    const CSelectObject canvas(target, out.GetHandle());
    for (const auto& [to, from] : cells) {
        ::StretchBlt(target.GetHandle(), to.left, to.top, to.Width(), to.Height(), source.GetHandle(), from.left,
                     from.top, from.Width(), from.Height(), SRCCOPY);
    }
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
