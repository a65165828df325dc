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

    // The corners of the stretch (NineSlice.h), in pixels of the picture.
    int cornerWidth = 0;
    int cornerHeight = 0;

protected:
    void PaintOn(CDC& dc) override;
    // Sends the command to the parent first, so that a control at any depth reaches the dialog.
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

    void DropFaces() override { faceReady = false; }

private:
    void UncoverFormerCaption() const;
    void PrepareFace(const CRect& client);
    CRect CaptionPlace(const CRect& client) const { return {captionLeft, client.top, client.right, client.bottom}; }

    int captionLeft = 0;

    // The stretched picture with the caption on it, kept from paint to paint: most of them change neither.
    CSkinBitmap face;
    CSize faceCorner;
    bool faceReady = false;
};
