// Which part of a small picture goes where when it is stretched without distorting its edges.
#pragma once

#include <vector>

#include "framework/Geometry.h"

struct SliceCell {
    CRect target;
    CRect source;

    bool operator==(const SliceCell&) const = default;
};

// The cells of a picture of `picture` size stretched to `target` size; of both only width and height count.
//
// The picture's column `cornerWidth` and row `cornerHeight` are the ones repeated: the left cap is `cornerWidth` wide,
// the right cap the rest of the picture, the repeated column included. A corner of 0 in one direction makes three bands
// in the other; both 0 stretch the picture as a whole. Cells without area, or with a negative one, are left out: where
// the target is smaller than the picture, nothing is mirrored.
std::vector<SliceCell> NineSliceCells(const CRect& target, const CRect& picture, int cornerWidth, int cornerHeight);

// Whether the cells fill the target from inside of the picture, and nothing besides or twice. Again only the sizes
// count.
bool CellsFill(const std::vector<SliceCell>& cells, const CRect& target, const CRect& picture);

// The cell of a grid, column and row counting from 1. Cell borders are computed from the whole size, cell sizes by
// truncation, so a remainder is lost. Empty for a grid without columns or rows.
CRect FrameCell(int width, int height, int column, int row, int columns, int rows);
