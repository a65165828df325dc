// Fuzzes what looks at picture files before the platform does: what a layout refers to lies in the file.
#include <algorithm>
#include <cstdlib>

#include "pictures/PictureFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span file(data, size);
    KindOfPath({reinterpret_cast<const char*>(data), size});
    const bool isIcon = IsPlausibleIcon(file);
    const auto header = file.first(std::min(size, largestPlainHeader));
    const PlainLayout layout = PlainLayoutOf(header, size);
    // Kinds tell themselves by their first bytes, and rows can be read of plausible bitmaps alone.
    const bool isBitmap = IsPlausibleBitmap(header, size);
    if ((isIcon && isBitmap) || (layout.width != 0 && !isBitmap)) std::abort();
    if (layout.width == 0) return 0;
    if (layout.width < 0 || layout.height <= 0 || layout.width * layout.height > mostPixels) std::abort();
    if (layout.stride * 8 < static_cast<std::uint64_t>(layout.width * layout.bitsPerPixel)) std::abort();
    for (const std::int64_t row : {std::int64_t{0}, layout.height - 1})
        if (layout.OffsetOfRow(row) < layout.colors || layout.OffsetOfRow(row) + layout.stride > size) std::abort();
    // The platform is given room for 256 colours.
    if (layout.colorsSize > 1024 || layout.colors + layout.colorsSize > header.size()) std::abort();
    return 0;
}
