#include "skin/SkinButton.h"

#include <utility>

#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "skin/Theme.h"

namespace {

constexpr COLORREF maskColor = RGB(255, 0, 255);
constexpr COLORREF maskTolerance = 0x101010;
constexpr UINT captionFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE;

// The shape of a window, if it has one; its whole rectangle otherwise.
bool GetShape(HWND window, CRgn& shape) {
    shape.Attach(::CreateRectRgn(0, 0, 0, 0));
    return ::GetWindowRgn(window, shape.GetHandle()) != ERROR;
}

bool PointerIsOn(HWND window) {
    POINT place{};
    return ::GetCursorPos(&place) != FALSE && ::WindowFromPoint(place) == window;
}

} // namespace

const CMessageMap& CSkinButton::ClassMap() {
    static constexpr std::array entries{On<WM_PAINT, &CSkinButton::OnPaint>(),
                                        OnMessage<WM_WINDOWPOSCHANGED, &CSkinButton::OnWindowPosChanged>(),
                                        On<WM_ENABLE, &CSkinButton::OnEnable>(),
                                        On<WM_MOUSEMOVE, &CSkinButton::OnMouseMove>(),
                                        On<WM_LBUTTONDOWN, &CSkinButton::OnLButtonDown>(),
                                        On<WM_LBUTTONUP, &CSkinButton::OnLButtonUp>(),
                                        On<WM_LBUTTONDBLCLK, &CSkinButton::OnLButtonDblClk>(),
                                        On<WM_MOUSELEAVE, &CSkinButton::OnMouseLeave>(),
                                        On<WM_CAPTURECHANGED, &CSkinButton::OnCaptureChanged>(),
                                        On<WM_SETFOCUS, &CSkinButton::OnSetFocus>(),
                                        On<WM_KILLFOCUS, &CSkinButton::OnKillFocus>(),
                                        OnMessage<WM_KEYDOWN, &CSkinButton::OnKeyDown>(),
                                        OnMessage<WM_KEYUP, &CSkinButton::OnKeyUp>(),
                                        OnMessage<BM_SETSTATE, &CSkinButton::OnSetState>(),
                                        OnMessage<BM_SETSTYLE, &CSkinButton::OnSetStyle>()};
    static const CMessageMap map{&CSkinControl::ClassMap(), entries};
    return map;
}

void CSkinButton::PreSubclassWindow() {
    hover = pressed = 0;
    spaceHeld = cancelled = false;
    CInputControl::PreSubclassWindow();
}

bool CSkinButton::SetBitmapResource(std::uint16_t id, int) {
    const char* name = MAKEINTRESOURCEA(id);
    DropFaces();
    bitmap.Attach(::LoadBitmapA(FindResourceModule(name, RT_BITMAP), name));
    return !bitmap.IsEmpty();
}

void CSkinButton::SetCaption(const std::string& text, int, COLORREF color) {
    StoreCaption(text, color);
}

void CSkinButton::OnPaint() {
    ReadEnabled();
    if (IsStrip()) {
        const Face& face = TakeFace(); // invalidates the window, so before the paint context is made
        PaintBy([this, &face](CDC& dc) { DrawFace(dc, face); });
        return;
    }
    if (IsPicture()) RepaintGround(); // the same
    PaintBy([this](CDC& dc) {
        if (IsPicture()) DrawPicture(dc);
    });
}

// Comes with every new region, whoever sets it.
LRESULT CSkinButton::OnWindowPosChanged(WPARAM, LPARAM) {
    shapedBy = nullptr;
    return Default();
}

void CSkinButton::PaintOn(CDC& dc) {
    ReadEnabled();
    if (IsStrip()) {
        DrawFace(dc, PresentFace());
    } else if (IsPicture()) {
        DrawPicture(dc);
    }
}

void CSkinButton::ReadEnabled() {
    enabled = (GetStyle() & WS_DISABLED) == 0 ? 1 : 0;
}

const CSkinButton::Face& CSkinButton::PresentFace() {
    const CRect window = GetWindowRect();
    if (const CSize size(window.Width(), window.Height()); size != faceSize) {
        DropFaces();
        faceSize = size;
    }
    const int column = enabled == 0 ? 4 : hover == 0 ? 1 : pressed == 0 ? 2 : 3;
    Face& face = faces[static_cast<std::size_t>(column) - 1];
    if (!face.picture.IsEmpty()) return face;
    if (shapedBy == &face) shapedBy = nullptr; // its shape is made anew too
    face.picture = bitmap.GetCell(column, 1, static_cast<int>(faces.size()), 1, faceSize);
    face.shape.Attach(face.picture.CreateOutline(maskColor, maskTolerance));
    return face;
}

const CSkinButton::Face& CSkinButton::TakeFace() {
    const Face& face = PresentFace();
    if (shapedBy != &face) TakeShape(face.shape);
    shapedBy = &face;
    return face;
}

// A region that is set repaints the window, so one that is in force already isn't set again.
void CSkinButton::TakeShape(const CRgn& shape) const {
    CRgn present;
    const bool shaped = GetShape(GetHandle(), present);
    if (shape.IsEmpty()) {
        if (shaped) ::SetWindowRgn(GetHandle(), nullptr, TRUE);
        return;
    }
    if (shaped && ::EqualRgn(shape.GetHandle(), present.GetHandle()) != FALSE) return;
    ::CombineRgn(present.GetHandle(), shape.GetHandle(), nullptr, RGN_COPY);
    if (::SetWindowRgn(GetHandle(), present.GetHandle(), TRUE) != 0) present.Detach(); // the window's from now on
}

void CSkinButton::RepaintGround() const {
    const HWND parent = ::GetParent(GetHandle());
    CRect rect = GetClientRect();
    ::MapWindowPoints(GetHandle(), parent, reinterpret_cast<POINT*>(&rect), 2);
    ::RedrawWindow(parent, &rect, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN | RDW_UPDATENOW);
    Invalidate(); // the parent has painted over all of the button
}

void CSkinButton::DrawFace(CDC& dc, const Face& face) {
    if (face.picture.IsEmpty()) return;
    if (!face.shape.IsEmpty()) ::ExtSelectClipRgn(dc.GetHandle(), face.shape.GetHandle(), RGN_AND);
    face.picture.Draw(dc.GetHandle(), face.picture.GetBounds());
    DrawCaption(dc, face.picture.GetBounds(), captionFormat);
}

void CSkinButton::DrawPicture(CDC& dc) {
    const CRect client = GetClientRect();
    CRect place(0, 0, bitmap.GetWidth(), bitmap.GetHeight());
    const LONG margin = (client.Height() - place.Height()) / 2; // on the left as well as on top
    place.Offset(margin, margin);
    if (enabled != 0 && hover != 0) {
        CRect edge = client;
        edge.Inflate(-1, -1);
        const COLORREF dark = ::GetSysColor(COLOR_3DDKSHADOW);
        const COLORREF light = ::GetSysColor(COLOR_3DHIGHLIGHT);
        dc.Draw3dRect(edge, pressed != 0 ? dark : light, pressed != 0 ? light : dark);
    }
    const LONG right = place.right;
    bitmap.CutTo(client, place).DrawTransparent(dc.GetHandle(), place, maskColor);
    DrawCaption(dc, {right, client.top, client.right, client.bottom}, captionFormat);
}

// A frame without a pixel leaves an empty shape, and a window of that shape is never asked to paint: whatever changes
// the frame gives the next shape.
void CSkinButton::FollowState() {
    ReadEnabled();
    const bool isShaped = faceSize != CSize();
    if (IsStrip() && isShaped) TakeFace();
    Invalidate();
}

void CSkinButton::RepaintNow() {
    FollowState();
    UpdateWindow();
}

bool CSkinButton::IsInside(CPoint point) const {
    CRgn shape;
    if (IsStrip() && GetShape(GetHandle(), shape)) return ::PtInRegion(shape.GetHandle(), point.x, point.y) != FALSE;
    return GetClientRect().Contains(point);
}

void CSkinButton::OnMouseMove(UINT keys, CPoint point) {
    if (!IsStrip() && !IsPicture()) return;
    // A button that went down before any move came here isn't captured, so it may have come up elsewhere, unseen.
    if (pressed != 0 && !HasCapture() && (keys & MK_LBUTTON) == 0) pressed = hover = 0;
    if ((keys & MK_LBUTTON) == 0) cancelled = false;
    if (IsInside(point)) {
        if (IsStrip()) ShowHandCursor();
        if (hover == 0) {
            hover = 1;
            AwaitMouseLeave();
            RepaintNow();
        }
        if (!HasCapture()) ::SetCapture(GetHandle());
    } else if (hover != 0) {
        hover = 0;
        RepaintNow();
        if (pressed == 0 && HasCapture()) ::ReleaseCapture();
    }
}

void CSkinButton::OnLButtonDown(UINT, CPoint) {
    if (!IsStrip() && !IsPicture()) return;
    if (hover == 0) AwaitMouseLeave();
    pressed = hover = 1;
    cancelled = false;
    RepaintNow();
    SetFocus();
}

void CSkinButton::OnLButtonUp(UINT, CPoint) {
    if (!IsStrip() && !IsPicture()) return;
    const bool ended = std::exchange(cancelled, false);
    const bool clicked = hover != 0 && !ended; // wherever the mouse button went down
    pressed = hover = 0;
    if (HasCapture()) ::ReleaseCapture();
    RepaintNow();
    if (clicked) SendClick(); // the last: the command may end this object
}

void CSkinButton::OnMouseLeave() {
    if (PointerIsOn(GetHandle())) { // it was back before the message was
        if (hover != 0) AwaitMouseLeave();
        return;
    }
    if (pressed != 0 && !HasCapture()) pressed = 0; // nobody will tell where it comes up
    if (std::exchange(hover, 0) != 0) RepaintNow();
    if (pressed == 0 && HasCapture()) ::ReleaseCapture();
}

void CSkinButton::OnCaptureChanged(CWnd* holder) {
    if (holder != this && (hover != 0 || pressed != 0)) EndInput();
}

void CSkinButton::EndInput() {
    spaceHeld = false;
    cancelled = cancelled || pressed != 0;
    pressed = 0;
    if (std::exchange(hover, 0) != 0) RepaintNow();
}

void CSkinButton::SendClick() const {
    const auto id = static_cast<WORD>(GetDlgCtrlID());
    ::SendMessageA(::GetParent(GetHandle()), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                   reinterpret_cast<LPARAM>(GetHandle()));
}

// The class's own handling of the space bar would show its pressed look and take the capture.
LRESULT CSkinButton::OnKeyDown(WPARAM key, LPARAM) {
    if (key != VK_SPACE) return Default();
    spaceHeld = true;
    return 0;
}

LRESULT CSkinButton::OnKeyUp(WPARAM key, LPARAM) {
    if (key != VK_SPACE) return Default();
    if (std::exchange(spaceHeld, false)) SendClick();
    return 0;
}
