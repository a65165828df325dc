// Where everything in an owner-drawn menu item goes, and how large an item is, in both looks.
//
// The classic look frames an item's image in the menu's own colour. The modern look has a column down the left edge for
// images and marks. All in pixels, in the coordinates of the item's rectangle.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "framework/Geometry.h"

// The space that the modern look with raised images, or any other, leaves round an image.
int MenuImageGap(bool raisedModern);

struct ModernLayout {
    CRect column; // the stripe down the left edge
    CRect etched; // the line of a separator is its top edge
    CRect imageBox;
    CPoint image;
    CRect tickBox; // 16 by 16
    CPoint mark;   // tick or dot
    CRect text;
};
// `raised`: images have companions, which widens the column.
ModernLayout LayOutModernItem(const CRect& item, CSize image, bool raised);

struct ClassicLayout {
    CRect etched;
    CRect bar;   // of a selected item with an image or a mark
    CRect box;   // round the image
    CRect inner; // the box without its frame
    CPoint image;
    CRect tickBox;
    CPoint tick;
    CPoint dot;
    CRect text;
};
ClassicLayout LayOutClassicItem(const CRect& item, CSize image);

// The size that the platform is told. `barHeight` is that of a menu bar, SM_CYMENU.
CSize MeasuredSeparator(CSize image, bool raisedModern, int barHeight);
CSize MeasuredItem(int textWidth, CSize image, bool modern, bool raised, int barHeight);
// The text width on a 16-bit system, from the one that a calculating text draw gives: with room for wider characters.
int TextWidthOfHostedWin32(int drawnWidth, std::size_t characters);

// The tick: vertical strokes, one a column, from a row down to but not including another, relative to its place.
struct TickStroke {
    int from;
    int to;
};
inline constexpr std::array<TickStroke, 7> tickStrokes{{{2, 5}, {3, 6}, {4, 7}, {3, 6}, {2, 5}, {1, 4}, {0, 3}}};

// The dot: a circle of this size.
inline constexpr int dotSize = 6;

// A caption stands before the first tab, an accelerator behind the last one; what lies between them isn't shown.
struct MenuTextParts {
    std::wstring_view caption;
    std::wstring_view accelerator;
    bool hasTab = false;
};
MenuTextParts SplitMenuText(std::wstring_view text);
