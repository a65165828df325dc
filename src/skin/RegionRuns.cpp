#include "skin/RegionRuns.h"

#include <algorithm>

TransparentRange TransparentRange::From(std::uint32_t color, std::uint32_t tolerance) {
    TransparentRange range{};
    for (int i = 0; i < 3; ++i) {
        const std::uint32_t low = (color >> (8 * i)) & 0xFF;
        const std::uint32_t more = (tolerance >> (8 * i)) & 0xFF;
        range.low[i] = static_cast<std::uint8_t>(low);
        range.high[i] = static_cast<std::uint8_t>(std::min<std::uint32_t>(low + more, 255));
    }
    return range;
}

bool TransparentRange::Contains(const std::uint8_t* pixel) const {
    for (int i = 0; i < 3; ++i) {
        if (pixel[i] < low[i] || pixel[i] > high[i]) return false;
    }
    return true;
}

void ForEachRunBatch(const PixelRows& picture, const TransparentRange& transparent,
                     const std::function<void(const std::vector<Box>& runs)>& take) {
    std::vector<Box> runs;
    for (int y = 0; y < picture.height; ++y) {
        const std::uint8_t* row = picture.RowFromTop(y);
        for (int x = 0; x < picture.width; ++x) {
            const int start = x;
            while (x < picture.width && !transparent.Contains(row + static_cast<std::size_t>(x) * 4)) ++x;
            if (x == start) continue;
            runs.push_back({start, y, x - start, 1});
            if (runs.size() == regionBatch) {
                take(runs);
                runs.clear();
            }
        }
    }
    take(runs);
}
