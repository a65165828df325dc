// A static text that is a link: coloured, underlined, with a hand cursor and a tool tip that tells the target. A click
// opens the target through the shell; if that fails, the user is told why.
#pragma once

#include <string>

#include "framework/Controls.h"
#include "framework/Gdi.h"
#include "framework/ToolTip.h"
#include "skin/InputControl.h"
#include "skin/LinkOpener.h"

class CLinkStatic : public CInputControl<CStatic> {
public:
    CLinkStatic() : CLinkStatic(CLinkOpener::System()) {}
    // Over other calls than the system's; `opener` must outlive the link.
    explicit CLinkStatic(CLinkOpener& linkOpener);

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // As a hover colour: the system's highlight colour.
    static constexpr COLORREF highlightColor = 0xFFFFFFFF;

    // What a click opens. Empty at the time of binding, it takes the control's text; an empty text takes it.
    void SetTarget(const std::string& newTarget);
    const std::string& GetTarget() const { return target; }

    void SetColors(COLORREF link, COLORREF visitedLink, COLORREF hover);
    COLORREF GetLinkColor() const { return linkColor; }
    COLORREF GetVisitedColor() const { return visitedColor; }
    COLORREF GetHoverColor() const { return hoverColor; }

    void SetVisited(bool on);
    bool GetVisited() const { return visited; }

    // Not owned; null asks for the hand of the system's help program, which is the default. Without one the arrow
    // shows.
    void SetLinkCursor(HCURSOR newCursor);
    HCURSOR GetLinkCursor() const { return cursor; }

    // Changes the font alone: the control keeps its size.
    void SetUnderlined(bool on);
    bool GetUnderlined() const { return underlined; }

    // Whether the control takes the size of its text, when it is bound and when the target or this flag changes. A text
    // set later fits nothing.
    void SetFitToText(bool on);
    bool GetFitToText() const { return fitToText; }

    bool PreTranslateMessage(MSG& message) override;

protected:
    void PreSubclassWindow() override;
    void EndInput() override { SetHovering(false); }

private:
    void OnClicked();
    HBRUSH CtlColor(CDC& dc, UINT kind);
    bool OnSetCursor(CWnd* window, UINT hitTest, UINT message);
    void OnMouseMove(UINT keys, CPoint point);
    void OnMouseLeave();
    void OnCaptureChanged(CWnd* newHolder);
    void OnEnable(bool enabled);
    LRESULT OnSetText(WPARAM wParam, LPARAM text);
    LRESULT OnSetFont(WPARAM wParam, LPARAM redraw);
    void SetHovering(bool on);
    void AdoptFont();
    CRect PlaceInParent() const;
    void Repaint() const;
    void FitToText();
    void EnsureToolTip();
    void LoadDefaultCursor();
    void ReportError(int code) const;

    CLinkOpener& opener;
    COLORREF linkColor = 0xEE0000;    // blue 238
    COLORREF visitedColor = 0x8B1A55; // red 85, green 26, blue 139
    COLORREF hoverColor;
    bool hovering = false;
    bool visited = false;
    bool underlined = true;
    bool fitToText = true;
    std::string target;
    CFont font; // the control's own, with or without underline
    HCURSOR cursor = nullptr;
    CToolTipCtrl toolTip;
};
