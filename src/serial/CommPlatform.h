// The platform calls beneath the serial port, one virtual operation each; by default the call of Win32 of that name.
//
// A test puts another object beneath the port to record arguments, to let any one call fail, or to play a driver that
// misbehaves. Results and GetLastError are as Win32 documents them; an override that fails sets the error itself.
#pragma once

#include <cstdint>

#include <windows.h>

#include "serial/DeviceTurns.h"

class CCommPlatform {
public:
    CCommPlatform() = default;
    CCommPlatform(const CCommPlatform&) = delete;
    CCommPlatform& operator=(const CCommPlatform&) = delete;
    virtual ~CCommPlatform() = default;

    // The system's own calls.
    static CCommPlatform& System();

    // For whoever opens, probes or closes a device over these calls.
    CDeviceTurns turns;

    virtual HANDLE CreateFileA(const char* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                               DWORD disposition, DWORD flags, HANDLE model);
    virtual BOOL CloseHandle(HANDLE handle);
    virtual HANDLE CreateEventA(SECURITY_ATTRIBUTES* security, BOOL manualReset, BOOL signalled, const char* name);
    virtual BOOL SetEvent(HANDLE event);
    virtual DWORD WaitForSingleObject(HANDLE handle, DWORD timeout);
    virtual DWORD WaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all, DWORD timeout);

    virtual BOOL SetupComm(HANDLE line, DWORD inQueue, DWORD outQueue);
    virtual BOOL GetDefaultCommConfigA(const char* name, COMMCONFIG* config, DWORD* size);
    virtual BOOL SetCommConfig(HANDLE line, COMMCONFIG* config, DWORD size);
    virtual BOOL GetCommState(HANDLE line, DCB* state);
    virtual BOOL SetCommState(HANDLE line, DCB* state);
    virtual BOOL GetCommTimeouts(HANDLE line, COMMTIMEOUTS* timeouts);
    virtual BOOL SetCommTimeouts(HANDLE line, COMMTIMEOUTS* timeouts);
    virtual BOOL SetCommMask(HANDLE line, DWORD mask);
    virtual BOOL ClearCommError(HANDLE line, DWORD* errors, COMSTAT* status);
    virtual BOOL PurgeComm(HANDLE line, DWORD what);
    virtual BOOL SetCommBreak(HANDLE line);
    virtual BOOL ClearCommBreak(HANDLE line);
    virtual BOOL GetCommModemStatus(HANDLE line, DWORD* status);
    virtual void Sleep(DWORD time);

    virtual BOOL WriteFile(HANDLE line, const void* buffer, DWORD count, DWORD* written, OVERLAPPED* overlapped);
    virtual BOOL ReadFile(HANDLE line, void* buffer, DWORD capacity, DWORD* got, OVERLAPPED* overlapped);
    virtual BOOL WaitCommEvent(HANDLE line, DWORD* events, OVERLAPPED* overlapped);
    virtual BOOL GetOverlappedResult(HANDLE line, OVERLAPPED* overlapped, DWORD* count, BOOL wait);
    virtual BOOL CancelIoEx(HANDLE line, OVERLAPPED* overlapped);
};

inline std::int32_t LastPlatformError() {
    return static_cast<std::int32_t>(::GetLastError());
}
