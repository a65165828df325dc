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
    ShowCount(inDisplay, record.inCount);
    ShowCount(outDisplay, record.outCount);
    ShowSettings(record);
}

void CCounterPanel::ShowCount(CSegmentDisplay& display, std::int32_t count) {
    const std::string text = FormatText("%d", count);
    if (display.GetWindowText() != text) display.SetText(text);
}
