// What a restless user and a bad line do to the program: deeds at random, the same for the same seed, whatever the
// program makes of them.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "line/LineRandom.h"

enum class SoakDeed {
    Press,    // a button of the panel, the first number says which
    Enter,    // the key: Start or Stop
    Type,     // a number into one of the edits
    PickDate, // up or down in a part of the date
    Lamp,     // of a counter
    Menu,     // one of three opened, and left by Escape or by a row
    Dialog,   // About or COM Setting
    Dismiss,  // Escape, or Enter to what stands over the window
    Key,      // Tab, space, arrows, digits
    Wander,   // the pointer across the window, with a click or without
    Move,     // the window by its title
    Minimise, // and back
    Steal,    // another window takes the foreground
    Fault,    // a fault of the line begins
    Heal,     // all faults end
    Count,    // people pass a counter
    Flood,    // more bytes than a read takes, or a few
    Counters, // other addresses, two on one among them
    Pull,     // the cable
    Plug,     // and in again
    Wait,     // up to a second
    Poll,     // what stands over the window is left, the port opened, polling begun
    End,      // by the user, the end of the session or by force, and a new start
};

struct SoakAction {
    SoakDeed deed;
    std::array<std::uint32_t, 3> numbers; // each below 65536, to be taken modulo what there is
};

class CSoakPlan {
public:
    explicit CSoakPlan(std::uint64_t seed) : random(seed) {}

    SoakAction Next();

private:
    CLineRandom random;
};

// "type 17 4 60000".
std::string TextOfAction(const SoakAction& action);
