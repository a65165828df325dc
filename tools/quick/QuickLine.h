// A driver and the counters behind it in the time of a clock that somebody else moves: what is written is heard at
// once, and read when its time has come.
#pragma once

#include <array>
#include <atomic>
#include <deque>
#include <mutex>
#include <span>
#include <utility>

#include "line/CounterLine.h"
#include "serial/CommPlatform.h"

class CQuickLine : public CCommPlatform {
public:
    explicit CQuickLine(const LineConfiguration& configuration) : line(configuration, LineTime(0)) {}

    // Moves on; any thread.
    void Pass(LineTime time) { clock += time.count(); }
    LineTime Now() const { return LineTime(clock); }

    void AddFault(const LineFault& fault);
    void Heal();
    // Whether these are the counts of one of the latest records that were read from this address as answers to polls.
    // Of one that came with the answer of another counter the window shows nothing before its own turn. True also while
    // there is none.
    bool WereToldLately(std::uint8_t address, int in, int out) const;
    std::size_t Requests() const { return requests; }

    HANDLE CreateFileA(const char*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE) override;
    BOOL SetupComm(HANDLE, DWORD, DWORD) override { return TRUE; }
    BOOL GetDefaultCommConfigA(const char*, COMMCONFIG*, DWORD*) override { return FALSE; }
    BOOL GetCommState(HANDLE, DCB*) override { return TRUE; }
    BOOL SetCommState(HANDLE, DCB*) override { return TRUE; }
    BOOL GetCommTimeouts(HANDLE, COMMTIMEOUTS*) override { return TRUE; }
    BOOL SetCommTimeouts(HANDLE, COMMTIMEOUTS*) override { return TRUE; }
    BOOL SetCommMask(HANDLE, DWORD) override { return TRUE; }
    BOOL PurgeComm(HANDLE, DWORD) override { return TRUE; }
    BOOL ClearCommError(HANDLE, DWORD* errors, COMSTAT* status) override;
    BOOL WriteFile(HANDLE, const void* buffer, DWORD count, DWORD* written, OVERLAPPED*) override;
    BOOL ReadFile(HANDLE, void* buffer, DWORD capacity, DWORD* got, OVERLAPPED*) override;

private:
    void Note(std::span<const std::uint8_t> read);

    std::atomic<LineTime::rep> clock{0};
    std::atomic<std::size_t> requests{0};
    mutable std::mutex lock; // guards all below
    CCounterLine line;
    LineBytes waiting;
    bool wasPolled = false;                                         // by the last request
    std::array<std::deque<std::pair<int, int>>, counterCount> told; // the latest three, in and out
};
