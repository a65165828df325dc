// Where the slots of a selector and the buttons of a tool strip lie, in client pixels.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "framework/Archive.h"
#include "framework/Geometry.h"

// The four slots of a selector take clicks as far down as this, whatever the height of its picture.
inline constexpr int selectorLimit = 176;
inline constexpr int selectorSlots = 4;

// The slot at height `y` of a picture that is four slots high; none outside of the limit, nor for a picture that has
// less than a pixel for each slot.
std::optional<int> SlotAt(int y, int pictureHeight);

// Where slot `slot` shows its own picture of this size.
CRect SlotRect(int slot, int width, int height);

// How many frames of this width lie side by side in a strip; none for a frame without a width.
int FrameCount(int stripWidth, int frameWidth);

// `count` buttons of one size side by side.
std::vector<CRect> ButtonRow(int count, int width, int height);

// The same buttons, each as much wider as its text needs, without gaps. As many entries of `textLengths`, in units of
// the average width.
std::vector<CRect> WidenRow(std::vector<CRect> row, std::span<const int> textLengths, int averageWidth);

// Rectangles in an archive: a count, then the left, top, right and bottom edge of each in 32 bits. Loading gives
// nothing, with nothing taken, where less is left than the count says.
void StoreRects(CArchive& archive, std::span<const CRect> rects);
std::optional<std::vector<CRect>> LoadRects(CArchive& archive);
