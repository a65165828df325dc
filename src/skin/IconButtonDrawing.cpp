// How an icon button looks.
#include "skin/IconButton.h"

namespace {

void DrawRaisedFrame(CDC& dc, const CRect& rect) {
    struct Stroke {
        int systemColor;
        POINT points[3];
    };
    const LONG l = rect.left;
    const LONG t = rect.top;
    const LONG r = rect.right;
    const LONG b = rect.bottom;
    const Stroke strokes[] = {{COLOR_BTNHIGHLIGHT, {{l, b - 1}, {l, t}, {r, t}}},
                              {COLOR_3DLIGHT, {{l + 1, b - 1}, {l + 1, t + 1}, {r, t + 1}}},
                              {COLOR_3DDKSHADOW, {{l, b - 1}, {r - 1, b - 1}, {r - 1, t - 1}}},
                              {COLOR_BTNSHADOW, {{l + 1, b - 2}, {r - 2, b - 2}, {r - 2, t}}}};
    for (const Stroke& stroke : strokes) {
        const CPen pen(PS_SOLID, 0, ::GetSysColor(stroke.systemColor));
        const CSelectObject selected(dc, pen.GetHandle());
        ::Polyline(dc.GetHandle(), stroke.points, 3);
    }
}

} // namespace

void CIconButton::DrawItem(DRAWITEMSTRUCT& item) {
    CDC dc(item.hDC);
    const CSavedDC saved(dc);
    pressed = (item.itemState & ODS_SELECTED) != 0 || (isCheckBox ? checked != 0 : HasDropMenu() && menuOpen);
    focused = (item.itemState & ODS_FOCUS) != 0;
    disabled = (item.itemState & ODS_DISABLED) != 0;
    const CRect whole(item.rcItem);
    CRect rect = whole;
    dc.SetBkMode(TRANSPARENT);
    if (!flat && (focused || isDefault)) {
        ::FrameRect(item.hDC, &rect, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
        rect.Inflate(-1, -1);
    }
    if (transparent) {
        PaintSnapshot(dc);
    } else {
        OnDrawBackground(dc, rect);
    }
    DrawBorderOf(dc, rect);

    const std::string text = GetWindowText();
    CRect caption = whole;
    if (icons[0] != nullptr) DrawIcon(dc, whole, !text.empty(), caption);
    if (!bitmaps[0].bitmap.IsEmpty()) {
        // The colours that a black-and-white mask takes on; the parent may have set others.
        dc.SetTextColor(RGB(0, 0, 0));
        dc.SetBkColor(RGB(255, 255, 255));
        DrawBitmap(dc, whole, !text.empty(), caption);
    }
    if (!text.empty()) DrawCaption(dc, text, caption);
    if ((!flat || drawFlatFocus) && focused) {
        rect.Inflate(-3, -3);
        ::DrawFocusRect(item.hDC, &rect);
    }
}

int CIconButton::OnDrawBackground(CDC& dc, const CRect& rect) {
    dc.FillSolidRect(rect, IsActive() ? colors[ActiveBack] : focused ? colors[FocusBack] : colors[IdleBack]);
    return 0;
}

int CIconButton::OnDrawBorder(CDC& dc, const CRect& rect) {
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF shadow = ::GetSysColor(COLOR_BTNSHADOW);
    dc.Draw3dRect(rect, pressed ? shadow : light, pressed ? light : shadow);
    return 0;
}

void CIconButton::DrawBorderOf(CDC& dc, const CRect& rect) {
    if (flat) {
        if (IsActive() && drawBorder) OnDrawBorder(dc, rect);
    } else if (pressed) {
        ::FrameRect(dc.GetHandle(), &rect, ::GetSysColorBrush(COLOR_BTNSHADOW));
    } else {
        DrawRaisedFrame(dc, rect);
    }
}

std::size_t CIconButton::ImageSlot(bool secondFilled) const {
    const bool first = isCheckBox ? pressed : IsActive();
    return first || !secondFilled ? 0 : 1;
}

CPoint CIconButton::PlaceOf(const CRect& item, int width, int height, bool hasCaption, CRect& caption) const {
    const ImagePlace place = PlaceImage(item, GetClientRect().right, width, height, imageAlign, hasCaption);
    caption = place.captionArea;
    const int shift = pressed && !isCheckBox ? 1 : 0;
    return {place.image.x + shift, place.image.y + shift};
}

void CIconButton::DrawIcon(CDC& dc, const CRect& item, bool hasCaption, CRect& caption) {
    const IconImage& image = *icons[ImageSlot(icons[1] != nullptr)];
    const CPoint place = PlaceOf(item, image.width, image.height, hasCaption, caption);
    ::DrawStateA(dc.GetHandle(), nullptr, nullptr, reinterpret_cast<LPARAM>(image.icon.GetHandle()), 0, place.x,
                 place.y, image.width, image.height, DST_ICON | (disabled ? DSS_DISABLED : DSS_NORMAL));
}

void CIconButton::DrawBitmap(CDC& dc, const CRect& item, bool hasCaption, CRect& caption) {
    const BitmapImage& image = bitmaps[ImageSlot(!bitmaps[1].bitmap.IsEmpty())];
    const CPoint place = PlaceOf(item, image.width, image.height, hasCaption, caption);
    const CMemoryDC picture(dc.GetHandle());
    const CMemoryDC mask(dc.GetHandle());
    const CSelectObject pictureSelected(picture, image.bitmap.GetHandle());
    const CSelectObject maskSelected(mask, image.mask.GetHandle());
    const auto compose = [&](HDC target, int x, int y) {
        ::BitBlt(target, x, y, image.width, image.height, mask.GetHandle(), 0, 0, SRCAND);
        ::BitBlt(target, x, y, image.width, image.height, picture.GetHandle(), 0, 0, SRCPAINT);
    };
    if (!disabled || !grayWhenDisabled) {
        compose(dc.GetHandle(), place.x, place.y);
        return;
    }
    const CBitmap ground(::CreateCompatibleBitmap(dc.GetHandle(), image.width, image.height));
    {
        CMemoryDC canvas(dc.GetHandle());
        const CSelectObject selected(canvas, ground.GetHandle());
        canvas.FillSolidRect({0, 0, image.width, image.height}, RGB(255, 255, 255));
        canvas.SetBkColor(RGB(255, 255, 255));
        compose(canvas.GetHandle(), 0, 0);
    }
    ::DrawStateA(dc.GetHandle(), nullptr, nullptr, reinterpret_cast<LPARAM>(ground.GetHandle()), 0, place.x, place.y,
                 image.width, image.height, DST_BITMAP | DSS_DISABLED);
}

void CIconButton::DrawCaption(CDC& dc, const std::string& text, CRect rect) const {
    if (pressed && !isCheckBox) rect.Offset(1, 1);
    const CRect area = rect;
    constexpr UINT format = DT_WORDBREAK | DT_CENTER;
    dc.DrawText(text, rect, format | DT_CALCRECT);
    rect.Offset((area.Width() - rect.Width()) / 2, (area.Height() - rect.Height()) / 2);
    dc.SetBkMode(TRANSPARENT);
    if (disabled) {
        rect.Offset(1, 1);
        dc.SetTextColor(::GetSysColor(COLOR_BTNHIGHLIGHT));
        dc.DrawText(text, rect, format);
        rect.Offset(-1, -1);
        dc.SetTextColor(::GetSysColor(COLOR_BTNSHADOW));
    } else {
        dc.SetTextColor(colors[IsActive() ? ActiveText : IdleText]);
        dc.SetBkColor(colors[IsActive() ? ActiveBack : IdleBack]);
    }
    dc.DrawText(text, rect, format);
}

void CIconButton::DropSnapshot() {
    backgroundBitmap.Close();
}

void CIconButton::PaintSnapshot(CDC& dc) {
    const CRect client = GetClientRect();
    const CMemoryDC memory(dc.GetHandle());
    const bool fresh = backgroundBitmap.IsEmpty();
    if (fresh) backgroundBitmap.Attach(::CreateCompatibleBitmap(dc.GetHandle(), client.Width(), client.Height()));
    const CSelectObject selected(memory, backgroundBitmap.GetHandle());
    if (fresh) {
        const HWND parent = ::GetParent(GetHandle());
        CPoint corner;
        ::MapWindowPoints(GetHandle(), parent, &corner, 1);
        const CClientDC source(parent);
        ::BitBlt(memory.GetHandle(), 0, 0, client.Width(), client.Height(), source.GetHandle(), corner.x, corner.y,
                 SRCCOPY);
    }
    ::BitBlt(dc.GetHandle(), 0, 0, client.Width(), client.Height(), memory.GetHandle(), 0, 0, SRCCOPY);
}
