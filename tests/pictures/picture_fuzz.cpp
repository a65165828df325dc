// Fuzzes what looks at picture files before the platform does: what a layout refers to lies in the file.
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "pictures/PictureFile.h"

namespace {

bool IsSound(const PlainLayout& layout, std::size_t headerSize, std::size_t size) {
    if (layout.width <= 0 || layout.height <= 0 || layout.width * layout.height > mostPixels) return false;
    if (layout.stride * 8 < static_cast<std::uint64_t>(layout.width * layout.bitsPerPixel)) return false;
    for (const std::int64_t row : {std::int64_t{0}, layout.height - 1})
        if (layout.OffsetOfRow(row) < layout.colors || layout.OffsetOfRow(row) + layout.stride > size) return false;
    // The platform is given room for 256 colours.
    return layout.colorsSize <= 1024 && layout.colors + layout.colorsSize <= headerSize;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span file(data, size);
    KindOfPath({reinterpret_cast<const char*>(data), size});
    const bool isIcon = IsPlausibleIcon(file);
    for (const std::size_t length : {std::min(size, largestPlainHeader), size / 2}) {
        // In memory of its own, where reading beyond it is seen.
        const std::vector<std::uint8_t> header(data, data + length);
        const bool isBitmap = IsPlausibleBitmap(header, size);
        const PlainLayout layout = PlainLayoutOf(header, size);
        // Kinds tell themselves by their first bytes, and rows can be read of plausible bitmaps alone.
        if ((isIcon || layout.width != 0) && isBitmap == isIcon) std::abort();
        if (layout.width != 0 && !IsSound(layout, length, size)) std::abort();
    }
    return 0;
}
