// Options, each with one value but --help.
#include "line/LineOptions.h"

#include <algorithm>
#include <limits>

#include "line/LineControl.h"
#include "line/LineWords.h"

namespace {

void ParseAddresses(std::string_view text, std::vector<std::uint8_t>& addresses, std::string& error) {
    constexpr std::size_t mostCounters = counterCount;
    addresses.clear();
    for (const std::string_view word : SplitLineWords(text)) {
        const auto address = ParseLineNumber(word, 0, highestLineAddress, error);
        if (!address) return;
        addresses.push_back(static_cast<std::uint8_t>(*address));
    }
    if (addresses.empty() || addresses.size() > mostCounters) error = "one to six addresses";
}

template <class Number>
void ParseInto(std::string_view text, int lowest, int highest, Number& target, std::string& error) {
    const auto value = ParseLineNumber(text, lowest, highest, error);
    if (value) target = static_cast<Number>(*value);
}

// Whether the value is the first of two words, of which it must be one.
bool IsFirst(std::string_view value, std::string_view first, std::string_view second, std::string& error) {
    if (value != first && value != second) error = std::string(first) + " or " + std::string(second);
    return value == first;
}

// False if it is no option of both programs; if the value doesn't fit, `error` says so.
bool TakeOption(std::string_view name, std::string_view value, LineOptions& options, std::string& error) {
    LineConfiguration& configuration = options.configuration;
    if (name == "--counters") {
        ParseAddresses(value, configuration.addresses, error);
    } else if (name == "--rate") {
        ParseInto(value, 0, highestLineRate, configuration.peoplePerMinute, error);
    } else if (name == "--seed") {
        ParseInto(value, 0, std::numeric_limits<int>::max(), configuration.seed, error);
    } else if (name == "--baud") {
        ParseInto(value, 0, 1'000'000, configuration.baudRate, error);
    } else if (name == "--pace") {
        options.portPaces = IsFirst(value, "port", "line", error);
    } else if (name == "--traffic") {
        options.showsTraffic = IsFirst(value, "on", "off", error);
    } else if (name == "--fault") {
        if (const auto fault = ParseLineFault(value, error)) options.faults.push_back(*fault);
    } else if (name == "--wire") {
        options.wirePath = value;
        if (value.empty()) error = "the path of a file";
    } else {
        return false;
    }
    return true;
}

} // namespace

LineConfiguration UsualLineConfiguration() {
    LineConfiguration configuration;
    configuration.peoplePerMinute = 30;
    return configuration;
}

bool ParseLineOptions(std::span<const char* const> arguments, std::initializer_list<std::string_view> ownNames,
                      LineOptions& options, std::string& error) {
    error.clear();
    while (!arguments.empty()) {
        const std::string name = arguments[0];
        if (name == "--help" || name == "-h") {
            options.help = true;
            return true;
        }
        const bool hasValue = arguments.size() > 1;
        const std::string value = hasValue ? arguments[1] : "";
        if (std::ranges::find(ownNames, name) != ownNames.end()) {
            options.own[name] = value;
        } else if (!TakeOption(name, value, options, error)) {
            error = "no such option: " + name + "; --help shows them";
            return false;
        }
        if (!hasValue) error = "a value is missing";
        if (!error.empty()) {
            error.insert(0, name + ": ");
            return false;
        }
        arguments = arguments.subspan(2);
    }
    return true;
}

CCounterLine StartLine(const LineOptions& options, const CalendarFields& date, LineTime now) {
    LineConfiguration configuration = options.configuration;
    configuration.date = date;
    CCounterLine line(configuration, now);
    for (const LineFault& fault : options.faults) line.Faults().Add(fault);
    return line;
}

std::string DescribeLineOptions() {
    return "  --counters LIST    addresses, one to six, parted by commas (0,1,3); the same one twice collides\n"
           "  --rate N           people per minute past each counter (30)\n"
           "  --seed N           another run of people and noise (1)\n"
           "  --baud N           pace of the line; 0: none (4800)\n"
           "  --pace line|port   whether the line waits each byte's time or the port does by itself (line, but for a\n"
           "                     port with modem lines; a pair of virtual ports has them, and may have no pace)\n"
           "  --fault FAULT      a fault from the start, as after \"fault\" below; may be given again\n"
           "  --wire FILE        wire log: a line for each chunk, with microseconds of the monotonic clock,\n"
           "                     > for what came from the program or < for what went to it, and the bytes in hex\n"
           "  --traffic on|off   shows what passes on the line: seconds, > from or < to the program, bytes (on)\n"
           "Control lines:\n" +
           DescribeControlLines() +
           "Faults, each with its usual value (\"torn 3\", \"noise=4 * 5\", \"late=150 2\"):\n" + DescribeLineFaults();
}
