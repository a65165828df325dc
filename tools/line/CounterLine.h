// A serial line with people counters on it, simulated: bytes and a clock in, bytes with their due times out.
//
// The line keeps the pace of its baud rate in both directions (10 bits a byte: start, 8 data, stop), since a
// pseudo-terminal or a buffer in memory has none: a request counts as heard when its last byte would have passed, and
// after a short turnaround the reply comes byte by byte. On a port with a pace of its own a request has been heard when
// it comes, and a reply is handed over whole. A request to all counters is answered by one address after the other, in
// the order in which they were given. Counters with one address speak at once, and nobody understands them. The line is
// full duplex: what is sent while a counter speaks is heard.
//
// For one thread at a time. Times passed in never run backwards.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "framework/Time.h"
#include "line/LineCounter.h"
#include "line/LineFaults.h"
#include "line/LineFrames.h"
#include "line/LineRandom.h"
#include "port/LineTime.h"
#include "line/ReplyFaults.h"
#include "line/ReplyQueue.h"

// The most people per minute past one counter.
inline constexpr int highestLineRate = 100'000;

struct LineConfiguration {
    std::vector<std::uint8_t> addresses{0, 1, 3}; // one to six, none of them 255
    int baudRate = 4800;                          // 0: no pace, everything is due at once
    LineTime turnaround{1000};                    // between a request and its reply, and between two replies
    int peoplePerMinute = 0;                      // past each counter, up to highestLineRate
    std::uint64_t seed = 1;
    CalendarFields date{2012, 7, 2, 16, 21, 20}; // what every counter's clock shows at the start
};

class CCounterLine {
public:
    CCounterLine(const LineConfiguration& configuration, LineTime now);

    // Whether the port keeps the line's pace by itself; at first it doesn't.
    void LeavePaceToPort(bool portKeepsPace);

    // What the program has written. Garbage, and requests for nobody here, pass without a trace.
    void Feed(std::span<const std::uint8_t> bytes, LineTime now);
    // What the program can read by `now` and hasn't been given yet.
    LineBytes TakeDue(LineTime now);
    // When the next byte is due, which may be past; none while the line is silent. Feed may bring it forward.
    std::optional<LineTime> NextDue() const { return replies.NextDue(); }
    // Speaks these bytes as if they were a reply; on a pulled cable nobody hears them.
    void Send(LineBytes bytes, LineTime now);

    // With the cable pulled nothing is heard, and what was about to be said is lost. Counters go on counting.
    void SetPlugged(bool isPlugged);
    bool IsPlugged() const { return plugged; }

    // The faults in force, to be added to and cleared at any time.
    CLineFaults& Faults() { return faults; }

    // In the order in which they were given, everybody counted who passed by `now`. Free to be changed.
    std::span<CLineCounter> Counters(LineTime now);
    // The first counter at the address, up to date; null if there is none.
    CLineCounter* Find(std::uint8_t address, LineTime now);

private:
    void Serve(const LineRequest& request, LineTime heard);
    // What the counter says; none if it is silent.
    std::optional<SpokenReply> Answer(CLineCounter& counter, const LineRequest& request, LineTime heard);
    void Say(SpokenReply reply, LineTime heard);

    LineTime byteTime;
    LineTime turnaround;
    bool portPaces = false;
    std::vector<CLineCounter> counters;
    CRequestParser parser;
    CReplyQueue replies;
    CLineFaults faults;
    CLineRandom random;
    LineTime lastHeard; // when the last byte from the program has passed
    bool plugged = true;
};
