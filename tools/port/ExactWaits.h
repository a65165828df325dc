// Waits that are exact to a millisecond; by itself Windows gives 16.
#pragma once

#include <windows.h>

class CExactWaits {
public:
    CExactWaits();
    CExactWaits(const CExactWaits&) = delete;
    CExactWaits& operator=(const CExactWaits&) = delete;
    ~CExactWaits();
};
