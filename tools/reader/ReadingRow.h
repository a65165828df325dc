// Readings from the rows of a CSV text.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "reader/CountSteps.h"
#include "reader/Reading.h"

// What a report needs of a reading.
struct ReadingRow {
    Moment time;
    std::int32_t address = 0; // 0 to 255
    Answer answer = Answer::Silent;
    std::optional<CountPair> counts; // only of a whole answer

    bool operator==(const ReadingRow&) const = default;
};

// Finds the columns by their names, wherever they stand and whatever is between them. A text may have its header again
// and again, with other columns each time.
class CReadingColumns {
public:
    // Whether these are the names of the columns; from then on they hold.
    bool TakeHeader(std::span<const std::string> fields);

    // None for a row that is torn or no reading: a time without offset, a count that is none, an unknown answer.
    std::optional<ReadingRow> RowOf(std::span<const std::string> fields) const;

private:
    std::array<std::size_t, 5> places{}; // of time, address, in, out, answer
    bool known = false;
};

// An instant as MomentText writes it, with any number of digits behind the second, or none; 'Z' for UTC.
std::optional<Moment> MomentOfText(std::string_view text);
