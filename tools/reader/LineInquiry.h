// Questions on the line and what was heard in the pauses that follow: the only part of the reader that sends anything.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "reader/LineSheet.h"
#include "reader/ReaderGround.h"

// There is no other: whatever the reader is told to do, no counter is changed.
enum class Question : std::uint8_t { Counts, Settings };

// How long the line is left alone after a pause, as the program does it.
inline constexpr LineTime restAfterPause(10'000);
// How often a port that is away is tried.
inline constexpr LineTime retryInterval(3'000'000);

class CLineInquiry {
public:
    // `baudRate` tells how long a request is under way, and below 4800 how much longer the pauses are. The ground must
    // outlive this.
    CLineInquiry(CReaderGround& readerGround, int baudRate);

    // Opens the port. False with words for the user in `error`.
    bool Start(std::string& error);

    // Asks one counter as soon as the line has had its rest, and hears the whole pause. `NotAsked` at once while the
    // port is away. None if the program is to end.
    std::optional<LineTrace> Ask(std::uint8_t address, Question question);

    // Lets time pass; meanwhile a port that is away is tried, which `Ask` alone never does. False if the program is to
    // end.
    bool Idle(LineTime until);

    // Whether the port has gone and hasn't come back. Both are said once.
    bool IsPortAway() const { return isAway; }

private:
    // What was heard, with the time of each piece.
    struct Heard {
        std::vector<std::uint8_t> bytes; // of a flood the first ones
        struct Piece {
            std::size_t end; // in `bytes`
            LineTime time;
        };
        std::vector<Piece> pieces;
        std::size_t beyond = 0; // bytes that found no room
    };
    enum class Hearing : std::uint8_t { Done, Ended, Gone };

    Hearing Hear(Heard& heard, LineTime until);
    bool TakeInput(Heard& heard);
    void LosePort();
    void TryPort();
    std::optional<std::int32_t> LatencyOf(const Heard& heard, bool hasEcho, LineTime begin) const;

    CReaderGround& ground;
    int baud;
    LineTime requestTime;
    LineTime nextRequest{};
    LineTime nextTry{};
    bool isAway = false;
};
