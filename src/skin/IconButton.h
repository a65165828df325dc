// A check box of the panel. It keeps its own check state and paints itself.
#pragma once

#include "framework/Controls.h"

class CIconButton : public CButton {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // Any value but 0 checks the box. With `redraw` it is repainted.
    void SetCheck(int value, bool redraw);
    int GetCheck() const { return checked; }

    void DrawItem(DRAWITEMSTRUCT& item) override;

protected:
    void PreSubclassWindow() override;

private:
    // Flips the check state before the parent hears of the click.
    bool OnClicked();
    LRESULT OnSetCheck(WPARAM value, LPARAM);
    LRESULT OnGetCheck(WPARAM, LPARAM) { return checked; }

    int checked = 0;
};
