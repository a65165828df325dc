// The signals that end a program, made into a descriptor that it waits for among others: so none slips in between a
// test and a sleep, and none cuts a write.
#pragma once

#include "port/Descriptor.h"

class CStopSignals {
public:
    // From here on SIGINT, SIGTERM and SIGHUP end nothing by themselves, but for those that the program was started to
    // ignore; nor do SIGPIPE and SIGXFSZ, whose writes fail by themselves. Before other threads are started.
    CStopSignals();

    // For a poll: has input once such a signal has come, and keeps it.
    int Descriptor() const { return signals.Get(); }

private:
    CDescriptor signals;
};
