#include "framework/WorkerThread.h"

#include <system_error>
#include <thread>

bool CWorkerThread::Start(Entry entry, void* parameter) {
    try {
        std::thread(entry, parameter).detach();
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}
