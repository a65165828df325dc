#include "skin/IconLayout.h"

ImagePlace PlaceImage(const CRect& item, int clientRight, int imageWidth, int imageHeight, ImageAlign align,
                      bool hasCaption) {
    const LONG centeredX = item.left + (item.Width() - imageWidth) / 2;
    const LONG centeredY = item.top + (item.Height() - imageHeight) / 2;
    CRect caption = item;
    if (!hasCaption) return {{centeredX, align == ImageAlign::Right ? item.top : centeredY}, caption};
    switch (align) {
    case ImageAlign::Above:
        caption.top += imageHeight;
        return {{centeredX, imageMargin}, caption};
    case ImageAlign::Right:
        caption = CRect::Sized(imageMargin, item.top, item.Width() - imageWidth - 2 * imageMargin, item.Height());
        return {{clientRight - imageWidth - imageMargin, centeredY}, caption};
    default:
        caption.left += imageWidth + imageMargin;
        return {{item.left + imageMargin, centeredY}, caption};
    }
}
