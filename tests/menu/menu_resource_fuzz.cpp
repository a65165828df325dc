// Fuzzes the readers of menu and toolbar resources.
#include <cstdint>
#include <cstdlib>

#include "ResourceFaults.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto resource = std::as_bytes(std::span(data, size));
    if (!FaultOfMenu(resource).empty() || !FaultOfToolbar(resource).empty()) std::abort();
    return 0;
}
