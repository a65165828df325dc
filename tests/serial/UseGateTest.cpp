// Users and a closer race for a thing: it must be closed once, by the right side, and never be used afterwards.
#include "serial/UseGate.h"

#include <array>
#include <thread>

#include <gtest/gtest.h>

namespace {

class RacedThing {
public:
    // Uses the thing until the door is shut.
    void UseWhileOpen() {
        while (gate.Enter()) {
            ++uses;
            if (closings != 0) usedAfterClosing = true;
            switch (gate.Leave()) {
            case CUseGate::Leaving::Nothing:
                break;
            case CUseGate::Leaving::Tell:
                told = true;
                break;
            case CUseGate::Leaving::Close:
                ++closings;
                break;
            }
        }
    }

    // Waits for the last user, or leaves the closing to it.
    void ShutAndClose(bool waits) {
        while (uses < 100) std::this_thread::yield();
        if (gate.Shut()) {
            while (waits && !told) std::this_thread::yield();
            if (!waits && gate.HandOver()) return;
        }
        ++closings;
    }

    CUseGate gate;
    std::atomic<int> uses{0}, closings{0};
    std::atomic<bool> told{false}, usedAfterClosing{false};
};

} // namespace

TEST(UseGate, ClosesOnceAndOnlyWhenAllHaveLeft) {
    for (int round = 0; round < 40; ++round) {
        RacedThing thing;
        std::array<std::thread, 2> users;
        for (auto& user : users) user = std::thread([&] { thing.UseWhileOpen(); });
        thing.ShutAndClose(round % 2 == 0);
        for (auto& user : users) user.join();
        EXPECT_EQ(thing.closings, 1) << "round " << round;
        EXPECT_FALSE(thing.usedAfterClosing) << "round " << round;
        EXPECT_FALSE(thing.gate.Enter());
    }
}
