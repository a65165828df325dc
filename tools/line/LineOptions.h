// The command line that both programs of the line share.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "line/CounterLine.h"

// What the programs start with where the options say nothing: as in the class, and people pass.
LineConfiguration UsualLineConfiguration();

struct LineOptions {
    LineConfiguration configuration = UsualLineConfiguration();
    std::vector<LineFault> faults;
    std::string wirePath;          // empty: no wire log
    bool showsTraffic = true;      // on the screen
    std::optional<bool> portPaces; // whether the port keeps the line's pace by itself; none: as the port says
    bool help = false;
    std::map<std::string, std::string, std::less<>> own; // values of the options that only one program has, by name
};

// `arguments` without the program's name; `ownNames` are the further options that take a value, such as "--link". False
// with words for the user in `error` if something is wrong.
bool ParseLineOptions(std::span<const char* const> arguments, std::initializer_list<std::string_view> ownNames,
                      LineOptions& options, std::string& error);

// The line that the options describe, its faults in force and every clock at `date`.
CCounterLine StartLine(const LineOptions& options, const CalendarFields& date, LineTime now);

// The shared options, the control lines and the faults, as the help shows them.
std::string DescribeLineOptions();
