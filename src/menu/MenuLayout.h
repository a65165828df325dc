// Where everything in an owner-drawn menu item goes, and how large an item is, in both looks.
//
// The classic look frames an item's image in the menu's own colour. The modern look has a column down the left edge for
// images and marks. All in pixels, in the coordinates of the item's rectangle; right and bottom edges lie outside.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

struct MenuRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    MenuRect Inset(int by) const { return {left + by, top + by, right - by, bottom - by}; }
    MenuRect Moved(int by) const { return {left + by, top + by, right + by, bottom + by}; }
    bool operator==(const MenuRect&) const = default;
};

struct MenuPoint {
    int x = 0;
    int y = 0;

    bool operator==(const MenuPoint&) const = default;
};

struct MenuSize {
    int width = 0;
    int height = 0;

    bool operator==(const MenuSize&) const = default;
};

// The space that the modern look with raised images, or any other, leaves round an image.
int MenuImageGap(bool raisedModern);

struct ModernLayout {
    MenuRect column; // the stripe down the left edge
    MenuRect etched; // the line of a separator is its top edge
    MenuRect imageBox;
    MenuPoint image;
    MenuRect tickBox; // 16 by 16
    MenuPoint mark;   // tick or dot
    MenuRect text;
};
// `raised`: images have companions, which widens the column.
ModernLayout LayOutModernItem(const MenuRect& item, MenuSize image, bool raised);

struct ClassicLayout {
    MenuRect etched;
    MenuRect bar;   // of a selected item with an image or a mark
    MenuRect box;   // round the image
    MenuRect inner; // the box without its frame
    MenuPoint image;
    MenuRect tickBox;
    MenuPoint tick;
    MenuPoint dot;
    MenuRect text;
};
ClassicLayout LayOutClassicItem(const MenuRect& item, MenuSize image);

// The size that the platform is told. `barHeight` is that of a menu bar, SM_CYMENU.
MenuSize MeasuredSeparator(MenuSize image, bool raisedModern, int barHeight);
MenuSize MeasuredItem(int textWidth, MenuSize image, bool modern, bool raised, int barHeight);
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
