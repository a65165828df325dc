// The one queue of commands with its worker thread.
//
// Everything that goes out on the line goes through here, first in, first out, one command at a time: so the line is
// half-duplex without further care, and the user-interface thread never waits for it. At least 10 ms lie between the
// end of one command and the start of the next.
#pragma once

#include <atomic>
#include <deque>
#include <memory>

#include "framework/Mutex.h"
#include "framework/Signal.h"
#include "framework/WorkerThread.h"
#include "link/Command.h"

class CCommandQueue {
public:
    CCommandQueue() = default;
    CCommandQueue(const CCommandQueue&) = delete;
    CCommandQueue& operator=(const CCommandQueue&) = delete;

    // Stops the worker and waits for it, up to the end of the command in flight.
    ~CCommandQueue();

    // User-interface thread only, as is everything below. The process-wide queue: made at first use, never destroyed.
    static CCommandQueue* Instance();

    // Appends a command and makes sure that a worker runs. A null command is skipped when its turn comes. Always 0.
    int Add(std::unique_ptr<CCommand> command);

    // Starts the worker unless there is one. If the platform gives no thread, the next Add or Start tries again.
    void Start();

    // Asks the worker to leave: it does so at once, or after the command in flight and one pause, leaving the rest
    // queued.
    void Stop();

    // Deletes what is queued and not yet taken by the worker.
    void DropQueued();

    // The end: Stop and DropQueued, and from now on Add deletes what it gets and Start does nothing, until Reopen.
    void Shut();
    void Reopen() { shut = false; }
    bool IsShut() const { return shut; }

    // Whether a worker exists. False after Stop means that it touches nothing any more and no command runs.
    bool IsRunning() const { return running; }

    // The latest worker's handle, for a bounded wait at the end of the process: a Win32 HANDLE that stays the queue's,
    // null if none was ever started. For instance with MsgWaitForMultipleObjects, so that sent messages are served.
    void* GetThreadHandle() const { return thread.GetHandle(); }

private:
    static unsigned RunWorker(void* queue) noexcept;
    void Work();
    // Whether there was one.
    bool ExecuteFirst();

    std::deque<std::unique_ptr<CCommand>> commands; // oldest first
    CWorkerThread thread;
    bool shut = false;
    std::atomic<bool> stopRequested{false};
    std::atomic<bool> running{false};
    CSignal wake; // that the worker has something to look at: a command, or the wish that it leaves
    // Guards `commands`; held for an append or a removal, never across a command.
    CMutex lock;
};
