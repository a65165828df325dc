// The system's own calls: every operation hands its arguments on as they are.
#include "serial/CommPlatform.h"

// The headers offer it from Windows Vista on only, which the program needs for other reasons anyway.
extern "C" WINBASEAPI BOOL WINAPI CancelIoEx(HANDLE file, OVERLAPPED* overlapped);

CCommPlatform& CCommPlatform::System() {
    static auto* const system =
        new CCommPlatform; // never destroyed: at the program's end the worker may still be there
    return *system;
}

HANDLE CCommPlatform::CreateFileA(const char* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                  DWORD disposition, DWORD flags, HANDLE model) {
    return ::CreateFileA(name, access, share, security, disposition, flags, model);
}

BOOL CCommPlatform::CloseHandle(HANDLE handle) {
    return ::CloseHandle(handle);
}

HANDLE CCommPlatform::CreateEventA(SECURITY_ATTRIBUTES* security, BOOL manualReset, BOOL signalled, const char* name) {
    return ::CreateEventA(security, manualReset, signalled, name);
}

BOOL CCommPlatform::SetEvent(HANDLE event) {
    return ::SetEvent(event);
}

DWORD CCommPlatform::WaitForSingleObject(HANDLE handle, DWORD timeout) {
    return ::WaitForSingleObject(handle, timeout);
}

DWORD CCommPlatform::WaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all, DWORD timeout) {
    return ::WaitForMultipleObjects(count, handles, all, timeout);
}

BOOL CCommPlatform::SetupComm(HANDLE line, DWORD inQueue, DWORD outQueue) {
    return ::SetupComm(line, inQueue, outQueue);
}

BOOL CCommPlatform::GetDefaultCommConfigA(const char* name, COMMCONFIG* config, DWORD* size) {
    return ::GetDefaultCommConfigA(name, config, size);
}

BOOL CCommPlatform::SetCommConfig(HANDLE line, COMMCONFIG* config, DWORD size) {
    return ::SetCommConfig(line, config, size);
}

BOOL CCommPlatform::GetCommState(HANDLE line, DCB* state) {
    return ::GetCommState(line, state);
}

BOOL CCommPlatform::SetCommState(HANDLE line, DCB* state) {
    return ::SetCommState(line, state);
}

BOOL CCommPlatform::GetCommTimeouts(HANDLE line, COMMTIMEOUTS* timeouts) {
    return ::GetCommTimeouts(line, timeouts);
}

BOOL CCommPlatform::SetCommTimeouts(HANDLE line, COMMTIMEOUTS* timeouts) {
    return ::SetCommTimeouts(line, timeouts);
}

BOOL CCommPlatform::SetCommMask(HANDLE line, DWORD mask) {
    return ::SetCommMask(line, mask);
}

BOOL CCommPlatform::ClearCommError(HANDLE line, DWORD* errors, COMSTAT* status) {
    return ::ClearCommError(line, errors, status);
}

BOOL CCommPlatform::PurgeComm(HANDLE line, DWORD what) {
    return ::PurgeComm(line, what);
}

BOOL CCommPlatform::SetCommBreak(HANDLE line) {
    return ::SetCommBreak(line);
}

BOOL CCommPlatform::ClearCommBreak(HANDLE line) {
    return ::ClearCommBreak(line);
}

BOOL CCommPlatform::GetCommModemStatus(HANDLE line, DWORD* status) {
    return ::GetCommModemStatus(line, status);
}

void CCommPlatform::Sleep(DWORD time) {
    ::Sleep(time);
}

BOOL CCommPlatform::WriteFile(HANDLE line, const void* buffer, DWORD count, DWORD* written, OVERLAPPED* overlapped) {
    return ::WriteFile(line, buffer, count, written, overlapped);
}

BOOL CCommPlatform::ReadFile(HANDLE line, void* buffer, DWORD capacity, DWORD* got, OVERLAPPED* overlapped) {
    return ::ReadFile(line, buffer, capacity, got, overlapped);
}

BOOL CCommPlatform::WaitCommEvent(HANDLE line, DWORD* events, OVERLAPPED* overlapped) {
    return ::WaitCommEvent(line, events, overlapped);
}

BOOL CCommPlatform::GetOverlappedResult(HANDLE line, OVERLAPPED* overlapped, DWORD* count, BOOL wait) {
    return ::GetOverlappedResult(line, overlapped, count, wait);
}

BOOL CCommPlatform::CancelIoEx(HANDLE line, OVERLAPPED* overlapped) {
    return ::CancelIoEx(line, overlapped);
}
