// What one poll of one counter gave: the row that every format writes and every command counts.
#pragma once

#include <cstdint>
#include <optional>

#include "link/CounterRecord.h"

// An instant and the distance of local time from UTC at it, so that an hour that summer time repeats is told apart.
struct Moment {
    std::int64_t microseconds = 0; // since 1970-01-01 UTC
    std::int32_t offset = 0;       // seconds east of UTC

    bool operator==(const Moment&) const = default;
};

enum class Answer : std::uint8_t {
    Whole,   // a record with a right checksum from the counter that was asked
    Silent,  // no byte came, or nothing but an echo of the request
    Spoilt,  // bytes came, but no whole record of the counter that was asked
    Doubled, // more than one whole record of that address: two counters have it
    NotAsked // the port was away, so nobody was asked
};

struct Reading {
    Moment time; // of the request
    std::int32_t address = 0;
    Answer answer = Answer::Silent;
    // Of a whole answer alone: counts and clock; of a settings read, if one was asked for, the settings.
    std::optional<CounterRecord> status;
    std::optional<CounterRecord> settings;

    bool operator==(const Reading&) const = default;
};
