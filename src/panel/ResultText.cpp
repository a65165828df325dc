#include "panel/ResultText.h"

#include "framework/Text.h"
#include "link/CounterFrame.h"

namespace {

void AddToList(std::string& list, const std::string& head, int address) {
    list += list.empty() ? head + FormatText(" %d", address) : FormatText(", %d", address);
}

} // namespace

std::string ResultText::Join(const ResultPhrases& phrases) const {
    std::string text;
    if (!okList.empty()) text = okList + phrases.success;
    if (!failList.empty()) text += (text.empty() ? "" : "; ") + failList + phrases.failure;
    return text;
}

ResultText GatherResults(std::span<const std::uint8_t> reply, const ResultPhrases& phrases,
                         const std::function<void(std::int32_t address)>& accepted) {
    ResultText result;
    SearchRecords<acknowledgementLength>(reply, [&](std::span<const std::uint8_t, acknowledgementLength> bytes) {
        const Acknowledgement answer = DecodeAcknowledgement(bytes);
        if (answer.status == 0) {
            AddToList(result.okList, phrases.device, answer.address);
            accepted(answer.address);
        } else {
            AddToList(result.failList, phrases.device, answer.address);
        }
    });
    return result;
}
