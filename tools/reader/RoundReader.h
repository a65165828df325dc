// Rounds of questions on a fixed grid, and the row that each counter gives.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "reader/LineInquiry.h"

// Where rows go.
class CRoundTarget {
public:
    CRoundTarget() = default;
    CRoundTarget(const CRoundTarget&) = delete;
    CRoundTarget& operator=(const CRoundTarget&) = delete;
    virtual ~CRoundTarget() = default;

    // A row as soon as it is known, and all rows of a round at its end; `isWhole` unless the program ends within it.
    // False if nobody takes rows any more.
    virtual bool TakeReading(const Reading& reading) = 0;
    virtual bool EndRound(std::span<const Reading> round, bool isWhole) = 0;
    // After the last round: writes what still waits. False if rows couldn't be written.
    virtual bool Finish(CReaderGround&) { return true; }
};

struct RoundPlan {
    std::vector<std::uint8_t> addresses; // in the order in which they are asked, each once
    bool withSettings = false;           // of each counter that isn't silent
    std::optional<LineTime> every;       // from the begin of a round to that of the next; none: one round
};

enum class RoundsResult : std::uint8_t {
    Answered, // every row has an answer, and there are rows
    Missing,  // not every one
    PortAway, // as at the end
    NoTarget  // nobody took the rows any more
};

class CRoundReader {
public:
    // All of them must outlive this; the inquiry is started.
    CRoundReader(CReaderGround& readerGround, CLineInquiry& lineInquiry, CRoundTarget& roundTarget)
        : ground(readerGround), inquiry(lineInquiry), target(roundTarget) {}

    // Until the plan or the program ends. A round that takes longer than the distance of the grid makes the next one
    // begin at the first point of the grid that is left.
    RoundsResult Run(const RoundPlan& plan);

private:
    enum class End : std::uint8_t { None, Asked, NoTarget };

    End RunRound(const RoundPlan& plan);
    std::optional<Reading> Read(std::uint8_t address, bool withSettings);

    CReaderGround& ground;
    CLineInquiry& inquiry;
    CRoundTarget& target;
    std::vector<Reading> round;
    bool anyRow = false, anyMissing = false;
};
