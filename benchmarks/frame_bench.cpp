// What the pure parts cost: the search on the user-interface thread, in a full read of the line at its worst; a day of
// polling.
#include <array>
#include <vector>

#include <benchmark/benchmark.h>

#include "link/CounterFrame.h"
#include "panel/TrafficText.h"

static void Search(benchmark::State& state) {
    // Start and end bytes only: there nothing tells a record from noise but its checksum.
    std::vector<std::uint8_t> reply(replyCapacity);
    std::uint32_t random = 1;
    for (auto& byte : reply) byte = (random = random * 1664525 + 1013904223) >> 31 != 0 ? frameStart : frameEnd;
    int found = 0;
    for (auto _ : state) {
        SearchRecords<statusRecordLength>(reply, [&](auto record) { found += record[2]; });
        benchmark::DoNotOptimize(found);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Search)->Unit(benchmark::kMicrosecond);

// What a day of polling costs but for its calls of the system: each poll's frame, the search of its reply, what is
// decoded of it, and two lines of the log.
static void Day(benchmark::State& state) {
    constexpr int polls = 24 * 3600 * 5;
    std::array<std::uint8_t, statusRecordLength> reply{frameStart, 0,    0x26, 0x11, 0x26, 0x20,
                                                       0x15,       0x30, 0,    100,  0,    50};
    reply.back() = frameEnd;
    SetFrameChecksum(reply.data(), statusRecordLength);
    CounterRecord record;
    for (auto _ : state) {
        for (int poll = 0; poll < polls; ++poll) {
            const auto request = BuildPollRequest(static_cast<std::uint8_t>(poll % counterCount));
            benchmark::DoNotOptimize(FormatLogLine(CTime(poll), "TX-->" + FormatHexBytes(request)));
            SearchRecords<statusRecordLength>(
                reply, [&](auto found) { DecodeStatusRecord(found.data(), statusRecordLength, record); });
            benchmark::DoNotOptimize(FormatLogLine(CTime(poll), "RX-->" + FormatHexBytes(reply)));
        }
        benchmark::DoNotOptimize(record);
    }
}
BENCHMARK(Day)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
