#include "skin/SkinSelector.h"

#include <utility>

#include "framework/Dc.h"
#include "skin/HandCursor.h"
#include "skin/StripLayout.h"

const CMessageMap& CSkinSelector::ClassMap() {
    static constexpr std::array entries{On<WM_MOUSEMOVE, &CSkinSelector::OnMouseMove>(),
                                        On<WM_LBUTTONDOWN, &CSkinSelector::OnLButtonDown>(),
                                        On<WM_LBUTTONUP, &CSkinSelector::OnLButtonUp>()};
    static const CMessageMap map{&CSkinControl::ClassMap(), entries};
    return map;
}

void CSkinSelector::AddImage(const std::string& path) {
    CSkinBitmap image;
    image.LoadFromFile(path, 0);
    images.push_back(std::move(image));
}

void CSkinSelector::PaintOn(CDC& dc) {
    bitmap.Draw(dc.GetHandle(), bitmap.GetBounds());
    const auto slot = static_cast<std::size_t>(selected);
    if (slot >= images.size()) return;
    const CSkinBitmap& image = images[slot];
    const Box place = SlotBox(selected, image.GetWidth(), image.GetHeight());
    image.StretchDraw(dc.GetHandle(), {place.x, place.y, place.x + place.width, place.y + place.height},
                      image.GetBounds());
}

void CSkinSelector::OnLButtonDown(UINT, CPoint point) {
    if (point.y < selectorLimit) {
        selected = SlotAt(static_cast<int>(point.y), bitmap.GetHeight()).value_or(selected);
        ShowHandCursor();
        Invalidate();
        UpdateWindow();
    }
    Default();
}

void CSkinSelector::OnMouseMove(UINT, CPoint point) {
    if (point.y < selectorLimit) ShowHandCursor();
    Default();
}

void CSkinSelector::OnLButtonUp(UINT, CPoint point) {
    if (point.y < selectorLimit) ShowHandCursor();
    Default();
}
