// The one class through which every skinned control gets its pixels: a bitmap that can be loaded from
// a picture file, cut into frames, turned into a window region, and stretched by nine slices.
//
// An object owns at most one bitmap and is empty without one; sizes are read from the bitmap each time. Failure is a
// null handle or a 0: a missing or broken picture leaves the object empty, and drawing an empty object draws nothing.
// User-interface thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

#include "framework/Gdi.h"
#include "framework/Geometry.h"
#include "pictures/NineSlice.h"

struct IPicture;

class CSkinBitmap : public CBitmap {
public:
    // No back colour: what lies under a transparent picture is not filled.
    static constexpr COLORREF noBackColor = 0xFFFFFFFF;

    // The picture file at `path`, relative to the current directory; what was held before is gone in any case. The back
    // colour fills the ground of icons, JPEGs and GIFs first. True when a bitmap is now held.
    bool LoadFromFile(const std::string& path, COLORREF backColor);
    // Gives ownership of the bitmap; null on failure.
    static HBITMAP LoadBitmapFile(const std::string& path, COLORREF backColor);
    // By what stands in the path (PictureFile.h): 0 bitmap, 1 icon, 2 JPEG, 3 GIF, 4 unknown.
    static int GetFileKind(const std::string& path);
    // A picture (any format that OLE reads) in a resource. Refused while a bitmap is held.
    bool LoadFromResource(std::uint16_t id, const char* type, HINSTANCE module, COLORREF backColor);
    // A bitmap of the picture's size at the desktop's resolution; ownership goes to the caller. Null on failure.
    static HBITMAP RenderPicture(IPicture* picture, COLORREF backColor);

    // Cuts one cell out of a grid into `frame`; column and row count from 1. Always 1. An empty picture or a cell of no
    // size leaves `frame` empty.
    int GetFrame(CSkinBitmap& frame, int column, int row, int columns, int rows) const;
    // The pixels that are not transparent, as a region of the caller's; an empty region where there are none. Null for
    // an empty object. A pixel is transparent when each of its three bytes lies between the colour's and the colour's
    // plus the tolerance's.
    HRGN CreateRegion(COLORREF transparent, COLORREF tolerance) const;
    // The same for a window, which takes more than drawing does with a shape of many pieces: from the first to the last
    // such pixel of each row, where the pieces are very many.
    HRGN CreateOutline(COLORREF transparent, COLORREF tolerance) const;
    // A private copy of `source`; gives the bitmap held before, which is now the caller's.
    HBITMAP CopyFrom(HBITMAP source);

    // Drawing. `Draw` copies unscaled from the picture's top left corner, the two stretching ones scale.
    int Draw(HDC dc, const CRect& rect) const;
    void DrawTransparent(HDC dc, const CRect& rect, COLORREF transparent) const;
    int StretchDraw(HDC dc, const CRect& target, const CRect& source) const;
    // Stretched to the rectangle by nine slices (NineSlice.h), drawn at it or built into `out`; black where no slice
    // is.
    int DrawNineSlice(HDC dc, const CRect& rect, int cornerWidth, int cornerHeight) const;
    int BuildNineSlice(CSkinBitmap& out, const CRect& rect, int cornerWidth, int cornerHeight) const;

    // Black, of the rectangle's size, instead of what was held; empty if it has none.
    void CreateBlank(const CRect& rect);
    // Each piece of this picture stretched to its place in `out`, which holds a bitmap.
    void CopyCells(CSkinBitmap& out, const std::vector<SliceCell>& cells) const;

    CRect GetBounds() const;
    int GetWidth() const;
    int GetHeight() const;

    // In grey, in its own size at (0, 0).
    void DrawGrayscale(HDC dc) const;
    // A disabled look: the dark parts of a piece of `bitmap` as a raised edge on the face colour.
    static void DrawEmbossed(HDC dc, int x, int y, int width, int height, HBITMAP bitmap, int sourceX, int sourceY);
    // A palette of the picture's colours, at most 236 of them by use; the caller's. Null for more than 256 colours.
    HPALETTE CreateReducedPalette(HDC dc) const;
    // With one alpha for all of it, 0 to 255, in its own size at (0, 0).
    void DrawAlpha(HDC dc, std::uint8_t alpha) const;
    // Regions as lists of rectangles; the results are the caller's. `InflateRegion` grows each rectangle of its own and
    // gives null on failure.
    static HRGN RegionFromRects(DWORD count, const RGNDATA& data);
    static HRGN InflateRegion(HRGN region, int cx, int cy);
};
