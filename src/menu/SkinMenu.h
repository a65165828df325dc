// A small owner-drawn menu in five colours of its own: rows of one height, a stripe down the left, a framed selection
// bar, and a check sign in a box.
//
// An item's data is the address of its text, zero-ended and narrow, which stays the caller's and lives as long as the
// item. User-interface thread only.
#pragma once

#include <windows.h>

#include "framework/Dc.h"
#include "framework/Menu.h"

class CSkinMenu : public CMenu {
    static CObject* Create() { return new CSkinMenu; }

public:
    static constexpr CRuntimeClass classInfo{"CSkinMenu", &CMenu::classInfo, &CSkinMenu::Create};

    CSkinMenu() = default;
    CSkinMenu(const CSkinMenu&) = delete;
    CSkinMenu& operator=(const CSkinMenu&) = delete;
    // The platform menu outlives the object.
    ~CSkinMenu() override { Detach(); }
    const CRuntimeClass& GetRuntimeClass() const override { return classInfo; }

    void DrawItem(DRAWITEMSTRUCT& item) override;
    void MeasureItem(MEASUREITEMSTRUCT& item) override;

    // Weight 0 gives `first`, 255 gives `second`.
    static COLORREF BlendColors(COLORREF first, COLORREF second, BYTE weight);

    COLORREF backColor = ::GetSysColor(COLOR_MENU);
    COLORREF selectColor = ::GetSysColor(COLOR_HIGHLIGHT); // the bar; the check box is a tint of it
    COLORREF stripeColor = ::GetSysColor(COLOR_3DFACE);
    COLORREF frameColor = ::GetSysColor(COLOR_3DSHADOW); // round the bar and the check box
    COLORREF selectTextColor = ::GetSysColor(COLOR_HIGHLIGHTTEXT);

private:
    void DrawCheckSign(CDC& dc, CRect stripe, bool selected) const;
};
