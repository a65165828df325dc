// A control's picture, of which only as much is made as the control can show.
//
// A picture of a usual size is kept whole. A larger one stays in its file, if its rows can be read from there one by
// one, and is read anew when a piece of it is wanted: pieces are small, as no control is larger than the screen. What
// such a file doesn't hold any more isn't drawn, until it does. Controls that show the same file share its pixels.
// User-interface thread only.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include "framework/Geometry.h"
#include "pictures/NineSlice.h"
#include "pictures/SkinBitmap.h"

class CSkinPicture {
public:
    CSkinPicture() : bitmap(std::make_shared<CSkinBitmap>()) {}

    // As LoadFromFile of CSkinBitmap, with black as the back colour.
    bool LoadFromFile(const std::string& path);
    // Instead of what was held: a bitmap that is the picture's from now on, or a copy of the caller's (as CopyFrom of
    // CSkinBitmap).
    void Attach(HBITMAP whole);
    HBITMAP CopyFrom(HBITMAP source);

    bool IsEmpty() const { return size.cx == 0; }
    int GetWidth() const { return size.cx; }
    int GetHeight() const { return size.cy; }

    // Of the picture in its own size at `place`, what lies in `within`, to which `place` is cut.
    CSkinBitmap CutTo(const CRect& within, CRect& place) const;
    // A cell of a grid, and a row of its cells as a strip (GetFrame of CSkinBitmap), each cut to `most` at its right
    // and bottom.
    CSkinBitmap GetCell(int column, int row, int columns, int rows, const CSize& most) const;
    CSkinBitmap GetRow(int row, int columns, int rows, const CSize& most) const;
    // As those of CSkinBitmap.
    void DrawNineSlice(HDC dc, const CRect& rect, int cornerWidth, int cornerHeight) const;
    void BuildNineSlice(CSkinBitmap& out, const CRect& rect, int cornerWidth, int cornerHeight) const;

private:
    void CopyCells(CSkinBitmap& out, const std::vector<SliceCell>& cells) const;
    // Of a picture that stays in its file. False if it can't be read now; `out` is partly drawn then.
    bool CopyRows(const CSkinBitmap& out, const std::vector<SliceCell>& cells) const;
    void Hold(std::shared_ptr<CSkinBitmap> whole);

    std::shared_ptr<CSkinBitmap> bitmap; // never null; not changed once it is held
    std::wstring largeFile;              // where the picture stays, if `bitmap` doesn't hold it
    CSize size;
};
