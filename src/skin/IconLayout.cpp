#include "skin/IconLayout.h"

ImagePlace PlaceImage(const Box& item, int clientRight, int imageWidth, int imageHeight, ImageAlign align,
                      bool hasCaption) {
    const int centeredX = item.x + (item.width - imageWidth) / 2;
    const int centeredY = item.y + (item.height - imageHeight) / 2;
    Box caption = item;
    if (!hasCaption) return {centeredX, align == ImageAlign::Right ? item.y : centeredY, caption};
    switch (align) {
    case ImageAlign::Above:
        caption.y += imageHeight;
        caption.height -= imageHeight;
        return {centeredX, imageMargin, caption};
    case ImageAlign::Right:
        caption = {imageMargin, item.y, item.width - imageWidth - 2 * imageMargin, item.height};
        return {clientRight - imageWidth - imageMargin, centeredY, caption};
    default:
        caption.x += imageWidth + imageMargin;
        caption.width -= imageWidth + imageMargin;
        return {item.x + imageMargin, centeredY, caption};
    }
}
