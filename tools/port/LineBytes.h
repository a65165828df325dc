// Bytes that pass on a line.
#pragma once

#include <cstdint>
#include <vector>

using LineBytes = std::vector<std::uint8_t>;
