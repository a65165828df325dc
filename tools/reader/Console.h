// Standard output and standard error, and the terminals behind them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class CConsole {
public:
    // Writes to standard output. False if it can't be written: its reader has gone, which is its own business, or
    // something else, which has been said then.
    bool Write(std::string_view text);
    // One line on standard error, with the program's name in front and the end behind.
    void Complain(std::string_view text);
    // What stands there until the next text; on a terminal alone.
    void ShowProgress(std::string_view text);

    // Whether `Write` writes to a terminal that can be told to go up and overwrite lines.
    bool CanRedraw() const;
    // How many lines `Complain` has written.
    std::size_t Complaints() const { return complaints; }

private:
    std::size_t complaints = 0;
    bool hasProgress = false;
};
