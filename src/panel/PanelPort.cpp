// Which counter is shown, which port is used and whether it is open, and the language of the next start.
#include "panel/CounterPanel.h"

#include "dialogs/AboutDlg.h"
#include "dialogs/MessageDlg.h"
#include "dialogs/StoredValues.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"

void CCounterPanel::OnAddressButton(UINT id) {
    // A rebuild leaves marks where they were, so several may be set, the clicked one too, which the click took away.
    CAddressButton& clicked = addressButtons[id - IDC_ADDRESS_BUTTON_FIRST];
    if ((clicked.GetStyle() & WS_VISIBLE) == 0) return; // no counter's: made up by another program
    for (CAddressButton& button : addressButtons) button.SetCheck(&button == &clicked ? 1 : 0, true);
    if (selected == clicked.address) return;
    selected = clicked.address;
    ShowCounter(selected);
}

void CCounterPanel::OnPortCommand(UINT id) {
    if (frame == nullptr) return;
    const AvailablePorts& ports = frame->GetAvailablePorts();
    const std::size_t row = id - ID_PORT_FIRST;
    if (row >= static_cast<std::size_t>(ports.count)) return; // no such row in the menu
    CCommPort& port = *CCommPort::Instance();
    const bool wasOpen = port.IsOpen();
    if (wasOpen) port.Close();
    frame->SelectPort(ports.numbers[row]);
    if (wasOpen) frame->OpenSelectedPort();
}

void CCounterPanel::OnOpenCom() {
    CCommPort& port = *CCommPort::Instance();
    if (port.IsOpen()) {
        port.Close();
    } else if (frame != nullptr) {
        frame->OpenSelectedPort();
    }
}

void CCounterPanel::OnComSetting() {
    if (frame != nullptr) frame->OnComSetting();
}

void CCounterPanel::ShowPortState(bool open) {
    const int state = open ? 1 : 0;
    if (state == lastPortState) return;
    CaptionButton(portButton, open ? closeText : openText, activeColor);
    lastPortState = state;
}

namespace {

void StoreLanguage(std::int32_t language) {
    std::int32_t current = 0;
    ReadRegistryInt("Language", current, 0);
    if (current == language) return;
    if (WriteRegistryInt("Language", language) == 0) return;
    ShowMessage(LoadText(IDS_LANGUAGE_SET), {}, 0);
}

} // namespace

void CCounterPanel::OnLanguageEnglish() {
    StoreLanguage(0);
}

void CCounterPanel::OnLanguageChinese() {
    StoreLanguage(1);
}

void CCounterPanel::OnAbout() {
    CAboutDlg().DoModal();
}
