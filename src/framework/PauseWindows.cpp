#include "framework/WorkerThread.h"

#include <windows.h>

// A file of its own: a test that runs the clock faster brings its own pause.
void PauseThread(std::uint32_t milliseconds) {
    Sleep(milliseconds);
}
