// Users and a closer race for a thing: the closer must be told of the last user, and none may come afterwards.
#include "serial/UseGate.h"

#include <thread>

#include <gtest/gtest.h>

TEST(UseGate, ClosesOnlyWhenAllHaveLeft) {
    for (int round = 0; round < 40; ++round) {
        CUseGate gate;
        std::atomic<int> uses{0};
        std::atomic<bool> isTold{false}, isClosed{false};
        const auto useWhileOpen = [&] {
            while (gate.Enter()) {
                ++uses;
                EXPECT_FALSE(isClosed) << "round " << round;
                if (gate.Leave()) isTold = true;
            }
        };
        std::thread first(useWhileOpen), second(useWhileOpen);
        while (uses < 100) std::this_thread::yield();
        if (gate.Shut()) {
            while (!isTold) std::this_thread::yield();
        }
        isClosed = true;
        first.join();
        second.join();
        EXPECT_FALSE(gate.Enter());
    }
}
