#include "reader/ReaderOptions.h"

#include <map>

#include "options/CommandLine.h"
#include "reader/AddressList.h"
#include "resources/Product.h"

namespace {

#ifdef _WIN32
constexpr const char* examplePort = "COM3";
#else
constexpr const char* examplePort = "/dev/ttyUSB0";
#endif

// Every @ stands for a port.
std::string Examples(const std::string& lines) {
    std::string text = "Examples:\n";
    for (const char each : lines) text += each == '@' ? std::string(examplePort) : std::string(1, each);
    return text;
}

// A word for each value of an option.
template <class Value>
void AddChoice(const CCommand& command, const char* name, Value& value, const std::map<std::string, Value>& choices,
               const char* words) {
    std::string names;
    for (const auto& [word, each] : choices) names += (names.empty() ? "" : "|") + word;
    const auto take = [&value, choices, names](const std::string& word) {
        const auto found = choices.find(word);
        if (found == choices.end()) return '"' + word + "\" is none of " + names;
        value = found->second;
        return std::string();
    };
    command.Add({name, names.c_str(), words}, take);
}

// A port or a path. An empty one would mean that none was given.
CCommandOption AddName(const CCommand& command, const char* name, std::string& target, const char* kind,
                       const char* words) {
    const auto take = [&target](const std::string& text) {
        target = text;
        return std::string();
    };
    return command.Add({name, kind, words}, take).RefuseEmpty();
}

void AddNumber(const CCommand& command, const char* name, int& target, int lowest, int highest, const char* words) {
    command.AddNumber({name, "N", words}, lowest, highest, [&target](int value) { target = value; });
}

// Those of every command that asks counters.
void AddLineOptions(const CCommand& command, LineOfCounters& line) {
    const auto take = [&line](const std::string& text) {
        const auto chosen = AddressesOf(text);
        if (!chosen) return '"' + text + "\" is no list of addresses from 0 to 5";
        line.addresses = *chosen;
        line.addressesAreGiven = true;
        return std::string();
    };
    line.addresses = *AddressesOf("0-5");
    AddName(command, "--port,-p", line.port, "PORT", "the line's port, as the command `ports` lists it").Require();
    AddNumber(command, "--baud", line.baudRate, 300, 115'200, "speed of the line (4800)");
    command.Add({"--addresses", "LIST", "who is asked: 0-5, or 0,3,5 (0-5)"}, take);
}

void AddPorts(const CCommand& program, PortsOptions& options) {
    const CCommand ports = program.AddCommand("ports", "lists the serial ports of this machine");
    ports.SetFooter(Examples("  quorvane-read ports\n  quorvane-read ports use COM17\n"));
    const CCommand use =
        ports.AddCommand("use", "makes Quorvane open a port at its next start, one that it doesn't offer too");
    AddName(use, "PORT", options.use, "", "such as COM17").Require();
}

void AddCounts(const CCommand& program, CountsOptions& options) {
    using enum CountsFormat;
    const CCommand counts = program.AddCommand("counts", "reads the counts of the counters; changes none of them");
    AddLineOptions(counts, options.line);
    counts.AddFlag("--settings", "reads the settings too", &options.withSettings);
    const CCommandOption once = counts.AddFlag("--once", "one round, and the end; so it is without --every");
    counts
        .AddNumber({"--every", "SECONDS", "a round every so many seconds, until it is ended"}, 1, 86'400,
                   [&options](int seconds) { options.every = seconds; })
        .Exclude(once);
    AddChoice<CountsFormat>(counts, "--format", options.format,
                            {{"table", Table}, {"csv", Csv}, {"jsonl", JsonLines}, {"prom", Prom}},
                            "of the rows (table); prom: one file for a text collector");
    AddName(counts, "--output,-o", options.output, "FILE", "adds the rows to a file; with prom, replaces it");
    counts.SetFooter(Examples("  quorvane-read counts --port @\n"
                              "  quorvane-read counts --port @ --every 60 --format csv --output counts.csv\n"
                              "  quorvane-read counts --port @ --addresses 0,3,5 --settings --format jsonl\n") +
                     "Exit code: 0 all asked counters answered each time, 2 some didn't, 1 port, file or usage\n");
}

void AddCheck(const CCommand& program, CheckOptions& options) {
    const CCommand check = program.AddCommand("check", "looks whether a line is sound, and what to look at first");
    AddLineOptions(check, options.line);
    AddNumber(check, "--seconds", options.seconds, 1, 86'400, "how long (60)");
    check.SetFooter(Examples("  quorvane-read check --port @\n"
                             "  quorvane-read check --port @ --seconds 600 --addresses 0,1\n") +
                    "Exit code: 0 every counter answered each time, 2 some didn't, 1 port or usage. Addresses that\n"
                    "never answer count only if --addresses names them.\n");
}

void AddLog(const CCommand& program, LogOptions& options) {
    const CCommand log = program.AddCommand("log", "reads a traffic log of Quorvane");
    AddName(log, "FILE", options.path, "", "a Quorvane.log, or a copy of one").Require();
    AddChoice<RowKind>(log, "--format", options.format.kind,
                       {{"table", RowKind::Table}, {"csv", RowKind::Csv}, {"jsonl", RowKind::JsonLines}},
                       "of the rows (csv)");
    log.AddFlag("--settings", "the columns of the settings too", &options.format.withSettings);
    log.AddFlag("--summary", "the state of the line, as `check` gives it, in place of the rows", &options.summary);
    log.SetFooter(Examples("  quorvane-read log Quorvane.log > counts.csv\n"
                           "  quorvane-read log Quorvane.log --summary\n"));
}

void AddReport(const CCommand& program, ReportOptions& options) {
    using enum ReportLanguage;
    const CCommand report = program.AddCommand("report", "makes a page for a browser from rows in CSV");
    AddName(report, "FILE", options.path, "", "rows that `counts` or `log` wrote as CSV").Require();
    AddName(report, "--output,-o", options.output, "FILE", "the page, such as day.html; without it, standard output");
    AddChoice<ReportLanguage>(report, "--language", options.language, {{"en", English}, {"zh", Chinese}},
                              "of the page (en)");
    report.SetFooter(Examples("  quorvane-read report counts.csv --output day.html\n"
                              "  quorvane-read report counts.csv --output day.html --language zh\n"));
}

} // namespace

ReaderCommand ParseReaderCommand(std::span<const char* const> arguments) {
    PortsOptions ports;
    CountsOptions counts;
    CheckOptions check;
    LogOptions log;
    ReportOptions report;
    CCommandLine line("Reads people counters on a serial line, without a window.", "quorvane-read",
                      "quorvane-read " PRODUCT_VERSION);
    line.RequireCommand();
    AddPorts(line, ports);
    AddCounts(line, counts);
    AddCheck(line, check);
    AddLog(line, log);
    AddReport(line, report);
    line.SetFooter(
        Examples("  quorvane-read ports\n  quorvane-read counts --port @\n  quorvane-read check --port @\n") +
        "`quorvane-read counts --help` and so on show the options of a command.\n");
    const CommandLineEnd end = line.Read(arguments);
    if (!end.help.empty()) return ReaderText{end.help};
    if (!end.version.empty()) return ReaderText{end.version + "\n"};
    if (!end.mistake.empty()) return ReaderMistake{end.mistake + "; --help shows what there is"};
    if (line.IsGiven("ports")) return ports;
    if (line.IsGiven("counts")) return counts;
    if (line.IsGiven("check")) return check;
    if (line.IsGiven("log")) return log;
    return report;
}
