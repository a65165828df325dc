// Fuzzes the readers of menu, toolbar and bitmap resources.
#include <cstdint>
#include <cstdlib>

#include "ResourceFaults.h"
#include "menu/ResourceBitmap.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto resource = std::as_bytes(std::span(data, size));
    if (!FaultOfMenu(resource).empty() || !FaultOfToolbar(resource).empty()) std::abort();
    if (BitmapColorCount(resource) != 0 && size < 40) std::abort();
    return 0;
}
