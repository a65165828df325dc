// What the search costs on the user-interface thread: a full read of the line, at its worst.
#include <vector>

#include <benchmark/benchmark.h>

#include "link/CounterFrame.h"

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
BENCHMARK(Search);

BENCHMARK_MAIN();
