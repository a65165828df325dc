// What is known of the six possible counters: their records, which of them are present, and which one is shown.
//
// Plain state without a window and without a lock: it belongs to the user-interface thread, where all replies are
// decoded.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "link/CounterRecord.h"

struct CCounterTable {
    using Flags = std::array<bool, counterCount>;

    std::int32_t pollIndex = 0;                             // address of the next poll
    std::array<CounterRecord, counterCount> records;        // by address; an entry stays when its counter goes away
    std::int32_t selected = -1;                             // address of the counter that the panel shows; -1 for none
    Flags known{};                                          // taken to be present, as settled by SettlePresence
    Flags seen{};                                           // found in the reply at hand
    std::array<std::int8_t, counterCount> shownAddresses{}; // the present addresses, rising; entry i is on button i
    std::int8_t shownCount = 0;                             // valid entries of shownAddresses

    static bool IsCounterAddress(std::int32_t address) { return address >= 0 && address < counterCount; }

    struct StatusOutcome {
        bool strangerSeen = false;  // a record came from an address that is not known
        bool firstSelected = false; // such a record has become the selected counter, since none was
    };

    // Clears `seen` and takes over clock, counts and address of every status record of a poll's reply. Records from
    // addresses beyond the table are dropped. The settings of an entry stay.
    StatusOutcome TakeStatusReply(std::span<const std::uint8_t> reply);

    // The same for a settings read: clock and settings; the counts and the entry's address stay.
    void TakeSettingsReply(std::span<const std::uint8_t> reply);

    // Settles the presence of the address that was asked, and of no other: a record of another address, which a reply
    // may hold, decides nothing about that one. True if it changed; the list of shown addresses is rebuilt then, and
    // with nobody left nothing is selected. An address beyond the table changes nothing.
    bool SettlePresence(std::int32_t address);
};
