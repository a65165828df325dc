// The text that tells a user how a command went: which counters carried it out, which refused.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

// The pieces of the text, from the string table.
struct ResultPhrases {
    std::string device;  // head of a list of addresses, "Device"
    std::string success; // behind the list of those that did it, with its leading blank
    std::string failure; // behind the list of those that refused, likewise
};

struct ResultText {
    std::string okList;   // "Device 0, 1"; empty if nobody did it
    std::string failList; // the same for those that refused

    // The whole text: both halves joined by "; ", a half without counters left out; empty if nobody answered validly.
    std::string Join(const ResultPhrases& phrases) const;
};

// Gathers the acknowledgements of a reply in their order. `accepted` is called with the address of each counter that
// carried the command out (taken as signed, so it may lie beyond the table).
ResultText GatherResults(std::span<const std::uint8_t> reply, const ResultPhrases& phrases,
                         const std::function<void(std::int32_t address)>& accepted);
