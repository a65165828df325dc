// What the reader stands on: a port, two clocks, and the wish of the user or the system that it ends.
#pragma once

#include <string>

#include "port/LinePort.h"
#include "port/LineTime.h"
#include "reader/Reading.h"

class CReaderGround {
public:
    CReaderGround() = default;
    CReaderGround(const CReaderGround&) = delete;
    CReaderGround& operator=(const CReaderGround&) = delete;
    virtual ~CReaderGround() = default;

    virtual CLinePort& Port() = 0;
    // For distances; never goes back.
    virtual LineTime Now() = 0;
    // For rows; may jump.
    virtual Moment WallTime() = 0;
    // Until the port has input or is gone, but no longer than `until`. False if the program is to end.
    virtual bool AwaitInput(LineTime until) = 0;
    // Until `until`, whatever the port does. False if the program is to end.
    virtual bool Rest(LineTime until) = 0;
    // A line for the user, beside the rows.
    virtual void Say(const std::string& text) = 0;
};
