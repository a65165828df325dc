// The commands that ask counters on a line: `counts` and `check`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "reader/Console.h"

struct LineOfCounters {
    std::string port;
    int baudRate = 4800;
    std::vector<std::uint8_t> addresses; // rising
    bool addressesAreGiven = false;      // then `check` wants a counter at each
};

enum class CountsFormat : std::uint8_t { Table, Csv, JsonLines, Prom };

struct CountsOptions {
    LineOfCounters line;
    bool withSettings = false;
    std::optional<int> every; // seconds from round to round; none: one round
    CountsFormat format = CountsFormat::Table;
    std::string output; // path of a file; empty: standard output
};

struct CheckOptions {
    LineOfCounters line;
    int seconds = 60;
};

// Both give the exit code: 0 if all asked counters answered each time, 2 if some didn't, 1 if the port, a file or
// standard output is in the way.
int RunCounts(const CountsOptions& options, CConsole& console);
int RunCheck(const CheckOptions& options, CConsole& console);
