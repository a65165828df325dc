// A simulated driver beneath the serial port: it keeps what it is handed, lets any one call fail, and ends its
// transfers as told. Every handle it gives out is a real one, and the use of a handle that isn't open fails the test.
#pragma once

#include <algorithm>
#include <atomic>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "serial/CommPlatform.h"
#include "serial/TrafficTap.h"

template <class Condition>
bool Eventually(Condition condition) {
    for (const DWORD begun = ::GetTickCount(); !condition() && ::GetTickCount() - begun < 10'000;) ::Sleep(1);
    return condition();
}

// A tap that keeps what it is told, as one text: "T3 R0 closed ".
class CTapRecorder : public CTrafficTap {
public:
    void LogTransmitted(const void*, std::uint32_t count) override { Note("T" + std::to_string(count)); }
    void LogReceived(const void*, std::uint32_t count) override { Note("R" + std::to_string(count)); }
    void ShowPortState(bool open) override { Note(open ? "open" : "closed"); }
    void Note(const std::string& text) { told += text + ' '; }
    std::string told;
};

class CSimulatedPlatform : public CCommPlatform {
public:
    enum class Transfers { EndAtOnce, EndWhenAwaited, EndWhenCancelled, NeverEnd };
    std::atomic<Transfers> transfers{Transfers::EndAtOnce};
    std::string received;                         // waits to be read
    DWORD errors = 0, events = 0, modemLines = 0; // error bits stand until they are asked for
    DCB state{};
    COMMTIMEOUTS timeouts{1, 2, 3, 4, 5};

    // What drivers are known to do.
    enum class Tells { HowMuchWaits, Nothing, Error } tells = Tells::HowMuchWaits;
    DWORD takesAtMost = MAXDWORD;         // of one write
    DWORD passesBeforeCancel = 0;         // of a read that ends when cancelled
    bool abortsOnError = false;           // no write while there are error bits
    bool refusesEqualCharacters = false;  // for XON and XOFF
    std::atomic<int> refusedOpenings = 0; // the next ones, with ERROR_ACCESS_DENIED
    std::set<std::string> names;          // of the devices that there are; empty: any
    enum class Call { None, CreateFile, SetCommState, ReadFile, CancelIoEx, CloseHandle };
    std::atomic<Call> held = Call::None; // the calls of that kind end when it becomes another one
    std::atomic<bool> holding = false;   // whether such a call is under way
    std::atomic<int> openings = 0;       // calls of CreateFile

    // What was handed over.
    std::string path, written;
    DWORD openFlags = 0, mask = 0, purged = 0, slept = 0;
    bool isByDefault = false; // its configuration
    std::atomic<std::size_t> openHandles = 0;

    std::atomic<int> failingCall{0};      // the n-th from now on, 0 for none
    std::atomic<bool> staysBroken{false}; // all calls after that one fail too, until this is taken back
    static constexpr DWORD failure = ERROR_IO_DEVICE;

    // The transfer that the driver has not given back, and its bytes.
    std::atomic<OVERLAPPED*> pending{nullptr};
    const void* pendingBytes = nullptr;

    // Waits for so many open handles: what a driver held up is closed when it likes.
    bool HandlesBecome(std::size_t wanted) {
        return Eventually([=, this] { return openHandles == wanted; });
    }

    // The driver gives its transfer back; into that of a read it has put what was received.
    void EndPending(ULONG_PTR status) {
        OVERLAPPED* const ended = pending.exchange(nullptr);
        if (ended == nullptr) return;
        if (pendingRead != nullptr) pendingSize = Hand(pendingRead, status == 0 ? pendingSize : passesBeforeCancel);
        ended->InternalHigh = pendingSize;
        std::atomic_ref(ended->Internal) = status;
        ::SetEvent(pendingEvent);
    }

    HANDLE CreateFileA(const char* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES*, DWORD disposition,
                       DWORD flags, HANDLE) override {
        EXPECT_TRUE(access == (GENERIC_READ | GENERIC_WRITE) && share == 0 && disposition == OPEN_EXISTING);
        if (!names.empty() && !names.contains(name)) return Refuse(ERROR_FILE_NOT_FOUND), INVALID_HANDLE_VALUE;
        ++openings;
        HoldIf(Call::CreateFile);
        if (refusedOpenings > 0) return --refusedOpenings, Refuse(ERROR_ACCESS_DENIED), INVALID_HANDLE_VALUE;
        if (Fails()) return Refuse(failure), INVALID_HANDLE_VALUE;
        path = name;
        openFlags = flags;
        return device = Remember(::CreateEventA(nullptr, TRUE, FALSE, nullptr));
    }
    HANDLE CreateEventA(SECURITY_ATTRIBUTES* security, BOOL manual, BOOL signalled, const char* name) override {
        EXPECT_TRUE(manual && !signalled && name == nullptr);
        return Fails() ? nullptr : Remember(::CreateEventA(security, manual, signalled, name));
    }
    BOOL CloseHandle(HANDLE handle) override {
        const bool maySettle = transfers != Transfers::NeverEnd && !staysBroken;
        EXPECT_FALSE(handle == device && pending != nullptr && maySettle) << "too early";
        if (handle == device) HoldIf(Call::CloseHandle);
        const std::scoped_lock hold(lock);
        EXPECT_EQ(handles.erase(handle), 1U);
        --openHandles;
        return ::CloseHandle(handle) && !Fails();
    }
    BOOL SetEvent(HANDLE event) override { return Succeeds(event) && ::SetEvent(event); }
    DWORD WaitForSingleObject(HANDLE handle, DWORD timeout) override {
        return Succeeds(handle) ? ::WaitForSingleObject(handle, timeout) : WAIT_FAILED;
    }
    DWORD WaitForMultipleObjects(DWORD count, const HANDLE* awaited, BOOL all, DWORD timeout) override {
        if (!Succeeds(awaited[0])) return WAIT_FAILED;
        if (transfers == Transfers::EndWhenAwaited) EndPending(0);
        return ::WaitForMultipleObjects(count, awaited, all, timeout);
    }

    BOOL SetupComm(HANDLE line, DWORD, DWORD) override { return Succeeds(line); }
    BOOL GetDefaultCommConfigA(const char* name, COMMCONFIG* config, DWORD* size) override {
        EXPECT_TRUE(*size == 52 && config->dwSize == 52 && *name == 'C');
        config->dcb.BaudRate = 1200;
        return !Fails();
    }
    BOOL SetCommConfig(HANDLE line, COMMCONFIG* config, DWORD) override {
        return Put(line, isByDefault, config->dcb.BaudRate == 1200);
    }
    BOOL GetCommState(HANDLE line, DCB* current) override {
        EXPECT_EQ(current->DCBlength, 28U);
        return Put(line, *current, state);
    }
    BOOL SetCommState(HANDLE line, DCB* changed) override {
        HoldIf(Call::SetCommState);
        if (refusesEqualCharacters && changed->XonChar == changed->XoffChar) return Refuse(failure);
        return Put(line, state, *changed);
    }
    BOOL GetCommTimeouts(HANDLE line, COMMTIMEOUTS* current) override { return Put(line, *current, timeouts); }
    BOOL SetCommTimeouts(HANDLE line, COMMTIMEOUTS* changed) override { return Put(line, timeouts, *changed); }
    BOOL SetCommMask(HANDLE line, DWORD changed) override { return Put(line, mask, changed); }
    BOOL ClearCommError(HANDLE line, DWORD* cleared, COMSTAT* status) override {
        if (!Succeeds(line) || tells == Tells::Error) return Refuse(failure);
        *cleared = std::exchange(errors, 0);
        if (status != nullptr && tells == Tells::HowMuchWaits) status->cbInQue = static_cast<DWORD>(received.size());
        return TRUE;
    }
    BOOL PurgeComm(HANDLE line, DWORD what) override { return Put(line, purged, what); }
    BOOL GetCommModemStatus(HANDLE line, DWORD* status) override {
        return line == nullptr ? Refuse(ERROR_INVALID_HANDLE) : Put(line, *status, modemLines);
    }
    void Sleep(DWORD time) override { slept += time; }

    BOOL WriteFile(HANDLE line, const void* buffer, DWORD count, DWORD* done, OVERLAPPED* overlapped) override {
        if (!Succeeds(line)) return FALSE;
        if (abortsOnError && errors != 0) return Refuse(ERROR_OPERATION_ABORTED);
        const DWORD taken = std::min(count, takesAtMost);
        written.append(static_cast<const char*>(buffer), taken);
        pendingBytes = buffer;
        return Begin(nullptr, *done = taken, overlapped);
    }
    BOOL ReadFile(HANDLE line, void* buffer, DWORD capacity, DWORD* done, OVERLAPPED* overlapped) override {
        if (!Succeeds(line)) return FALSE;
        HoldIf(Call::ReadFile);
        pendingBytes = buffer;
        if (transfers == Transfers::EndAtOnce) return *done = Hand(buffer, capacity), TRUE;
        return Begin(buffer, capacity, overlapped);
    }
    BOOL WaitCommEvent(HANDLE line, DWORD* occurred, OVERLAPPED* overlapped) override {
        return Put(line, *occurred, events) && Begin(nullptr, 0, overlapped);
    }
    BOOL GetOverlappedResult(HANDLE line, OVERLAPPED* overlapped, DWORD* count, BOOL wait) override {
        EXPECT_FALSE(wait);
        if (!Succeeds(line)) return FALSE;
        const ULONG_PTR status = std::atomic_ref(overlapped->Internal);
        *count = static_cast<DWORD>(overlapped->InternalHigh);
        return status == 0 || Refuse(status == statusPending ? ERROR_IO_INCOMPLETE : ERROR_OPERATION_ABORTED);
    }
    BOOL CancelIoEx(HANDLE line, OVERLAPPED* overlapped) override {
        HoldIf(Call::CancelIoEx);
        EXPECT_EQ(overlapped, pending.load());
        if (!Succeeds(line)) return FALSE;
        return transfers == Transfers::NeverEnd || (EndPending(statusCancelled), TRUE);
    }

private:
    static constexpr ULONG_PTR statusPending = 0x103, statusCancelled = 0xC0000120;

    void HoldIf(Call call) {
        for (holding = held == call; held == call;) ::Sleep(1);
        holding = false;
    }
    static BOOL Refuse(DWORD error) { return ::SetLastError(error), FALSE; }
    bool Fails() {
        const bool isHit = failingCall != 0 && --failingCall == 0;
        if (isHit && staysBroken) failingCall = 1;
        return isHit && !Refuse(failure);
    }
    bool Succeeds(HANDLE used) {
        const std::scoped_lock hold(lock);
        EXPECT_TRUE(handles.contains(used)) << "a call on a handle that isn't open";
        return !Fails();
    }
    template <class Value>
    BOOL Put(HANDLE line, Value& place, const Value& value) {
        return Succeeds(line) && (place = value, TRUE);
    }
    HANDLE Remember(HANDLE handle) {
        const std::scoped_lock hold(lock);
        return ++openHandles, *handles.insert(handle).first;
    }
    DWORD Hand(void* target, DWORD capacity) {
        const auto size = static_cast<DWORD>(received.copy(static_cast<char*>(target), capacity));
        return received.erase(0, size), size;
    }
    BOOL Begin(void* readTarget, DWORD size, OVERLAPPED* overlapped) {
        if (transfers == Transfers::EndAtOnce) return TRUE;
        overlapped->Internal = statusPending;
        pendingRead = readTarget, pendingSize = size;
        ::ResetEvent(pendingEvent = overlapped->hEvent);
        pending = overlapped;
        return Refuse(ERROR_IO_PENDING);
    }

    std::mutex lock;
    std::set<HANDLE> handles;
    HANDLE device = nullptr, pendingEvent = nullptr;
    void* pendingRead = nullptr;
    DWORD pendingSize = 0;
};
