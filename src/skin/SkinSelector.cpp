#include "skin/SkinSelector.h"

#include <utility>

#include "framework/Dc.h"
#include "skin/StripLayout.h"
#include "skin/Theme.h"

const CMessageMap& CSkinSelector::ClassMap() {
    static constexpr std::array entries{On<WM_MOUSEMOVE, &CSkinSelector::OnMouseMove>(),
                                        On<WM_LBUTTONDOWN, &CSkinSelector::OnLButtonDown>(),
                                        On<WM_LBUTTONUP, &CSkinSelector::OnLButtonUp>()};
    static const CMessageMap map{&CSkinControl::ClassMap(), entries};
    return map;
}

void CSkinSelector::AddImage(const std::string& path) {
    CSkinPicture image;
    image.LoadFromFile(path);
    images.push_back(std::move(image));
}

void CSkinSelector::PaintOn(CDC& dc) {
    const CRect client = GetClientRect();
    const auto draw = [&](const CSkinPicture& picture, CRect place) {
        picture.CutTo(client, place).Draw(dc.GetHandle(), place);
    };
    draw(bitmap, {0, 0, bitmap.GetWidth(), bitmap.GetHeight()});
    const auto slot = static_cast<std::size_t>(selected);
    if (slot >= images.size()) return;
    draw(images[slot], SlotRect(selected, images[slot].GetWidth(), images[slot].GetHeight()));
}

void CSkinSelector::OnLButtonDown(UINT, CPoint point) {
    if (point.y < selectorLimit) {
        selected = SlotAt(point.y, bitmap.GetHeight()).value_or(selected);
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
