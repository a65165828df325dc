#include "panel/CounterTable.h"

#include "link/WireCommands.h"

namespace {

constexpr int statusLength = CommandOf(RequestCode::Poll).recordLength;
constexpr int settingsLength = CommandOf(RequestCode::ReadSettings).recordLength;

} // namespace

CCounterTable::StatusOutcome CCounterTable::TakeStatusReply(std::span<const std::uint8_t> reply) {
    StatusOutcome outcome;
    seen.fill(false);
    SearchRecords<statusLength>(reply, [&](std::span<const std::uint8_t, statusLength> bytes) {
        CounterRecord found;
        DecodeStatusRecord(bytes.data(), statusLength, found);
        if (!IsCounterAddress(found.address)) return;
        const auto index = static_cast<std::size_t>(found.address);
        seen[index] = true;
        CounterRecord& entry = records[index];
        entry.deviceTime = found.deviceTime;
        entry.address = found.address;
        entry.inCount = found.inCount;
        entry.outCount = found.outCount;
        entry.extraCount = found.extraCount;
        entry.extraByte = found.extraByte;
        if (known[index]) return;
        outcome.strangerSeen = true;
        if (selected == -1) {
            selected = found.address;
            outcome.firstSelected = true;
        }
    });
    return outcome;
}

void CCounterTable::TakeSettingsReply(std::span<const std::uint8_t> reply) {
    seen.fill(false);
    SearchRecords<settingsLength>(reply, [&](std::span<const std::uint8_t, settingsLength> bytes) {
        CounterRecord found;
        DecodeSettingsRecord(bytes.data(), settingsLength, found);
        if (!IsCounterAddress(found.address)) return;
        const auto index = static_cast<std::size_t>(found.address);
        seen[index] = true;
        CounterRecord& entry = records[index];
        entry.deviceTime = found.deviceTime;
        entry.sensitivity = found.sensitivity;
        entry.sdPeriod = found.sdPeriod;
        entry.language = found.language;
        entry.direction = found.direction;
        entry.sdDetect = found.sdDetect;
    });
}

bool CCounterTable::SettlePresence(std::int32_t address) {
    if (!IsCounterAddress(address)) return false;
    const auto asked = static_cast<std::size_t>(address);
    if (seen[asked] == known[asked]) return false;
    known[asked] = seen[asked];
    shownCount = 0;
    shownAddresses.fill(0);
    for (std::size_t i = 0; i < known.size(); ++i) {
        if (known[i]) shownAddresses[static_cast<std::size_t>(shownCount++)] = static_cast<std::int8_t>(i);
    }
    if (shownCount == 0) selected = -1;
    return true;
}
