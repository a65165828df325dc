// Counts the blocks of the heap that this test program's C++ code holds, so that a lost object shows.
#pragma once

#include <cstddef>

std::size_t LiveBlocks();
