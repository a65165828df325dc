// The way of a record through the faults: first what a counter says wrongly, then what the line does to it.
#include "line/ReplyFaults.h"

#include <algorithm>

namespace {

constexpr std::ptrdiff_t clockAt = 2;

void Seal(LineBytes& record) {
    SetFrameChecksum(record.data(), static_cast<int>(record.size()));
}

void AppendNoise(LineBytes& bytes, int count, CLineRandom& random) {
    for (int i = 0; i < count; ++i) bytes.push_back(random.Byte());
}

void SpoilContent(LineBytes& record, std::uint8_t address, bool hasClock, CLineFaults& faults, CLineRandom& random) {
    if (const auto stranger = faults.Take(LineFaultKind::Stranger, address)) {
        record[1] = static_cast<std::uint8_t>(*stranger);
    }
    if (hasClock && faults.Take(LineFaultKind::GarbleDate, address)) {
        constexpr ClockField garble{0xFF, 0xAB, 0x3F, 0xF4, 0x6A, 0xFF};
        std::ranges::copy(garble, record.begin() + clockAt);
    }
    if (hasClock && faults.Take(LineFaultKind::NoDate, address)) {
        std::ranges::copy(ClockField{}, record.begin() + clockAt);
    }
    if (const auto surplus = faults.Take(LineFaultKind::Overlong, address)) {
        LineBytes filling;
        AppendNoise(filling, *surplus, random);
        record.insert(record.end() - 2, filling.begin(), filling.end());
    }
    Seal(record);
    if (faults.Take(LineFaultKind::Checksum, address)) ++record[record.size() - 2];
}

} // namespace

SpokenReply SpeakRecord(LineBytes record, std::uint8_t address, bool hasClock, CLineFaults& faults,
                        CLineRandom& random) {
    SpoilContent(record, address, hasClock, faults, random);
    const bool twice = faults.Take(LineFaultKind::Twice, address).has_value();
    if (const auto kept = faults.Take(LineFaultKind::Torn, address)) {
        const std::size_t length = *kept > 0 ? static_cast<std::size_t>(*kept) : record.size() / 2;
        record.resize(std::min(record.size(), length));
    }
    const int noise = faults.Take(LineFaultKind::Noise, address).value_or(0);

    SpokenReply reply;
    AppendNoise(reply.bytes, noise, random);
    reply.pauseAt = reply.bytes.size() + record.size() / 2;
    reply.bytes.insert(reply.bytes.end(), record.begin(), record.end());
    AppendNoise(reply.bytes, noise, random);
    if (twice) {
        reply.bytes.insert(reply.bytes.end(), record.begin(), record.end());
        AppendNoise(reply.bytes, noise, random);
    }
    reply.delay = std::chrono::milliseconds(faults.Take(LineFaultKind::Late, address).value_or(0));
    reply.pause = std::chrono::milliseconds(faults.Take(LineFaultKind::Split, address).value_or(0));
    reply.latency = std::chrono::milliseconds(faults.Take(LineFaultKind::Latency, address).value_or(0));
    return reply;
}
