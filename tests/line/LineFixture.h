// A line on a time of its own, spoken to in hex.
#pragma once

#include <gtest/gtest.h>

#include "line/CounterLine.h"
#include "line/LineControl.h"
#include "support/Hex.h"

// Counters 0, 1 and 3 whose clocks start at 2012-07-02 16:21:20, without people.
class LineTest : public testing::Test {
protected:
    // Lets time pass until the line is silent.
    std::string Listen() {
        LineBytes heard;
        while (const auto due = line.NextDue()) {
            const LineBytes bytes = line.TakeDue(now = std::max(now, *due));
            heard.insert(heard.end(), bytes.begin(), bytes.end());
        }
        return HexOf(heard);
    }
    std::string Ask(std::string_view hex) {
        line.Feed(BytesOf(hex), now);
        return Listen();
    }
    std::string Control(std::string_view text) { return RunControlLine(line, text, now).text; }

    LineTime now{5'000'000};
    CCounterLine line{LineConfiguration{}, now};
};
