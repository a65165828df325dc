// One question after the other.
#include "reader/LineInquiry.h"

#include <algorithm>
#include <array>
#include <span>

#include "link/WireCommands.h"

namespace {

constexpr std::size_t requestLength = 5;
constexpr int usualBaud = 4800; // for which the pauses are made
// Far more than a pause has room for at any speed that counters have.
constexpr std::size_t mostHeard = 4096;

std::array<std::uint8_t, requestLength> RequestOf(std::uint8_t address, Question question) {
    return question == Question::Counts ? BuildPollRequest(address) : BuildReadSettingsRequest(address);
}

RequestCode CodeOf(Question question) {
    return question == Question::Counts ? RequestCode::Poll : RequestCode::ReadSettings;
}

// What came before the request went out answers nobody's question: its records are those of counters that nobody asked.
void AddUnasked(ReplyJudgement& judgement, std::span<const std::uint8_t> early) {
    if (early.empty()) return;
    const ReplyJudgement unasked = JudgeReply(RequestCode::Poll, allCountersAddress, early);
    judgement.strayBytes += unasked.strayBytes;
    for (const std::uint8_t address : unasked.others) {
        if (std::ranges::find(judgement.others, address) == judgement.others.end()) judgement.others.push_back(address);
    }
}

} // namespace

CLineInquiry::CLineInquiry(CReaderGround& readerGround, int baudRate)
    : ground(readerGround), baud(baudRate),
      requestTime(requestLength * 10 * 1'000'000 / static_cast<std::size_t>(baudRate)) {}

bool CLineInquiry::Start(std::string& error) {
    return ground.Port().Open(error);
}

std::optional<LineTrace> CLineInquiry::Ask(std::uint8_t address, Question question) {
    if (!ground.Rest(isAway ? ground.Now() : nextRequest)) return std::nullopt;
    LineTrace trace{ground.WallTime(), CodeOf(question), address, std::nullopt, {}};
    trace.judgement.answer = Answer::NotAsked;
    if (isAway) return trace;

    Heard early, heard;
    const LineTime begin = ground.Now();
    if (!TakeInput(early) || !ground.Port().Write(RequestOf(address, question))) {
        LosePort();
        return trace;
    }
    const LineTime pause = std::chrono::milliseconds(CommandOf(trace.request).pause);
    const LineTime end = begin + pause * std::max(baud, usualBaud) / baud;
    const Hearing hearing = Hear(heard, end);
    if (hearing == Hearing::Ended) return std::nullopt;
    nextRequest = end + restAfterPause;
    if (hearing == Hearing::Gone) {
        LosePort();
        return trace;
    }
    trace.judgement = JudgeReply(trace.request, address, heard.bytes);
    trace.judgement.strayBytes += heard.beyond;
    AddUnasked(trace.judgement, early.bytes);
    trace.judgement.strayBytes += early.beyond;
    if (trace.judgement.answer != Answer::Silent) {
        trace.latency = LatencyOf(heard, trace.judgement.hasEcho, begin);
    }
    return trace;
}

CLineInquiry::Hearing CLineInquiry::Hear(Heard& heard, LineTime until) {
    while (ground.Now() < until) {
        if (!ground.AwaitInput(until)) return Hearing::Ended;
        if (!TakeInput(heard)) return Hearing::Gone;
    }
    // Where the system was too busy to wake this in time, the answer waits.
    return TakeInput(heard) ? Hearing::Done : Hearing::Gone;
}

bool CLineInquiry::TakeInput(Heard& heard) {
    LineBytes piece;
    // A line that never stops talking doesn't keep this from its end.
    for (int turn = 0; turn < 16; ++turn) {
        if (!ground.Port().Read(piece)) return false;
        if (piece.empty()) return true;
        const std::size_t fits = std::min(piece.size(), mostHeard - heard.bytes.size());
        heard.bytes.insert(heard.bytes.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(fits));
        heard.beyond += piece.size() - fits;
        if (fits > 0) heard.pieces.push_back({heard.bytes.size(), ground.Now()});
    }
    return true;
}

std::optional<std::int32_t> CLineInquiry::LatencyOf(const Heard& heard, bool hasEcho, LineTime begin) const {
    const std::size_t first = hasEcho ? requestLength : 0;
    const auto piece = std::ranges::find_if(heard.pieces, [first](const auto& each) { return each.end > first; });
    if (piece == heard.pieces.end()) return std::nullopt;
    const LineTime latency = piece->time - begin - requestTime;
    return static_cast<std::int32_t>(std::chrono::floor<std::chrono::milliseconds>(latency).count());
}

bool CLineInquiry::Idle(LineTime until) {
    while (isAway && nextTry < until) {
        if (!ground.Rest(nextTry)) return false;
        TryPort();
    }
    return ground.Rest(until);
}

void CLineInquiry::LosePort() {
    ground.Say(ground.Port().Name() + " is gone; it is tried again every few seconds");
    ground.Port().Close();
    isAway = true;
    nextTry = ground.Now() + retryInterval;
}

void CLineInquiry::TryPort() {
    std::string ignored;
    isAway = !ground.Port().Open(ignored);
    nextTry = ground.Now() + retryInterval;
    if (!isAway) ground.Say(ground.Port().Name() + " is back");
}
