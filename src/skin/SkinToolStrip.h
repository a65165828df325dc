// A row of buttons, each a picture cut from one strip with room for a text beside it.
//
// Order of use: LoadStrip, SetButtonIds, the text colour, CreateButtons. Clicks reach the strip's parent as commands
// under the buttons' ids.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "framework/Archive.h"
#include "framework/Geometry.h"
#include "skin/ButtonRow.h"
#include "skin/SkinStatic.h"

class CSkinToolStrip : public CSkinStatic {
public:
    // The picture of all buttons, side by side: a bitmap resource of the module in force, in place of what was held.
    // The second value has no effect. True when one was loaded.
    bool LoadStrip(std::uint16_t id, int = 0);

    // The control ids of the buttons from left to right. Each is the number, too, of the string that its button has
    // room for.
    void SetButtonIds(const std::vector<UINT>& ids) { buttonIds = ids; }

    // Makes the buttons anew, one for each whole frame of `frameWidth` pixels (above 0) in the strip that has an id.
    // Sizes are in pixels and of the buttons without their texts. The strip's window must exist. The fourth value has
    // no effect. Called while buttons are being made, which the parent hears of, it does nothing.
    void CreateButtons(int buttonWidth, int buttonHeight, int frameWidth, int = 0);

    // Stores the buttons' rectangles as they were created, or loads others in their place until the next CreateButtons;
    // the buttons themselves stay where they are. A count, then 16 raw bytes each. False, with nothing changed, for an
    // archive that is cut off.
    bool SerializeButtonRects(CArchive& archive);

    // Given to each button that is made. A button shows no text until it is given one.
    COLORREF buttonTextColor = RGB(0, 0, 0);

protected:
    void PreSubclassWindow() override;

private:
    std::unique_ptr<CSkinButton> MakeButton(std::size_t index, UINT id, int frameCount) const;
    void PlaceButtons(const CButtonRow::Buttons& made) const;

    CSkinBitmap strip;
    std::vector<UINT> buttonIds;
    std::vector<CRect> buttonRects; // as created
    CButtonRow buttons;
};
