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
        waiting = commands.size();
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
    waiting = 0;
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
        if (waiting == 0) {
            wake.Await();
            continue;
        }
        // Taken and deleted before the pause, so that a command's end is its end.
        if (const std::unique_ptr<CCommand> command = TakeFirst()) command->Execute();
        PauseThread(rest);
    }
    // The last touch: from here on the queue may be gone, or a new worker be started.
    running = false;
}

std::unique_ptr<CCommand> CCommandQueue::TakeFirst() {
    const CMutexGuard guard(lock);
    if (commands.empty()) return nullptr; // dropped in between
    auto first = std::move(commands.front());
    commands.pop_front();
    waiting = commands.size();
    return first;
}
