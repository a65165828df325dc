// What became of a command: the answers of the counters, into the table and into words for the user. A message dialog
// runs its own loop, so everything a handler does to the table is done before it shows one.
#include "panel/CounterPanel.h"

#include "framework/ResourceModule.h"
#include "framework/Text.h"
#include "link/CounterFrame.h"
#include "resources/ResourceIds.h"
#include "dialogs/ShowMessage.h"

namespace {

ResultPhrases LoadPhrases(UINT successId, UINT failureId) {
    return {LoadText(IDS_DEVICE), LoadText(successId), LoadText(failureId)};
}

void ShowText(const std::string& text) {
    ShowMessage(text, {}, 0);
}

void ShowResult(const ResultText& result, const ResultPhrases& phrases) {
    const std::string text = result.Join(phrases);
    if (!text.empty()) ShowText(text);
}

} // namespace

ResultText CCounterPanel::TakeResults(const ReplyBlock& block, const ResultPhrases& phrases,
                                      const std::function<void(CounterRecord& entry)>& apply) {
    ResultText result = GatherResults(block.GetBytes(), phrases, [&](std::int32_t address) {
        if (IsCounterAddress(address)) apply(records[static_cast<std::size_t>(address)]);
    });
    if (!result.okList.empty()) ShowCounter(selected);
    return result;
}

LRESULT CCounterPanel::OnClearReply(WPARAM wParam, LPARAM) {
    if (ComesAgainBehindMenu()) return 0;
    const auto block = TakeReply(wParam);
    if (!block) {
        if (wParam == 0) ShowText(LoadText(IDS_NO_RESPONSE));
        return 0;
    }
    const ResultPhrases phrases = LoadPhrases(IDS_CLEAR_DONE, IDS_CLEAR_FAILED);
    ShowResult(TakeResults(*block, phrases,
                           [](CounterRecord& entry) { entry.inCount = entry.outCount = entry.extraCount = 0; }),
               phrases);
    return 0;
}

LRESULT CCounterPanel::OnWriteReply(WPARAM wParam, LPARAM) {
    if (ComesAgainBehindMenu()) return 0;
    const auto block = TakeReply(wParam);
    if (!block) {
        if (wParam == 0) ShowText(LoadText(IDS_NO_RESPONSE));
        return 0;
    }
    const ResultPhrases phrases = LoadPhrases(IDS_WRITE_DONE, IDS_WRITE_FAILED);
    const ResultText result = TakeResults(*block, phrases, [&](CounterRecord& entry) { entry = block->settings; });
    if (result.okList.empty() && !result.failList.empty()) {
        MessageBox(result.Join(phrases)); // refused by all: the platform's own box
    } else {
        ShowResult(result, phrases);
    }
    return 0;
}

LRESULT CCounterPanel::OnClockReply(WPARAM wParam, LPARAM) {
    if (ComesAgainBehindMenu()) return 0;
    const auto block = TakeReply(wParam);
    if (!block) {
        if (wParam == 0) ShowText(LoadText(IDS_NO_RESPONSE));
        return 0;
    }
    const ResultPhrases phrases = LoadPhrases(IDS_CLOCK_DONE, IDS_CLOCK_FAILED);
    ShowResult(
        TakeResults(*block, phrases, [&](CounterRecord& entry) { entry.deviceTime = block->settings.deviceTime; }),
        phrases);
    return 0;
}

LRESULT CCounterPanel::OnAddressReply(WPARAM wParam, LPARAM) {
    if (ComesAgainBehindMenu()) return 0;
    const auto block = TakeReply(wParam);
    if (!block) {
        if (wParam == 0) ShowText(LoadText(IDS_NO_RESPONSE));
        return 0;
    }
    // Several answers at once are none: two counters must not take the same address unnoticed.
    if (block->length != acknowledgementLength) return 0;
    SearchRecords<acknowledgementLength>(block->GetBytes(),
                                         [&](std::span<const std::uint8_t, acknowledgementLength> bytes) {
                                             const Acknowledgement answer = DecodeAcknowledgement(bytes);
                                             if (answer.status != 0) {
                                                 ShowText(LoadText(IDS_ADDRESS_FAILED));
                                                 return;
                                             }
                                             if (!IsCounterAddress(selected) || !IsCounterAddress(answer.address))
                                                 return;
                                             CounterRecord moved = records[static_cast<std::size_t>(selected)];
                                             moved.address = answer.address;
                                             records[static_cast<std::size_t>(answer.address)] = moved;
                                             selected = answer.address;
                                             ShowCounter(selected);
                                             CAddressButton& first = addressButtons.front();
                                             first.address = answer.address;
                                             first.SetWindowText(FormatText("%d", answer.address));
                                             ShowText(LoadText(IDS_ADDRESS_DONE));
                                         });
    return 0;
}
