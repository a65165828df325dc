// Texts of the traffic log and of the totals on the panel.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "framework/Time.h"

// Each byte as two lower-case hexadecimal digits and a blank; empty for no bytes.
std::string FormatHexBytes(std::span<const std::uint8_t> bytes);

// A line of the log without its line end: local time to the second, ": ", and the text.
std::string FormatLogLine(CTime moment, const std::string& text);

// Both totals, each right-aligned in six places (a longer one takes what it needs) behind its name.
std::string FormatTotals(const std::string& sentName, std::int32_t sent, const std::string& receivedName,
                         std::int32_t received);
