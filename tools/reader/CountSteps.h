// People between two readings of one counter.
#pragma once

#include <cstdint>

// What a counter shows, 0 to 65535 each. After 65535 comes 0; a cleared counter begins at 0 again.
struct CountPair {
    std::int32_t in = 0, out = 0;

    bool operator==(const CountPair&) const = default;
};

enum class StepKind : std::uint8_t { Plain, Wrapped, Cleared, Ambiguous };

struct CountStep {
    CountPair people; // who passed; of an ambiguous step 0
    StepKind kind = StepKind::Plain;

    bool operator==(const CountStep&) const = default;
};

// Tells a count that has wrapped from a counter that was cleared, as far as the two readings allow. "Near zero" is the
// lowest quarter of the range, "near the top" the highest.
//
//   `cleared`, as the counter has said so itself       cleared: who passed since
//   no count fell                                       plain: the difference; above three quarters ambiguous
//   one fell from near the top to near zero             wrapped: the difference past 65535
//   one fell otherwise, the other was 0, both near zero cleared: who passed since
//   both fell to near zero, not both from near the top  cleared: who passed since
//   anything else                                       ambiguous: another counter, a long pause
//
// Whoever passed between the first reading and a clearing is lost; so a cleared step is the least that it can be.
CountStep StepBetween(const CountPair& before, const CountPair& after, bool cleared = false);
