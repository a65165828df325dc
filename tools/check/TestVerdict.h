// What a test program's end and its output say.
#pragma once

#include <cstdint>
#include <string>

struct TestRun {
    bool hasStarted = false;
    bool isLate = false;    // it was still running when its time was over, and has been ended
    std::uint32_t code = 0; // its exit code, if it has ended by itself
    std::string output{};   // as GoogleTest writes it
};

struct TestVerdict {
    bool isPass = false;
    std::string text{}; // "34 passed", "33 passed, 1 failed", "code C0000005 in Rows.Last"
};

// A pass takes an exit code of 0 and GoogleTest's own sum without a failure, of one test at least.
TestVerdict VerdictOf(const TestRun& run, int seconds);
