// Holds the traffic log against what has passed on the wire: each line has its frame, each frame its line.
//
// While the port is opened, closed or pulled, bytes may get lost on either side; Disturb tells of that. The frames that
// the line has heard stand in the log in their order, what it has said comes back byte by byte, and the polls of a run
// go round the addresses. For one thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "port/LineBytes.h"
#include "port/LineTime.h"

// " 02 00 81".
std::string TextOf(const LineBytes& bytes);

class CLogJudge {
public:
    // The program starts, and its log is empty.
    void Restart(LineTime now);
    // Bytes may get lost: those of the second before this one, and of that behind it.
    void Disturb(LineTime now);

    void Hear(const LineBytes& frame, LineTime now) { heard.push_back({frame, now, false}); }
    void Speak(const LineBytes& bytes, LineTime now);

    // Takes what the log has got since the last call, in whole lines or parts of lines. What is wrong; empty if
    // nothing.
    std::string Read(std::string_view text, LineTime now);
    // Whether the text ends with a line's end.
    bool IsWhole() const { return unfinished.empty(); }

    std::size_t Lines() const { return lines; }

private:
    struct Frame {
        LineBytes bytes;
        LineTime time;
        bool mayBeLost;
    };

    std::string TakeLine(std::string_view line, LineTime now);
    std::string TakeSent(const LineBytes& frame, LineTime now);
    std::string TakeReceived(const LineBytes& bytes);
    // What has been said and isn't in the log yet; what may get lost of it stands in front.
    struct Unread {
        std::deque<std::uint8_t> doubtful, certain;
        bool operator==(const Unread&) const = default;
    };
    std::string TextOfUnread() const;
    // To `next` go all ways in which the bytes can have come from `before`.
    static void Receive(std::span<const std::uint8_t> bytes, const Unread& before, std::vector<Unread>& next);
    // Of what is logged and what is heard, takes away the pairs.
    std::string Match(LineTime now);
    // From the ways before the frame heard first to those behind it.
    void Follow(std::size_t way, std::set<std::size_t>& next) const;

    std::string unfinished;
    std::string lastSecond; // date and time of the last line
    std::deque<Frame> logged, heard;
    std::set<std::size_t> ways{0}; // see Match
    std::vector<Unread> unread{1}; // by each way to understand the log: what came may look like what got lost
    LineTime lastSpoken{};
    std::optional<LineTime> disturbedUntil; // and then to the next answer
    std::size_t lines = 0;
    std::uint8_t nextPoll = 0;
    bool expectsReceived = false;
};
