// Words and numbers of a control line or an option.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The parts between blanks and commas; none is empty.
std::vector<std::string_view> SplitLineWords(std::string_view text);

// A plain decimal number within the limits. Anything else gives none, and an `error` that names the word and the
// limits.
std::optional<int> ParseLineNumber(std::string_view word, int lowest, int highest, std::string& error);
