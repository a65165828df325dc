// A soak: deeds at random, and a rest after some of them, at which everything is closed and counted.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "soak/AnswerWatch.h"
#include "soak/ProcessFigures.h"
#include "soak/SoakHand.h"
#include "soak/SoakLine.h"
#include "soak/SoakPlan.h"
#include "soak/SoakRecord.h"
#include "soak/SoakedProgram.h"

struct SoakOptions {
    std::int64_t seconds = 60;
    std::uint64_t seed = 1;
    std::string nearPort = "COM1", farPort = "COM2", pulledFile;
};

enum class SoakEnd { ByUser, BySession, ByForce };

class CSoakRun {
public:
    explicit CSoakRun(SoakOptions soakOptions);

    // Until the time is up or something is wrong. Gives the report, whose last line is the verdict.
    std::string Run();
    bool IsSound() const { return record.IsSound(); }

private:
    // The program's run.
    void StartProgram();
    void EndProgram(SoakEnd end);
    // Both on the watch's thread: what the window shows, an answer that came late.
    void Look();
    void JudgeAnswer(const LateAnswer& answer);
    void ReadLog();
    void CheckCounts();
    void CheckGoingOn();

    // Deeds.
    void Do(const SoakAction& action);
    void Poll();
    void Type(const SoakAction& action);
    void PickDate(const SoakAction& action);
    void OpenMenu(const SoakAction& action);
    void ClickRow(HWND popup, std::uint32_t row);
    void OpenDialog(const SoakAction& action);
    void PressAnyKey(const SoakAction& action);
    void Wander(const SoakAction& action);
    void Move(const SoakAction& action);
    void Minimise();
    void Steal(const SoakAction& action);
    void AddFault(const SoakAction& action);
    void OtherCounters(const SoakAction& action);

    // Rest.
    void Rest();
    void Tour();
    void TouchButtons();
    bool Dismiss();
    std::string WhatStands() const;
    bool StopPolling();
    bool ClosePort();
    bool OpenPort();
    void CountWhatIsHeld();
    void CheckPollingAtPeace(const std::vector<std::uint8_t>& addresses);
    void CheckUpdateAtPeace();
    bool ShowsCounters(const std::vector<std::uint8_t>& addresses);

    std::string Report();

    const SoakOptions options;
    CSoakRecord record;
    CSoakLine line;
    CSoakedProgram program;
    CSoakHand hand;
    CSoakPlan plan;
    CAnswerWatch watch;
    CServedWindow thief;     // of the foreground
    std::size_t logRead = 0; // bytes of the present log
    std::size_t actions = 0, rests = 0, restsOfRun = 0, restsCompared = 0;
    std::size_t excusedAnswers = 0; // late ones, but for the machine
    int gdiMost = 0, gdiRises = 0;  // of this run of the program, from its first rest on
    ProcessFigures base, growth;    // of the first rests of a run of the program; the largest since, over all runs
};
