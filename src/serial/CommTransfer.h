// One transfer on an open line, from the platform call that begins it to its end: step by step what WriteFile, ReadFile
// and WaitCommEvent need in common. The caller is inside the line (CCommLine::Enter) meanwhile.
//
// Answers and arguments are those of CCommPort's Write, Read and WaitForEvent. An answer other than 0 leaves the count,
// or the events, as they were.
#pragma once

#include <cstdint>

#include <windows.h>

class CCommLine;

// The caller's OVERLAPPED or null, and the limit of the wait in ms.
struct TransferTerms {
    OVERLAPPED* overlapped;
    std::uint32_t timeout;
};

// What the driver takes in part is followed by the rest, unless the OVERLAPPED is the caller's.
std::int32_t TransferOut(CCommLine& line, const void* buffer, std::uint32_t count, const TransferTerms& terms,
                         std::uint32_t& written);

// While the line reads at once, the driver is asked what waits; if it tells nothing, it has a few ms to hand over what
// it has all the same.
std::int32_t TransferIn(CCommLine& line, void* buffer, std::uint32_t capacity, const TransferTerms& terms,
                        std::uint32_t& got);

// With the caller's OVERLAPPED the driver delivers into `events` when an event comes, so it must stay.
std::int32_t AwaitEvent(CCommLine& line, DWORD& events, const TransferTerms& terms);
