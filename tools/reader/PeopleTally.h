// People at one counter over any number of readings.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "reader/CountSteps.h"

class CPeopleTally {
public:
    // The counts of the next reading. Gives the step from the one before; none for the first.
    std::optional<CountStep> Take(const CountPair& counts) {
        std::optional<CountStep> step;
        if (last) {
            step = StepBetween(*last, counts, cleared);
            in += static_cast<std::uint64_t>(step->people.in);
            out += static_cast<std::uint64_t>(step->people.out);
            ++steps.at(static_cast<std::size_t>(step->kind));
        }
        last = counts;
        cleared = false;
        return step;
    }
    // The counter was cleared since the last reading.
    void NoteClear() { cleared = true; }
    // What comes next is another counter.
    void Forget() { last.reset(); }

    std::uint64_t In() const { return in; }
    std::uint64_t Out() const { return out; }
    std::uint64_t Count(StepKind kind) const { return steps.at(static_cast<std::size_t>(kind)); }

private:
    std::optional<CountPair> last;
    bool cleared = false;
    std::uint64_t in = 0, out = 0;
    std::array<std::uint64_t, 4> steps{}; // by kind
};
