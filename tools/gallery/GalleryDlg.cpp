#include "gallery/GalleryDlg.h"

#include <array>

#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "gallery/GalleryMenus.h"
#include "gallery/GalleryPages.h"
#include "gallery/GalleryTheme.h"
#include "resources/ResourceIds.h"

namespace {

constexpr LONG clientWidth = 984;
constexpr LONG clientHeight = 600;
constexpr RECT folderPlace{16, 6, 830, 36};
constexpr RECT loadAgainPlace{848, 8, 968, 30};

} // namespace

const CMessageMap& CGalleryDlg::ClassMap() {
    static constexpr std::array entries{
        On<WM_ERASEBKGND, &CGalleryDlg::OnEraseBkgnd>(), OnCommandId<IDC_LOAD_AGAIN, &CGalleryDlg::OnLoadAgain>(),
        OnCommandIds<IDC_MENU_MODERN_RAISED, IDC_MENU_SKIN, &CGalleryDlg::OnMenuButton>()};
    static const CMessageMap map{&CDialog::ClassMap(), entries};
    return map;
}

bool CGalleryDlg::OnInitDialog() {
    const char* iconName = MAKEINTRESOURCEA(IDI_APPLICATION_ICON);
    const HICON icon = ::LoadIconA(FindResourceModule(iconName, RT_GROUP_ICON), iconName); // shared, not to be freed
    for (const auto kind : {WPARAM{ICON_BIG}, WPARAM{ICON_SMALL}})
        SendMessage(WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
    PlaceWindow();
    OnLoadAgain();
    return CDialog::OnInitDialog();
}

void CGalleryDlg::PlaceWindow() const {
    RECT frame{0, 0, clientWidth, clientHeight};
    ::AdjustWindowRectEx(&frame, GetStyle(), FALSE, static_cast<DWORD>(::GetWindowLongA(GetHandle(), GWL_EXSTYLE)));
    const CRect place(frame);
    CRect screen;
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
    const LONG left = screen.left + (screen.Width() - place.Width()) / 2;
    const LONG top = screen.top + (screen.Height() - place.Height()) / 2;
    MoveWindow(CRect::Sized(left, top, place.Width(), place.Height()));
}

void CGalleryDlg::OnLoadAgain() {
    board.reset();
    board = std::make_unique<CGalleryBoard>(*this, folder);
    AddButtons(*board);
    AddGrounds(*board);
    AddDisplays(*board);
    AddIconButtons(*board);
    AddSmallControls(*board);
    AddStrips(*board);
    AddMenuButtons(*board);
    ShowFolder();
    Invalidate();
}

void CGalleryDlg::ShowFolder() const {
    std::string text = "Theme: " + folder;
    const char* parting = "   can't be read: ";
    for (const std::string& name : FindUnreadablePictures(folder)) {
        text += parting + name;
        parting = ", ";
    }
    board->AddText(IDC_THEME_FOLDER, text, folderPlace, board->SmallFont());
    const CWnd& loadAgain = *FromHandle(GetDlgItem(IDC_LOAD_AGAIN));
    loadAgain.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(board->SmallFont()), TRUE);
    loadAgain.MoveWindow(loadAgainPlace);
    if (::GetFocus() == GetHandle()) loadAgain.SetFocus(); // the control that had it is gone
}

void CGalleryDlg::OnMenuButton(UINT id) {
    ShowSampleMenu(id, *this);
}

bool CGalleryDlg::OnEraseBkgnd(HDC dc) {
    CDC(dc).FillSolidRect(GetClientRect(), board != nullptr ? board->GroundColor() : ::GetSysColor(COLOR_3DFACE));
    return true;
}

bool CGalleryDlg::PreTranslateMessage(MSG& message) {
    constexpr LPARAM wasDown = 0x40000000; // a key that is held counts once
    if (message.message == WM_KEYDOWN && message.wParam == VK_F5) {
        // By way of a posted command, as the key may be on its way to a control that goes.
        if ((message.lParam & wasDown) == 0) PostMessage(WM_COMMAND, IDC_LOAD_AGAIN);
        return true;
    }
    return CDialog::PreTranslateMessage(message);
}
