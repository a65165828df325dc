// The skin buttons: the strip of four states, and the picture beside a caption.
#include <array>

#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"
#include "gallery/GalleryPages.h"
#include "skin/SkinButton.h"

namespace {

constexpr COLORREF inForce = RGB(0, 0, 255);
constexpr COLORREF notInForce = RGB(80, 80, 80);

void AddStripButtons(CGalleryBoard& board) {
    constexpr int top = 138;
    constexpr int column = 78;
    constexpr std::array names{"live", "live, disabled", "normal", "mouse over", "pressed", "disabled"};
    board.AddTitle("Skin button, XButton.bmp as a strip", leftColumn, top);
    int x = leftColumn;
    for (const char* name : names) {
        board.AddLabel(name, x, top + 18, column);
        x += column;
    }
    constexpr int buttonTop = top + 34;
    for (int i = 0; i < 2; ++i) {
        const int buttonLeft = leftColumn + i * column;
        auto& button = board.Add<CSkinButton>(static_cast<UINT>(IDC_STRIP_BUTTON + i), "",
                                              CRect::Sized(buttonLeft, buttonTop, 74, 22), WS_TABSTOP);
        button.SetBitmapFile(board.ThemeFile("XButton.bmp"));
        button.SetCaption(i == 0 ? "Start" : "YES", 0, i == 0 ? notInForce : inForce);
        button.EnableWindow(i == 0);
    }
    for (int frame = 0; frame < 4; ++frame)
        board.AddFrame(static_cast<UINT>(IDC_STRIP_FRAMES + frame), "XButton.bmp",
                       {leftColumn + (2 + frame) * column, buttonTop}, frame + 1, 1, 4, 1);
}

void AddPictureButtons(CGalleryBoard& board) {
    constexpr int top = 208;
    board.AddTitle("Skin button, a picture beside the caption", leftColumn, top);
    CSkinBitmap grid, picture;
    grid.LoadFromFile(board.ThemeFile("StatusToolBar.bmp"), 0);
    grid.GetFrame(picture, 1, 1, 4, 3);
    for (int i = 0; i < 2; ++i) {
        const int buttonLeft = leftColumn + i * 156;
        auto& button = board.Add<CSkinButton>(static_cast<UINT>(IDC_PICTURE_BUTTON + i), "",
                                              CRect::Sized(buttonLeft, top + 18, 140, 28), WS_TABSTOP);
        button.drawMode = CSkinButton::pictureMode;
        const CBitmap former(button.SetBitmapHandle(picture.GetHandle()));
        button.SetCaption(i == 0 ? "live" : "disabled", 0, i == 0 ? inForce : notInForce);
        button.EnableWindow(i == 0);
    }
}

} // namespace

void AddButtons(CGalleryBoard& board) {
    AddStripButtons(board);
    AddPictureButtons(board);
}
