// The nine-slice stretch told for one pixel at a time, to compare the fast ones with.
#pragma once

#include <utility>

// In the direction with caps: the picture's line that shows at `at`. Where both caps reach, the far one lies on top.
inline int SlowLine(int at, int target, int picture, int corner) {
    const int grown = target - picture;
    if (picture > corner && at >= corner + grown) return at - grown;
    if (at >= corner && at < corner + grown) return corner;
    return at < corner ? at : -1;
}

struct SlowSize {
    int width, height;
};

// Which pixel of the picture shows at (x, y): one outside of it where nothing, which is black, does.
inline std::pair<int, int> SlowNineSlice(int x, int y, SlowSize target, SlowSize picture, SlowSize corner) {
    const int column = SlowLine(x, target.width, picture.width, corner.width);
    const int row = SlowLine(y, target.height, picture.height, corner.height);
    const int stretchedRow = y * picture.height / target.height;
    if (corner.width > 0 && corner.height > 0)
        return column < 0 || row < 0 ? std::pair{-1, -1} : std::pair{column, row};
    if (corner.width > 0) {
        const bool inMiddle = x >= corner.width && x < corner.width + target.width - picture.width;
        return {column, column < 0 ? -1 : inMiddle ? stretchedRow : y};
    }
    if (corner.height > 0 && x >= picture.width) return y < corner.height ? std::pair{x, y} : std::pair{-1, -1};
    return corner.height > 0 ? std::pair{row < 0 ? -1 : x, row}
                             : std::pair{x * picture.width / target.width, stretchedRow};
}
