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
            const SliceCell cell{{column.target, row.target, column.targetLength, row.targetLength},
                                 {column.source, row.source, column.sourceLength, row.sourceLength}};
            if (!cell.target.IsEmpty() && !cell.source.IsEmpty()) cells.push_back(cell);
        }
    }
}

bool Meet(const Box& a, const Box& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

// Of the second box only the size counts.
bool LiesIn(const Box& box, const Box& whole) {
    return box.x >= 0 && box.y >= 0 && box.x + box.width <= whole.width && box.y + box.height <= whole.height;
}

} // namespace

std::vector<SliceCell> NineSliceCells(const Box& target, const Box& picture, int cornerWidth, int cornerHeight) {
    std::vector<SliceCell> cells;
    const Span wholeWidth{0, target.width, 0, picture.width};
    const Span wholeHeight{0, target.height, 0, picture.height};
    const auto columns = SpansOf(target.width, picture.width, cornerWidth);
    const auto rows = SpansOf(target.height, picture.height, cornerHeight);
    if (cornerWidth > 0 && cornerHeight > 0) {
        AddCells(cells, columns, rows);
    } else if (cornerWidth > 0) {
        // The caps are copied as they are over the target's height; the middle is stretched in both directions.
        const Span copied{0, target.height, 0, target.height};
        AddCells(cells, {columns[0]}, {copied});
        AddCells(cells, {columns[1]}, {wholeHeight});
        AddCells(cells, {columns[2]}, {copied});
    } else if (cornerHeight > 0) {
        const Span copied{0, target.width, 0, target.width};
        const Span pictureWide{0, picture.width, 0, picture.width};
        AddCells(cells, {copied}, {rows[0]});
        AddCells(cells, {pictureWide}, {rows[1], rows[2]});
    } else {
        AddCells(cells, {wholeWidth}, {wholeHeight});
    }
    return cells;
}

bool CellsFill(const std::vector<SliceCell>& cells, const Box& target, const Box& picture) {
    std::int64_t area = 0;
    for (auto cell = cells.begin(); cell != cells.end(); ++cell) {
        const Box& to = cell->target;
        if (std::any_of(cells.begin(), cell, [&](const SliceCell& other) { return Meet(to, other.target); }))
            return false;
        if (!LiesIn(to, target) || !LiesIn(cell->source, picture)) return false;
        area += std::int64_t{to.width} * to.height;
    }
    return area == std::int64_t{target.width} * target.height;
}

Box FrameCell(int width, int height, int column, int row, int columns, int rows) {
    if (columns <= 0 || rows <= 0) return {};
    return {width * (column - 1) / columns, height * (row - 1) / rows, width / columns, height / rows};
}
