#include "panel/CounterTable.h"

#include "link/WireCommands.h"

namespace {

constexpr int statusLength = CommandOf(RequestCode::Poll).recordLength;
constexpr int settingsLength = CommandOf(RequestCode::ReadSettings).recordLength;

// Marks the counter of each record that stands in the table as seen, and gives its entry and the record to `take`.
template <int length, class Take>
void ForEachRecord(CCounterTable& table, std::span<const std::uint8_t> reply,
                   bool (*decode)(const std::uint8_t*, int, CounterRecord&), Take take) {
    table.seen.fill(false);
    SearchRecords<length>(reply, [&](std::span<const std::uint8_t, length> bytes) {
        CounterRecord found;
        decode(bytes.data(), length, found);
        if (!CCounterTable::IsCounterAddress(found.address)) return;
        const auto index = static_cast<std::size_t>(found.address);
        table.seen[index] = true;
        take(table.records[index], found);
    });
}

} // namespace

CCounterTable::StatusOutcome CCounterTable::TakeStatusReply(std::span<const std::uint8_t> reply) {
    StatusOutcome outcome;
    ForEachRecord<statusLength>(*this, reply, &DecodeStatusRecord, [&](CounterRecord& entry, const auto& found) {
        entry.deviceTime = found.deviceTime;
        entry.address = found.address;
        entry.inCount = found.inCount;
        entry.outCount = found.outCount;
        entry.extraCount = found.extraCount;
        entry.extraByte = found.extraByte;
        if (known[static_cast<std::size_t>(found.address)]) return;
        outcome.strangerSeen = true;
        if (selected == -1) {
            selected = found.address;
            outcome.firstSelected = true;
        }
    });
    return outcome;
}

void CCounterTable::TakeSettingsReply(std::span<const std::uint8_t> reply) {
    ForEachRecord<settingsLength>(*this, reply, &DecodeSettingsRecord, [](CounterRecord& entry, const auto& found) {
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
