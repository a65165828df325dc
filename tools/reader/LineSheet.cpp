#include "reader/LineSheet.h"

#include <numeric>

#include "reader/ReadingText.h"

namespace {

bool IsCounter(std::int32_t address) {
    return address >= 0 && address < counterCount;
}

void TakeClock(AddressFigures& figures, std::uint32_t deviceTime, const Moment& time) {
    const auto clock = WallOfClock(deviceTime);
    if (!clock) return;
    const std::int64_t ahead = *clock - WallOf(time);
    if (!figures.drift) figures.drift = ClockDrift{ahead, ahead};
    figures.drift->last = ahead;
}

void TakeAnswer(AddressFigures& figures, const LineTrace& trace) {
    const ReplyJudgement& judgement = trace.judgement;
    if (trace.request == RequestCode::ReadSettings) {
        if (judgement.record) figures.settings = judgement.record;
        return;
    }
    ++figures.answers.at(static_cast<std::size_t>(judgement.answer));
    if (!judgement.record) return;
    figures.people.Take({judgement.record->inCount, judgement.record->outCount});
    if (trace.latency) figures.latencies.Take(*trace.latency);
    TakeClock(figures, judgement.record->deviceTime, trace.time);
}

} // namespace

std::uint64_t AddressFigures::Asked() const {
    return std::accumulate(answers.begin(), answers.end(), std::uint64_t{0}) - Count(Answer::NotAsked);
}

void CLineSheet::Take(const LineTrace& trace) {
    if (!IsCounter(trace.address)) return;
    if (!begin) begin = trace.time;
    end = trace.time;
    AddressFigures& figures = addresses.at(static_cast<std::size_t>(trace.address));
    TakeAnswer(figures, trace);
    const ReplyJudgement& judgement = trace.judgement;
    if (judgement.answer != Answer::NotAsked) ++requests;
    if (judgement.hasEcho) ++echoes;
    untimely += judgement.others.size();
    figures.spoiltRecords += judgement.spoiltRecords;
    figures.strayBytes += judgement.strayBytes;
    if (judgement.strayBytes > 0) ++figures.disturbed;
    if (judgement.answer == Answer::Doubled) ++figures.doubled;
}

void CLineSheet::TakeClear(std::int32_t address) {
    if (IsCounter(address)) addresses.at(static_cast<std::size_t>(address)).people.NoteClear();
}

void CLineSheet::TakeMove(std::int32_t address) {
    if (IsCounter(address)) addresses.at(static_cast<std::size_t>(address)).people.Forget();
}

std::uint64_t CLineSheet::StrayBytes() const {
    std::uint64_t sum = 0;
    for (const AddressFigures& each : addresses) sum += each.strayBytes;
    return sum;
}
