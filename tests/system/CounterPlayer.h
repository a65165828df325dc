// Plays the counters at the far end of the program's line, on a thread of its own, and keeps what passes on the wire.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Waiting.h"
#include "line/CounterLine.h"
#include "serial/CommPort.h"

// A request as it came in: not before `earliest`, when the line was last seen empty, and not after `latest`.
struct HeardFrame {
    LineBytes bytes;
    Clock::time_point earliest;
    Clock::time_point latest;

    std::uint8_t Address() const { return bytes[1]; }
    std::uint8_t Code() const { return bytes[2]; }
};

// As the log writes it: two lower-case digits and a blank for each byte.
std::string HexOf(const LineBytes& bytes);

// The whole frame of a poll, as the counters' protocol has it.
LineBytes PollFrame(std::uint8_t address);

class CCounterPlayer {
public:
    // Counters without people; answers come at once, whatever the baud rate.
    explicit CCounterPlayer(const std::vector<std::uint8_t>& addresses);
    CCounterPlayer(const CCounterPlayer&) = delete;
    CCounterPlayer& operator=(const CCounterPlayer&) = delete;
    ~CCounterPlayer();

    // False if the port can't be opened.
    bool Play();

    // From now on, both the numbers of people.
    void Count(std::uint8_t address, int in, int out);
    // As the simulated line writes faults: "torn 3", "late=150 *".
    void BringFault(const std::string& text);
    void ClearFaults();
    void Say(LineBytes bytes);

    std::vector<HeardFrame> Heard() const;
    std::size_t HeardCount() const { return Heard().size(); }
    // The frames with this command byte.
    std::vector<HeardFrame> Heard(std::uint8_t code) const;
    std::size_t HeardBytes() const; // garbage counts too
    LineBytes Spoken() const;

    // Until nothing has come in for two poll periods.
    bool AwaitSilence() const;
    bool AwaitFrames(std::size_t more) const;

private:
    void Run();
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
