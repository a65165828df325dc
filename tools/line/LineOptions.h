// The command line that both programs of the line share.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "line/CounterLine.h"
#include "options/CommandLine.h"

// What the programs start with where the options say nothing: as in the class, and people pass.
LineConfiguration UsualLineConfiguration();

struct LineOptions {
    LineConfiguration configuration = UsualLineConfiguration();
    std::vector<LineFault> faults;
    std::string wirePath;          // empty: no wire log
    bool showsTraffic = true;      // on the screen
    std::optional<bool> portPaces; // whether the port keeps the line's pace by itself; none: as the port says
    std::string help;              // to be shown, and nothing done; empty: not asked for
    std::map<std::string, std::string, std::less<>> own; // values of the options that only one program has, by name
};

// What one of the programs has beside the shared options.
struct LineProgram {
    const char* name;
    std::vector<OptionWords> options;
};

// `arguments` with the program's file name in front. False with words for the user in `error` if something is wrong.
bool ParseLineOptions(std::span<const char* const> arguments, const LineProgram& program, LineOptions& options,
                      std::string& error);

// The line that the options describe, its faults in force and every clock at `date`.
CCounterLine StartLine(const LineOptions& options, const CalendarFields& date, LineTime now);
