// Base of the commands that the queue runs: one exchange with the counters each.
#pragma once

#include <cstdint>

#include "link/CounterRecord.h"
#include "link/ReplyTarget.h"

// Made and filled on the user-interface thread, run once on the worker and deleted there. The queue owns it in between.
class CCommand {
public:
    CCommand() = default;
    CCommand(const CCommand&) = delete;
    CCommand& operator=(const CCommand&) = delete;
    virtual ~CCommand() = default;

    // Runs on the worker thread, for as long as the line takes.
    virtual void Execute() {}

    CReplyTarget* panel = nullptr;             // who gets the reply; not owned, must outlive the command; may be null
    std::uint8_t address = allCountersAddress; // a counter's address, or all of them
};
