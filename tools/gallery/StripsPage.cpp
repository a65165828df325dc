// The selector, the tool strip and the separator. No picture of the theme is made for them: they borrow from others.
#include <initializer_list>

#include "framework/ResourceModule.h"
#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"
#include "gallery/GalleryPages.h"
#include "skin/SkinSelector.h"
#include "skin/SkinSeparator.h"
#include "skin/SkinToolStrip.h"

namespace {

void AddSelector(CGalleryBoard& board) {
    constexpr int left = 504, top = 452;
    board.AddTitle("Selector", left, top);
    // As large as its picture, whose four slots of 25 pixels take clicks.
    auto& selector = board.Add<CSkinSelector>(IDC_SELECTOR, "", CRect::Sized(left, top + 18, 120, 100), SS_NOTIFY);
    selector.SetBitmapFile(board.ThemeFile("BottomPanel.bmp"));
    for (int slot = 0; slot < 4; ++slot) selector.AddImage(board.ThemeFile("TextBK2.bmp"));
}

void AddToolStrip(CGalleryBoard& board) {
    constexpr int left = 648, top = 452;
    board.AddTitle("Tool strip", left, top);
    auto& strip = board.Add<CSkinToolStrip>(IDC_TOOL_STRIP, "", CRect::Sized(left, top + 18, 320, 26));
    strip.SetBitmapFile(board.ThemeFile("LeftTitleBar.bmp"));
    strip.LoadStrip(IDT_SAMPLES);
    strip.SetButtonIds({ID_SAMPLE_NEW, ID_SAMPLE_OPEN, ID_SAMPLE_SAVE, ID_SAMPLE_FIND});
    strip.CreateButtons(32, 22, 16);
    for (const int id : {ID_SAMPLE_NEW, ID_SAMPLE_OPEN, ID_SAMPLE_SAVE, ID_SAMPLE_FIND}) {
        auto* button = dynamic_cast<CSkinButton*>(CWnd::FromHandlePermanent(strip.GetDlgItem(id)));
        if (button != nullptr) button->SetCaption(LoadText(static_cast<UINT>(id)), 0, RGB(0, 0, 0));
    }
}

void AddSeparator(CGalleryBoard& board) {
    constexpr int left = 648, top = 510;
    board.AddTitle("Separator", left, top);
    auto& separator = board.Add<CSkinSeparator>(IDC_SEPARATOR, "", CRect::Sized(left, top + 18, 320, 24));
    separator.SetBitmapFile(board.ThemeFile("TextBK.bmp"));
    separator.lineColor = RGB(224, 128, 32);
}

} // namespace

void AddStrips(CGalleryBoard& board) {
    AddSelector(board);
    AddToolStrip(board);
    AddSeparator(board);
}
