// What passes on the line as text for a user who looks on: a line of text for each request and each answer, in however
// many pieces it comes.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "line/LineFrames.h"
#include "port/LineTime.h"
#include "line/WireLog.h"

class CTrafficView {
public:
    // `start` is what the times count from.
    CTrafficView(bool shown, LineTime start) : isShown(shown), origin(start) {}

    // What is begun is dropped.
    void Show(bool shown);

    // The text that these bytes end, which is what went the other way before; none if they end nothing. No byte changes
    // nothing.
    std::optional<std::string> Add(WireDirection direction, std::span<const std::uint8_t> bytes, LineTime now);
    // The text that has ended by `now`, since nothing more has come for a while: "12.083 < 02 00 00 00 03", with the
    // seconds since the start at which it began.
    std::optional<std::string> TakeFinished(LineTime now);
    // When that will be; none if nothing is begun.
    std::optional<LineTime> NextDue() const;

private:
    std::optional<std::string> Take();

    bool isShown;
    LineTime origin;
    WireDirection way = WireDirection::FromProgram;
    LineBytes begun;
    LineTime first{}; // when the first byte of it passed
    LineTime last{};  // and the last
};
