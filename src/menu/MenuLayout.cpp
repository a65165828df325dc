#include "menu/MenuLayout.h"

#include <algorithm>

namespace {

constexpr int tickBoxSize = 16;

// Half of what is left over, never outside.
int HalfOf(int rest) {
    return std::max(rest / 2, 0);
}

MenuRect EtchedIn(const MenuRect& item, int left) {
    return {left, item.top + item.Height() / 2, item.right, item.bottom};
}

MenuRect TextIn(const MenuRect& item, int left) {
    return {left, item.top - 1, item.right, item.bottom - 1};
}

} // namespace

int MenuImageGap(bool raisedModern) {
    return raisedModern ? 7 : 4;
}

ModernLayout LayOutModernItem(const MenuRect& item, MenuSize image, bool raised) {
    const int gap = MenuImageGap(raised);
    const int column = image.width + gap;
    const int height = item.Height();
    ModernLayout layout;
    layout.column = {item.left, item.top, item.left + column, item.bottom};
    layout.etched = EtchedIn(item, layout.column.right + gap);
    layout.imageBox = layout.column.Inset(1);
    layout.image = {item.left + HalfOf(column - image.width + 1), item.top + HalfOf(height - image.height + 1)};
    const int tickLeft = item.left + HalfOf(column - tickBoxSize + 1);
    const int tickTop = item.top + HalfOf(height - tickBoxSize + 1);
    layout.tickBox = {tickLeft, tickTop, tickLeft + tickBoxSize, tickTop + tickBoxSize};
    layout.mark = {tickLeft + 5, tickTop + 4};
    layout.text = TextIn(item, item.left + column + 8);
    return layout;
}

ClassicLayout LayOutClassicItem(const MenuRect& item, MenuSize image) {
    const int top = item.top + HalfOf(item.Height() - image.height - 4);
    ClassicLayout layout;
    layout.etched = EtchedIn(item, item.left);
    layout.bar = {item.left + image.width + 5, item.top, item.right, item.bottom};
    layout.box = {item.left, top, item.left + image.width + 4, top + image.height + 4};
    layout.inner = layout.box.Inset(1);
    layout.image = {item.left + 2, top + 2};
    layout.tickBox = {item.left + 1, top + 2, item.left + image.width + 1, top + image.height + 2};
    layout.tick = {layout.tickBox.left + 4, layout.tickBox.top + 4};
    layout.dot = {layout.tickBox.left + 5, layout.tickBox.top + 4};
    layout.text = TextIn(item, item.left + image.width + 9);
    return layout;
}

MenuSize MeasuredSeparator(MenuSize image, bool raisedModern, int barHeight) {
    return {0, std::max(barHeight >> 1, (image.height + MenuImageGap(raisedModern)) / 2)};
}

MenuSize MeasuredItem(int textWidth, MenuSize image, bool modern, bool raised, int barHeight) {
    const int gap = MenuImageGap(modern && raised);
    const int width = modern ? image.width + textWidth + gap + 8 : textWidth + 2 * image.width + 1;
    return {width, std::max(barHeight, image.height + gap)};
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
