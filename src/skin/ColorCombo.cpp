#include "skin/ColorCombo.h"

CColorCombo::CColorCombo() : backBrush(backColor) {}

const CMessageMap& CColorCombo::ClassMap() {
    // The combo box is asked for the colours of its parts, its parent for those of the combo box.
    static constexpr std::array entries{OnColor<&CColorCombo::OnCtlColor>(), OnReflectColor<&CColorCombo::CtlColor>()};
    static const CMessageMap map{&CComboBox::ClassMap(), entries};
    return map;
}

HBRUSH CColorCombo::OnCtlColor(CDC& dc, CWnd* control, UINT kind) {
    RouteColor(kind, reinterpret_cast<WPARAM>(dc.GetHandle()),
               reinterpret_cast<LPARAM>(control != nullptr ? control->GetHandle() : nullptr));
    return CtlColor(dc, kind);
}

HBRUSH CColorCombo::CtlColor(CDC& dc, UINT) {
    dc.SetTextColor(textColor);
    dc.SetBkColor(backColor);
    return backBrush.GetHandle();
}
