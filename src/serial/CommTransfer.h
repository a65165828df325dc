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

std::int32_t TransferOut(CCommLine& line, const void* buffer, std::uint32_t count, const TransferTerms& terms,
                         std::uint32_t& written);

// While the line reads at once, nothing is issued unless bytes wait.
std::int32_t TransferIn(CCommLine& line, void* buffer, std::uint32_t capacity, const TransferTerms& terms,
                        std::uint32_t& got);

// With the caller's OVERLAPPED the driver delivers into `events` when an event comes, so it must stay.
std::int32_t AwaitEvent(CCommLine& line, DWORD& events, const TransferTerms& terms);
