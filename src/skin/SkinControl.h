// What the controls share that paint a picture with a line of caption over it, in place of the platform's look.
//
// A platform control paints not only in WM_PAINT: it draws its own look at once when its text, its state, its style or
// its being enabled changes. CSkinControl answers these messages in front of the control's class, so that the foreign
// look never reaches the screen, and asks for a paint of the skin where the change could show.
//
// The picture is owned by the control; the font is borrowed from a window above it, at the first caption drawn, and
// kept. User-interface thread only.
#pragma once

#include <string>

#include <windows.h>

#include "framework/Controls.h"
#include "framework/Dc.h"
#include "pictures/SkinPicture.h"

// Made for CButton and CStatic.
template <class Control>
class CSkinControl : public Control {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // True when the picture was loaded. A missing or broken file leaves the control without a picture. No repaint.
    bool SetBitmapFile(const std::string& path);

    const std::string& GetCaption() const { return caption; }
    // Whether SetCaption with these would change nothing that is seen.
    bool Shows(const std::string& text, COLORREF color) const { return caption == text && textColor == color; }

protected:
    // Leaves behind what belonged to a former window.
    void PreSubclassWindow() override;

    // Draws the control in its client coordinates. The caller brings the context's state back.
    virtual void PaintOn(CDC& dc) = 0;

    // The caption is also the window's text, which names the control to a screen reader. No repaint.
    void StoreCaption(const std::string& text, COLORREF color);

    // A control that keeps what it makes of its picture drops that: the picture has changed.
    virtual void DropFaces() {}

    // What the control answers to WM_PAINT: calls draw(CDC&) with the context to paint on. Its state needn't be brought
    // back, as the classes of buttons and statics paint on common contexts, which are handed out in their first state.
    template <class Draw>
    void PaintBy(Draw draw) {
        if (HasEdge()) {
            CPaintDC dc(*this);
            draw(dc);
        } else {
            CBarePaintDC dc(*this);
            draw(dc);
        }
    }

    // Draws the caption with these DT_ flags, onto the context itself, never into a kept bitmap, so that the system can
    // scale it; an empty one draws nothing and asks for no font.
    void DrawCaption(CDC& dc, const CRect& rect, UINT format);

    CSkinPicture bitmap;
    std::string caption;
    COLORREF textColor = RGB(0, 0, 0);
    HFONT font = nullptr; // borrowed

private:
    bool HasEdge() const;
    void OnPaint();
    bool OnEraseBkgnd(HDC) { return true; }
    void OnEnable(bool) { this->Invalidate(); }
    LRESULT OnNcPaint(WPARAM region, LPARAM);
    LRESULT OnPrintClient(WPARAM context, LPARAM);
    LRESULT OnStyleChanged(WPARAM which, LPARAM styles);
    LRESULT OnSetFont(WPARAM newFont, LPARAM);
    LRESULT PassUnpainted(WPARAM wParam, LPARAM lParam);
};
