#include "reader/CountSteps.h"

namespace {

constexpr std::int32_t range = 65536, quarter = range / 4;

bool IsNearZero(std::int32_t count) {
    return count < quarter;
}
bool IsNearTop(std::int32_t count) {
    return count >= range - quarter;
}

std::int32_t Passed(std::int32_t before, std::int32_t after) {
    return after >= before ? after - before : after + range - before;
}

StepKind KindOfFall(const CountPair& before, const CountPair& after) {
    const bool inFell = after.in < before.in, outFell = after.out < before.out;
    const bool nearZero = IsNearZero(after.in) && IsNearZero(after.out);
    if (inFell && outFell) {
        const bool bothFromTop = IsNearTop(before.in) && IsNearTop(before.out);
        return nearZero && !bothFromTop ? StepKind::Cleared : StepKind::Ambiguous;
    }
    const std::int32_t fellFrom = inFell ? before.in : before.out, fellTo = inFell ? after.in : after.out;
    if (IsNearTop(fellFrom) && IsNearZero(fellTo)) return StepKind::Wrapped;
    const std::int32_t otherBefore = inFell ? before.out : before.in;
    return otherBefore == 0 && nearZero ? StepKind::Cleared : StepKind::Ambiguous;
}

} // namespace

CountStep StepBetween(const CountPair& before, const CountPair& after, bool cleared) {
    if (cleared) return {after, StepKind::Cleared};
    const bool fell = after.in < before.in || after.out < before.out;
    StepKind kind = fell ? KindOfFall(before, after) : StepKind::Plain;
    if (kind == StepKind::Cleared) return {after, kind};
    const CountPair passed{Passed(before.in, after.in), Passed(before.out, after.out)};
    if (passed.in >= range - quarter || passed.out >= range - quarter) kind = StepKind::Ambiguous;
    return kind == StepKind::Ambiguous ? CountStep{{}, kind} : CountStep{passed, kind};
}
