// Who may still use a thing that another thread wants to close: a count of users with a door, in one atomic word.
//
// Users enter and leave; the closer shuts the door, waits by its own means until the last user has left, and then
// closes. If it can't wait that long it hands the closing over to the last user. Exactly one side is told to close. No
// lock, no wait: every operation is one atomic step.
#pragma once

#include <atomic>
#include <cstdint>

class CUseGate {
public:
    enum class Leaving {
        Nothing, // others are inside, or the door is open
        Tell,    // the last user: the closer waits to be told
        Close,   // the last user, and the closing was handed over
    };

    // One user more; false once the door is shut. May be nested.
    bool Enter() {
        std::uint32_t seen = state.load();
        do {
            if ((seen & shut) != 0) return false;
        } while (!state.compare_exchange_weak(seen, seen + oneUser));
        return true;
    }

    // One user less; what the leaving user has to do about it.
    [[nodiscard]] Leaving Leave() {
        const std::uint32_t left = state.fetch_sub(oneUser) - oneUser;
        if (left >= oneUser || (left & shut) == 0) return Leaving::Nothing;
        return (left & handedOver) != 0 ? Leaving::Close : Leaving::Tell;
    }

    // For the closer, once: nobody enters from here on. True if users are still inside, the last of which will tell.
    [[nodiscard]] bool Shut() { return state.fetch_or(shut) >= oneUser; }

    // For the closer that has shut the door and waits no longer. True if the last user will close; false if all have
    // left meanwhile, so that the closer has to.
    [[nodiscard]] bool HandOver() { return state.fetch_or(handedOver) >= oneUser; }

private:
    static constexpr std::uint32_t shut = 1;
    static constexpr std::uint32_t handedOver = 2;
    static constexpr std::uint32_t oneUser = 4;

    std::atomic<std::uint32_t> state{0};
};
