// What both looks have in common: which image, and how box, picture, mark and text are drawn.
#include "menu/MenuItemPainter.h"

#include "menu/OwnerDrawMenu.h"

namespace {

void DrawTick(CDC& dc, CPoint place, COLORREF color) {
    const CPen pen(PS_SOLID, 0, color);
    const CSelectObject selected(dc, pen.GetHandle());
    int x = place.x;
    for (const TickStroke& stroke : tickStrokes) {
        dc.MoveTo(x, place.y + stroke.from);
        dc.LineTo(x, place.y + stroke.to);
        ++x;
    }
}

void DrawDot(CDC& dc, CPoint place, COLORREF color) {
    const CPen pen(PS_SOLID, 0, color);
    const CBrush brush(color);
    const CSelectObject penSelected(dc, pen.GetHandle());
    const CSelectObject brushSelected(dc, brush.GetHandle());
    ::Ellipse(dc.GetHandle(), place.x, place.y, place.x + dotSize, place.y + dotSize);
}

// A bitmap of its own for the mark makes it a dot; it isn't shown itself.
bool HasMarkBitmap(const DRAWITEMSTRUCT& item) {
    const auto menu = reinterpret_cast<HMENU>(item.hwndItem);
    // By the data: other items may have the same id.
    for (int position = 0; position < ::GetMenuItemCount(menu); ++position) {
        MENUITEMINFOA info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_CHECKMARKS | MIIM_DATA;
        if (::GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info) == FALSE) break;
        if (info.dwItemData == item.itemData) return info.hbmpChecked != nullptr;
    }
    return false;
}

} // namespace

CMenuItemPainter::CMenuItemPainter(const COwnerDrawMenu& itemMenu, const CMenuItemRecord& itemRecord,
                                   DRAWITEMSTRUCT& drawn)
    : menu(itemMenu), record(itemRecord), item(drawn), rect(drawn.rcItem) {}

void CMenuItemPainter::Paint(CDC& dc, MenuLook look) {
    if (look == MenuLook::Modern) {
        PaintModern(dc);
    } else {
        PaintClassic(dc);
    }
}

bool CMenuItemPainter::IsSeparator() const {
    return (record.flags & MF_SEPARATOR) != 0;
}

void CMenuItemPainter::Prepare(MenuLook look) {
    const bool modern = look == MenuLook::Modern;
    const bool companions = modern && COwnerDrawMenu::raisedImages != 0;
    const CImageList* own = record.imageList.get();
    const bool ownSet = record.imageIndex == 0 && own != nullptr && own->GetImageCount() > 2;
    images = {own, record.imageIndex, 1, 2, companions && ownSet};
    std::int32_t iconId = record.iconId;
    if (iconId < 0 && (!modern || record.imageIndex < 0) && record.sharedIndex >= 0) {
        const int index = record.sharedIndex;
        const bool sharedSet = COwnerDrawMenu::HasRaisedSet(index);
        images = {&COwnerDrawMenu::sharedImages, index, index + 1, index + 2, companions && sharedSet};
        iconId = 0;
    }
    state = {iconId,           menu.checkSelectedId, menu.checkClearId, menu.checkImages != nullptr,
             Is(ODS_SELECTED), Is(ODS_GRAYED),       Is(ODS_CHECKED)};
}

void CMenuItemPainter::DrawSeparator(CDC& dc, CRect etched) const {
    ::DrawEdge(dc.GetHandle(), &etched, EDGE_ETCHED, BF_TOP);
}

void CMenuItemPainter::DrawBox(CDC& dc, const MenuBox& box, const CRect& filled, const CRect& framed,
                               CPoint place) const {
    if (box.fill != MenuTint::None) dc.FillSolidRect(filled, ColorOf(box.fill));
    if (box.frameTopLeft != MenuTint::None)
        dc.Draw3dRect(framed, ColorOf(box.frameTopLeft), ColorOf(box.frameBottomRight));
    DrawPicture(dc, box.picture, place.x + box.shift, place.y + box.shift);
}

void CMenuItemPainter::DrawPicture(CDC& dc, MenuPicture picture, int x, int y) const {
    if (picture == MenuPicture::Check) {
        menu.checkImages->Draw(dc.GetHandle(), state.selected ? 1 : 0, x, y, ILD_TRANSPARENT);
        return;
    }
    if (images.list == nullptr) return;
    const auto draw = [&](int index, int shift) {
        images.list->Draw(dc.GetHandle(), index, x + shift, y + shift, ILD_TRANSPARENT);
    };
    switch (picture) {
    case MenuPicture::Embossed:
        DrawEmbossed(dc, x, y);
        break;
    case MenuPicture::Normal:
        draw(images.normal, 0);
        break;
    case MenuPicture::Washed:
        draw(images.washed, 0);
        break;
    case MenuPicture::Raised:
        draw(images.shadow, 1);
        draw(images.normal, -1);
        break;
    default:
        break;
    }
}

void CMenuItemPainter::DrawEmbossed(CDC& dc, int x, int y) const {
    CBitmap bitmap;
    menu.ImageToBitmap(dc, *images.list, images.normal, bitmap);
    const auto emboss = menu.GetEmbossViaDib() ? &COwnerDrawMenu::EmbossImageDib : &COwnerDrawMenu::EmbossImage;
    const COLORREF ground = ColorOf(state.selected ? MenuTint::Selection : MenuTint::Ground);
    emboss(dc, x, y, menu.imageWidth, menu.imageHeight, bitmap, 0, 0, ground);
}

void CMenuItemPainter::DrawMark(CDC& dc, CPoint tick, CPoint dot) const {
    const COLORREF color = ::GetSysColor(COLOR_MENUTEXT);
    if (HasMarkBitmap(item)) {
        DrawDot(dc, dot, color);
    } else {
        DrawTick(dc, tick, color);
    }
}

void CMenuItemPainter::DrawItemText(CDC& dc, CRect place, COLORREF color) const {
    const wchar_t* text = record.GetText();
    if (text == nullptr || *text == L'\0') return;
    const MenuTextParts parts = SplitMenuText(text);
    if (parts.hasTab) place.right -= menu.imageWidth;
    const int formerMode = dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(color);
    constexpr UINT format = DT_SINGLELINE | DT_VCENTER;
    dc.DrawText(parts.caption, place, format | DT_LEFT);
    if (parts.hasTab) dc.DrawText(parts.accelerator, place, format | DT_RIGHT);
    dc.SetBkMode(formerMode);
}
