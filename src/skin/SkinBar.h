// The bar at the top of the panel: a skin static with a row of three small buttons, all cut from one picture.
//
// Order of use: SetButtonIds, SetBitmapFile and the corners, LoadButtons, then SetWindowPos, which gives the buttons
// their final places.
#pragma once

#include <string>
#include <vector>

#include "skin/ButtonRow.h"
#include "skin/SkinStatic.h"

class CSkinBar : public CSkinStatic {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // The control ids of the buttons, from left to right: three of them, before LoadButtons.
    void SetButtonIds(const std::vector<UINT>& ids) { buttonIds = ids; }

    // The names of the buttons for assistive software, in the same order, before LoadButtons. A button shows none.
    void SetButtonNames(const std::vector<std::string>& names) { buttonNames = names; }

    // Makes the buttons anew from a picture of 4 columns (normal, mouse over, pressed, disabled) and a row for each
    // button. Without the picture they are blank and work all the same. The bar's window must exist. Called while
    // buttons are being made, which the parent hears of, it makes none. Always 1.
    int LoadButtons(const std::string& path);

protected:
    void PreSubclassWindow() override;

private:
    void OnSize(UINT kind, int width, int height);
    void PlaceButtons(int left) const;

    std::vector<UINT> buttonIds;
    std::vector<std::string> buttonNames;
    CButtonRow buttons; // in the order of their ids
};
