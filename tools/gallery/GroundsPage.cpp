// The bar, and the statics that are grounds, labels and grooves.
#include <array>
#include <cstddef>

#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"
#include "gallery/GalleryPages.h"
#include "skin/SkinBar.h"
#include "skin/SkinStatic.h"

namespace {

void AddBar(CGalleryBoard& board) {
    constexpr int top = 40;
    board.AddTitle("Skin bar, LeftTitleBar.bmp with the buttons of StatusToolBar.bmp", leftColumn, top);
    auto& bar = board.Add<CSkinBar>(IDC_BAR, "", {leftColumn, top + 18, leftColumn, top + 18});
    bar.SetButtonIds({IDC_BAR_HELP, IDC_BAR_LANGUAGE, IDC_BAR_PORT});
    bar.SetBitmapFile(board.ThemeFile("LeftTitleBar.bmp"));
    bar.cornerWidth = bar.cornerHeight = 30;
    bar.LoadButtons(board.ThemeFile("StatusToolBar.bmp"));
    bar.SetWindowPos(nullptr, leftColumn, top + 18, 465, 26, SWP_NOZORDER); // puts the buttons into their final places
    constexpr std::array states{"normal", "mouse over", "pressed", "disabled"};
    UINT id = IDC_BAR_FRAMES;
    for (int column = 0; column < 4; ++column) {
        const int x = leftColumn + 117 * column;
        board.AddLabel(states[static_cast<std::size_t>(column)], x, top + 50, 110);
        for (int row = 0; row < 3; ++row)
            board.AddFrame(column == 0 && row == 0 ? id : 0, "StatusToolBar.bmp", {x + 24 * row, top + 66}, column + 1,
                           row + 1, 4, 3);
    }
}

struct Ground {
    UINT id;
    const char* picture;
    RECT place;
    int cornerWidth;
    int cornerHeight;
    const char* caption;
    int captionLeft;
    COLORREF captionColor;
};

void AddStatics(CGalleryBoard& board) {
    board.AddTitle("Skin static: labels, grounds and grooves", leftColumn, 264);
    constexpr COLORREF blue = RGB(0, 0, 255), white = RGB(255, 255, 255), black = RGB(0, 0, 0);
    constexpr std::array grounds{
        Ground{IDC_STATIC_LABEL, "LeftTitleBar.bmp", {16, 282, 356, 306}, 0, 0, "Caption", 10, blue},
        Ground{IDC_STATIC_TOTALS, "TextBK.bmp", {16, 312, 216, 332}, 0, 0, "TX:128  RX:1024", 5, white},
        Ground{IDC_STATIC_TEXT, "TextBK2.bmp", {290, 310, 400, 334}, 0, 0, "Version", 5, black},
        Ground{IDC_STATIC_DIALOG, "DialogPanel.bmp", {16, 342, 161, 436}, 20, 10, "", 0, black},
        Ground{IDC_STATIC_PANEL, "BottomPanel.bmp", {177, 342, 397, 436}, 50, 40, "", 0, black},
        Ground{IDC_STATIC_UPRIGHT, "RightBorder.bmp", {476, 282, 481, 474}, 0, 0, "", 0, black},
        Ground{IDC_STATIC_GROOVE, "TopBorder.bmp", {16, 480, 480, 485}, 0, 0, "", 0, black},
        Ground{IDC_STATIC_EDGE, "BottomBorder.bmp", {16, 494, 480, 497}, 50, 0, "", 0, black}};
    for (const Ground& ground : grounds) {
        auto& made = board.Add<CSkinStatic>(ground.id, "", ground.place);
        made.SetBitmapFile(board.ThemeFile(ground.picture));
        made.cornerWidth = ground.cornerWidth;
        made.cornerHeight = ground.cornerHeight;
        made.SetCaption(ground.caption, ground.captionLeft, ground.captionColor);
    }
    board.AddLabel("LeftTitleBar.bmp", 364, 287, 100);
    board.AddLabel("TextBK.bmp", 222, 315, 64);
    board.AddLabel("TextBK2.bmp", 404, 315, 68);
    board.AddLabel("DialogPanel.bmp", 16, 439, 140);
    board.AddLabel("BottomPanel.bmp", 177, 439, 140);
    board.AddLabel("RightBorder.bmp", 390, 464, 82);
    board.AddLabel("TopBorder.bmp, and below it BottomBorder.bmp", 16, 464, 300);
}

} // namespace

void AddGrounds(CGalleryBoard& board) {
    AddBar(board);
    AddStatics(board);
}
