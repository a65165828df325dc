// The pace of the line.
#include "line/ReplyQueue.h"

#include <algorithm>
#include <utility>

void CReplyQueue::Add(LineTime start, LineBytes bytes) {
    if (bytes.empty()) return;
    const auto place = std::upper_bound(waiting.begin(), waiting.end(), start,
                                        [](LineTime value, const Transmission& other) { return value < other.start; });
    waiting.insert(place, {start, std::move(bytes)});
}

LineTime CReplyQueue::FirstDue(const Transmission& transmission) const {
    const LineTime begin = everSpoke ? std::max(transmission.start, lastDue + gap) : transmission.start;
    return begin + byteTime;
}

std::optional<LineTime> CReplyQueue::NextDue() const {
    if (spoken < speaking.size()) return lastDue + byteTime;
    if (!waiting.empty()) return FirstDue(waiting.front());
    return std::nullopt;
}

LineBytes CReplyQueue::TakeDue(LineTime now) {
    LineBytes due;
    for (auto next = NextDue(); next && *next <= now; next = NextDue()) {
        if (spoken == speaking.size()) {
            speaking = std::move(waiting.front().bytes);
            waiting.pop_front();
            spoken = 0;
        }
        due.push_back(speaking[spoken++]);
        lastDue = *next;
        everSpoke = true;
    }
    return due;
}

void CReplyQueue::Clear() {
    waiting.clear();
    speaking.clear();
    spoken = 0;
}
