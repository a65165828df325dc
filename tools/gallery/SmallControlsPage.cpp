// Controls with faces of their own: links, round buttons and the coloured combo box.
#include <initializer_list>

#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"
#include "gallery/GalleryPages.h"
#include "skin/ColorCombo.h"
#include "skin/LinkStatic.h"
#include "skin/RoundButton.h"

namespace {

void GiveSmallFont(const CGalleryBoard& board, const CWnd& control) {
    control.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(board.SmallFont()), TRUE);
}

void AddLinks(CGalleryBoard& board) {
    constexpr int top = 314;
    board.AddTitle("Link", rightColumn, top);
    int x = rightColumn;
    const auto add = [&](UINT id, const char* text) -> CLinkStatic& {
        auto& link = board.Add<CLinkStatic>(id, text, CRect::Sized(x, top + 18, 108, 16), SS_NOTIFY);
        GiveSmallFont(board, link);
        link.SetUnderlined(true); // takes up the font
        link.SetTarget("http://www.brenholt.example");
        x += 117;
        return link;
    };
    add(IDC_LINK, "link");
    add(IDC_LINK_VISITED, "visited").SetVisited(true);
    add(IDC_LINK_PLAIN, "without a line").SetUnderlined(false);
    add(IDC_LINK_DISABLED, "disabled").EnableWindow(false);
}

void AddRoundButtons(CGalleryBoard& board) {
    constexpr int top = 362;
    constexpr int side = 58;
    board.AddTitle("Round button", rightColumn, top);
    int x = rightColumn;
    const auto add = [&](UINT id, const char* text, DWORD style) -> CRoundButton& {
        auto& button = board.Add<CRoundButton>(id, text, CRect::Sized(x, top + 18, side, side), style | WS_TABSTOP);
        GiveSmallFont(board, button);
        x += side + 8;
        return button;
    };
    add(IDC_ROUND, "round", 0);
    add(IDC_ROUND_QUIET, "no ring", 0).focusBorder = false;
    add(IDC_ROUND_FLAT, "flat", BS_FLAT);
    add(IDC_ROUND_DISABLED, "disabled", 0).EnableWindow(false);
}

void AddCombos(CGalleryBoard& board) {
    constexpr int comboLeft = 796, top = 362;
    constexpr int listHeight = 120;
    board.AddTitle("Coloured combo box", comboLeft, top);
    int y = top + 18;
    const auto add = [&](UINT id, DWORD style) -> CColorCombo& {
        auto& combo = board.Add<CColorCombo>(id, "", CRect::Sized(comboLeft, y, 172, listHeight),
                                             style | WS_VSCROLL | WS_TABSTOP);
        GiveSmallFont(board, combo);
        for (const char* row : {"4800", "9600", "19200"})
            combo.SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
        combo.SendMessage(CB_SETCURSEL, 0);
        y += 26;
        return combo;
    };
    add(IDC_COMBO_LIST, CBS_DROPDOWNLIST);
    add(IDC_COMBO_EDIT, CBS_DROPDOWN);
    add(IDC_COMBO_DISABLED, CBS_DROPDOWNLIST).EnableWindow(false);
}

} // namespace

void AddSmallControls(CGalleryBoard& board) {
    AddLinks(board);
    AddRoundButtons(board);
    AddCombos(board);
}
