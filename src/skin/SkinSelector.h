// A picture with four stacked slots of 44 pixels, of which the one clicked shows a picture of its own.
//
// A static of a dialog feels the mouse only with the style SS_NOTIFY. The picture of the whole control comes from
// SetBitmapFile; nothing repaints but a click.
#pragma once

#include <string>
#include <vector>

#include "skin/InputControl.h"
#include "skin/SkinControl.h"

class CSkinSelector : public CInputControl<CSkinControl<CStatic>> {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // The picture of the next slot, from the top. A file that can't be read takes its slot too, and shows nothing
    // there.
    void AddImage(const std::string& path);
    void RemoveImages() { images.clear(); }

    // The slot in force, counted from 0.
    int GetSelected() const { return selected; }

protected:
    void PaintOn(CDC& dc) override;

private:
    void OnMouseMove(UINT keys, CPoint point);
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);

    std::vector<CSkinPicture> images;
    int selected = 0;
};
