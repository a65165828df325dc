// The table of counters under random replies, against a plain model of what each must leave there.
#include <tuple>

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include "panel/CounterTable.h"
#include "panel/ResultText.h"
#include "Records.h"

namespace {

enum Kind { Poll, Read, Clear, Choice }; // which reply comes, or the user's choice of another counter

// What may stand in a reply: the kind of record, its condition, of which counter it is, what is in it.
using Part = std::tuple<std::uint8_t, std::uint8_t, std::uint8_t, std::uint32_t>;
using Step = std::tuple<std::uint8_t, std::uint8_t, std::vector<Part>>; // the kind, of whom it was asked, the reply

// Mostly in the table, sometimes just beyond it, sometimes all counters' own.
std::uint8_t AddressOf(std::uint8_t drawn) {
    constexpr std::uint8_t others[] = {6, 7, 127, 128, 255};
    return drawn % 8 < 6 ? static_cast<std::uint8_t>(drawn % 8) : others[drawn / 8 % 5];
}

void ClearCounts(CCounterTable& table, std::int32_t address) {
    if (!CCounterTable::IsCounterAddress(address)) return;
    CounterRecord& entry = table.records[static_cast<std::size_t>(address)];
    entry.inCount = entry.outCount = entry.extraCount = 0;
}

// The bytes of a part; what a whole one of the kind asked for says goes into the model, where only the data is used.
Bytes Lay(const Part& part, int asked, CCounterTable& model, CCounterTable::StatusOutcome& outcome) {
    const auto& [drawnKind, condition, drawnAddress, value] = part;
    const std::uint8_t address = AddressOf(drawnAddress);
    const auto v = [value = value](int i) { return static_cast<std::uint8_t>(value >> 8 * i); };
    // Nothing in a record must look like a whole one of another kind: so the bounds of day and `last`.
    const auto day = static_cast<std::uint8_t>(value % 7 + 3), last = static_cast<std::uint8_t>(v(3) | 4);
    const int kind = drawnKind % 3;
    Bytes frame = Frame({address, static_cast<std::uint8_t>(value % 2)});
    if (kind == Poll) frame = Frame({address, 0x12, 3, day, 5, 6, 7, v(0), v(1), v(2), last, 1, v(1), v(2)});
    if (kind == Read) frame = Frame({address, 0x12, 3, day, 5, 6, 7, v(0), v(1)});
    if (condition % 5 == 0) return Spoilt(frame);
    if (condition % 5 == 1) return Torn(frame);
    if (kind != asked || address >= counterCount) return frame;
    if (kind == Clear && value % 2 == 0) ClearCounts(model, address);
    if (kind == Clear) return frame;
    CounterRecord& entry = model.records[address];
    entry.deviceTime = CTime(CalendarFields{2012, 3, day, 5, 6, 7}).GetTime();
    model.seen[address] = true;
    if (kind == Read) {
        entry.sensitivity = v(0);
        entry.language = v(1) < 128 ? 1 : 0;
        entry.direction = v(1) % 128 < 64 ? 1 : 0;
        entry.sdDetect = v(1) % 64 < 32 ? 0 : 1;
        entry.sdPeriod = v(1) % 32;
        return frame;
    }
    entry.address = address;
    entry.inCount = v(0) * 256 + v(1), entry.outCount = v(2) * 256 + last;
    entry.extraCount = 256 + v(1), entry.extraByte = v(2);
    if (model.known[address]) return frame;
    outcome.strangerSeen = true;
    if (model.selected == -1) model.selected = address, outcome.firstSelected = true;
    return frame;
}

RC_GTEST_PROP(CounterTable, HoldsWhatTheRepliesSay, (const std::vector<Step>& steps)) {
    CCounterTable table, model;
    RC_ASSERT(table.pollIndex == 0 && table.selected == -1 && table.shownCount == 0);
    for (const auto& [what, drawnAddress, parts] : steps) {
        const int kind = what % 4;
        const auto asked = static_cast<std::int8_t>(AddressOf(drawnAddress)); // -1: all counters
        CCounterTable::StatusOutcome outcome, expected;
        if (kind < Clear) model.seen = {};
        Bytes reply;
        for (const Part& part : parts) reply = Line({reply, Lay(part, kind, model, expected), Bytes(20, 0xAA)});
        if (kind == Poll) outcome = table.TakeStatusReply(reply);
        if (kind == Read) table.TakeSettingsReply(reply);
        if (kind == Clear) GatherResults(reply, {}, [&](std::int32_t address) { ClearCounts(table, address); });
        if (kind == Choice && model.shownCount != 0)
            table.selected = model.selected =
                model.shownAddresses[static_cast<std::size_t>(drawnAddress % model.shownCount)];
        RC_ASSERT(outcome.strangerSeen == expected.strangerSeen && outcome.firstSelected == expected.firstSelected);
        if (kind < Clear) {
            const auto at = static_cast<std::size_t>(asked);
            const bool changes = at < 6 && model.seen[at] != model.known[at];
            if (changes) {
                model.known[at] = !model.known[at];
                auto& addresses = model.shownAddresses = {};
                std::size_t count = 0;
                for (std::size_t i = 0; i < 6; ++i)
                    if (model.known.at(i)) addresses.at(count++) = static_cast<std::int8_t>(i);
                model.shownCount = static_cast<std::int8_t>(count);
                if (count == 0) model.selected = -1;
            }
            RC_ASSERT(table.SettlePresence(asked) == changes);
        }
        RC_ASSERT(table.records == model.records && table.selected == model.selected);
        RC_ASSERT(table.known == model.known && table.seen == model.seen);
        RC_ASSERT(table.shownCount == model.shownCount && table.shownAddresses == model.shownAddresses);
    }
}

} // namespace
