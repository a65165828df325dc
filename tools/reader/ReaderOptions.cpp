#include "reader/ReaderOptions.h"

#include <map>
#include <memory>

#include <CLI/CLI.hpp>

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
CLI::Option* AddChoice(CLI::App& app, const char* name, Value& value, const std::map<std::string, Value>& choices,
                       const char* words) {
    std::string names;
    for (const auto& [word, each] : choices) names += (names.empty() ? "" : "|") + word;
    const auto take = [&value, choices, name, names](const std::string& word) {
        const auto found = choices.find(word);
        if (found == choices.end()) throw CLI::ValidationError(name, '"' + word + "\" is none of " + names);
        value = found->second;
    };
    return app.add_option_function<std::string>(name, take, words)->type_name(names);
}

// A port or a path. An empty one, such as a script's variable that was never set, would mean that none was given.
CLI::Option* AddName(CLI::App& app, const char* name, std::string& target, const char* kind, const char* words) {
    const auto fault = [](const std::string& text) { return std::string(text.empty() ? "is empty" : ""); };
    return app.add_option(name, target, words)->type_name(kind)->check(fault);
}

CLI::Option* AddNumber(CLI::App& app, const char* name, int& value, int lowest, int highest, const char* words) {
    return app.add_option(name, value, words)->type_name("N")->check(CLI::Range(lowest, highest));
}

// Those of every command that asks counters; gives the option of the addresses.
CLI::Option* AddLineOptions(CLI::App& app, LineOfCounters& line) {
    constexpr const char* addresses = "--addresses";
    const auto take = [&line](const std::string& text) {
        const auto chosen = AddressesOf(text);
        if (!chosen) throw CLI::ValidationError(addresses, '"' + text + "\" is no list of addresses from 0 to 5");
        line.addresses = *chosen;
    };
    line.addresses = *AddressesOf("0-5");
    AddName(app, "--port,-p", line.port, "PORT", "the line's port, as the command `ports` lists it")->required();
    AddNumber(app, "--baud", line.baudRate, 300, 115'200, "speed of the line (4800)");
    return app.add_option_function<std::string>(addresses, take, "who is asked: 0-5, or 0,3,5 (0-5)")
        ->type_name("LIST");
}

void AddPorts(CLI::App& app, PortsOptions& options) {
    CLI::App* const ports = app.add_subcommand("ports", "lists the serial ports of this machine");
    ports->footer(Examples("  quorvane-read ports\n  quorvane-read ports use COM17\n"));
    CLI::App* const use =
        ports->add_subcommand("use", "makes Quorvane open a port at its next start, one that it doesn't offer too");
    AddName(*use, "PORT", options.use, "", "such as COM17")->required();
}

void AddCounts(CLI::App& app, CountsOptions& options) {
    using enum CountsFormat;
    CLI::App* const counts = app.add_subcommand("counts", "reads the counts of the counters; changes none of them");
    AddLineOptions(*counts, options.line);
    counts->add_flag("--settings", options.withSettings, "reads the settings too");
    const std::string onceWords = "one round, and the end; so it is without --every";
    CLI::Option* const once = counts->add_flag("--once", onceWords);
    const auto takeEvery = [&options](const int& seconds) { options.every = seconds; };
    counts->add_option_function<int>("--every", takeEvery, "a round every so many seconds, until it is ended")
        ->type_name("SECONDS")
        ->check(CLI::Range(1, 86'400))
        ->excludes(once);
    AddChoice<CountsFormat>(*counts, "--format", options.format,
                            {{"table", Table}, {"csv", Csv}, {"jsonl", JsonLines}, {"prom", Prom}},
                            "of the rows (table); prom: one file for a text collector");
    AddName(*counts, "--output,-o", options.output, "FILE", "adds the rows to a file; with prom, replaces it");
    counts->footer(Examples("  quorvane-read counts --port @\n"
                            "  quorvane-read counts --port @ --every 60 --format csv --output counts.csv\n"
                            "  quorvane-read counts --port @ --addresses 0,3,5 --settings --format jsonl\n") +
                   "Exit code: 0 all asked counters answered each time, 2 some didn't, 1 port, file or usage\n");
}

void AddCheck(CLI::App& app, CheckOptions& options) {
    CLI::App* const check = app.add_subcommand("check", "looks whether a line is sound, and what to look at first");
    const auto noteGiven = [&options](const std::string&) { options.addressesAreGiven = true; };
    AddLineOptions(*check, options.line)->each(noteGiven);
    AddNumber(*check, "--seconds", options.seconds, 1, 86'400, "how long (60)");
    check->footer(Examples("  quorvane-read check --port @\n"
                           "  quorvane-read check --port @ --seconds 600 --addresses 0,1\n") +
                  "Exit code: 0 every counter answered each time, 2 some didn't, 1 port or usage. Addresses that\n"
                  "never answer count only if --addresses names them.\n");
}

void AddLog(CLI::App& app, LogOptions& options) {
    CLI::App* const log = app.add_subcommand("log", "reads a traffic log of Quorvane");
    AddName(*log, "FILE", options.path, "", "a Quorvane.log, or a copy of one")->required();
    AddChoice<RowKind>(*log, "--format", options.format.kind,
                       {{"table", RowKind::Table}, {"csv", RowKind::Csv}, {"jsonl", RowKind::JsonLines}},
                       "of the rows (csv)");
    log->add_flag("--settings", options.format.withSettings, "the columns of the settings too");
    log->add_flag("--summary", options.summary, "the state of the line, as `check` gives it, in place of the rows");
    log->footer(Examples("  quorvane-read log Quorvane.log > counts.csv\n"
                         "  quorvane-read log Quorvane.log --summary\n"));
}

void AddReport(CLI::App& app, ReportOptions& options) {
    using enum ReportLanguage;
    CLI::App* const report = app.add_subcommand("report", "makes a page for a browser from rows in CSV");
    AddName(*report, "FILE", options.path, "", "rows that `counts` or `log` wrote as CSV")->required();
    AddName(*report, "--output,-o", options.output, "FILE", "the page, such as day.html; without it, standard output");
    AddChoice<ReportLanguage>(*report, "--language", options.language, {{"en", English}, {"zh", Chinese}},
                              "of the page (en)");
    report->footer(Examples("  quorvane-read report counts.csv --output day.html\n"
                            "  quorvane-read report counts.csv --output day.html --language zh\n"));
}

} // namespace

ReaderCommand ParseReaderCommand(std::span<const char* const> arguments) {
    PortsOptions ports;
    CountsOptions counts;
    CheckOptions check;
    LogOptions log;
    ReportOptions report;
    CLI::App app("Reads people counters on a serial line, without a window.", "quorvane-read");
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "quorvane-read " PRODUCT_VERSION);
    app.require_subcommand(1);
    AddPorts(app, ports);
    AddCounts(app, counts);
    AddCheck(app, check);
    AddLog(app, log);
    AddReport(app, report);
    app.footer(Examples("  quorvane-read ports\n  quorvane-read counts --port @\n  quorvane-read check --port @\n") +
               "`quorvane-read counts --help` and so on show the options of a command.\n");
    try {
        app.parse(static_cast<int>(arguments.size()), arguments.data());
    } catch (const CLI::CallForHelp&) {
        return ReaderText{app.help()};
    } catch (const CLI::CallForVersion& version) {
        return ReaderText{std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& mistake) {
        return ReaderMistake{std::string(mistake.what()) + "; --help shows what there is"};
    }
    if (app.got_subcommand("ports")) return ports;
    if (app.got_subcommand("counts")) return counts;
    if (app.got_subcommand("check")) return check;
    if (app.got_subcommand("log")) return log;
    return report;
}
