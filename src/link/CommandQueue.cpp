#include "link/CommandQueue.h"

#include <utility>

namespace {

constexpr std::uint32_t rest = 10; // milliseconds between commands

}

CCommandQueue::~CCommandQueue() {
    Stop();
    while (running) PauseThread(1);
}

CCommandQueue* CCommandQueue::Instance() {
    static auto* const queue = new CCommandQueue;
    return queue;
}

int CCommandQueue::Add(std::unique_ptr<CCommand> command) {
    if (shut) return 0;
    {
        const CMutexGuard guard(lock);
        commands.push_back(std::move(command));
    }
    wake.Raise();
    if (!running) Start();
    return 0;
}

void CCommandQueue::Start() {
    if (running || shut) return;
    // Set before the thread exists, so that a second Start right behind can't make a second worker.
    running = true;
    stopRequested = false;
    if (!thread.Start(&RunWorker, this)) running = false;
}

void CCommandQueue::Stop() {
    stopRequested = true;
    wake.Raise();
}

void CCommandQueue::DropQueued() {
    std::deque<std::unique_ptr<CCommand>> dropped; // outlives the guard: the commands die outside the lock
    const CMutexGuard guard(lock);
    commands.swap(dropped);
}

void CCommandQueue::Shut() {
    shut = true;
    Stop();
    DropQueued();
}

unsigned CCommandQueue::RunWorker(void* queue) noexcept {
    static_cast<CCommandQueue*>(queue)->Work();
    return 0;
}

void CCommandQueue::Work() {
    while (!stopRequested) {
        if (ExecuteFirst()) {
            PauseThread(rest);
        } else {
            wake.Await();
        }
    }
    // The last touch: from here on the queue may be gone, or a new worker be started.
    running = false;
}

bool CCommandQueue::ExecuteFirst() {
    std::unique_ptr<CCommand> first; // deleted before the pause, so that a command's end is its end
    {
        const CMutexGuard guard(lock);
        if (commands.empty()) return false;
        first = std::move(commands.front());
        commands.pop_front();
    }
    if (first != nullptr) first->Execute();
    return true;
}
