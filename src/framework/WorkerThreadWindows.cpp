#include "framework/WorkerThread.h"

#include <memory>
#include <utility>

#include <windows.h>

#include "framework/Mutex.h"
#include "framework/SystemHandles.h"

namespace {

struct Call {
    CWorkerThread::Entry entry;
    void* parameter;
    std::shared_ptr<CKernelHandle> returned; // an event
};

// Where one thread whose call has returned waits for the next one: on some systems the room of a thread that has ended
// stays taken, a megabyte of it.
class CParking {
public:
    static CParking& Instance() {
        static auto* const parking = new CParking; // outlives the threads
        return *parking;
    }

    // False if no thread waits here.
    bool Hand(const Call& call) {
        const CMutexGuard guard(lock);
        if (!occupied || next) return false;
        next = std::make_unique<Call>(call);
        ::SetEvent(handed.GetHandle());
        return true;
    }

    // For a thread that has nothing to do any more: whether the place is its own from now on, until AwaitCall returns.
    bool Occupy() {
        const CMutexGuard guard(lock);
        return !std::exchange(occupied, true);
    }
    std::unique_ptr<Call> AwaitCall() {
        ::WaitForSingleObject(handed.GetHandle(), INFINITE);
        const CMutexGuard guard(lock);
        occupied = false;
        return std::move(next);
    }

private:
    CMutex lock; // guards the two below
    bool occupied = false;
    std::unique_ptr<Call> next;
    const CKernelHandle handed{::CreateEventA(nullptr, FALSE, FALSE, nullptr)};
};

// The platform's own form of a thread's start, which differs from the portable one on 32-bit Windows.
DWORD WINAPI RunCalls(void* argument) {
    std::unique_ptr<Call> call(static_cast<Call*>(argument));
    while (call != nullptr) {
        call->entry(call->parameter);
        // Before anybody hears of the call's end, so that his next call finds this thread.
        const bool stays = CParking::Instance().Occupy();
        ::SetEvent(call->returned->GetHandle());
        call = stays ? CParking::Instance().AwaitCall() : nullptr;
    }
    return 0;
}

bool RunOnNewThread(const Call& call) {
    auto own = std::make_unique<Call>(call);
    const CKernelHandle thread(::CreateThread(nullptr, 0, &RunCalls, own.get(), 0, nullptr));
    if (thread.IsEmpty()) return false;
    static_cast<void>(own.release()); // the new thread's now
    return true;
}

} // namespace

bool CWorkerThread::Start(Entry entry, void* parameter) {
    const auto event = std::make_shared<CKernelHandle>(::CreateEventA(nullptr, TRUE, FALSE, nullptr));
    if (event->IsEmpty()) return false;
    const Call call{entry, parameter, event};
    if (!CParking::Instance().Hand(call) && !RunOnNewThread(call)) return false;
    handle = std::shared_ptr<void>(event, event->GetHandle());
    return true;
}
