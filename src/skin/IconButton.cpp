#include "skin/IconButton.h"

#include "framework/Dc.h"

const CMessageMap& CIconButton::ClassMap() {
    static constexpr std::array entries{OnReflect<BN_CLICKED, &CIconButton::OnClicked>(),
                                        OnMessage<BM_SETCHECK, &CIconButton::OnSetCheck>(),
                                        OnMessage<BM_GETCHECK, &CIconButton::OnGetCheck>()};
    static const CMessageMap map{&CButton::ClassMap(), entries};
    return map;
}

void CIconButton::PreSubclassWindow() {
    ModifyStyle(BS_TYPEMASK, BS_OWNERDRAW);
}

void CIconButton::SetCheck(int value, bool redraw) {
    checked = value != 0 ? 1 : 0;
    if (redraw) Invalidate();
}

bool CIconButton::OnClicked() {
    SetFocus();
    SetCheck(1 - checked, true);
    return false;
}

LRESULT CIconButton::OnSetCheck(WPARAM value, LPARAM) {
    SetCheck(value == BST_CHECKED || value == BST_INDETERMINATE ? 1 : 0, true);
    return 0;
}

void CIconButton::DrawItem(DRAWITEMSTRUCT& item) {
    CDC dc(item.hDC);
    const CSavedDC saved(dc);
    CRect rect(item.rcItem);
    dc.FillSolidRect(rect, ::GetSysColor(COLOR_BTNFACE));
    CRect box(rect.left + 1, rect.top + (rect.Height() - 13) / 2, rect.left + 14,
              rect.top + (rect.Height() - 13) / 2 + 13);
    ::DrawFrameControl(item.hDC, &box, DFC_BUTTON, DFCS_BUTTONCHECK | (checked != 0 ? DFCS_CHECKED : 0U));
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(::GetSysColor(COLOR_BTNTEXT));
    rect.left = box.right + 3;
    dc.DrawText(GetWindowText(), rect, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
}
