#include "framework/WorkerThread.h"

#include <memory>

#include <windows.h>

namespace {

struct Call {
    CWorkerThread::Entry entry;
    void* parameter;
};

// The platform's own form of a thread's start, which differs from the portable one on 32-bit Windows.
DWORD WINAPI RunCall(void* argument) {
    const Call call = *std::unique_ptr<Call>(static_cast<Call*>(argument));
    return call.entry(call.parameter);
}

} // namespace

CWorkerThread::~CWorkerThread() {
    if (handle != nullptr) CloseHandle(handle);
}

bool CWorkerThread::Start(Entry entry, void* parameter) {
    auto call = std::make_unique<Call>(Call{entry, parameter});
    const HANDLE started = CreateThread(nullptr, 0, &RunCall, call.get(), 0, nullptr);
    if (started == nullptr) return false;
    call.release(); // the new thread's now
    if (handle != nullptr) CloseHandle(handle);
    handle = started;
    return true;
}
