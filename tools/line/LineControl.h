// The control lines of a running line: one command a line, in words.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "line/CounterLine.h"
#include "port/LineTime.h"

struct ControlAnswer {
    std::string text;              // for the user, without a line end: "ok", what was asked for, or "error: ..."
    bool quit = false;             // the program is to end
    std::optional<bool> traffic{}; // the traffic is to be shown, or not any more
};

// Carries out one control line at `now`. A blank line, and one that starts with '#', is answered by an empty text.
ControlAnswer RunControlLine(CCounterLine& line, std::string_view text, LineTime now);

// One line for each control line: how it is written and what it does.
std::string DescribeControlLines();

// "0: 12 in 7 out, 2012-07-02 16:21:20, English IN detect NO period 4 sensitivity 21", a line for each counter.
std::string DescribeCounters(CCounterLine& line, LineTime now);
