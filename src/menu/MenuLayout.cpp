#include "menu/MenuLayout.h"

#include <algorithm>

namespace {

constexpr int tickBoxSize = 16;

// Half of what is left over, never outside.
int HalfOf(int rest) {
    return std::max(rest / 2, 0);
}

CRect EtchedIn(const CRect& item, int left) {
    return {left, item.top + item.Height() / 2, item.right, item.bottom};
}

CRect TextIn(const CRect& item, int left) {
    return {left, item.top - 1, item.right, item.bottom - 1};
}

} // namespace

int MenuImageGap(bool raisedModern) {
    return raisedModern ? 7 : 4;
}

ModernLayout LayOutModernItem(const CRect& item, CSize image, bool raised) {
    const int gap = MenuImageGap(raised);
    const int column = image.cx + gap;
    const int height = item.Height();
    ModernLayout layout;
    layout.column = CRect::Sized(item.left, item.top, column, height);
    layout.etched = EtchedIn(item, layout.column.right + gap);
    layout.imageBox = layout.column.Inflated(-1, -1);
    layout.image = {item.left + HalfOf(column - image.cx + 1), item.top + HalfOf(height - image.cy + 1)};
    const int tickLeft = item.left + HalfOf(column - tickBoxSize + 1);
    const int tickTop = item.top + HalfOf(height - tickBoxSize + 1);
    layout.tickBox = CRect::Sized(tickLeft, tickTop, tickBoxSize, tickBoxSize);
    layout.mark = {tickLeft + 5, tickTop + 4};
    layout.text = TextIn(item, item.left + column + 8);
    return layout;
}

ClassicLayout LayOutClassicItem(const CRect& item, CSize image) {
    const int top = item.top + HalfOf(item.Height() - image.cy - 4);
    ClassicLayout layout;
    layout.etched = EtchedIn(item, item.left);
    layout.bar = {item.left + image.cx + 5, item.top, item.right, item.bottom};
    layout.box = CRect::Sized(item.left, top, image.cx + 4, image.cy + 4);
    layout.inner = layout.box.Inflated(-1, -1);
    layout.image = {item.left + 2, top + 2};
    layout.tickBox = CRect::Sized(item.left + 1, top + 2, image.cx, image.cy);
    layout.tick = {layout.tickBox.left + 4, layout.tickBox.top + 4};
    layout.dot = {layout.tickBox.left + 5, layout.tickBox.top + 4};
    layout.text = TextIn(item, item.left + image.cx + 9);
    return layout;
}

CSize MeasuredSeparator(CSize image, bool raisedModern, int barHeight) {
    return {0, std::max<LONG>(barHeight >> 1, (image.cy + MenuImageGap(raisedModern)) / 2)};
}

CSize MeasuredItem(int textWidth, CSize image, bool modern, bool raised, int barHeight) {
    const int gap = MenuImageGap(modern && raised);
    const int width = modern ? image.cx + textWidth + gap + 8 : textWidth + 2 * image.cx + 1;
    return {width, std::max<LONG>(barHeight, image.cy + gap)};
}

int TextWidthOfHostedWin32(int drawnWidth, std::size_t characters) {
    const int width = drawnWidth + 3;
    return characters == 0 ? width : width + 3 * (width / static_cast<int>(characters));
}

MenuTextParts SplitMenuText(std::wstring_view text) {
    const std::size_t first = text.find(L'\t');
    if (first == std::wstring_view::npos) return {text, {}, false};
    return {text.substr(0, first), text.substr(text.rfind(L'\t') + 1), true};
}
