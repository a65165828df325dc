#include "reader/LogDecoder.h"

#include <algorithm>

namespace {

// The code of a request frame; none if the bytes are no request.
std::optional<RequestCode> RequestOf(std::span<const std::uint8_t> frame) {
    if (frame.size() < 5 || frame.front() != frameStart || frame.back() != frameEnd) return std::nullopt;
    if (!CheckFrameChecksum(frame.data(), static_cast<int>(frame.size()))) return std::nullopt;
    return static_cast<RequestCode>(frame[2]);
}

} // namespace

void CLogDecoder::Feed(std::string_view piece) {
    while (!piece.empty()) {
        const std::size_t end = piece.find('\n');
        if (end == std::string_view::npos) return KeepRest(piece);
        if (rest.empty()) {
            TakeLine(piece.substr(0, end));
        } else {
            KeepRest(piece.substr(0, end));
            TakeLine(rest);
            rest.clear();
        }
        piece.remove_prefix(end + 1);
    }
}

void CLogDecoder::KeepRest(std::string_view more) {
    // Enough to know that the line is too long.
    rest.append(more.substr(0, longestLogLine + 2 - std::min(rest.size(), longestLogLine + 2)));
}

void CLogDecoder::TakeLine(std::string_view text) {
    if (text.ends_with('\r')) text.remove_suffix(1);
    if (text.empty()) return;
    ++lines;
    if (text.size() > longestLogLine || !ParseLogLine(text, parsed)) {
        ++unreadable;
        pending.reset();
    } else if (parsed.isSent) {
        TakeRequest(parsed.Bytes(), TimeOf(parsed));
    } else {
        TakeReply(parsed.Bytes());
    }
}

Moment CLogDecoder::TimeOf(const LogLine& line) {
    if (line.minute != lastMinute) {
        lastMinute = line.minute;
        lastMoment = timeline.Place(WallOfLogMinute(line.minute));
    }
    return {lastMoment.microseconds + line.second * std::int64_t{1'000'000}, lastMoment.offset};
}

void CLogDecoder::TakeRequest(std::span<const std::uint8_t> frame, const Moment& time) {
    if (pending) Report(*pending, {.answer = Answer::NotAsked, .record = {}, .others = {}});
    pending.reset();
    if (const auto code = RequestOf(frame)) pending = Request{time, *code, frame[1]};
}

void CLogDecoder::TakeReply(std::span<const std::uint8_t> reply) {
    if (!pending) return;
    const Request request = *pending;
    pending.reset();
    if (request.code == RequestCode::Poll || request.code == RequestCode::ReadSettings) {
        Report(request, JudgeReply(request.code, request.address, reply));
    } else {
        TakeAcknowledgements(request.code, reply);
    }
}

void CLogDecoder::TakeAcknowledgements(RequestCode code, std::span<const std::uint8_t> reply) {
    SearchRecords<acknowledgementLength>(reply, [&](std::span<const std::uint8_t, acknowledgementLength> found) {
        const Acknowledgement answer = DecodeAcknowledgement(found);
        if (answer.status != 0) return;
        if (code == RequestCode::ClearCounts) sink.TakeClear(answer.address);
        if (code == RequestCode::SetAddress) sink.TakeMove(answer.address);
    });
}

void CLogDecoder::Report(const Request& request, ReplyJudgement judgement) {
    if (request.code != RequestCode::Poll && request.code != RequestCode::ReadSettings) return;
    sink.TakeTrace({request.time, request.code, request.address, std::nullopt, std::move(judgement)});
}
