// A program that is ended when its time is over, with all that it has started.
#pragma once

#include <string>

#include "check/TestVerdict.h"

// In the current directory; waits for its end. Its standard output and error are the run's output. What it has started
// ends with it too, except where this process is in a job of a Windows before 8.
TestRun RunLimited(std::string command, int seconds);
