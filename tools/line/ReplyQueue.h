// What waits to be spoken on the line: one transmission after the other, a byte at a time, at the line's pace.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "line/LineFrames.h"
#include "port/LineTime.h"

class CReplyQueue {
public:
    // `timeOfByte` is what one byte takes on the wire, `silence` the least between two transmissions.
    CReplyQueue(LineTime timeOfByte, LineTime silence) : byteTime(timeOfByte), gap(silence) {}

    // Whether the port that the bytes go to takes a byte's time for each by itself. A transmission is then due as a
    // whole when it begins; without it (so at first) each byte is due when its last bit has passed.
    void LeavePaceToPort(bool portKeepsPace) { portPaces = portKeepsPace; }

    // Speaks `bytes` from `start` on, or as soon after it as the line is free. Those that wait are spoken in the order
    // of their start, equal ones in the order in which they were added; none is cut into. With a `latency` they are due
    // in lumps, at its multiples.
    void Add(LineTime start, LineBytes bytes, LineTime latency = LineTime(0));

    // The bytes that are due by `now`, in order.
    LineBytes TakeDue(LineTime now);
    // When the next byte is due; none if nothing waits.
    std::optional<LineTime> NextDue() const;

    void Clear();

private:
    struct Transmission {
        LineTime start;
        LineBytes bytes;
        LineTime latency;
    };
    // The transmission that the next byte belongs to; null if nothing waits.
    const Transmission* Current() const;
    LineTime EndOfNextByte() const;

    LineTime byteTime;
    LineTime gap;
    bool portPaces = false;
    std::deque<Transmission> waiting; // by rising start
    Transmission speaking{};
    std::size_t spoken = 0;
    LineTime lastEnd{};     // of the last byte spoken
    bool everSpoke = false; // lastEnd means something
};
