// What all parts of a soak know together: the judges, what was done last, the first thing that was wrong.
//
// For any thread. What it is told happens at that moment.
#pragma once

#include <atomic>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "port/LineTime.h"
#include "soak/LogJudge.h"
#include "soak/WireJudge.h"

class CSoakRecord {
public:
    LineTime TimeSinceStart() const { return SteadyLineTime() - begun; }

    // Keeps the first fault only.
    void Fail(const std::string& what);
    bool IsSound() const { return sound; }

    // Gives it with its time. The last 30 are kept.
    std::string Note(const std::string& action);
    // "sound", or the last actions and the first fault with its time.
    std::string Verdict() const;

    // What the line has heard and said.
    void Hear(const LineRequest& request);
    void Speak(const LineBytes& bytes);
    // The port is opened, closed, pulled, or the program ends: see CLogJudge.
    void Disturb();
    void RestartProgram();
    void ReadLog(std::string_view text);
    // The program has ended, and its log with it.
    void EndLog();

    void PressStart();
    void PressClear();
    void PressUpdate(const std::optional<UpdateForm>& form);
    void SeePolling();

    // A port is about to be searched for, opened or closed, which may hold the window for up to a second: answers of
    // the next one and a half are judged by that.
    void ExpectPortWork() { portWorksUntil = (SteadyLineTime() + std::chrono::milliseconds(1500)).count(); }
    bool IsPortAtWork() const { return SteadyLineTime().count() < portWorksUntil; }

    // Whether the line has ever told these counts.
    bool WereTold(int in, int out) const;

    std::atomic<std::size_t> polls{0}, frames{0}, faults{0}, restarts{0};
    std::size_t LogLines() const;
    std::size_t UpdatesCompared() const;

private:
    const LineTime begun = SteadyLineTime();
    mutable std::mutex lock; // guards all below
    std::atomic<bool> sound{true};
    std::atomic<LineTime::rep> portWorksUntil{0};
    std::string firstFault;
    std::deque<std::string> actions;
    CWireJudge wire;
    CLogJudge log;
    LineBytes tail; // the last bytes said, shorter than a record
    std::set<std::pair<int, int>> told{{0, 0}};

    std::string TimeText() const;
    void FailLocked(const std::string& what);
};
