// The command `ports`: the machine's serial ports, and the one that Quorvane opens.
#pragma once

#include <string>

#include "reader/Console.h"

struct PortsOptions {
    std::string use; // the port that Quorvane is to open at its next start; empty: the list
};

// Gives the exit code: 0, or 1 if the port can't be stored or nothing could be written.
int RunPorts(const PortsOptions& options, CConsole& console);
