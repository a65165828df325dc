#include "pictures/RegionRuns.h"

#include <algorithm>
#include <cstddef>

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

namespace {

std::vector<CRect> RunsOfRow(const PixelRows& picture, const TransparentRange& transparent, int y) {
    std::vector<CRect> runs;
    const std::uint8_t* row = picture.RowFromTop(y);
    for (int x = 0; x < picture.width; ++x) {
        const int start = x;
        while (x < picture.width && !transparent.Contains(row + static_cast<std::size_t>(x) * 4)) ++x;
        if (x > start) runs.push_back({start, y, x, y + 1});
    }
    return runs;
}

void CloseGaps(std::vector<CRect>& runs) {
    if (runs.empty()) return;
    runs.front().right = runs.back().right;
    runs.resize(1);
}

std::vector<CRect> MergedRows(const PixelRows& picture, const TransparentRange& transparent, bool gapsToo) {
    std::vector<CRect> boxes;
    std::size_t band = 0; // where the boxes begin that end at the row before
    for (int y = 0; y < picture.height; ++y) {
        std::vector<CRect> runs = RunsOfRow(picture, transparent, y);
        if (gapsToo) CloseGaps(runs);
        const auto extends = [](const CRect& box, const CRect& run) {
            return box.left == run.left && box.right == run.right;
        };
        if (std::equal(boxes.begin() + static_cast<std::ptrdiff_t>(band), boxes.end(), runs.begin(), runs.end(),
                       extends)) {
            std::for_each(boxes.begin() + static_cast<std::ptrdiff_t>(band), boxes.end(),
                          [](CRect& box) { ++box.bottom; });
        } else {
            band = boxes.size();
            boxes.insert(boxes.end(), runs.begin(), runs.end());
        }
    }
    return boxes;
}

} // namespace

std::vector<CRect> OutlineRuns(const PixelRows& picture, const TransparentRange& transparent) {
    std::vector<CRect> boxes = MergedRows(picture, transparent, false);
    return boxes.size() <= mostOutlineBoxes ? boxes : MergedRows(picture, transparent, true);
}

void ForEachRunBatch(const PixelRows& picture, const TransparentRange& transparent,
                     const std::function<void(const std::vector<CRect>& runs)>& take) {
    std::vector<CRect> runs;
    for (int y = 0; y < picture.height; ++y) {
        for (const CRect& run : RunsOfRow(picture, transparent, y)) {
            runs.push_back(run);
            if (runs.size() == regionBatch) {
                take(runs);
                runs.clear();
            }
        }
    }
    take(runs);
}
