#include "skin/SkinStatic.h"

#include "framework/Dc.h"

namespace {

constexpr UINT captionFormat = DT_VCENTER | DT_SINGLELINE;

} // namespace

void CSkinStatic::SetCaption(const std::string& text, int leftOffset, COLORREF color) {
    const bool changes = caption != text || captionLeft != leftOffset;
    captionLeft = leftOffset;
    if (changes) DropFaces();
    StoreCaption(text, color);
    if (changes && bitmap.IsEmpty()) UncoverFormerCaption();
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
        bitmap.DrawNineSlice(dc.GetHandle(), client, cornerWidth, cornerHeight);
    } else if (bitmap.IsEmpty()) {
        DrawCaption(dc, CaptionPlace(client), captionFormat);
    } else {
        PrepareFace(client);
        face.Draw(dc.GetHandle(), client);
    }
}

void CSkinStatic::PrepareFace(const CRect& client) {
    const CSize corner(cornerWidth, cornerHeight);
    const bool fits = face.GetBounds() == client;
    if (faceReady && fits && faceCorner == corner) return;
    faceCorner = corner;
    faceReady = true;
    if (!fits) bitmap.BuildNineSlice(face, client, cornerWidth, cornerHeight);
    if (face.IsEmpty()) return;
    CMemoryDC memory(nullptr);
    const CSelectObject selected(memory, face.GetHandle());
    const CSavedDC saved(memory);
    if (fits) bitmap.DrawNineSlice(memory.GetHandle(), client, cornerWidth, cornerHeight);
    DrawCaption(memory, CaptionPlace(client), captionFormat);
}

bool CSkinStatic::OnCommand(WPARAM wParam, LPARAM lParam) {
    const HWND window = GetHandle();
    ::SendMessageA(::GetParent(window), WM_COMMAND, wParam, lParam);
    if (FromHandlePermanent(window) != this) return true; // the command has ended this static
    return CSkinControl::OnCommand(wParam, lParam);
}
