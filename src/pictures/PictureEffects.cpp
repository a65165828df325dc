// Drawings of a picture other than itself: grey, embossed, half transparent, and in fewer colours.
#include <array>
#include <cstddef>
#include <vector>

#include "framework/Dc.h"
#include "pictures/ColorMath.h"
#include "pictures/Embossing.h"
#include "pictures/SkinBitmap.h"

namespace {

// A picture's pixels as a device-independent bitmap, in its own depth.
struct PictureBits {
    std::vector<std::byte> header; // BITMAPINFO with its colours
    std::vector<std::uint8_t> bits;

    BITMAPINFO& Info() { return *reinterpret_cast<BITMAPINFO*>(header.data()); }
    std::size_t ColorCount() {
        const BITMAPINFOHEADER& head = Info().bmiHeader;
        if (head.biClrUsed != 0) return head.biClrUsed;
        return std::size_t{1} << head.biBitCount;
    }
    std::size_t Stride() {
        const BITMAPINFOHEADER& head = Info().bmiHeader;
        return (static_cast<std::size_t>(head.biWidth) * head.biBitCount + 31) / 32 * 4;
    }
};

bool GetBits(HDC dc, HBITMAP bitmap, PictureBits& picture) {
    constexpr std::size_t mostColors = 256;
    picture.header.assign(sizeof(BITMAPINFOHEADER) + mostColors * sizeof(RGBQUAD), std::byte{0});
    BITMAPINFO& info = picture.Info();
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    if (::GetDIBits(dc, bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS) == 0) return false;
    info.bmiHeader.biCompression = BI_RGB; // not bit fields: 16-bit pixels are read as 5-5-5
    info.bmiHeader.biSizeImage =
        static_cast<DWORD>(picture.Stride() * static_cast<std::size_t>(info.bmiHeader.biHeight));
    picture.bits.resize(info.bmiHeader.biSizeImage + 4);
    return ::GetDIBits(dc, bitmap, 0, static_cast<UINT>(info.bmiHeader.biHeight), picture.bits.data(), &info,
                       DIB_RGB_COLORS) != 0;
}

void GrayPixels(PictureBits& picture) {
    const BITMAPINFOHEADER& head = picture.Info().bmiHeader;
    const std::size_t bytesPerPixel = head.biBitCount / 8;
    const std::size_t stride = picture.Stride();
    for (std::size_t y = 0; y < static_cast<std::size_t>(head.biHeight); ++y) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(head.biWidth); ++x) {
            std::uint8_t* pixel = &picture.bits[y * stride + x * bytesPerPixel];
            if (bytesPerPixel == 2) {
                const std::uint16_t gray = GrayOf555(static_cast<std::uint16_t>(pixel[0] | pixel[1] << 8));
                pixel[0] = static_cast<std::uint8_t>(gray & 0xFF);
                pixel[1] = static_cast<std::uint8_t>(gray >> 8);
            } else {
                pixel[0] = pixel[1] = pixel[2] = GrayOf(pixel[2], pixel[1], pixel[0]);
            }
        }
    }
}

struct PaletteStorage {
    WORD version = 0x300;
    WORD count = 0;
    std::array<PALETTEENTRY, 256> entries{};

    CPalette Create() const { return CPalette(::CreatePalette(reinterpret_cast<const LOGPALETTE*>(this))); }
};

PaletteStorage GrayPalette(PictureBits& picture) {
    PaletteStorage palette;
    palette.count = static_cast<WORD>(picture.ColorCount());
    for (std::size_t i = 0; i < palette.count; ++i) {
        RGBQUAD& color = picture.Info().bmiColors[i];
        const std::uint8_t gray = GrayOf(color.rgbRed, color.rgbGreen, color.rgbBlue);
        color = {gray, gray, gray, 0};
        palette.entries[i] = {gray, gray, gray, 0};
    }
    return palette;
}

class CSelectPalette {
public:
    [[nodiscard]] CSelectPalette(HDC dc, HPALETTE palette) : context(dc), former(::SelectPalette(dc, palette, FALSE)) {
        ::RealizePalette(dc);
    }
    CSelectPalette(const CSelectPalette&) = delete;
    CSelectPalette& operator=(const CSelectPalette&) = delete;
    ~CSelectPalette() { ::SelectPalette(context, former, FALSE); }

private:
    HDC context;
    HPALETTE former;
};

void CountIndices(PictureBits& picture, std::vector<std::uint32_t>& uses) {
    const BITMAPINFOHEADER& head = picture.Info().bmiHeader;
    const unsigned depth = head.biBitCount;
    const unsigned mask = (1U << depth) - 1;
    for (std::size_t y = 0; y < static_cast<std::size_t>(head.biHeight); ++y) {
        const std::uint8_t* row = &picture.bits[y * picture.Stride()];
        for (std::size_t x = 0; x < static_cast<std::size_t>(head.biWidth); ++x) {
            const std::size_t bit = x * depth;
            const std::size_t index = (row[bit / 8] >> (8 - depth - bit % 8)) & mask;
            if (index < uses.size()) ++uses[index];
        }
    }
}

} // namespace

void CSkinBitmap::DrawGrayscale(HDC dc) const {
    PictureBits picture;
    if (IsEmpty() || !GetBits(dc, GetHandle(), picture)) return;
    const auto show = [&] {
        const BITMAPINFOHEADER& head = picture.Info().bmiHeader;
        ::SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(head.biWidth), static_cast<DWORD>(head.biHeight), 0, 0, 0,
                            static_cast<UINT>(head.biHeight), picture.bits.data(), &picture.Info(), DIB_RGB_COLORS);
    };
    const bool deviceHasPalette = (::GetDeviceCaps(dc, RASTERCAPS) & RC_PALETTE) != 0;
    if (picture.Info().bmiHeader.biBitCount > 8) {
        GrayPixels(picture);
        show();
        return;
    }
    const PaletteStorage palette = GrayPalette(picture);
    if (!deviceHasPalette) {
        show();
        return;
    }
    const CPalette owned = palette.Create();
    const CSelectPalette selected(dc, owned.GetHandle());
    show();
}

void CSkinBitmap::DrawEmbossed(HDC dc, int x, int y, int width, int height, HBITMAP bitmap, int sourceX, int sourceY) {
    ::DrawEmbossed(dc, CRect::Sized(x, y, width, height), bitmap, {sourceX, sourceY}, ::GetSysColor(COLOR_BTNFACE));
}

HPALETTE CSkinBitmap::CreateReducedPalette(HDC dc) const {
    PictureBits picture;
    if (IsEmpty() || !GetBits(dc, GetHandle(), picture) || picture.Info().bmiHeader.biBitCount > 8) return nullptr;
    std::vector<std::uint32_t> uses(picture.ColorCount());
    CountIndices(picture, uses);
    PaletteStorage palette;
    for (const std::size_t index : KeptColors(uses)) {
        const RGBQUAD& color = picture.Info().bmiColors[index];
        palette.entries[palette.count++] = {color.rgbRed, color.rgbGreen, color.rgbBlue, PC_RESERVED};
    }
    return palette.Create().Detach();
}

void CSkinBitmap::DrawAlpha(HDC dc, std::uint8_t alpha) const {
    if (IsEmpty()) return;
    const CMemoryDC source(dc);
    const CSelectObject selected(source, GetHandle());
    const int width = GetWidth();
    const int height = GetHeight();
    ::GdiAlphaBlend(dc, 0, 0, width, height, source.GetHandle(), 0, 0, width, height, {AC_SRC_OVER, 0, alpha, 0});
}
