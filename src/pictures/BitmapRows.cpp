#include "pictures/BitmapRows.h"

#include <algorithm>
#include <cstring>

#include "framework/FileStream.h"
#include "pictures/PixelFormat.h"

CBitmapRows::CBitmapRows(const std::wstring& path) : file(::_wfopen(path.c_str(), L"rb")) {
    if (file.IsEmpty()) return;
    std::setvbuf(file.GetHandle(), nullptr, _IONBF, 0); // rows are far apart, and longer than a buffer
    const std::uint64_t size = SizeOf(file.GetHandle());
    const std::size_t got = std::fread(header.data(), 1, header.size(), file.GetHandle());
    layout = PlainLayoutOf({header.data(), got}, size);
}

CBitmap CBitmapRows::Read(const Piece& piece) const {
    constexpr std::int64_t mostBytes = 4 * mostPixels; // as the largest picture that is kept whole
    if (static_cast<std::int64_t>(layout.stride) * piece.count > mostBytes) return {};
    struct {
        BITMAPINFOHEADER head;
        RGBQUAD colors[256];
    } info{};
    info.head = PixelFormat(GetWidth(), piece.count, static_cast<WORD>(layout.bitsPerPixel)).bmiHeader;
    if (layout.colorsAreMasks) info.head.biCompression = BI_BITFIELDS;
    if (!layout.colorsAreMasks) info.head.biClrUsed = static_cast<DWORD>(layout.colorsSize / sizeof(RGBQUAD));
    std::memcpy(info.colors, &header[layout.colors], layout.colorsSize);
    void* bits = nullptr;
    CBitmap rows(::CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0));
    if (rows.IsEmpty()) return rows;
    int held = -1; // the row that was read last
    for (int i = 0; i < piece.count; ++i) {
        auto* to = static_cast<std::uint8_t*>(bits) + static_cast<std::size_t>(piece.count - 1 - i) * layout.stride;
        const std::int64_t stretchedRow = piece.first + i;
        const int row = piece.top + static_cast<int>(stretchedRow * piece.height / piece.stretched);
        if (row < 0 || row >= GetHeight()) continue;
        if (row == held) {
            std::memcpy(to, to + layout.stride, layout.stride);
            continue;
        }
        if (std::fseek(file.GetHandle(), static_cast<long>(layout.OffsetOfRow(row)), SEEK_SET) != 0 ||
            std::fread(to, 1, layout.stride, file.GetHandle()) != layout.stride) {
            return {};
        }
        held = row;
    }
    return rows;
}
