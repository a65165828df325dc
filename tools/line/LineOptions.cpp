// Options, each with one value but --help.
#include "line/LineOptions.h"

#include <algorithm>
#include <limits>

#include "line/LineControl.h"
#include "line/LineWords.h"

namespace {

bool ParseAddresses(std::string_view text, std::vector<std::uint8_t>& addresses) {
    constexpr std::size_t mostCounters = counterCount;
    addresses.clear();
    for (const std::string_view word : SplitLineWords(text)) {
        const auto address = ParseLineNumber(word, 0, 254);
        if (!address) return false;
        const auto byte = static_cast<std::uint8_t>(*address);
        if (std::ranges::find(addresses, byte) != addresses.end()) return false;
        addresses.push_back(byte);
    }
    return !addresses.empty() && addresses.size() <= mostCounters;
}

template <class Number>
bool ParseInto(std::string_view text, int lowest, int highest, Number& target) {
    const auto value = ParseLineNumber(text, lowest, highest);
    if (value) target = static_cast<Number>(*value);
    return value.has_value();
}

// False if the value doesn't fit the option; `known` tells whether it is an option at all.
bool TakeOption(std::string_view name, std::string_view value, LineOptions& options, bool& known, std::string& error) {
    LineConfiguration& configuration = options.configuration;
    known = true;
    if (name == "--counters") return ParseAddresses(value, configuration.addresses);
    if (name == "--rate") return ParseInto(value, 0, highestLineRate, configuration.peoplePerMinute);
    if (name == "--seed") return ParseInto(value, 0, std::numeric_limits<int>::max(), configuration.seed);
    if (name == "--baud") return ParseInto(value, 0, 1'000'000, configuration.baudRate);
    if (name == "--fault") {
        const auto fault = ParseLineFault(value, error);
        if (fault) options.faults.push_back(*fault);
        return fault.has_value();
    }
    if (name == "--wire") {
        options.wirePath = value;
        return !value.empty();
    }
    known = false;
    return false;
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
        bool known = std::ranges::find(ownNames, name) != ownNames.end();
        bool good = true;
        if (known) {
            options.own[name] = value;
        } else {
            good = TakeOption(name, value, options, known, error);
        }
        if (!known) {
            error = "no such option: " + name;
        } else if (!hasValue) {
            error = name + " wants a value";
        } else if (!good && error.empty()) {
            error = name + " can't be \"" + value + "\"";
        }
        if (!error.empty()) return false;
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
    return "  --counters LIST    addresses, one to six, parted by commas (0,1,3)\n"
           "  --rate N           people per minute past each counter (30)\n"
           "  --seed N           another run of people and noise (1)\n"
           "  --baud N           pace of the line; 0: none (4800)\n"
           "  --fault FAULT      a fault from the start, as after \"fault\" below; may be given again\n"
           "  --wire FILE        wire log: a line for each chunk, with microseconds of the monotonic clock,\n"
           "                     > for what came from the program or < for what went to it, and the bytes in hex\n"
           "Control lines:\n" +
           DescribeControlLines() +
           "Faults, each with its usual value (\"torn 3\", \"noise=4 * 5\", \"late=150 2\"):\n" + DescribeLineFaults();
}
