// Replies of polls and settings reads: into the table, onto the address buttons and the controls.
#include "panel/CounterPanel.h"

#include "framework/Text.h"
#include "link/CommandQueue.h"
#include "link/DeviceCommands.h"
#include "resources/ResourceIds.h"

std::unique_ptr<ReplyBlock> CCounterPanel::TakeReply(WPARAM wParam) {
    return mailbox.Take(wParam);
}

LRESULT CCounterPanel::OnPollReply(WPARAM wParam, LPARAM) {
    if (const auto block = TakeReply(wParam)) HandlePollReply(*block);
    return 0;
}

LRESULT CCounterPanel::OnSettingsReply(WPARAM wParam, LPARAM) {
    if (const auto block = TakeReply(wParam)) HandleSettingsReply(*block);
    return 0;
}

LRESULT CCounterPanel::OnShowCounter(WPARAM wParam, LPARAM) {
    ShowCounter(static_cast<std::int32_t>(wParam));
    return 0;
}

void CCounterPanel::SendReadSettings(std::uint8_t address) {
    auto command = std::make_unique<CReadSettingsCommand>();
    command->panel = this;
    command->address = address;
    CCommandQueue::Instance()->Add(std::move(command));
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
    inDisplay.SetText(FormatText("%d", record.inCount));
    outDisplay.SetText(FormatText("%d", record.outCount));
    // Each write raises the edit's change notification, so its range holds for what is shown too.
    SetDlgItemInt(IDC_SENSITIVITY_EDIT, record.sensitivity);
    SetDlgItemInt(IDC_SD_PERIOD_EDIT, record.sdPeriod);
    SetDlgItemInt(IDC_ADDRESS_EDIT, record.address);
    ShowPair(LanguagePair(), record.language);
    ShowPair(DirectionPair(), record.direction);
    ShowPair(SdDetectPair(), record.sdDetect);
    datePicker.SetTime(CTime(record.deviceTime));
}

void CCounterPanel::ShowPair(const ChoicePair& pair, std::int32_t value) {
    pair.first.EnableWindow(value != 0);
    CaptionButton(pair.first, pair.firstText, value != 0 ? inactiveColor : activeColor);
    pair.second.EnableWindow(value != 1);
    CaptionButton(pair.second, pair.secondText, value != 1 ? inactiveColor : activeColor);
}
