// Fuzzes the command line of the simulated line: what is accepted makes a line within its limits.
#include <cstdlib>

#include "line/LineOptions.h"
#include "support/TokenText.h"

namespace {

constexpr std::string_view optionTokens[] = {
    "\n",     "--counters", "--rate", "--seed", "--baud", "--pace", "--fault",   "--wire", "--traffic",
    "--help", "--link",     "=",      "-",      "0,1,3",  "255",    "100001",    "4800",   "silent",
    "torn=5", " * ",        "port\n", "line\n", "on\n",   "off\n",  "2147483647"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto words = TokenLines({data, size}, optionTokens);
    LineOptions options;
    std::string error;
    const LineProgram program{"line", {{"--link", "PATH", "a link"}}};
    const bool isAccepted = ParseLineOptions(Arguments("line", words), program, options, error);
    if (isAccepted != error.empty()) std::abort();
    if (!isAccepted || !options.help.empty()) return 0;
    const LineConfiguration& line = options.configuration;
    if (line.addresses.empty() || line.addresses.size() > counterCount) std::abort();
    if (line.peoplePerMinute < 0 || line.peoplePerMinute > highestLineRate || line.baudRate < 0) std::abort();
    for (const std::uint8_t address : line.addresses)
        if (address > highestLineAddress) std::abort();
    if (StartLine(options, line.date, {}).Counters({}).size() != line.addresses.size()) std::abort();
    return 0;
}
