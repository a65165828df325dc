// The popups behind the three buttons of the top bar: ports, device and log; help; language. Each is built afresh at
// each press, and its entries arrive at the panel as commands. The device models differ in nothing that the program
// does: the first is marked for good, and choosing one changes nothing.
#include "panel/CounterPanel.h"

#include <string>
#include <utility>

#include "framework/ResourceModule.h"
#include "menu/OwnerDrawMenu.h"
#include "resources/ResourceIds.h"

namespace {

// A popup under construction. A sub-menu must be declared after the menu that it hangs in, so that it goes first: each
// object destroys its own platform menu, and the parent's would otherwise take it along.
class CPopup : public COwnerDrawMenu {
public:
    CPopup() {
        CreatePopupMenu();
        lookOnThemedXp = lookOnOtherSystems = 1;
    }

    void AddEntry(UINT id, const std::string& text, bool marked = false) {
        AppendMenuItem(MF_OWNERDRAW, id, text.c_str(), -1);
        if (marked) ::CheckMenuItem(GetHandle(), id, MF_BYCOMMAND | MF_CHECKED);
    }

    void AddSubMenu(const CPopup& subMenu, const std::string& text) {
        AppendMenuItem(MF_POPUP, reinterpret_cast<UINT_PTR>(subMenu.GetHandle()), text.c_str(), -1);
    }
};

} // namespace

void CCounterPanel::ShowPopup(COwnerDrawMenu& popup) {
    // Under the port button, whichever button was pressed. It is a child of the bar, not of the panel.
    RECT button{};
    if (!::GetWindowRect(topBar.GetDlgItem(ID_PORT_MENU), &button)) return;
    constexpr RECT leaveFree{0, 0, 150, 150};
    popup.TrackPopupMenu(TPM_CENTERALIGN, button.left, button.bottom, *this, &leaveFree);
}

void CCounterPanel::OnPortMenu() {
    if (frame == nullptr) return;
    CPopup root, portMenu, deviceMenu;

    const AvailablePorts& ports = frame->GetAvailablePorts();
    for (std::int32_t row = 0; row < ports.count; ++row) {
        const std::int32_t number = ports.numbers[static_cast<std::size_t>(row)];
        portMenu.AddEntry(ID_PORT_FIRST + static_cast<UINT>(row), LoadText(IDS_COM) + std::to_string(number),
                          number == frame->GetSelectedPort());
    }
    constexpr std::pair<UINT, const char*> devices[] = {
        {ID_DEVICE_QX4101, "QX4101"}, {ID_DEVICE_QX4102, "QX4102"}, {ID_DEVICE_QX4103, "QX4103"}};
    for (const auto& [id, name] : devices) deviceMenu.AddEntry(id, name, id == ID_DEVICE_QX4101);

    root.AddSubMenu(portMenu, LoadText(IDS_COM));
    root.AddSubMenu(deviceMenu, LoadText(IDS_DEVICE));
    root.AddEntry(ID_OPEN_LOG, LoadText(IDS_OPEN_LOG));
    ShowPopup(root);
}

void CCounterPanel::OnHelpMenu() {
    CPopup root;
    root.AddEntry(ID_ABOUT, LoadText(IDS_ABOUT_MENU));
    ShowPopup(root);
}

void CCounterPanel::OnLanguageMenu() {
    if (frame == nullptr) return;
    const bool chinese = frame->IsChinese();
    CPopup root;
    root.AddEntry(ID_LANGUAGE_ENGLISH, LoadText(IDS_MENU_ENGLISH), !chinese);
    root.AddEntry(ID_LANGUAGE_CHINESE, LoadText(IDS_MENU_CHINESE), chinese);
    ShowPopup(root);
}
