#include "framework/WorkerThread.h"

#include <chrono>
#include <thread>

void PauseThread(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
