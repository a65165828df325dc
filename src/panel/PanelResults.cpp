// What became of a command: the answers of the counters, into the table and into words for the user. A message dialog
// runs its own loop, so everything a handler does to the table is done before it shows one.
#include "panel/CounterPanel.h"

#include "dialogs/MessageDlg.h"
#include "framework/ResourceModule.h"
#include "framework/Text.h"
#include "resources/ResourceIds.h"

namespace {

void ShowText(const std::string& text) {
    if (!text.empty()) ShowMessage(text, {}, 0);
}

} // namespace

LRESULT CCounterPanel::OnClearReply(WPARAM wParam, LPARAM) {
    return HandleOutcome(RequestCode::ClearCounts, wParam);
}

LRESULT CCounterPanel::OnWriteReply(WPARAM wParam, LPARAM) {
    return HandleOutcome(RequestCode::WriteSettings, wParam);
}

LRESULT CCounterPanel::OnClockReply(WPARAM wParam, LPARAM) {
    return HandleOutcome(RequestCode::SetClock, wParam);
}

LRESULT CCounterPanel::OnAddressReply(WPARAM wParam, LPARAM) {
    return HandleOutcome(RequestCode::SetAddress, wParam);
}

LRESULT CCounterPanel::HandleOutcome(RequestCode code, WPARAM wParam) {
    if (ComesAgainBehindMenu()) return 0;
    if (const auto block = replies.Take(wParam)) {
        code == RequestCode::SetAddress ? HandleMove(*block) : HandleResults(CommandOf(code), *block);
    } else if (wParam == 0) {
        ShowText(LoadText(IDS_NO_RESPONSE));
    }
    return 0;
}

void CCounterPanel::HandleResults(const WireCommand& command, const ReplyBlock& block) {
    const ResultPhrases phrases{LoadText(IDS_DEVICE), LoadText(command.successText), LoadText(command.failureText)};
    const ResultText result = GatherResults(block.GetBytes(), phrases, [&](std::int32_t address) {
        if (IsCounterAddress(address)) command.apply(records[static_cast<std::size_t>(address)], block.settings);
    });
    if (!result.okList.empty()) ShowCounter(selected);
    const bool refusedByAll = result.okList.empty() && !result.failList.empty();
    if (refusedByAll && command.code == RequestCode::WriteSettings) {
        MessageBox(result.Join(phrases)); // the platform's own box
    } else {
        ShowText(result.Join(phrases));
    }
}

void CCounterPanel::HandleMove(const ReplyBlock& block) {
    // Several answers at once are none: two counters must not take the same address unnoticed.
    if (block.length != acknowledgementLength) return;
    const WireCommand& command = CommandOf(RequestCode::SetAddress);
    const auto settle = [&](std::span<const std::uint8_t, acknowledgementLength> bytes) {
        const Acknowledgement answer = DecodeAcknowledgement(bytes);
        if (answer.status != 0) {
            ShowText(LoadText(command.failureText));
            return;
        }
        if (!IsCounterAddress(selected) || !IsCounterAddress(answer.address)) return;
        CounterRecord moved = records[static_cast<std::size_t>(selected)];
        moved.address = answer.address;
        records[static_cast<std::size_t>(answer.address)] = moved;
        selected = answer.address;
        ShowCounter(selected);
        CAddressButton& first = addressButtons.front();
        first.address = answer.address;
        first.SetWindowText(FormatText("%d", answer.address));
        ShowText(LoadText(command.successText));
    };
    SearchRecords<acknowledgementLength>(block.GetBytes(), settle);
}
