// The table of counters under random replies, against a plain model of what each must leave there.
#include <optional>
#include <set>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include "Records.h"
#include "panel/CounterTable.h"
#include "panel/ResultText.h"

namespace {

// What may stand in a reply: which kind of record, in which condition, of which counter, with what in it.
using Part = std::tuple<std::uint8_t, std::uint8_t, std::uint8_t, std::uint32_t>;
// What comes (0 to 2 a reply of a kind, 3 a choice of the user), of whom it was asked, and the reply.
using Step = std::tuple<std::uint8_t, std::uint8_t, std::vector<Part>>;

enum Kind { StatusKind, SettingsKind, AnswerKind, Choice };

struct Model {
    std::array<CounterRecord, counterCount> records;
    std::set<int> known, seen;
    std::vector<std::int8_t> shown; // as of the last change
    int selected = -1;
    bool strangerSeen = false, firstSelected = false;
};

// Mostly in the table, sometimes just beyond it, sometimes all counters' own.
std::uint8_t AddressOf(std::uint8_t drawn) {
    constexpr std::uint8_t others[] = {6, 7, 127, 128, 255};
    return drawn % 8 < 6 ? drawn % 8 : others[drawn / 8 % 5];
}

// The bytes of a part; what a whole one of the kind asked for says goes into the model.
Bytes Lay(const Part& part, Kind asked, Model& model) {
    const auto& [kind, condition, drawnAddress, value] = part;
    const std::uint8_t address = AddressOf(drawnAddress);
    const auto byteAt = [value = value](int i) { return static_cast<std::uint8_t>(value >> 8 * i); };
    const auto day = static_cast<std::uint8_t>(value % 7 + 3);
    Bytes body{address, 0x12, 3, day, 5, 6, 7};
    const auto entered = static_cast<Kind>(kind % 3);
    // Nothing in a record must look like a whole one of another kind: so the bounds of day and `last`.
    const auto last = static_cast<std::uint8_t>(byteAt(3) | 4);
    if (entered == StatusKind)
        body.insert(body.end(), {byteAt(0), byteAt(1), byteAt(2), last, 1, byteAt(1), byteAt(2)});
    if (entered == SettingsKind) body.insert(body.end(), {byteAt(0), byteAt(1)});
    if (entered == AnswerKind) body = {address, static_cast<std::uint8_t>(value % 2)};
    const Bytes frame = Frame(body);
    if (condition % 5 == 0) return Spoilt(frame);
    if (condition % 5 == 1) return Torn(frame);
    if (entered != asked || address >= counterCount) return frame;

    CounterRecord& entry = model.records[address];
    if (entered == AnswerKind) {
        if (value % 2 == 0) entry.inCount = entry.outCount = entry.extraCount = 0;
        return frame;
    }
    model.seen.insert(address);
    entry.deviceTime = CTime(CalendarFields{2012, 3, day, 5, 6, 7}).GetTime();
    if (entered == StatusKind) {
        entry.address = address;
        entry.inCount = byteAt(0) * 256 + byteAt(1);
        entry.outCount = byteAt(2) * 256 + last;
        entry.extraCount = 256 + byteAt(1);
        entry.extraByte = byteAt(2);
        if (model.known.contains(address)) return frame;
        model.strangerSeen = true;
        if (model.selected == -1) model.selected = address, model.firstSelected = true;
    } else {
        entry.sensitivity = byteAt(0);
        entry.language = byteAt(1) < 128 ? 1 : 0;
        entry.direction = byteAt(1) % 128 < 64 ? 1 : 0;
        entry.sdDetect = byteAt(1) % 64 < 32 ? 0 : 1;
        entry.sdPeriod = byteAt(1) % 32;
    }
    return frame;
}

void Compare(const CCounterTable& table, const Model& model) {
    RC_ASSERT(table.records == model.records);
    RC_ASSERT(table.selected == model.selected);
    RC_ASSERT(table.shownCount == std::ssize(model.shown));
    for (std::size_t i = 0; i < table.known.size(); ++i) {
        RC_ASSERT(table.known[i] == model.known.contains(static_cast<int>(i)));
        RC_ASSERT(table.seen[i] == model.seen.contains(static_cast<int>(i)));
        RC_ASSERT(table.shownAddresses[i] == (i < model.shown.size() ? model.shown[i] : 0));
    }
}

RC_GTEST_PROP(CounterTable, HoldsWhatTheRepliesSay, (const std::vector<Step>& steps)) {
    CCounterTable table;
    Model model;
    RC_ASSERT(table.pollIndex == 0);
    Compare(table, model);
    for (const auto& [what, drawnAddress, parts] : steps) {
        const auto kind = static_cast<Kind>(what % 4);
        const auto asked = static_cast<std::int8_t>(AddressOf(drawnAddress)); // -1: all counters
        model.strangerSeen = model.firstSelected = false;
        if (kind == StatusKind || kind == SettingsKind) model.seen.clear();
        Bytes reply;
        if (kind != Choice)
            for (const Part& part : parts) reply = Line({reply, Lay(part, kind, model), Bytes(20, 0xAA)});
        if (kind == StatusKind) {
            const auto outcome = table.TakeStatusReply(reply);
            RC_ASSERT(outcome.strangerSeen == model.strangerSeen);
            RC_ASSERT(outcome.firstSelected == model.firstSelected);
        } else if (kind == SettingsKind) {
            table.TakeSettingsReply(reply);
        } else if (kind == AnswerKind) {
            GatherResults(reply, {}, [&](std::int32_t address) {
                if (!CCounterTable::IsCounterAddress(address)) return;
                CounterRecord& entry = table.records[static_cast<std::size_t>(address)];
                entry.inCount = entry.outCount = entry.extraCount = 0;
            });
        } else if (!model.shown.empty()) {
            table.selected = model.selected = model.shown[drawnAddress % model.shown.size()];
        }
        if (kind == StatusKind || kind == SettingsKind) {
            const bool inTable = asked >= 0 && asked < 6;
            const bool changes = inTable && model.seen.contains(asked) != model.known.contains(asked);
            if (changes) {
                if (model.known.erase(asked) == 0) model.known.insert(asked);
                model.shown.assign(model.known.begin(), model.known.end());
                if (model.known.empty()) model.selected = -1;
            }
            RC_ASSERT(table.SettlePresence(asked) == changes);
        }
        Compare(table, model);
    }
}

} // namespace
