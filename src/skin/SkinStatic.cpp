#include "skin/SkinStatic.h"

#include "framework/Dc.h"

namespace {

constexpr UINT lineFormat = DT_VCENTER | DT_SINGLELINE;

} // namespace

void CSkinStatic::SetCaption(const std::string& text, int leftOffset, COLORREF color) {
    const bool changes = caption != text || captionLeft != leftOffset;
    captionLeft = leftOffset;
    StoreCaption(text, color);
    if (changes && bitmap.IsEmpty()) UncoverFormerCaption();
}

void CSkinStatic::PaintNow() {
    if (bitmap.IsEmpty()) return Invalidate();
    CClientDC dc(GetHandle());
    PaintOn(dc);
}

// Without a picture nothing covers the former caption, so the ground beneath is painted anew.
void CSkinStatic::UncoverFormerCaption() const {
    HWND ground = GetHandle();
    const CSkinStatic* blank = this;
    while (blank != nullptr && blank->bitmap.IsEmpty()) {
        ground = ::GetParent(ground);
        blank = dynamic_cast<const CSkinStatic*>(FromHandlePermanent(ground));
    }
    if (ground == nullptr) return;
    CRect rect = GetClientRect();
    ::MapWindowPoints(GetHandle(), ground, reinterpret_cast<POINT*>(&rect), 2);
    ::InvalidateRect(ground, &rect, TRUE);
}

void CSkinStatic::PaintOn(CDC& dc) {
    const CRect client = GetClientRect();
    if (caption.empty()) {
        // Mostly a ground, which would take much room and is seldom painted whole.
        bitmap.DrawNineSlice(dc.GetHandle(), client, cornerWidth, cornerHeight);
    } else if (!bitmap.IsEmpty()) {
        PrepareFace(client);
        face.Draw(dc.GetHandle(), client);
    }
    DrawCaption(dc, {captionLeft, client.top, client.right, client.bottom}, lineFormat);
}

void CSkinStatic::PrepareFace(const CRect& client) {
    const CSize corner(cornerWidth, cornerHeight);
    if (face.GetBounds() == client && faceCorner == corner) return;
    faceCorner = corner;
    bitmap.BuildNineSlice(face, client, cornerWidth, cornerHeight);
}

bool CSkinStatic::OnCommand(WPARAM wParam, LPARAM lParam) {
    const HWND window = GetHandle();
    ::SendMessageA(::GetParent(window), WM_COMMAND, wParam, lParam);
    if (FromHandlePermanent(window) != this) return true; // the command has ended this static
    return CSkinControl::OnCommand(wParam, lParam);
}
