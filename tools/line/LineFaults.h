// Faults on demand: what goes wrong on the line, for whom, and how often.
//
// A fault is written KIND[=VALUE] [ADDRESS|*] [COUNT], the words parted by blanks or commas: "torn 3" tears every reply
// of counter 3, "noise=4 * 5" puts four bytes of noise around the next five replies of anybody, "late=150" holds every
// reply back by 150 ms. Without an address it is for all counters, without a count for ever. Several kinds may be in
// force for one reply, each as if it were alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class LineFaultKind {
    Silent,     // neither obeys nor answers
    Refuse,     // doesn't obey, and acknowledges with the status `value`; a poll or a settings read is answered as ever
    Noise,      // `value` random bytes before, between and after the records of a reply
    Torn,       // only the first `value` bytes of a record are spoken; 0 stands for half of them
    Split,      // a silence of `value` ms in the middle of a record
    Checksum,   // a wrong checksum
    Late,       // the reply begins `value` ms after its time
    Stranger,   // the record carries the address `value` and a checksum that fits
    Twice,      // two records in one reply
    Overlong,   // `value` bytes too many in the body, the checksum fits
    GarbleDate, // the clock of the record is no decimal number
    NoDate,     // the clock of the record is all zero: a month 0
    Latency,    // the reply is handed over in lumps, every `value` ms, as USB adapters do
    Echo,       // the request comes back before the reply, as from an adapter that hears itself
};

struct LineFault {
    LineFaultKind kind = LineFaultKind::Silent;
    std::optional<std::uint8_t> address; // none: all counters
    int value = 0;                       // as the kind says
    int remaining = 0;                   // replies it is still for; 0: for ever
};

// What is wrong with the text is put into `error`, in words for the user; the result is then empty.
std::optional<LineFault> ParseLineFault(std::string_view text, std::string& error);
std::optional<LineFaultKind> LineFaultKindOf(std::string_view name);
// One line for each kind: its name, its value as it is without one, and what it does.
std::string DescribeLineFaults();

// The faults in force.
class CLineFaults {
public:
    // Takes the place of a fault of the same kind for the same counters.
    void Add(const LineFault& fault);
    void Clear() { faults.clear(); }
    void Clear(LineFaultKind kind);

    // The value of a fault of this kind for a reply of the counter at `address`, and one reply less to go; none if no
    // such fault is in force. One for this counter alone comes before one for all.
    std::optional<int> Take(LineFaultKind kind, std::uint8_t address);

private:
    std::vector<LineFault> faults;
};
