#include "soak/SoakRun.h"

#include <fstream>
#include <iterator>
#include <utility>

#include <shlwapi.h>

#include "framework/Text.h"
#include "resources/ResourceIds.h"
#include "user/ProgramStart.h"

namespace {

constexpr std::size_t actionsBetweenRests = 40;

// The one that the program has opened last, as it stores it; where nobody listens what it sends is lost.
std::string PortInUse() {
    DWORD number = 0, length = sizeof number;
    ::SHGetValueA(HKEY_CURRENT_USER, "SOFTWARE\\BRENHOLT\\QV", "COM", nullptr, &number, &length);
    return "COM" + std::to_string(number);
}

double Milliseconds(LineTime time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

std::string TextOf(const char* name, const AnswerFigures& figures) {
    return FormatText("%s worst %.1f ms, mean %.2f ms", name, Milliseconds(figures.worst),
                      Milliseconds(figures.Mean()));
}

} // namespace

CSoakRun::CSoakRun(SoakOptions soakOptions)
    : options(std::move(soakOptions)), line(options.farPort, options.pulledFile, record), hand(program, record),
      plan(options.seed), watch({.look = [this] { Look(); },
                                 .isPortAtWork = [this] { return record.IsPortAtWork(); },
                                 .late = [this](const LateAnswer& answer) { JudgeAnswer(answer); }}) {}

std::string CSoakRun::Run() {
    const auto isOver = [this] {
        return !record.IsSound() || record.TimeSinceStart() >= std::chrono::seconds(options.seconds);
    };
    if (!line.Plug()) record.Fail("no port " + options.farPort);
    if (record.IsSound()) StartProgram();
    while (!isOver()) {
        if (actions % actionsBetweenRests == 0) Rest();
        if (isOver()) break;
        const SoakAction action = plan.Next();
        ++actions;
        record.Note(std::to_string(actions) + ": " + TextOfAction(action));
        Do(action);
        CheckGoingOn();
    }
    if (record.IsSound()) Rest();
    constexpr int longRun = 300; // s
    if (options.seconds >= longRun && restsCompared == 0)
        record.Fail("at no rest was held against others what is held");
    if (record.IsSound()) EndProgram(SoakEnd::ByUser);
    watch.Stop();
    if (program.IsRunning()) program.Kill();
    return Report();
}

void CSoakRun::StartProgram() {
    // The program offers the ports that are there at its start.
    if (!line.Plug()) return record.Fail("the cable doesn't come back");
    record.RestartProgram();
    logRead = 0;
    restsOfRun = 0;
    if (!program.Start()) return record.Fail("the program doesn't start");
    record.Disturb();
    watch.Ask(program.Panel());
}

void CSoakRun::EndProgram(SoakEnd end) {
    watch.Ask(nullptr);
    record.Disturb();
    if (end == SoakEnd::ByForce) {
        program.Kill();
    } else if (!program.Close(end == SoakEnd::BySession)) {
        record.Fail("the program doesn't end well");
    }
    record.Disturb();
    ReadLog();
    record.EndLog();
    ++record.restarts;
}

void CSoakRun::Look() {
    if (program.IsPolling()) record.SeePolling();
    if (line.IsPulled() || !program.IsPortOpen() || PortInUse() != options.nearPort) record.Disturb();
}

void CSoakRun::JudgeAnswer(const LateAnswer& answer) {
    const std::string text =
        FormatText("an answer after %.0f ms, of which the machine itself let others wait %.0f; its host took "
                   "%.0f",
                   Milliseconds(answer.time), Milliseconds(answer.machine), Milliseconds(answer.stolen));
    record.Note(text);
    if (!answer.excused) return record.Fail(text);
    ++excusedAnswers;
}

void CSoakRun::ReadLog() {
    std::ifstream file(BuiltFolder() + "Quorvane.log", std::ios::binary);
    if (!file) return record.Fail("no log");
    file.seekg(static_cast<std::streamoff>(logRead));
    const std::string text(std::istreambuf_iterator<char>(file), {});
    logRead += text.size();
    record.ReadLog(text);
}

// Both displays belong to one moment if the first reads the same before and after the second.
void CSoakRun::CheckCounts() {
    const std::string in = program.Text(IDC_IN_DISPLAY), out = program.Text(IDC_OUT_DISPLAY);
    if (in.empty() || out.empty() || program.Text(IDC_IN_DISPLAY) != in) return;
    if (!record.WereTold(std::atoi(in.c_str()), std::atoi(out.c_str())))
        record.Fail("the displays show " + in + " and " + out + ", which no counter has told");
}

void CSoakRun::CheckGoingOn() {
    if (!program.IsRunning()) return record.Fail("the program has ended by itself");
    ReadLog();
    CheckCounts();
}

std::string CSoakRun::Report() {
    const auto counted = [](std::size_t count, const char* what) { return ", " + std::to_string(count) + " " + what; };
    std::string text =
        "seed " + std::to_string(options.seed) + FormatText(", %.0f s", Milliseconds(record.TimeSinceStart()) / 1000) +
        counted(actions, "actions") + counted(record.polls, "polls") + counted(record.frames, "frames") +
        counted(record.UpdatesCompared(), "Updates compared") + counted(record.LogLines(), "lines of the log") +
        counted(record.faults, "faults") + counted(record.restarts, "restarts") + counted(rests, "rests");
    text += "\nanswers: " + TextOf("program", watch.program) + "; " +
            TextOf("while a port is searched for, opened or closed", watch.atPortWork) + "; " +
            TextOf("empty window", watch.empty) + "; " + TextOf("the watch itself late by", watch.watch) + "; " +
            std::to_string(watch.program.count) + " asked, " + std::to_string(excusedAnswers) +
            " excused by the machine\n";
    text += "growth: " + growth.Text() + ", at " + std::to_string(restsCompared) + " rests compared\n";
    return text + record.Verdict();
}
