// One opened line of the serial port, from the opening of its device to the closing of its handle.
//
// The thread that closes the line and the thread inside a transfer meet here. Whoever uses the handle or an event does
// so between Enter and Leave. Shut lets nobody in any more and signals `closingEvent`, which ends a waiting transfer;
// CloseWhenLeft closes only when the last user has left: so no handle is closed, or its value used again, under a
// running call. The object lives as long as anybody holds it.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include <windows.h>

#include "framework/Handle.h"
#include "serial/UseGate.h"

class CCommPlatform;
struct TransferBlock;

// A handle that the calls of `platform` have made, and that is closed by them.
struct CommHandleTraits : NullTraits<HANDLE> {
    CommHandleTraits() = default; // for no handle
    explicit CommHandleTraits(CCommPlatform& calls) : platform(&calls) {}
    void Close(HANDLE handle) const;
    CCommPlatform* platform = nullptr;
};
using CCommHandle = CHandle<CommHandleTraits>;

class CCommLine {
public:
    // The bound in ms for a driver that misbehaves: so long a cancelled transfer is given to end.
    static constexpr std::uint32_t cancelLimit = 300;

    // `device` is the opened device `deviceName`.
    CCommLine(CCommPlatform& calls, CCommHandle device, std::string deviceName);
    CCommLine(const CCommLine&) = delete;
    CCommLine& operator=(const CCommLine&) = delete;

    // Before anything else: 0 or the error that kept an event from being created.
    std::int32_t CreateEvents(bool overlapped);

    // For the users, on any thread.
    bool Enter() { return gate.Enter(); }
    void Leave();

    // For the thread that wants the line closed, once, and never held up.
    void Shut();

    // After Shut, on a thread that may be held: waits for the users, discards what the driver still wants to send, and
    // closes. A user or a driver that never comes back keeps the thread and the handle.
    void CloseWhenLeft();

    // The rest is for those inside.
    CCommPlatform& Platform() const { return platform; }
    HANDLE Handle() const { return handle.GetHandle(); }

    // Null unless the line was opened in overlapped mode.
    HANDLE OverlappedEvent() const { return overlappedEvent.GetHandle(); }
    HANDLE ClosingEvent() const { return closingEvent.GetHandle(); }
    bool IsOverlapped() const { return !overlappedEvent.IsEmpty(); }

    // The event serves one transfer at a time. False while one is in flight; one that the driver doesn't give back
    // stays in flight until it does.
    bool BeginTransfer() { return !inFlight.exchange(true); }
    void EndTransfer() { inFlight = false; }

    // What the driver still holds of a cancelled transfer, for who begins the next one. Not freed with the line.
    std::atomic<TransferBlock*> held{nullptr};

    // Whether a read hands over what waits instead of waiting itself.
    std::atomic<bool> readsAtOnce{true};

    // Error bits that were cleared by asking how much waits, kept for TakeErrors.
    std::atomic<std::uint32_t> keptErrors{0};

private:
    CCommPlatform& platform;
    const std::string name;
    CUseGate gate;
    bool isUsed = false; // when the door was shut
    std::atomic<bool> inFlight{false};
    CCommHandle handle;
    CCommHandle overlappedEvent;
    CCommHandle closingEvent; // signalled by Shut
    CCommHandle idleEvent;    // signalled when the last user has left after Shut
};

struct OpenedDevice {
    CCommHandle handle; // empty on failure
    std::int32_t error = 0;
};

// Opens the device `name`, for this process alone: the one place where a port is opened by its name. `flags` 0 or
// FILE_FLAG_OVERLAPPED.
OpenedDevice OpenDevice(CCommPlatform& platform, const char* name, DWORD flags);

// Whether the device `name` could be opened at this moment: opens and closes it; 0 or the error. ERROR_BUSY (170)
// without a try if another thread of this process is just opening or probing it.
std::int32_t TryDevice(CCommPlatform& platform, const char* name);
