// The icon buttons: push buttons and check boxes with icons and bitmaps, one with a drop-down menu, and the plain ones.
// Colours are the system's, but for the lit texts of the address buttons in the panel.
#include <cstdint>

#include "framework/ResourceModule.h"
#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"
#include "gallery/GalleryPages.h"
#include "resources/ResourceIds.h"
#include "skin/IconButton.h"
#include "skin/PlainIconButton.h"

namespace {

constexpr int step = 117;
constexpr std::uint16_t imageWidth = 16, imageHeight = 15;

CRect Cell(int column, int top, int height) {
    return {rightColumn + step * column, top, rightColumn + step * column + 108, top + height};
}

template <class Button = CIconButton>
Button& AddButton(CGalleryBoard& board, UINT id, const char* text, const CRect& place, DWORD style = BS_PUSHBUTTON) {
    auto& button = board.Add<Button>(id, text, place, style | WS_TABSTOP);
    button.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(board.SmallFont()));
    button.SetIcons(IDI_LAMP_LIT, IDI_LAMP_DARK);
    return button;
}

void AddPushButtons(CGalleryBoard& board, int top) {
    AddButton(board, IDC_ICON_PUSH, "push", Cell(0, top, 24)).SetToolTip("Lit under the mouse, else dark", true);
    AddButton(board, IDC_ICON_DEFAULT, "default", Cell(1, top, 24), BS_DEFPUSHBUTTON).SetFlat(false, true);
    AddButton(board, IDC_ICON_DISABLED, "disabled", Cell(2, top, 24)).EnableWindow(false);
    AddButton(board, IDC_ICON_RAISED, "raised", Cell(3, top, 24)).SetFlat(false, true);
}

void AddCheckBoxes(CGalleryBoard& board, int top) {
    AddButton(board, IDC_ICON_CHECK, "check box", Cell(0, top, 24), BS_AUTOCHECKBOX);
    AddButton(board, IDC_ICON_CHECKED, "checked", Cell(1, top, 24), BS_AUTOCHECKBOX).SetCheck(1, true);
    auto& disabled = AddButton(board, IDC_ICON_CHECK_DISABLED, "disabled", Cell(2, top, 24), BS_AUTOCHECKBOX);
    disabled.SetCheck(1, true);
    disabled.EnableWindow(false);
    AddButton(board, IDC_ICON_GRAY, "grey at rest", Cell(3, top, 24)).SetIcons(IDI_LAMP_LIT, CIconButton::grayOfFirst);
}

HBITMAP FirstSample() {
    const char* name = MAKEINTRESOURCEA(IDT_SAMPLES);
    CSkinBitmap strip;
    strip.Attach(static_cast<HBITMAP>(
        ::LoadImageA(FindResourceModule(name, RT_BITMAP), name, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    CSkinBitmap first;
    strip.GetFrame(first, 1, 1, 4, 1);
    return first.Detach();
}

void AddFurtherButtons(CGalleryBoard& board, int top) {
    AddButton(board, IDC_ICON_BITMAP, "bitmap", Cell(0, top, 40)).SetBitmapHandles(FirstSample(), outside, nullptr, 0);
    AddButton(board, IDC_ICON_TOP, "on top", Cell(1, top, 40))
        .SetImageAlign(static_cast<unsigned>(ImageAlign::Above), true);
    AddButton(board, IDC_ICON_TRANSPARENT, "transparent", Cell(2, top, 40)).SetTransparent(true);
    AddButton(board, IDC_ICON_DROP_DOWN, "menu", Cell(3, top, 40))
        .SetDropMenu(IDM_DROP_DOWN, board.Window().GetHandle(), 1, IDT_SAMPLES, imageWidth, imageHeight, outside, true);
}

void AddPlainButtons(CGalleryBoard& board, int top) {
    board.AddTitle("Plain icon button", rightColumn, top);
    AddButton<CPlainIconButton>(board, IDC_PLAIN_SQUARE, "square", Cell(0, top + 18, 24));
    AddButton<CPlainIconButton>(board, IDC_PLAIN_ROUNDED, "rounded", Cell(1, top + 18, 24)).SetRounded(true, true);
    AddButton<CPlainIconButton>(board, IDC_PLAIN_DISABLED, "disabled", Cell(2, top + 18, 24)).EnableWindow(false);
}

} // namespace

void AddIconButtons(CGalleryBoard& board) {
    constexpr int top = 132;
    board.AddTitle("Icon button", rightColumn, top);
    AddPushButtons(board, top + 18);
    AddCheckBoxes(board, top + 46);
    AddFurtherButtons(board, top + 74);
    AddPlainButtons(board, top + 128);
}
