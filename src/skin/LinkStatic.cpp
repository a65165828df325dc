#include "skin/LinkStatic.h"

#include <array>
#include <utility>

#include "framework/Dc.h"
#include "resources/Product.h"
#include "skin/LinkTarget.h"

namespace {

constexpr UINT_PTR linkTool = 1;

// The hand of the system's help program: a private copy, since the program is let go of at once. Null without it.
HCURSOR LoadHelpHand() {
    std::array<char, MAX_PATH> folder{};
    const UINT length = ::GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
    if (length == 0 || length >= folder.size()) return nullptr;
    const std::string program = std::string(folder.data()) + "\\winhlp32.exe";
    const HMODULE module = ::LoadLibraryExA(program.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (module == nullptr) return nullptr;
    constexpr WORD handOfHelpProgram = 106;
    const HCURSOR hand = ::LoadCursorA(module, MAKEINTRESOURCEA(handOfHelpProgram));
    const HCURSOR copy = hand != nullptr ? ::CopyIcon(hand) : nullptr;
    ::FreeLibrary(module);
    return copy;
}

} // namespace

CLinkStatic::CLinkStatic(CLinkOpener& linkOpener) : opener(linkOpener), hoverColor(::GetSysColor(COLOR_HIGHLIGHT)) {}

const CMessageMap& CLinkStatic::ClassMap() {
    static constexpr std::array entries{
        OnReflect<STN_CLICKED, &CLinkStatic::OnClicked>(), OnReflectColor<&CLinkStatic::CtlColor>(),
        On<WM_SETCURSOR, &CLinkStatic::OnSetCursor>(),     On<WM_MOUSEMOVE, &CLinkStatic::OnMouseMove>(),
        On<WM_MOUSELEAVE, &CLinkStatic::OnMouseLeave>(),   On<WM_CAPTURECHANGED, &CLinkStatic::OnCaptureChanged>(),
        On<WM_ENABLE, &CLinkStatic::OnEnable>(),           OnMessage<WM_SETTEXT, &CLinkStatic::OnSetText>(),
        OnMessage<WM_SETFONT, &CLinkStatic::OnSetFont>()};
    static const CMessageMap map{&CStatic::ClassMap(), entries};
    return map;
}

void CLinkStatic::PreSubclassWindow() {
    hovering = false;
    ModifyStyle(0, SS_NOTIFY);
    if (target.empty()) target = GetWindowText();
    if (GetWindowText().empty()) SetWindowText(target);
    AdoptFont();
    FitToText();
    LoadDefaultCursor();
    toolTip.DestroyWindow(); // of a former window
    CInputControl::PreSubclassWindow();
}

// A tip is a window of its own, which takes longer than all the rest of a link: not before the mouse comes.
void CLinkStatic::EnsureToolTip() {
    if (toolTip.GetHandle() != nullptr || !toolTip.Create(*this)) return;
    toolTip.AddTool(*this, linkTool, GetClientRect(), target);
    toolTip.Activate(true);
}

void CLinkStatic::AdoptFont() {
    LOGFONTW description{};
    const auto present = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    const HGDIOBJ source = present != nullptr ? present : ::GetStockObject(SYSTEM_FONT);
    ::GetObjectW(source, sizeof description, &description);
    description.lfUnderline = underlined ? TRUE : FALSE;
    CFont adopted(description);
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(adopted.GetHandle()), TRUE);
    font = std::move(adopted); // the former one goes only now that the control doesn't use it any more
}

void CLinkStatic::FitToText() {
    if (GetHandle() == nullptr || !fitToText) return;
    CRect rect = PlaceInParent();
    CSize text;
    {
        const CClientDC dc(GetHandle());
        const CSelectObject selected(dc, font.GetHandle());
        text = dc.GetTextExtent(GetWindowText());
    }
    const DWORD style = GetStyle();
    if ((style & SS_CENTERIMAGE) != 0) {
        rect.Inflate(0, -((rect.Height() - text.cy) / 2));
    } else {
        rect.bottom = rect.top + text.cy;
    }
    const DWORD type = style & SS_TYPEMASK;
    if (type == SS_CENTER) {
        rect.Inflate(-((rect.Width() - text.cx) / 2), 0);
    } else if (type == SS_RIGHT) {
        rect.left = rect.right - text.cx;
    } else {
        rect.right = rect.left + text.cx;
    }
    SetWindowPos(nullptr, rect.left, rect.top, rect.Width(), rect.Height(), SWP_NOZORDER);
    Repaint();
}

CRect CLinkStatic::PlaceInParent() const {
    CRect rect = GetWindowRect();
    if (const HWND parent = ::GetParent(GetHandle())) {
        ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    }
    return rect;
}

// The control has no ground of its own, so what lies beneath it is painted anew with it: its parent and all the windows
// there. The platform paints a transparent window after those beneath it, but only in its own time, so none is hurried.
void CLinkStatic::Repaint() const {
    const HWND parent = ::GetParent(GetHandle());
    if (parent == nullptr) {
        Invalidate();
        return;
    }
    const CRect rect = PlaceInParent();
    ::RedrawWindow(parent, &rect, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// The control's class would paint a new text, font or state at once, over the former one.
void CLinkStatic::OnEnable(bool) {
    Repaint();
}

LRESULT CLinkStatic::OnSetText(WPARAM wParam, LPARAM text) {
    const LRESULT result = ::DefWindowProcA(GetHandle(), WM_SETTEXT, wParam, text);
    Repaint();
    return result;
}

LRESULT CLinkStatic::OnSetFont(WPARAM wParam, LPARAM redraw) {
    const LRESULT result = DefWindowProc(WM_SETFONT, wParam, FALSE);
    if (redraw != FALSE) Repaint();
    return result;
}

void CLinkStatic::LoadDefaultCursor() {
    static const HCURSOR hand = LoadHelpHand(); // one for all links, kept as long as the program
    if (cursor == nullptr) cursor = hand;
}

void CLinkStatic::SetTarget(const std::string& newTarget) {
    target = newTarget;
    if (GetHandle() == nullptr) return;
    FitToText();
    if (toolTip.GetHandle() != nullptr) toolTip.UpdateTipText(*this, linkTool, target);
}

void CLinkStatic::SetColors(COLORREF link, COLORREF visitedLink, COLORREF hover) {
    linkColor = link;
    visitedColor = visitedLink;
    hoverColor = hover == highlightColor ? ::GetSysColor(COLOR_HIGHLIGHT) : hover;
    Repaint();
}

void CLinkStatic::SetVisited(bool on) {
    visited = on;
    Repaint();
}

void CLinkStatic::SetLinkCursor(HCURSOR newCursor) {
    cursor = newCursor;
    LoadDefaultCursor();
}

void CLinkStatic::SetUnderlined(bool on) {
    underlined = on;
    if (GetHandle() == nullptr) return;
    AdoptFont();
}

void CLinkStatic::SetFitToText(bool on) {
    fitToText = on;
    FitToText();
}

bool CLinkStatic::PreTranslateMessage(MSG& message) {
    if (message.message == WM_MOUSEMOVE) EnsureToolTip();
    toolTip.RelayEvent(message);
    return CStatic::PreTranslateMessage(message);
}

HBRUSH CLinkStatic::CtlColor(CDC& dc, UINT) {
    dc.SetTextColor(hovering ? hoverColor : visited ? visitedColor : linkColor);
    dc.SetBkMode(TRANSPARENT);
    return static_cast<HBRUSH>(::GetStockObject(HOLLOW_BRUSH));
}

bool CLinkStatic::OnSetCursor(CWnd*, UINT, UINT) {
    if (cursor == nullptr) return Default() != 0;
    ::SetCursor(cursor);
    return true;
}

void CLinkStatic::SetHovering(bool on) {
    if (hovering == on) return;
    hovering = on;
    Repaint();
}

void CLinkStatic::OnMouseMove(UINT, CPoint point) {
    Default();
    if (!hovering) {
        SetHovering(true);
        AwaitMouseLeave();
        ::SetCapture(GetHandle());
    } else if (!GetClientRect().Contains(point)) {
        OnMouseLeave();
    }
}

void CLinkStatic::OnMouseLeave() {
    SetHovering(false);
    if (HasCapture()) ::ReleaseCapture();
}

void CLinkStatic::OnCaptureChanged(CWnd*) {
    Default();
    SetHovering(false);
}

void CLinkStatic::OnClicked() {
    constexpr int lastFailure = 32;
    const HWND window = GetHandle();
    const std::string opened = target;
    const int result = opener.Open(opened, SW_SHOW);
    if (FromHandlePermanent(window) != this) return;   // the shell serves messages, and one has ended this link
    if (result > lastFailure) return SetVisited(true); // a later failure doesn't take it back
    ::MessageBeep(MB_ICONEXCLAMATION);
    ReportError(result);
}

void CLinkStatic::ReportError(int code) const {
    MessageBox(OpenFailureText(code), PRODUCT_NAME, MB_ICONEXCLAMATION | MB_OK);
}
