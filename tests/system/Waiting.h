// Waiting for what another process does: asked every few milliseconds, up to a deadline.
#pragma once

#include <chrono>
#include <thread>

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

template <class Condition>
bool Await(const Condition& condition, Clock::duration limit = 5s) {
    const auto deadline = Clock::now() + limit;
    while (!condition()) {
        if (Clock::now() >= deadline) return false;
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

inline long long Milliseconds(Clock::duration time) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
}
