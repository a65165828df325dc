// The six exchanges with the counters: a request frame out, a pause for the answer, one read, one window message.
//
// All of it runs on the worker thread, through the one serial port object. A command decodes nothing: the raw reply
// goes to the panel. What the line has delivered when the pause is over is the reply, whole or not; there is no retry.
// A closed or failing port costs the same pause and comes out as an empty reply. Frames, pauses and messages are those
// of the table in link/WireCommands.h.
#pragma once

#include <cstdint>
#include <memory>

#include "link/Command.h"
#include "link/CounterRecord.h"
#include "link/WireCommands.h"

// Queues the command of this code. Its reply comes to `target`, which must outlive it. User-interface thread.
void SendCommand(CReplyTarget& target, RequestCode code, const WireRequest& request);

class CPollCommand : public CCommand {
public:
    void Execute() override;
};

class CReadSettingsCommand : public CCommand {
public:
    void Execute() override;
};

class CClearCommand : public CCommand {
public:
    void Execute() override;
};

class CSetAddressCommand : public CCommand {
public:
    void Execute() override;

    std::uint8_t newAddress = 0;
};

// Without settings the two below send nothing and post nothing. The reply block carries a copy of the settings, since
// the command is gone by the time the result is handled.
class CSetClockCommand : public CCommand {
public:
    void Execute() override;

    std::unique_ptr<CounterRecord> settings;
};

class CWriteSettingsCommand : public CCommand {
public:
    void Execute() override;

    std::unique_ptr<CounterRecord> settings;
};
