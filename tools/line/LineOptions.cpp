// Options, each with one value but --help.
#include "line/LineOptions.h"

#include <limits>
#include <string_view>

#include "line/LineControl.h"
#include "line/LineWords.h"
#include "resources/Product.h"

namespace {

std::string TakeAddresses(std::string_view text, std::vector<std::uint8_t>& addresses) {
    constexpr std::size_t mostCounters = counterCount;
    std::string error;
    addresses.clear();
    for (const std::string_view word : SplitLineWords(text)) {
        const auto address = ParseLineNumber(word, 0, highestLineAddress, error);
        if (!address) return error;
        addresses.push_back(static_cast<std::uint8_t>(*address));
    }
    return addresses.empty() || addresses.size() > mostCounters ? "one to six addresses" : "";
}

template <class Number>
Taking TakeNumber(int lowest, int highest, Number& target) {
    return [=, &target](const std::string& text) {
        std::string error;
        const auto value = ParseLineNumber(text, lowest, highest, error);
        if (value) target = static_cast<Number>(*value);
        return error;
    };
}

// The first of two words is true, the second false.
template <class Flag>
Taking TakeWord(const char* first, const char* second, Flag& target) {
    return [=, &target](const std::string& text) {
        target = text == first;
        return text == first || text == second ? std::string() : std::string(first) + " or " + second;
    };
}

std::string TakeFault(std::string_view text, std::vector<LineFault>& faults) {
    std::string error;
    if (const auto fault = ParseLineFault(text, error)) faults.push_back(*fault);
    return error;
}

void AddSharedOptions(const CCommandLine& line, LineOptions& options) {
    LineConfiguration& configuration = options.configuration;
    const auto add = [&line](const OptionWords& option, const Taking& take) { line.Add(option, take).TakeLast(); };
    add({"--counters", "LIST", "addresses, one to six, parted by commas (0,1,3); the same one twice collides"},
        [&configuration](const std::string& text) { return TakeAddresses(text, configuration.addresses); });
    add({"--rate", "N", "people per minute past each counter (30)"},
        TakeNumber(0, highestLineRate, configuration.peoplePerMinute));
    add({"--seed", "N", "another run of people and noise (1)"},
        TakeNumber(0, std::numeric_limits<int>::max(), configuration.seed));
    add({"--baud", "N", "pace of the line; 0: none (4800)"}, TakeNumber(0, 1'000'000, configuration.baudRate));
    add({"--pace", "line|port",
         "whether the line waits each byte's time or the port does by itself (line, but for a\n"
         "port with modem lines; a pair of virtual ports has them, and may have no pace)"},
        TakeWord("port", "line", options.portPaces));
    line.AddRepeated({"--fault", "FAULT", "a fault from the start, as after \"fault\" below"},
                     [&options](const std::string& text) { return TakeFault(text, options.faults); });
    add({"--wire", "FILE",
         "wire log: a line for each chunk, with microseconds of the monotonic clock, > for what\n"
         "came from the program or < for what went to it, and the bytes in hex"},
        [&options](const std::string& text) {
            options.wirePath = text;
            return std::string(text.empty() ? "the path of a file" : "");
        });
    add({"--traffic", "on|off", "shows what passes on the line: seconds, > from or < to the program, bytes (on)"},
        TakeWord("on", "off", options.showsTraffic));
}

} // namespace

LineConfiguration UsualLineConfiguration() {
    LineConfiguration configuration;
    configuration.peoplePerMinute = 30;
    return configuration;
}

bool ParseLineOptions(std::span<const char* const> arguments, const LineProgram& program, LineOptions& options,
                      std::string& error) {
    CCommandLine line("People counters on a simulated serial line.", program.name,
                      (std::string(program.name) + " " PRODUCT_VERSION).c_str());
    for (const OptionWords& own : program.options) {
        const auto take = [&options, &own](const std::string& text) {
            options.own[own.name] = text;
            return std::string();
        };
        line.Add(own, take).TakeLast();
    }
    AddSharedOptions(line, options);
    line.SetFooter("Control lines:\n" + DescribeControlLines() +
                   "\nFaults, each with its usual value (\"torn 3\", \"noise=4 * 5\", \"late=150 2\"):\n" +
                   DescribeLineFaults());
    const CommandLineEnd end = line.Read(arguments);
    options.help = end.help + end.version;
    error = end.mistake;
    return error.empty();
}

CCounterLine StartLine(const LineOptions& options, const CalendarFields& date, LineTime now) {
    LineConfiguration configuration = options.configuration;
    configuration.date = date;
    CCounterLine line(configuration, now);
    for (const LineFault& fault : options.faults) line.Faults().Add(fault);
    return line;
}
