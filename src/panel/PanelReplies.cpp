// Replies of polls and settings reads: into the table, onto the address buttons and the controls.
#include "panel/CounterPanel.h"

#include "framework/Text.h"
#include "link/DeviceCommands.h"
#include "resources/ResourceIds.h"

LRESULT CCounterPanel::OnPollReply(WPARAM wParam, LPARAM) {
    if (const auto block = replies.Take(wParam)) HandlePollReply(*block);
    return 0;
}

LRESULT CCounterPanel::OnSettingsReply(WPARAM wParam, LPARAM) {
    if (const auto block = replies.Take(wParam)) HandleSettingsReply(*block);
    return 0;
}

LRESULT CCounterPanel::OnShowCounter(WPARAM wParam, LPARAM) {
    ShowCounter(static_cast<std::int32_t>(wParam));
    return 0;
}

void CCounterPanel::SendReadSettings(std::uint8_t address) {
    SendCommand(*replyTarget, RequestCode::ReadSettings, {.address = address});
}

void CCounterPanel::HandlePollReply(const ReplyBlock& block) {
    const StatusOutcome outcome = TakeStatusReply(block.GetBytes());
    if (outcome.firstSelected) addressButtons.front().SetCheck(1, true);
    // The settings are read of the address that was polled, whoever answered.
    if (outcome.strangerSeen) SendReadSettings(static_cast<std::uint8_t>(block.address));
    UpdatePresence(block.address);
}

void CCounterPanel::HandleSettingsReply(const ReplyBlock& block) {
    TakeSettingsReply(block.GetBytes());
    UpdatePresence(block.address);
}

void CCounterPanel::UpdatePresence(std::int32_t address) {
    if (!SettlePresence(address)) {
        if (address == selected) ShowCounter(selected);
        return;
    }
    ShowAddressButtons();
    if (selected != -1) ShowCounter(selected);
}

void CCounterPanel::ShowAddressButtons() {
    for (std::size_t i = 0; i < addressButtons.size(); ++i) {
        CAddressButton& button = addressButtons[i];
        if (i >= static_cast<std::size_t>(shownCount)) {
            button.ShowWindow(SW_HIDE);
            continue;
        }
        button.address = shownAddresses[i];
        button.SetWindowText(FormatText("%d", button.address));
        button.ShowWindow(SW_SHOW);
    }
}

void CCounterPanel::ShowCounter(std::int32_t address) {
    if (!IsCounterAddress(address)) return;
    const CounterRecord record = records[static_cast<std::size_t>(address)];
    // Most polls bring little that is new: what shows its value already isn't written, and so not painted, again.
    ShowCount(inDisplay, record.inCount);
    ShowCount(outDisplay, record.outCount);
    ShowNumber(IDC_SENSITIVITY_EDIT, record.sensitivity);
    ShowNumber(IDC_SD_PERIOD_EDIT, record.sdPeriod);
    ShowNumber(IDC_ADDRESS_EDIT, record.address);
    ShowPair(LanguagePair(), record.language);
    ShowPair(DirectionPair(), record.direction);
    ShowPair(SdDetectPair(), record.sdDetect);
    const CTime time(record.deviceTime);
    if (datePicker.GetTime() != time) datePicker.SetTime(time);
}

void CCounterPanel::ShowCount(CSegmentDisplay& display, std::int32_t count) {
    const std::string text = FormatText("%d", count);
    if (display.GetWindowText() != text) display.SetText(text);
}

void CCounterPanel::ShowNumber(int editId, std::int32_t number) {
    // The write raises the edit's change notification, so its range holds for what is shown too.
    if (GetDlgItemText(editId) != FormatText("%d", number)) SetDlgItemInt(editId, number);
}

void CCounterPanel::ShowPair(const ChoicePair& pair, std::int32_t value) {
    ShowChoice(pair.first, pair.firstText, value == 0);
    ShowChoice(pair.second, pair.secondText, value == 1);
}

void CCounterPanel::ShowChoice(CSkinButton& button, const std::string& text, bool inForce) {
    button.EnableWindow(!inForce);
    const COLORREF color = inForce ? activeColor : inactiveColor;
    if (!button.Shows(text, color)) CaptionButton(button, text, color);
}
