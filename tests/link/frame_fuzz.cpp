// Fuzzes the search and the decoders with what a line may bring: any bytes at all.
#include "FrameChecks.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > replyCapacity) return 0;
    CheckReply(std::span(data, size), [](bool holds, const char*) {
        if (!holds) std::abort();
    });
    return 0;
}
