// Round after round.
#include "reader/RoundReader.h"

RoundsResult CRoundReader::Run(const RoundPlan& plan) {
    const LineTime start = ground.Now();
    End end = End::None;
    while (end == End::None) {
        end = RunRound(plan);
        if (end != End::None || !plan.every) break;
        const auto passed = (ground.Now() - start) / *plan.every;
        if (!inquiry.Idle(start + (passed + 1) * *plan.every)) break;
    }
    if (end == End::NoTarget) return RoundsResult::NoTarget;
    if (inquiry.IsPortAway()) return RoundsResult::PortAway;
    return anyRow && !anyMissing ? RoundsResult::Answered : RoundsResult::Missing;
}

CRoundReader::End CRoundReader::RunRound(const RoundPlan& plan) {
    round.clear();
    for (const std::uint8_t address : plan.addresses) {
        const auto reading = Read(address, plan.withSettings);
        if (!reading) return target.EndRound(round, false) ? End::Asked : End::NoTarget;
        round.push_back(*reading);
        anyRow = true;
        if (reading->answer != Answer::Whole) anyMissing = true;
        if (!target.TakeReading(*reading)) return End::NoTarget;
    }
    return target.EndRound(round, true) ? End::None : End::NoTarget;
}

std::optional<Reading> CRoundReader::Read(std::uint8_t address, bool withSettings) {
    const auto counts = inquiry.Ask(address, Question::Counts);
    if (!counts) return std::nullopt;
    const ReplyJudgement& judgement = counts->judgement;
    Reading reading{counts->time, address, judgement.answer, judgement.record, std::nullopt};
    const bool speaks = judgement.answer != Answer::Silent && judgement.answer != Answer::NotAsked;
    if (!withSettings || !speaks) return reading;
    const auto settings = inquiry.Ask(address, Question::Settings);
    // Without them if the program is to end; the counts are there.
    if (settings) reading.settings = settings->judgement.record;
    return reading;
}
