#include "framework/WorkerThread.h"

#include <chrono>
#include <system_error>
#include <thread>

CWorkerThread::~CWorkerThread() = default;

bool CWorkerThread::Start(Entry entry, void* parameter) {
    try {
        std::thread(entry, parameter).detach();
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void PauseThread(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
