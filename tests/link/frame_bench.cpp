// What the search costs on the user-interface thread: a full read of the line, good and bad.
#include <vector>

#include <benchmark/benchmark.h>

#include "link/CounterFrame.h"

namespace {

void Search(benchmark::State& state, const std::vector<std::uint8_t>& reply) {
    int found = 0;
    for (auto _ : state) {
        SearchRecords<statusRecordLength>(reply, [&](auto record) { found += record[2]; });
        benchmark::DoNotOptimize(found);
        benchmark::ClobberMemory();
    }
}

void StatusRecords(benchmark::State& state) {
    std::vector<std::uint8_t> reply(replyCapacity);
    for (std::size_t at = 0; at + statusRecordLength <= reply.size(); at += statusRecordLength) {
        reply[at] = frameStart;
        reply[at + statusRecordLength - 1] = frameEnd;
        SetFrameChecksum(&reply[at], statusRecordLength);
    }
    Search(state, reply);
}
BENCHMARK(StatusRecords);

// Start and end bytes only, in no order: nothing tells a record from noise but its checksum.
void StartAndEndBytes(benchmark::State& state) {
    std::vector<std::uint8_t> reply(replyCapacity);
    std::uint32_t random = 1;
    for (auto& byte : reply) {
        random = random * 1664525 + 1013904223;
        byte = random >> 31 != 0 ? frameStart : frameEnd;
    }
    Search(state, reply);
}
BENCHMARK(StartAndEndBytes);

} // namespace

BENCHMARK_MAIN();
