// The labels and grounds of the skin: a static with a picture stretched by nine slices and one line of caption over it.
// It is also a container, which hands the commands of its children on to its parent.
#pragma once

#include <string>

#include "skin/SkinControl.h"

class CSkinStatic : public CSkinControl<CStatic> {
public:
    // Stores text, left edge in pixels and colour, and makes the text the window's own. No repaint: a caller that
    // changes a visible static invalidates it. The text of a dialog template never shows.
    void SetCaption(const std::string& text, int leftOffset, COLORREF color);

    // Draws it now: for one that changes often, as a way by WM_PAINT costs several times as much. Without a picture it
    // is invalidated, since then what lies beneath has to be painted first.
    void PaintNow();

    // The corners of the stretch (NineSlice.h), in pixels of the picture.
    int cornerWidth = 0;
    int cornerHeight = 0;

protected:
    void PaintOn(CDC& dc) override;
    // Sends the command to the parent first, so that a control at any depth reaches the dialog.
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

    void DropFaces() override { face.Close(); }

private:
    void UncoverFormerCaption() const;
    void PrepareFace(const CRect& client);

    int captionLeft = 0;

    CSkinBitmap face; // the stretched picture, kept from paint to paint
    CSize faceCorner;
};
