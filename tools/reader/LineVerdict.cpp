#include "reader/LineVerdict.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iterator>

namespace {

using Sentences = std::vector<std::string>;
using Wanted = std::function<bool(const AddressFigures&)>;

// A counter that answers later than this, in ms, may miss the 100 ms that it has.
constexpr std::int32_t lateMedian = 80;
// A clock that is off by more than this, in seconds, writes its records under a wrong minute.
constexpr std::int64_t clockTolerance = 60;

// What happens to fewer than one request in 200 is no fault of the line.
bool IsOften(std::uint64_t part, const AddressFigures& figures) {
    return part > 0 && part * 200 >= figures.Asked();
}

bool WasHeard(const AddressFigures& figures) {
    return figures.Count(Answer::Whole) + figures.Count(Answer::Doubled) > 0;
}
// More than half of what the counter sends is spoilt.
bool IsMostlySpoilt(const AddressFigures& figures) {
    return figures.Count(Answer::Spoilt) > figures.Count(Answer::Whole) + figures.Count(Answer::Doubled);
}
bool Misses(const AddressFigures& figures) {
    return WasHeard(figures) && IsOften(figures.Count(Answer::Silent), figures);
}
bool IsSilent(const AddressFigures& figures) {
    return figures.Asked() > 0 && figures.Count(Answer::Silent) == figures.Asked();
}
bool IsDisturbed(const AddressFigures& figures) {
    return IsOften(figures.disturbed, figures) && !IsMostlySpoilt(figures);
}
bool LostPort(const AddressFigures& figures) {
    return figures.Count(Answer::NotAsked) > 0;
}
bool IsLate(const AddressFigures& figures) {
    return figures.latencies.Median() > lateMedian;
}
bool HasWrongClock(const AddressFigures& figures) {
    return figures.drift && std::abs(figures.drift->last) > clockTolerance;
}

// "Address 3: ..." or "Addresses 0, 3: ..." of those that `isWanted` takes; nothing if there are none.
void Tell(Sentences& sentences, const CLineSheet& sheet, const Wanted& isWanted, std::string_view what) {
    std::string list;
    int count = 0;
    for (int address = 0; address < counterCount; ++address) {
        if (!isWanted(sheet.Addresses().at(static_cast<std::size_t>(address)))) continue;
        list.append(count++ == 0 ? "" : ", ").append(std::to_string(address));
    }
    if (count > 0) sentences.push_back((count == 1 ? "Address " : "Addresses ") + list + ": " + std::string(what));
}

// What makes all that is said of single counters idle; empty if some counter was heard.
std::string WholeLineFault(const CLineSheet& sheet) {
    if (sheet.Requests() == 0) return "Nothing was asked, so nothing can be said of the line.";
    if (std::ranges::any_of(sheet.Addresses(), WasHeard)) return "";
    if (sheet.StrayBytes() > 0) {
        return "Bytes come, but no record is whole. "
               "Look first at the port's speed (4800 baud, 8 data bits, no parity), then at the ground wire and the "
               "cable.";
    }
    if (sheet.Untimely() > 0) return "Only counters answer that were not asked. Look first at their addresses.";
    if (sheet.Echoes() > 0) {
        return "No counter answers; only what is sent comes back. "
               "Look first for a cable that joins the two data wires.";
    }
    return "No counter answers. Look first at the counters' power, then at the cable (the two data wires crossed?), "
           "then whether this is the right port.";
}

void TellOfCounters(Sentences& sentences, const CLineSheet& sheet) {
    Tell(
        sentences, sheet, [](const AddressFigures& each) { return each.doubled > 0; },
        "two counters on it. Unplug one and give it an address of its own.");
    Tell(sentences, sheet, IsMostlySpoilt,
         "mostly spoilt answers. Look whether two counters have the address, then at the plug and cable there.");
    Tell(sentences, sheet, Misses, "some polls without an answer. Look first at the plug and the power there.");
    Tell(sentences, sheet, IsDisturbed,
         "bytes that belong to nobody. Look first for a mains cable or a motor beside the line, "
         "then at the ground and the shield.");
    Tell(sentences, sheet, IsLate,
         "late answers. Look first at the settings of the serial adapter (its latency timer).");
    Tell(sentences, sheet, HasWrongClock, "a clock that is wrong by more than a minute. Set it.");
}

} // namespace

std::vector<std::string> JudgeLine(const CLineSheet& sheet) {
    if (auto fault = WholeLineFault(sheet); !fault.empty()) return {std::move(fault)};
    Sentences sentences;
    if (std::ranges::any_of(sheet.Addresses(), LostPort)) {
        sentences.emplace_back("The port was away at times. Look first at the plug and driver of the serial adapter.");
    }
    TellOfCounters(sentences, sheet);
    if (sheet.Untimely() > 0) {
        sentences.emplace_back("Some answers come after their time, or from a counter that was not asked. "
                               "Look first at the serial adapter.");
    }
    if (sheet.Echoes() > 0) {
        sentences.emplace_back("What is sent comes back too. Counts are not affected; "
                               "look whether the adapter's echo can be switched off.");
    }
    if (sentences.empty()) sentences.emplace_back("The line is sound.");
    Tell(sentences, sheet, IsSilent, "silent. If a counter should be there, look at its power and its address.");
    return sentences;
}
