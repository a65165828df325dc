// Who may still use a thing that another thread wants to close: a count of users with a door, in one atomic word.
//
// Users enter and leave; the closer shuts the door, waits by its own means until the last user has left, and then
// closes. No lock, no wait: every operation is one atomic step.
#pragma once

#include <atomic>
#include <cstdint>

class CUseGate {
public:
    // One user more; false once the door is shut. May be nested.
    bool Enter() {
        std::uint32_t seen = state.load();
        do {
            if ((seen & shut) != 0) return false;
        } while (!state.compare_exchange_weak(seen, seen + oneUser));
        return true;
    }

    // One user less. True for the last one behind a shut door: the closer waits to be told.
    [[nodiscard]] bool Leave() { return state.fetch_sub(oneUser) == (oneUser | shut); }

    // For the closer, once: nobody enters from here on. True if users are still inside, the last of which will tell.
    [[nodiscard]] bool Shut() { return state.fetch_or(shut) >= oneUser; }

private:
    static constexpr std::uint32_t shut = 1;
    static constexpr std::uint32_t oneUser = 2;

    std::atomic<std::uint32_t> state{0};
};
