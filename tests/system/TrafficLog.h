// The program's traffic log, read while the program writes it.
#pragma once

#include <string>
#include <vector>

struct LogLine {
    std::string time; // "2012/07/02 16:21:20"
    bool sent;        // else received
    std::string hex;  // each byte with a blank behind it
};

std::string LogPath();

// Every byte of the file.
std::string LogText();

// Its lines. Fails the test at the first one that isn't in the exact form.
std::vector<LogLine> LogLines();
