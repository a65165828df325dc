// Whether a frame on the wire may be there at that moment: polls while polling, and what a user's press brings about.
//
// For one thread at a time; times never run backwards.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "link/CounterFrame.h"
#include "line/LineFrames.h"
#include "port/LineTime.h"

// What the controls read when Update was pressed.
struct UpdateForm {
    ClockField clock;
    std::uint8_t sensitivity, settings, address;

    bool operator==(const UpdateForm&) const = default;
};

class CWireJudge {
public:
    // What the user is about to press, or may press by it.
    void PressStart(LineTime now) { lastPolling = now; }
    void PressClear(LineTime now) {
        presses.push_back({.time = now, .clears = 1, .settings = 0, .addresses = 0, .form = {}});
    }
    void PressUpdate(LineTime now, const std::optional<UpdateForm>& form);
    // The window shows that it polls.
    void SeePolling(LineTime now) { lastPolling = now; }
    // What is sent now may not come by here: the port is closed, or another line's.
    void Disturb(LineTime now) { lastDisturbed = now; }
    // The program begins anew, and has sent nothing to all counters yet.
    void Restart() { updatesSent = 0; }

    // What is wrong with the request; empty if nothing is.
    std::string Judge(const LineRequest& request, LineTime now);
    // Frames of Updates that were held against what the window read.
    std::size_t UpdatesCompared() const { return updatesCompared; }

private:
    struct Press {
        LineTime time;
        int clears, settings, addresses; // frames that it may still bring about
        std::optional<UpdateForm> form;
    };

    std::string JudgePoll(const LineRequest& request, LineTime now);
    std::string JudgeClear(const LineRequest& request);
    std::string JudgeUpdate(const LineRequest& request, int Press::*budget);

    std::optional<LineTime> lastPolling, lastCommand, lastDisturbed;
    std::optional<LineTime> polled[counterCount];
    std::vector<Press> presses;
    int updatesSent = 0;
    std::size_t updatesCompared = 0;
};
