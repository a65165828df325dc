// The ports that tests may use: 'A' and 'B' are the ends of one null-modem cable, 'C' and 'D' of another.
#pragma once

#include <cstdlib>
#include <string>

// As the environment variable QUORVANE_TEST_PORT_A (and so on) names it, else COM1 to COM4.
inline std::string TestPort(char end) {
    const char* const named = std::getenv((std::string("QUORVANE_TEST_PORT_") + end).c_str());
    return named != nullptr ? named : "COM" + std::to_string(end - 'A' + 1);
}
