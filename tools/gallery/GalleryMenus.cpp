#include "gallery/GalleryMenus.h"

#include <array>
#include <initializer_list>

#include "framework/Gdi.h"
#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"
#include "gallery/GalleryPages.h"
#include "menu/OwnerDrawMenu.h"
#include "menu/SkinMenu.h"

namespace {

struct Sample {
    UINT buttonId;
    const char* name;
    int look;         // as in COwnerDrawMenu: 1 modern, else classic
    int raisedImages; // likewise
    bool images;
};

constexpr std::array samples{Sample{IDC_MENU_MODERN_RAISED, "Modern, raised images", 1, 1, true},
                             Sample{IDC_MENU_MODERN_LEVEL, "Modern, level images", 1, 0, true},
                             Sample{IDC_MENU_MODERN_BARE, "Modern, no images", 1, 1, false},
                             Sample{IDC_MENU_CLASSIC, "Classic, images", 0, 1, true},
                             Sample{IDC_MENU_CLASSIC_BARE, "Classic, no images", 0, 1, false}};

constexpr UINT bareOffset = 100; // images belong to commands, so that items without any have others
constexpr UINT checkedId = 520, markedId = 521, disabledId = 522, swatchId = 523;

void Disable(const COwnerDrawMenu& menu, UINT id) {
    ::EnableMenuItem(menu.GetHandle(), id, MF_BYCOMMAND | MF_GRAYED);
}

// The four commands of the toolbar: plain, checked, disabled, plain.
void AddCommands(COwnerDrawMenu& menu, bool images) {
    const UINT offset = images ? 0 : bareOffset;
    menu.AppendMenuItem(MF_OWNERDRAW, ID_SAMPLE_NEW + offset, "&New\tCtrl+N", -1);
    menu.AppendMenuItem(MF_OWNERDRAW, ID_SAMPLE_OPEN + offset, "&Open, checked\tCtrl+O", -1);
    menu.AppendMenuItem(MF_OWNERDRAW, ID_SAMPLE_SAVE + offset, "&Save, disabled\tCtrl+S", -1);
    menu.AppendMenuItem(MF_OWNERDRAW, 0, "", -1);
    menu.AppendMenuItem(MF_OWNERDRAW, ID_SAMPLE_FIND + offset, "&Find\tF3", -1);
    if (images) {
        menu.SetMaskColor(outside);
        menu.LoadToolbarImages(IDT_SAMPLES);
    }
    ::CheckMenuItem(menu.GetHandle(), ID_SAMPLE_OPEN + offset, MF_BYCOMMAND | MF_CHECKED);
    Disable(menu, ID_SAMPLE_SAVE + offset);
}

void ShowOwnerDrawn(const Sample& sample, CPoint place, const CWnd& owner) {
    COwnerDrawMenu::lookOnThemedXp = COwnerDrawMenu::lookOnOtherSystems = sample.look;
    COwnerDrawMenu::raisedImages = sample.raisedImages;
    const CBitmap anyMark(::CreateBitmap(1, 1, 1, 1, nullptr)); // an item with a mark of its own shows the dot
    COwnerDrawMenu menu;
    menu.CreatePopupMenu();
    AddCommands(menu, sample.images);
    menu.AppendMenuItem(MF_OWNERDRAW, 0, "", -1);
    menu.AppendMenuItem(MF_OWNERDRAW | MF_CHECKED, checkedId, "&Checked", -1);
    menu.AppendMenuItem(MF_OWNERDRAW | MF_CHECKED, markedId, "&Marked", -1);
    ::SetMenuItemBitmaps(menu.GetHandle(), markedId, MF_BYCOMMAND, nullptr, anyMark.GetHandle());
    menu.AppendMenuItem(MF_OWNERDRAW | MF_GRAYED, disabledId, "&Disabled", -1);
    if (sample.images) {
        menu.AppendMenuItem(MF_OWNERDRAW, swatchId, "S&watch", -1);
        menu.ModifyItem(static_cast<const char*>(nullptr), swatchId, RGB(64, 104, 200), RGB(0, 0, 0), -1);
        if (COwnerDrawMenu* const flat = menu.AppendSubMenu("Disabled by a &DIB")) {
            flat->SetEmbossViaDib(true);
            AddCommands(*flat, true);
        }
    }
    menu.TrackPopupMenu(TPM_LEFTALIGN, place.x, place.y, owner);
    COwnerDrawMenu::lookOnThemedXp = COwnerDrawMenu::lookOnOtherSystems = 1; // the icon button's menu has this one
    COwnerDrawMenu::raisedImages = 1;
}

void ShowSkinMenu(CPoint place, const CWnd& owner) {
    CSkinMenu menu;
    menu.CreatePopupMenu();
    UINT id = checkedId;
    for (const char* text : {"Plain row", "Checked row", "Another row"}) {
        ::AppendMenuA(menu.GetHandle(), MF_OWNERDRAW | (id == markedId ? UINT{MF_CHECKED} : 0U), id, text);
        ++id;
    }
    menu.TrackPopupMenu(TPM_LEFTALIGN, place.x, place.y, owner);
    menu.DestroyMenu();
}

} // namespace

void ShowSampleMenu(UINT buttonId, const CWnd& owner) {
    RECT button{};
    ::GetWindowRect(owner.GetDlgItem(static_cast<int>(buttonId)), &button);
    const CPoint place(button.left, button.bottom);
    if (buttonId == IDC_MENU_SKIN) ShowSkinMenu(place, owner);
    for (const Sample& sample : samples) {
        if (sample.buttonId == buttonId) ShowOwnerDrawn(sample, place, owner);
    }
}

void AddMenuButtons(CGalleryBoard& board) {
    constexpr int left = 16, top = 512;
    constexpr int width = 148, height = 24, perRow = 3;
    board.AddTitle("Menus", left, top);
    int index = 0;
    const auto add = [&](UINT id, const char* name) {
        const int x = left + index % perRow * (width + 10);
        const int y = top + 18 + index / perRow * (height + 6);
        const auto& button = board.Add<CButton>(id, name, CRect::Sized(x, y, width, height), WS_TABSTOP);
        button.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(board.SmallFont()));
        ++index;
    };
    for (const Sample& sample : samples) add(sample.buttonId, sample.name);
    add(IDC_MENU_SKIN, "Skin menu");
}
