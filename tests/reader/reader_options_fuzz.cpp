// Fuzzes the command line of the reader: what is accepted can be carried out as it stands.
#include <cstdlib>

#include "reader/ReaderOptions.h"
#include "support/TokenText.h"

namespace {

constexpr std::string_view optionTokens[] = {
    "\n",        "ports\n",    "use\n",    "counts\n",    "check\n",  "log\n",    "report\n",   "--port",
    "--baud",    "--every",    "--once\n", "--addresses", "--format", "--output", "--settings", "--seconds",
    "--summary", "--language", "--help",   "--version",   "=",        "COM3\n",   "0-5",        "0,3,5\n",
    "csv\n",     "prom\n",     "zh\n",     "86400",       "4800\n",   "-p"};

bool IsWithin(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

bool IsLine(const LineOfCounters& line) {
    bool rises = !line.addresses.empty() && line.addresses.back() < 6;
    for (std::size_t i = 1; i < line.addresses.size(); ++i) rises = rises && line.addresses[i - 1] < line.addresses[i];
    return rises && !line.port.empty() && IsWithin(line.baudRate, 300, 115'200);
}

// Whether each kind of command is what its header promises.
struct CommandCheck {
    bool operator()(const ReaderMistake& mistake) const { return mistake.words.find("--help") != std::string::npos; }
    bool operator()(const ReaderText& text) const { return !text.text.empty(); }
    bool operator()(const PortsOptions&) const { return true; }
    bool operator()(const CountsOptions& counts) const {
        return IsLine(counts.line) && IsWithin(counts.every.value_or(1), 1, 86'400);
    }
    bool operator()(const CheckOptions& check) const {
        return IsLine(check.line) && IsWithin(check.seconds, 1, 86'400);
    }
    bool operator()(const LogOptions& log) const { return !log.path.empty(); }
    bool operator()(const ReportOptions& report) const { return !report.path.empty(); }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto words = TokenLines({data, size}, optionTokens);
    if (!std::visit(CommandCheck(), ParseReaderCommand(Arguments("reader", words)))) std::abort();
    return 0;
}
