// The life of an opened line.
#include "serial/CommLine.h"

#include <chrono>
#include <string>
#include <utility>

#include "serial/CommPlatform.h"
#include "serial/PortSettings.h"

void CommHandleTraits::Close(HANDLE handle) const {
    platform->CloseHandle(handle);
}

CCommLine::CCommLine(CCommPlatform& calls, CCommHandle device, std::string deviceName)
    : platform(calls), name(std::move(deviceName)), handle(std::move(device)) {}

std::int32_t CCommLine::CreateEvents(bool overlapped) {
    const auto create = [this](CCommHandle& event) {
        event = CCommHandle(platform.CreateEventA(nullptr, TRUE, FALSE, nullptr), CommHandleTraits(platform));
        return !event.IsEmpty();
    };
    const bool created = (!overlapped || (create(overlappedEvent) && create(closingEvent))) && create(idleEvent);
    return created ? 0 : static_cast<std::int32_t>(::GetLastError());
}

void CCommLine::Leave() {
    if (gate.Leave()) platform.SetEvent(idleEvent.GetHandle());
}

// The door first: a transfer that begins after it is shut never issues anything, one that began before finds the event
// signalled when it comes to wait.
void CCommLine::Shut() {
    isUsed = gate.Shut();
    if (IsOverlapped()) platform.SetEvent(closingEvent.GetHandle());
}

// The other two events end with the object: the last user may still be on its way out of SetEvent.
void CCommLine::CloseWhenLeft() {
    if (isUsed && platform.WaitForSingleObject(idleEvent.GetHandle(), INFINITE) != WAIT_OBJECT_0) return;
    platform.PurgeComm(Handle(), PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR);
    overlappedEvent.Close();
    platform.turns.NoteClosing(name);
    handle.Close();
    platform.turns.NoteClosing(name);
}

OpenedDevice OpenDevice(CCommPlatform& platform, const char* name, DWORD flags) {
    const std::string path = DevicePath(name);
    const HANDLE device =
        platform.CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, flags, nullptr);
    if (device == INVALID_HANDLE_VALUE) return {.handle = {}, .error = static_cast<std::int32_t>(::GetLastError())};
    return {.handle = CCommHandle(device, CommHandleTraits(platform))};
}

std::int32_t TryDevice(CCommPlatform& platform, const char* name) {
    const CDeviceTurns::Turn turn = platform.turns.Take(name, std::chrono::milliseconds(0));
    if (!turn) return ERROR_BUSY;
    OpenedDevice device = OpenDevice(platform, name, 0);
    if (device.handle.IsEmpty()) return device.error;
    platform.turns.NoteClosing(name);
    device.handle.Close();
    platform.turns.NoteClosing(name);
    return 0;
}
