// The push button of the skin, whose whole surface comes from pictures.
//
// In strip mode the picture holds four frames side by side: normal, mouse over, pressed, disabled. What is magenta in
// the frame shown lies outside the button: the window takes the shape of the rest, and the mouse is felt only there. In
// picture mode the picture stands whole on its parent's ground, left of the caption, and the mouse draws an edge.
//
// The mouse is captured from the first move over the button on, so that its coming up elsewhere is seen. A click (and
// the space bar, as on any button) sends WM_COMMAND to the parent. There is no focus rectangle. A button without a
// picture draws nothing and works by its client rectangle.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "skin/InputControl.h"
#include "skin/SkinControl.h"

class CSkinButton : public CInputControl<CSkinControl<CButton>> {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // A bitmap resource of the module in force. The second value has no effect. True when one was loaded.
    bool SetBitmapResource(std::uint16_t id, int = 0);
    // Keeps a private copy of the picture; the caller keeps its own, and becomes the owner of the bitmap that the
    // button held before, which is the result (null if there was none).
    [[nodiscard]] HBITMAP SetBitmapHandle(HBITMAP picture) {
        DropFaces();
        return bitmap.CopyFrom(picture);
    }

    // Stores text and colour and makes the text the window's own. The left offset has no effect on a button, whose
    // caption is centred. Neither repaints: a caller that changes a visible button invalidates it.
    void SetCaption(const std::string& text, int leftOffset, COLORREF color);
    void SetTextColor(COLORREF color) { textColor = color; }

    // Tested as bits, the strip first. A value with neither bit draws nothing and ignores the mouse.
    static constexpr int pictureMode = 1;
    static constexpr int stripMode = 2;
    int drawMode = stripMode;

protected:
    void PreSubclassWindow() override;
    void PaintOn(CDC& dc) override;
    void EndInput() override;
    void DropFaces() override {
        faces = {};
        shapedBy = nullptr;
        faceSize = {};
    }

private:
    // A frame of the strip, cut to the window, and its shape: kept from paint to paint.
    struct Face {
        CSkinBitmap picture;
        CRgn shape;
    };

    bool IsStrip() const { return (drawMode & stripMode) != 0; }
    bool IsPicture() const { return !IsStrip() && (drawMode & pictureMode) != 0; }

    // Painting.
    void OnPaint();
    LRESULT OnWindowPosChanged(WPARAM, LPARAM);
    void ReadEnabled();
    const Face& PresentFace();
    // That face, with the window in its shape.
    const Face& TakeFace();
    void TakeShape(const CRgn& shape) const;
    void RepaintGround() const;
    void DrawFace(CDC& dc, const Face& face);
    void DrawPicture(CDC& dc);
    void OnEnable(bool) { FollowState(); }
    void FollowState();
    void RepaintNow();

    // Mouse.
    void OnMouseMove(UINT keys, CPoint point);
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnLButtonDblClk(UINT, CPoint) {}
    void OnMouseLeave();
    void OnCaptureChanged(CWnd* holder);
    bool IsInside(CPoint point) const;
    void SendClick() const;

    // Focus and keys.
    void OnSetFocus(CWnd*) {}
    void OnKillFocus(CWnd*) {}
    LRESULT OnKeyDown(WPARAM key, LPARAM);
    LRESULT OnKeyUp(WPARAM key, LPARAM);

    // What the dialog keyboard and others do to a platform button.
    LRESULT OnSetState(WPARAM, LPARAM) { return 0; }
    LRESULT OnSetStyle(WPARAM style, LPARAM) { return DefWindowProc(BM_SETSTYLE, style, FALSE); }

    CSize faceSize;                 // of the window that the faces are cut to; 0: none as yet
    std::array<Face, 4> faces;      // by the column of the strip
    const Face* shapedBy = nullptr; // whose shape the window has for certain
    int hover = 0;                  // the mouse is over the button
    int pressed = 0;                // the left button went down here and hasn't come up
    int enabled = 1;                // read from the window's style at each paint
    bool spaceHeld = false;
    bool cancelled = false; // the press was ended by something else, and the left button may still be down
};
