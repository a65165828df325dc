// An owner-drawn push button or check box with an icon or a bitmap beside its caption.
//
// It is flat by default, with a hover state, and keeps its own check state where the dialog template makes it a check
// box. Nothing comes from theme files: images are given to it, colours are its table's, which starts with the system's.
//
// It can carry a drop-down menu, which a click shows below it and whose choice goes to an owner as a posted WM_COMMAND.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "framework/Controls.h"
#include "framework/Dc.h"
#include "framework/ToolTip.h"
#include "menu/OwnerDrawMenu.h"
#include "skin/IconImages.h"
#include "skin/IconLayout.h"
#include "skin/InputControl.h"

class CIconButton : public CInputControl<CButton> {
public:
    // Indices of the colour table.
    enum ColorIndex : unsigned { ActiveBack, ActiveText, IdleBack, IdleText, FocusBack, FocusText };
    static constexpr std::size_t colorCount = 6;

    // What the setters give.
    enum Result : int {
        Done = 0,
        ImageUnreadable = 1,
        MaskFailed = 2,
        NoSuchColor = 3,
        NoSuchAlignment = 4,
        NoSuchShade = 5
    };

    // As a second icon: the grey form of the first.
    static constexpr int grayOfFirst = -2;

    CIconButton();
    ~CIconButton() override;

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // Images by resource number, from the module in force. The second is for the idle state: 0 for none.
    int SetIcons(int firstId, int secondId);
    int SetBitmaps(int firstId, COLORREF firstTransparent, int secondId, COLORREF secondTransparent);
    // The button takes ownership; grayOfFirst, as a handle, asks for the grey form here too. After a failure it holds
    // no image.
    int SetIconHandles(HICON first, HICON second);
    int SetBitmapHandles(HBITMAP first, COLORREF firstTransparent, HBITMAP second, COLORREF secondTransparent);

    // `redraw` repaints the button, as in all setters.
    int SetFlat(bool on, bool redraw);
    int SetImageAlign(unsigned value, bool redraw);
    int SetDrawBorder(bool on, bool redraw);
    int SetDrawFlatFocus(bool on, bool redraw);
    int SetTransparent(bool redraw);
    int SetAlwaysTrack(bool on);
    bool IsDefault() const { return isDefault; }

    // The check state, 0 or 1; of a check box only.
    int SetCheck(int value, bool redraw);
    int GetCheck() const { return checked; }

    int SetDefaultColors(bool redraw);
    int SetColor(unsigned index, COLORREF color, bool redraw);
    int GetColor(unsigned index, COLORREF& color) const;
    // Lightens or darkens a colour by at most `shade`, keeping its hue.
    int ShiftColor(unsigned index, std::int16_t shade, bool redraw);

    // A cursor resource; 0 for none of its own, which repaints nothing.
    int SetButtonCursor(int id, bool redraw);
    int SetToolTip(const char* text, bool activate);
    int SetToolTipFromResource(UINT id, bool activate);
    int ActivateToolTip(bool on);
    // What a click opens, besides telling the parent; null for nothing. At most 260 bytes count.
    int SetUrl(const char* text);

    // The first popup of a menu resource as the drop-down menu, and the one before is gone; 0 for none. `look` becomes
    // the look of all owner-drawn menus (1 modern, else classic), `owner` gets the choice. A toolbar resource other
    // than 0 gives its images, of a size in pixels and with a transparent colour. ImageUnreadable, and no menu, if a
    // resource can't be loaded.
    int SetDropMenu(UINT menuId, HWND owner, int look, UINT toolbarId, int imageWidth, int imageHeight,
                    COLORREF maskColor, bool redraw);
    bool HasDropMenu() const { return dropMenu.GetHandle() != nullptr; }

    void DrawItem(DRAWITEMSTRUCT& item) override;
    bool PreTranslateMessage(MSG& message) override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    void PreSubclassWindow() override;
    void EndInput() override { CancelHover(); }
    // The next tab stop in the parent, or the parent if there is none.
    HWND NextInLine() const override;

    // The ground, and the border of a flat button that is hovered or pressed. Both give 0.
    virtual int OnDrawBackground(CDC& dc, const CRect& rect);
    virtual int OnDrawBorder(CDC& dc, const CRect& rect);

    bool IsActive() const { return hovering || pressed; }
    COLORREF TableColor(ColorIndex index) const { return colors[index]; }

private:
    int Finish(bool redraw) const;
    void FreeImages();
    int TakeIcons(SharedIcon first, bool fillsSecond, SharedIcon second);
    void EnsureToolTip();
    void CancelHover();
    bool OnClicked();
    bool ShowDropMenu();
    LRESULT OnMenuChar(UINT character, UINT flags, CMenu* menu);
    void OnMeasureItem(int id, MEASUREITEMSTRUCT& item);
    bool OnSetCursor(CWnd* window, UINT hitTest, UINT message);
    void OnMouseMove(UINT keys, CPoint point);
    void OnSysColorChange();
    void OnActivate(UINT state, CWnd* other, bool minimised);
    UINT OnGetDlgCode();
    HBRUSH CtlColor(CDC& dc, UINT kind);
    LRESULT OnSetStyle(WPARAM style, LPARAM redraw);
    LRESULT OnSetCheck(WPARAM value, LPARAM);
    LRESULT OnGetCheck(WPARAM, LPARAM) { return checked; }

    // Drawing.
    std::size_t ImageSlot(bool secondFilled) const;
    void DropSnapshot();
    void PaintSnapshot(CDC& dc);
    void DrawBorderOf(CDC& dc, const CRect& rect);
    void DrawIcon(CDC& dc, const CRect& item, bool hasCaption, CRect& caption);
    void DrawBitmap(CDC& dc, const CRect& item, bool hasCaption, CRect& caption);
    void DrawCaption(CDC& dc, const std::string& text, CRect rect) const;
    CPoint PlaceOf(const CRect& item, int width, int height, bool hasCaption, CRect& caption) const;

    bool grayWhenDisabled = true;
    bool flat = true;
    bool hovering = false;
    bool transparent = false;
    bool pressed = false;
    bool focused = false;
    bool disabled = false;
    bool isDefault = false;
    bool isCheckBox = false;
    ImageAlign imageAlign = ImageAlign::Left;
    bool drawBorder = true;
    bool drawFlatFocus = false;
    std::array<COLORREF, colorCount> colors{};
    CCursor cursor;
    CToolTipCtrl toolTip;
    CBitmap backgroundBitmap; // the piece of the parent under a transparent button
    bool alwaysTrack = true;
    int checked = 0;
    std::uint8_t buttonType = unbound;
    std::string url;
    std::array<SharedIcon, 2> icons;
    std::array<BitmapImage, 2> bitmaps;
    HWND menuOwner = nullptr;
    bool menuOpen = false; // the drop-down menu is showing
    COwnerDrawMenu dropMenu;

    static constexpr std::uint8_t unbound = 31;
};
