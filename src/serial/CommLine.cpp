// The life of an opened line.
#include "serial/CommLine.h"

#include <chrono>
#include <string>
#include <utility>

#include "serial/CommPlatform.h"
#include "serial/PortSettings.h"

bool CCommHandle::CreateEvent() {
    handle = platform.CreateEventA(nullptr, TRUE, FALSE, nullptr);
    return handle != nullptr;
}

void CCommHandle::Close() {
    if (handle != nullptr) platform.CloseHandle(std::exchange(handle, nullptr));
}

CCommLine::CCommLine(CCommPlatform& calls, HANDLE device, std::string deviceName)
    : platform(calls), name(std::move(deviceName)), handle(calls, device), overlappedEvent(calls, nullptr),
      closingEvent(calls, nullptr), idleEvent(calls, nullptr) {}

std::int32_t CCommLine::CreateEvents(bool overlapped) {
    const bool created =
        (!overlapped || (overlappedEvent.CreateEvent() && closingEvent.CreateEvent())) && idleEvent.CreateEvent();
    return created ? 0 : static_cast<std::int32_t>(::GetLastError());
}

void CCommLine::Leave() {
    if (gate.Leave()) platform.SetEvent(idleEvent.Get());
}

// The door first: a transfer that begins after it is shut never issues anything, one that began before finds the event
// signalled when it comes to wait.
void CCommLine::Shut() {
    isUsed = gate.Shut();
    if (IsOverlapped()) platform.SetEvent(closingEvent.Get());
}

// The other two events end with the object: the last user may still be on its way out of SetEvent.
void CCommLine::CloseWhenLeft() {
    if (isUsed && platform.WaitForSingleObject(idleEvent.Get(), INFINITE) != WAIT_OBJECT_0) return;
    platform.PurgeComm(Handle(), PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR);
    overlappedEvent.Close();
    platform.turns.NoteClosing(name);
    handle.Close();
    platform.turns.NoteClosing(name);
}

OpenedDevice OpenDevice(CCommPlatform& platform, const char* name, DWORD flags) {
    const std::string path = DevicePath(name);
    HANDLE device =
        platform.CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, flags, nullptr);
    if (device == INVALID_HANDLE_VALUE) return {.error = static_cast<std::int32_t>(::GetLastError())};
    return {.handle = device};
}

std::int32_t TryDevice(CCommPlatform& platform, const char* name) {
    const CDeviceTurns::Turn turn = platform.turns.Take(name, std::chrono::milliseconds(0));
    if (!turn) return ERROR_BUSY;
    const OpenedDevice device = OpenDevice(platform, name, 0);
    if (device.handle == nullptr) return device.error;
    platform.turns.NoteClosing(name);
    platform.CloseHandle(device.handle);
    platform.turns.NoteClosing(name);
    return 0;
}
