// Plays the counters at the far end of the program's line, on a thread of its own, and keeps what passes on the wire.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Program.h"
#include "line/CounterLine.h"
#include "serial/CommPort.h"

// A request as it came in: not before `earliest`, when the line was last seen empty, and not after `latest`.
struct HeardFrame {
    std::string hex; // as the log writes it
    Clock::time_point earliest;
    Clock::time_point latest;
};

// Two lower-case digits and a blank for each byte.
std::string HexOf(const LineBytes& bytes);
// A whole frame: start byte, checksum and end byte around what is given.
std::string FrameAround(const std::string& hex);

class CCounterPlayer {
public:
    // Counters without people; answers come at once, whatever the baud rate.
    explicit CCounterPlayer(const std::vector<std::uint8_t>& addresses);
    CCounterPlayer(const CCounterPlayer&) = delete;
    CCounterPlayer& operator=(const CCounterPlayer&) = delete;
    ~CCounterPlayer();

    // False if there is no such port.
    bool Play(const std::string& portName);

    void Count(std::uint8_t address, int in, int out);
    // As the simulated line writes faults: "torn 3", "late=150 *". They take the place of those in force.
    void BringFaults(const std::vector<std::string>& faults);
    void Say(const LineBytes& bytes);

    // The requests to come, of one command if `code` is given ("81 " for polls).
    std::vector<HeardFrame> Heard(const std::string& code = "") const;
    std::size_t HeardBytes() const; // with what is no request
    LineBytes Spoken() const;

    bool AwaitFrames(std::size_t more) const;
    // Until nothing has come in for two poll periods.
    bool AwaitSilence() const;

private:
    void Listen(Clock::time_point lastLook);

    CCommPort port;
    mutable std::mutex lock; // guards everything down to `spoken`
    CCounterLine line;
    CRequestParser parser;
    std::vector<HeardFrame> heard;
    std::size_t heardBytes = 0;
    LineBytes spoken;
    std::atomic<bool> stops{false};
    std::thread thread;
};
