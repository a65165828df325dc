#include "pictures/NineSlice.h"

#include <algorithm>
#include <cstdint>

namespace {

// One direction of the stretch: the picture's caps with the repeated line between them.
struct Span {
    int target;
    int targetLength;
    int source;
    int sourceLength;
};

// Without a corner nothing is capped in that direction.
std::vector<Span> SpansOf(int targetLength, int pictureLength, int corner) {
    const int grown = targetLength - pictureLength;
    return {{0, corner, 0, corner},
            {corner, grown, corner, 1},
            {grown + corner, pictureLength - corner, corner, pictureLength - corner}};
}

void AddCells(std::vector<SliceCell>& cells, const std::vector<Span>& columns, const std::vector<Span>& rows) {
    for (const Span& row : rows) {
        for (const Span& column : columns) {
            const SliceCell cell{CRect::Sized(column.target, row.target, column.targetLength, row.targetLength),
                                 CRect::Sized(column.source, row.source, column.sourceLength, row.sourceLength)};
            if (!cell.target.IsEmpty() && !cell.source.IsEmpty()) cells.push_back(cell);
        }
    }
}

bool Meet(const CRect& a, const CRect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

// Of the second box only the size counts.
bool LiesIn(const CRect& rect, const CRect& whole) {
    return rect.left >= 0 && rect.top >= 0 && rect.right <= whole.Width() && rect.bottom <= whole.Height();
}

} // namespace

std::vector<SliceCell> NineSliceCells(const CRect& target, const CRect& picture, int cornerWidth, int cornerHeight) {
    std::vector<SliceCell> cells;
    const Span wholeWidth{0, target.Width(), 0, picture.Width()};
    const Span wholeHeight{0, target.Height(), 0, picture.Height()};
    const auto columns = SpansOf(target.Width(), picture.Width(), cornerWidth);
    const auto rows = SpansOf(target.Height(), picture.Height(), cornerHeight);
    if (cornerWidth > 0 && cornerHeight > 0) {
        AddCells(cells, columns, rows);
    } else if (cornerWidth > 0) {
        // The caps are copied as they are over the target's height; the middle is stretched in both directions.
        const Span copied{0, target.Height(), 0, target.Height()};
        AddCells(cells, {columns[0]}, {copied});
        AddCells(cells, {columns[1]}, {wholeHeight});
        AddCells(cells, {columns[2]}, {copied});
    } else if (cornerHeight > 0) {
        const Span copied{0, target.Width(), 0, target.Width()};
        const Span pictureWide{0, picture.Width(), 0, picture.Width()};
        AddCells(cells, {copied}, {rows[0]});
        AddCells(cells, {pictureWide}, {rows[1], rows[2]});
    } else {
        AddCells(cells, {wholeWidth}, {wholeHeight});
    }
    return cells;
}

bool CellsFill(const std::vector<SliceCell>& cells, const CRect& target, const CRect& picture) {
    std::int64_t area = 0;
    for (auto cell = cells.begin(); cell != cells.end(); ++cell) {
        const CRect& to = cell->target;
        if (std::any_of(cells.begin(), cell, [&](const SliceCell& other) { return Meet(to, other.target); }))
            return false;
        if (!LiesIn(to, target) || !LiesIn(cell->source, picture)) return false;
        area += std::int64_t{to.Width()} * to.Height();
    }
    return area == std::int64_t{target.Width()} * target.Height();
}

CRect FrameCell(int width, int height, int column, int row, int columns, int rows) {
    if (columns <= 0 || rows <= 0) return {};
    return CRect::Sized(width * (column - 1) / columns, height * (row - 1) / rows, width / columns, height / rows);
}
