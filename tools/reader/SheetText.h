// The sheet of a line on paper and in a terminal: plain text of at most 80 columns, ASCII.
#pragma once

#include <string>
#include <string_view>

#include "reader/LineSheet.h"

// `source` is the port or the file that the figures are of. Ends in the verdict.
std::string SheetText(const CLineSheet& sheet, std::string_view source);
