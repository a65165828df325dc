// What a line's figures mean to the one who has to mend it.
#pragma once

#include <string>
#include <vector>

#include "reader/LineSheet.h"

// Sentences, the most urgent first: what is wrong and what to look at. One sentence alone if the line is sound, or if
// nothing was asked. Addresses that never answered are told last, as no counter may have them.
std::vector<std::string> JudgeLine(const CLineSheet& sheet);
