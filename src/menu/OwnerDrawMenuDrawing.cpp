// Painting and measuring of the items.
#include "menu/OwnerDrawMenu.h"

#include <string_view>

#include "menu/MenuFont.h"
#include "menu/MenuItemPainter.h"
#include "menu/MenuLayout.h"
#include "pictures/ColorMath.h"

namespace {

int MeasuredTextWidth(const wchar_t* recordText) {
    const std::wstring_view text(recordText != nullptr ? recordText : L"");
    const CFont font(MenuFontDescription());
    CClientDC dc(MenuContextWindow());
    const CSelectObject selected(dc, COwnerDrawMenu::HasNewShell() ? font.GetHandle() : nullptr);
    if (COwnerDrawMenu::windowsVersion != HostedWin32) return dc.GetTextExtent(text).cx;
    CRect rect;
    dc.DrawText(text, rect, DT_SINGLELINE | DT_LEFT | DT_VCENTER | DT_CALCRECT);
    return TextWidthOfHostedWin32(rect.Width(), text.size());
}

bool IsPaletteDisplay(const CDC& dc) {
    return (::GetDeviceCaps(dc.GetHandle(), RASTERCAPS) & RC_PALETTE) != 0;
}

} // namespace

void COwnerDrawMenu::DrawItem(DRAWITEMSTRUCT& item) {
    const CMenuItemRecord* record = FindRecord(item.itemData);
    if (record == nullptr) return;
    CDC dc(item.hDC);
    const CSavedDC saved(dc);
    const MenuLook look = ChooseMenuLook(IsPaletteDisplay(dc), IsThemedXp(), lookOnThemedXp, lookOnOtherSystems);
    CMenuItemPainter(*this, *record, item).Paint(dc, look);
}

void COwnerDrawMenu::MeasureItem(MEASUREITEMSTRUCT& item) {
    const CMenuItemRecord* record = FindRecord(item.itemData);
    if (record == nullptr) return;
    const bool modern = IsModernLook();
    const bool raised = raisedImages != 0;
    const CSize image{imageWidth, imageHeight};
    const int barHeight = ::GetSystemMetrics(SM_CYMENU);
    const bool separator = (record->flags & MF_SEPARATOR) != 0;
    const CSize size = separator ? MeasuredSeparator(image, modern && raised, barHeight)
                                 : MeasuredItem(MeasuredTextWidth(record->GetText()), image, modern, raised, barHeight);
    item.itemWidth = static_cast<UINT>(size.cx);
    item.itemHeight = static_cast<UINT>(size.cy);
}

COLORREF COwnerDrawMenu::BlendTowardWhite(COLORREF color, double factor) {
    return BlendedTowardWhite(color, factor);
}

COLORREF COwnerDrawMenu::BlendTowardBlack(COLORREF color, double factor) {
    return BlendedTowardBlack(color, factor);
}
