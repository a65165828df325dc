// What came back on a request: whose record, whose bytes, and what stands between them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "link/CounterFrame.h"
#include "reader/Reading.h"

struct ReplyJudgement {
    Answer answer = Answer::Silent;
    // The record of a whole answer: counts or settings, by the request. None for any other answer.
    std::optional<CounterRecord> record;
    bool hasEcho = false;             // the request itself came back: sender and receiver are joined
    std::size_t strayBytes = 0;       // of neither a whole record nor an echo
    std::size_t spoiltRecords = 0;    // stretches of these that begin like a record of the asked counter
    std::vector<std::uint8_t> others; // addresses of whole records that nobody asked for, each once

    bool operator==(const ReplyJudgement&) const = default;
};

// `request` is Poll or ReadSettings, the only ones that the reader sends; `address` the counter that was asked. An echo
// is no answer: if nothing else came, the counter was silent. Pure; any bytes will do.
ReplyJudgement JudgeReply(RequestCode request, std::uint8_t address, std::span<const std::uint8_t> reply);
