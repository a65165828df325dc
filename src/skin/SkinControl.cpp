#include "skin/SkinControl.h"

#include <array>

#include "framework/WindowEntry.h"

namespace {

// Statics that were made without a text may keep no font, so the one above them is asked then.
HFONT FontAbove(HWND control) {
    for (HWND above = ::GetParent(control); above != nullptr; above = ::GetParent(above)) {
        const LRESULT font = ::SendMessageA(above, WM_GETFONT, 0, 0);
        if (font != 0) return reinterpret_cast<HFONT>(font);
    }
    return nullptr;
}

} // namespace

template <class Control>
const CMessageMap& CSkinControl<Control>::ClassMap() {
    static constexpr std::array entries{On<WM_PAINT, &CSkinControl::OnPaint>(),
                                        On<WM_ERASEBKGND, &CSkinControl::OnEraseBkgnd>(),
                                        OnMessage<WM_NCPAINT, &CSkinControl::OnNcPaint>(),
                                        On<WM_ENABLE, &CSkinControl::OnEnable>(),
                                        OnMessage<WM_PRINTCLIENT, &CSkinControl::OnPrintClient>(),
                                        OnMessage<WM_STYLECHANGED, &CSkinControl::OnStyleChanged>(),
                                        OnMessage<WM_SETFONT, &CSkinControl::OnSetFont>(),
                                        OnMessage<WM_SETTEXT, &CSkinControl::PassUnpainted>(),
                                        OnMessage<WM_UPDATEUISTATE, &CSkinControl::PassUnpainted>()};
    static const CMessageMap map{&Control::ClassMap(), entries};
    return map;
}

template <class Control>
void CSkinControl<Control>::PreSubclassWindow() {
    font = nullptr;
    DropFaces();
    if (!caption.empty()) this->SetWindowText(caption);
    Control::PreSubclassWindow();
}

template <class Control>
bool CSkinControl<Control>::SetBitmapFile(const std::string& path) {
    bitmap.LoadFromFile(path);
    DropFaces();
    return !bitmap.IsEmpty();
}

template <class Control>
void CSkinControl<Control>::StoreCaption(const std::string& text, COLORREF color) {
    textColor = color;
    if (caption == text) return;
    caption = text;
    this->SetWindowText(text);
}

template <class Control>
void CSkinControl<Control>::DrawCaption(CDC& dc, const CRect& rect, UINT format) {
    if (caption.empty()) return;
    if (font == nullptr) font = FontAbove(this->GetHandle());
    if (font != nullptr) ::SelectObject(dc.GetHandle(), font);
    dc.SetTextColor(textColor);
    dc.SetBkMode(TRANSPARENT);
    CRect place = rect;
    dc.DrawText(caption, place, format);
}

template <class Control>
void CSkinControl<Control>::OnPaint() {
    PaintBy([this](CDC& dc) { PaintOn(dc); });
}

template <class Control>
bool CSkinControl<Control>::HasEdge() const {
    const CRect window = this->GetWindowRect(), client = this->GetClientRect();
    return window.Width() != client.Width() || window.Height() != client.Height();
}

// Without an edge there is nothing to paint around the client area, and the platform needn't look for it.
template <class Control>
LRESULT CSkinControl<Control>::OnNcPaint(WPARAM, LPARAM) {
    return HasEdge() ? this->Default() : 0;
}

template <class Control>
LRESULT CSkinControl<Control>::OnPrintClient(WPARAM context, LPARAM) {
    CDC dc(reinterpret_cast<HDC>(context));
    const CSavedDC saved(dc);
    PaintOn(dc);
    return 0;
}

template <class Control>
LRESULT CSkinControl<Control>::OnStyleChanged(WPARAM which, LPARAM styles) {
    this->Invalidate();
    return PassUnpainted(which, styles);
}

// The class keeps the font for children that ask for it; told to repaint, it would paint its own look.
template <class Control>
LRESULT CSkinControl<Control>::OnSetFont(WPARAM newFont, LPARAM) {
    return this->DefWindowProc(WM_SETFONT, newFont, FALSE);
}

// Past the control's class to the procedure of all windows, which stores what there is to store (the text, the marks
// of the keyboard cues) and paints nothing in a window without a title bar.
template <class Control>
LRESULT CSkinControl<Control>::PassUnpainted(WPARAM wParam, LPARAM lParam) {
    return ::DefWindowProcA(this->GetHandle(), CurrentMessage().message, wParam, lParam);
}

template class CSkinControl<CButton>;
template class CSkinControl<CStatic>;
