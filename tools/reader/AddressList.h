// Which counters are asked, as a user writes it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// "0-5", "0,3,5", "0-2,5": the addresses rising, each once. None for any other text.
std::optional<std::vector<std::uint8_t>> AddressesOf(std::string_view text);
