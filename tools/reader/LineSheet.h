// The state of a line in figures: what each counter answered, how fast, and what else was on the wire.
//
// Takes any number of requests and stays the same size. Use from one thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "reader/LatencyHistogram.h"
#include "reader/PeopleTally.h"
#include "reader/ReplyJudgement.h"

// One request and what came back.
struct LineTrace {
    Moment time;                             // of the request
    RequestCode request = RequestCode::Poll; // or ReadSettings
    std::int32_t address = 0;                // 0 to 5
    // Milliseconds from the last byte of the request to the first of the answer; none where nobody measured.
    std::optional<std::int32_t> latency;
    ReplyJudgement judgement; // NotAsked if the port was away
};

// A counter's clock against local time, in seconds; positive: the counter is ahead. Both go by full seconds, so a
// change of one says nothing.
struct ClockDrift {
    std::int64_t first = 0, last = 0;

    std::int64_t Change() const { return last - first; }
};

struct AddressFigures {
    std::array<std::uint64_t, 5> answers{}; // to polls, by Answer
    CLatencyHistogram latencies;            // of whole answers to polls
    // Of all requests:
    std::uint64_t spoiltRecords = 0;
    std::uint64_t strayBytes = 0;
    std::uint64_t disturbed = 0; // requests with stray bytes
    std::uint64_t doubled = 0;   // requests that two counters answered
    CPeopleTally people;
    std::optional<ClockDrift> drift;
    std::optional<CounterRecord> settings; // the last that were read

    std::uint64_t Count(Answer answer) const { return answers.at(static_cast<std::size_t>(answer)); }
    std::uint64_t Asked() const; // polls that went out
};

class CLineSheet {
public:
    // Ignores an address beyond 5.
    void Take(const LineTrace& trace);
    // The counter was cleared, or another one has its address now. Ignores an address that is none of 0 to 5.
    void TakeClear(std::int32_t address);
    void TakeMove(std::int32_t address);

    const std::array<AddressFigures, counterCount>& Addresses() const { return addresses; }
    std::uint64_t Requests() const { return requests; } // that went out
    std::uint64_t Echoes() const { return echoes; }
    std::uint64_t StrayBytes() const;
    // Answers of a counter that nobody had asked just then.
    std::uint64_t Untimely() const { return untimely; }
    // Of the first and the last request; none before the first.
    const std::optional<Moment>& Begin() const { return begin; }
    const std::optional<Moment>& End() const { return end; }

private:
    std::array<AddressFigures, counterCount> addresses;
    std::uint64_t requests = 0, echoes = 0, untimely = 0;
    std::optional<Moment> begin, end;
};
