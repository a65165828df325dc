// The requests and answers that a traffic log has, from its text in pieces of any size.
//
// Memory doesn't grow with the log. A request and the line received after it are a pair; a poll or settings read
// without one, before the next request, found the port away. Nothing is said of a request at the end of the log whose
// answer isn't there yet, nor of one beside a line that can't be read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "reader/LineSheet.h"
#include "reader/LocalTimeline.h"
#include "reader/LogLine.h"

class CLogSink {
public:
    virtual ~CLogSink() = default;
    // A poll or a settings read, in the order of the log; the moment is good to the second.
    virtual void TakeTrace(const LineTrace& trace) = 0;
    // The counter has said that its counts are 0 now.
    virtual void TakeClear(std::int32_t address) = 0;
    // A counter has taken this address: its counts are others than before.
    virtual void TakeMove(std::int32_t address) = 0;
};

class CLogDecoder {
public:
    // `receiver` must live as long as the decoder.
    CLogDecoder(CLogSink& receiver, ZoneOffset zone) : sink(receiver), timeline(std::move(zone)) {}

    void Feed(std::string_view piece);

    // Lines, but for empty ones, and those among them that are none of a log. A line without its end, which the log may
    // have while somebody writes it, is neither.
    std::uint64_t Lines() const { return lines; }
    std::uint64_t UnreadableLines() const { return unreadable; }

private:
    struct Request {
        Moment time;
        RequestCode code;
        std::uint8_t address;
    };

    void KeepRest(std::string_view more);
    void TakeLine(std::string_view text);
    void TakeRequest(std::span<const std::uint8_t> frame, const Moment& time);
    void TakeReply(std::span<const std::uint8_t> reply);
    void TakeAcknowledgements(RequestCode code, std::span<const std::uint8_t> reply);
    Moment TimeOf(const LogLine& line);
    void Report(const Request& request, ReplyJudgement judgement);

    CLogSink& sink;
    CLocalTimeline timeline;
    std::string rest; // of the last piece: a line without its end
    LogLine parsed;
    std::string lastMinute;
    Moment lastMoment; // at its beginning
    std::optional<Request> pending;
    std::uint64_t lines = 0, unreadable = 0;
};
