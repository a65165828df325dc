#include "soak/LogJudge.h"

#include <algorithm>
#include <span>

#include "framework/Text.h"
#include "link/CounterFrame.h"
#include "reader/LogLine.h"

namespace {

constexpr LineTime disturbance = std::chrono::seconds(1);
constexpr LineTime patience = std::chrono::seconds(3); // between a line of the log and its frame on the wire
constexpr LineTime silenceBetween = std::chrono::milliseconds(50);

// Takes the bytes, and what stands between them, away from the front of `from`; false if they aren't all there.
bool TakeSubsequence(std::span<const std::uint8_t> bytes, std::deque<std::uint8_t>& from) {
    auto at = from.begin();
    for (const std::uint8_t byte : bytes) {
        at = std::find(at, from.end(), byte);
        if (at == from.end()) return false;
        ++at;
    }
    from.erase(from.begin(), at);
    return true;
}

} // namespace

std::string TextOf(const LineBytes& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) text += FormatText(" %02x", byte);
    return text;
}

void CLogJudge::Restart(LineTime now) {
    unfinished.clear();
    lastSecond.clear();
    logged.clear();
    heard.clear();
    ways = {0};
    nextPoll = 0;
    expectsReceived = false;
    Disturb(now);
}

void CLogJudge::Disturb(LineTime now) {
    disturbedUntil = now + disturbance;
    for (Frame& each : logged) each.mayBeLost = true;
    for (auto& [doubtful, certain] : unread) {
        doubtful.insert(doubtful.end(), certain.begin(), certain.end());
        certain.clear();
    }
}

// What is certain again begins with an answer of its own.
void CLogJudge::Speak(const LineBytes& bytes, LineTime now) {
    if (disturbedUntil && now > *disturbedUntil && now - lastSpoken > silenceBetween) disturbedUntil.reset();
    lastSpoken = now;
    for (auto& [doubtful, certain] : unread) {
        std::deque<std::uint8_t>& said = disturbedUntil ? doubtful : certain;
        said.insert(said.end(), bytes.begin(), bytes.end());
    }
}

std::string CLogJudge::Read(std::string_view text, LineTime now) {
    unfinished += text;
    for (std::size_t end = 0; (end = unfinished.find("\r\n")) != std::string::npos;) {
        const std::string line = unfinished.substr(0, end);
        unfinished.erase(0, end + 2);
        ++lines;
        if (std::string wrong = TakeLine(line, now); !wrong.empty()) return wrong.append(": ").append(line);
    }
    return Match(now);
}

std::string CLogJudge::TakeLine(std::string_view line, LineTime now) {
    LogLine parsed{};
    if (!ParseLogLine(line, parsed)) return "no line of a log";
    const std::string second(line.substr(0, 19));
    if (second < lastSecond) return "the log's time runs backwards";
    lastSecond = second;
    const LineBytes bytes(parsed.Bytes().begin(), parsed.Bytes().end());
    if (parsed.isSent) return TakeSent(bytes, now);
    if (!expectsReceived) return "an answer without a request";
    expectsReceived = false;
    return TakeReceived(bytes);
}

std::string CLogJudge::TakeSent(const LineBytes& frame, LineTime now) {
    expectsReceived = true;
    logged.push_back({frame, now, disturbedUntil && now <= *disturbedUntil});
    if (frame.size() < 4 || frame[2] != static_cast<std::uint8_t>(RequestCode::Poll)) return {};
    if (frame[1] != nextPoll) return "a poll out of turn";
    nextPoll = static_cast<std::uint8_t>((nextPoll + 1) % counterCount);
    return {};
}

std::string CLogJudge::TakeReceived(const LineBytes& bytes) {
    std::vector<Unread> next;
    for (const Unread& before : unread) Receive(bytes, before, next);
    if (next.empty()) return "bytes in the log that were not said so, but" + TextOfUnread();
    unread = std::move(next);
    return {};
}

std::string CLogJudge::TextOfUnread() const {
    std::string text;
    for (const auto& [doubtful, certain] : unread)
        text +=
            " maybe" + TextOf({doubtful.begin(), doubtful.end()}) + " and" + TextOf({certain.begin(), certain.end()});
    return text;
}

// First come doubtful bytes of which any may be missing, then certain ones.
void CLogJudge::Receive(std::span<const std::uint8_t> bytes, const Unread& before, std::vector<Unread>& next) {
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        const auto certain = bytes.subspan(cut);
        if (certain.size() > before.certain.size() ||
            !std::equal(certain.begin(), certain.end(), before.certain.begin()))
            continue;
        Unread after = before;
        if (!TakeSubsequence(bytes.first(cut), after.doubtful)) continue;
        after.certain.erase(after.certain.begin(), after.certain.begin() + static_cast<std::ptrdiff_t>(certain.size()));
        if (!certain.empty()) after.doubtful.clear();
        if (std::ranges::count(next, after) == 0) next.push_back(std::move(after));
    }
}

// Lost frames may look like those that came, so all ways to pair the two are followed: each is how many logged frames
// it has used up. A frame's line is there before the frame is heard, but not in what was read a moment ago.
std::string CLogJudge::Match(LineTime now) {
    constexpr LineTime moment = std::chrono::milliseconds(100);
    while (!heard.empty() && now - heard.front().time >= moment) {
        std::set<std::size_t> next;
        for (const std::size_t way : ways) Follow(way, next);
        if (next.empty()) break;
        ways = std::move(next);
        heard.pop_front();
    }
    if (!heard.empty() && now - heard.front().time > patience)
        return "a frame on the wire that isn't in the log:" + TextOf(heard.front().bytes);
    std::set<std::size_t> kept;
    for (std::size_t way : ways) {
        const auto isOld = [&] { return way < logged.size() && now - logged[way].time > patience; };
        while (isOld() && logged[way].mayBeLost) ++way;
        if (!isOld()) kept.insert(way);
    }
    if (kept.empty()) return "a frame in the log that never came onto the wire:" + TextOf(logged[*ways.begin()].bytes);
    const std::size_t used = *kept.begin();
    logged.erase(logged.begin(), logged.begin() + static_cast<std::ptrdiff_t>(used));
    ways.clear();
    for (const std::size_t way : kept) ways.insert(way - used);
    return {};
}

void CLogJudge::Follow(std::size_t way, std::set<std::size_t>& next) const {
    for (; way < logged.size(); ++way) {
        if (logged[way].bytes == heard.front().bytes) next.insert(way + 1);
        if (!logged[way].mayBeLost) return;
    }
}
