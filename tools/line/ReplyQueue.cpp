// The pace of the line.
#include "line/ReplyQueue.h"

#include <algorithm>
#include <utility>

void CReplyQueue::Add(LineTime start, LineBytes bytes, LineTime latency) {
    if (bytes.empty()) return;
    const auto place = std::upper_bound(waiting.begin(), waiting.end(), start,
                                        [](LineTime value, const Transmission& other) { return value < other.start; });
    waiting.insert(place, {start, std::move(bytes), latency});
}

const CReplyQueue::Transmission* CReplyQueue::Current() const {
    if (spoken < speaking.bytes.size()) return &speaking;
    return waiting.empty() ? nullptr : &waiting.front();
}

LineTime CReplyQueue::EndOfNextByte() const {
    if (spoken < speaking.bytes.size()) return lastEnd + byteTime;
    const LineTime start = waiting.front().start;
    return (everSpoke ? std::max(start, lastEnd + gap) : start) + byteTime;
}

std::optional<LineTime> CReplyQueue::NextDue() const {
    const Transmission* const current = Current();
    if (current == nullptr) return std::nullopt;
    const LineTime end = EndOfNextByte();
    if (current->latency > LineTime(0))
        return (end + current->latency - LineTime(1)) / current->latency * current->latency;
    const std::size_t before = current == &speaking ? spoken : 0;
    return portPaces ? end - static_cast<LineTime::rep>(before + 1) * byteTime : end;
}

LineBytes CReplyQueue::TakeDue(LineTime now) {
    LineBytes due;
    for (auto next = NextDue(); next && *next <= now; next = NextDue()) {
        const LineTime end = EndOfNextByte();
        if (spoken == speaking.bytes.size()) {
            speaking = std::move(waiting.front());
            waiting.pop_front();
            spoken = 0;
        }
        due.push_back(speaking.bytes[spoken++]);
        lastEnd = end;
        everSpoke = true;
    }
    return due;
}

void CReplyQueue::Clear() {
    waiting.clear();
    speaking.bytes.clear();
    spoken = 0;
}
