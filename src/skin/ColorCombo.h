// A combo box with colours of its own: red on a pale green, in its edit field and its list alike.
#pragma once

#include "framework/Controls.h"
#include "framework/Dc.h"

class CColorCombo : public CComboBox {
public:
    CColorCombo();

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

private:
    HBRUSH OnCtlColor(CDC& dc, CWnd* control, UINT kind);
    HBRUSH CtlColor(CDC& dc, UINT kind);

    const COLORREF textColor = RGB(255, 0, 0);
    const COLORREF backColor = RGB(224, 236, 200);
    const CBrush backBrush;
};
