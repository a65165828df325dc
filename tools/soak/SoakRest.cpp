// The rest between deeds: everything that stands open is closed, what the program holds is counted, and then, on a good
// line, each count has to be on the screen.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "framework/SystemHandles.h"
#include "framework/SystemLibrary.h"
#include "framework/Text.h"
#include "resources/ResourceIds.h"
#include "soak/SoakRun.h"
#include "soak/Waiting.h"
#include "user/Input.h"
#include "user/WindowSearch.h"

namespace {

constexpr int tries = 40;

// Repeats `act`, each time with a while for the program, until `done` holds.
template <class Done, class Act>
bool Persist(Done done, Act act) {
    for (int i = 0; i < tries; ++i) {
        if (AwaitFor(i == 0 ? 0 : 250, done)) return true;
        act();
    }
    return done();
}

std::string ClassOf(HWND window) {
    std::array<char, 64> name{};
    ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

ProcessFigures Largest(const ProcessFigures& one, const ProcessFigures& other) {
    return {.memory = std::max(one.memory, other.memory),
            .handles = std::max(one.handles, other.handles),
            .threads = std::max(one.threads, other.threads),
            .gdiObjects = std::max(one.gdiObjects, other.gdiObjects),
            .windows = std::max(one.windows, other.windows),
            .kinds = one.kinds};
}

// One that the process itself knows nothing of.
void LetThreadEndIn(HANDLE process) {
    LPTHREAD_START_ROUTINE sleep = nullptr; // stands in the same place in each process
    FindFunction(::GetModuleHandleA("kernel32.dll"), "Sleep", sleep);
    const CKernelHandle thread(::CreateRemoteThread(process, nullptr, 0, sleep, nullptr, 0, nullptr));
    if (!thread.IsEmpty()) ::WaitForSingleObject(thread.GetHandle(), 2000);
}

} // namespace

void CSoakRun::Rest() {
    record.Note("rest");
    line.Heal();
    if (!line.Plug()) record.Fail("the cable doesn't come back");
    const auto settle = [this] { return Dismiss() && StopPolling() && ClosePort(); };
    settle();
    if (restsOfRun == 0) Tour();
    ::Sleep(600); // an answer may still bring a message
    if (!settle()) return record.Fail("the program can't be brought to rest: " + WhatStands());
    ReadLog();
    CountWhatIsHeld();
    if (record.IsSound()) CheckPollingAtPeace({0, 2, 5});
    if (record.IsSound() && rests % 3 == 1) CheckUpdateAtPeace();
}

// Each window once, so that what is made at first use and kept counts as held from the beginning. The dialogs come
// last: the system keeps a context for each window that it has painted, up to a number that they reach together with
// the lamps.
void CSoakRun::Tour() {
    hand.Click(IDC_CLEAR);
    AwaitFor(2000, [this] { return program.Box() != nullptr; });
    Dismiss();
    CheckPollingAtPeace({0, 1, 2, 3, 4, 5});
    for (int turn = 0; turn < 2; ++turn) {
        for (int id = IDC_ADDRESS_BUTTON_FIRST; id <= IDC_ADDRESS_BUTTON_LAST; ++id) hand.Click(id);
    }
    TouchButtons();
    StopPolling();
    TouchButtons();
    // Is answered by a beep. From its first one on the system holds two keys of the registry.
    ::PostMessageA(program.Frame(), WM_SYSCHAR, 'x', 0);
    record.ExpectPortWork();
    for (const int command : {ID_ABOUT, ID_COM_SETTING, ID_PORT_MENU, ID_HELP_MENU, ID_LANGUAGE_MENU}) {
        ::PostMessageA(command == ID_COM_SETTING ? program.Frame() : program.Panel(), WM_COMMAND,
                       static_cast<WPARAM>(command), 0);
        AwaitFor(2000, [this] { return program.Box() != nullptr || ShownPopup() != nullptr; });
        Dismiss();
    }
    ClosePort();
    // On some systems the room of the thread that ended last stays taken until another one ends: a megabyte. A port
    // that is slow makes the program start one.
    LetThreadEndIn(program.Process());
}

// Each with the pointer over it and pressed; of the pairs, both ways.
void CSoakRun::TouchButtons() {
    for (int turn = 0; turn < 2; ++turn) {
        for (const int id : {IDC_LANGUAGE_ENGLISH, IDC_LANGUAGE_CHINESE, IDC_DIRECTION_IN, IDC_DIRECTION_OUT,
                             IDC_SD_DETECT_YES, IDC_SD_DETECT_NO, ID_HELP_MENU, ID_LANGUAGE_MENU, ID_PORT_MENU}) {
            hand.Click(id);
            if (ShownPopup() != nullptr) Dismiss();
        }
        for (const int id : {IDC_START, IDC_CLEAR, IDC_UPDATE, IDC_PORT}) hand.PointAt(MiddleOf(program.Control(id)));
    }
}

std::string CSoakRun::WhatStands() const {
    const std::pair<bool, const char*> states[] = {
        {program.Box() != nullptr, "a box, "},
        {ShownPopup() != nullptr, "a menu, "},
        {::IsIconic(program.Frame()) != FALSE, "an icon, "},
        {program.IsPolling(), "polling, "},
        {program.IsPortOpen(), "an open port, "},
        {::IsWindowEnabled(program.Frame()) == FALSE, "disabled, "},
        {InputOf(program.Frame()).hwndCapture != nullptr, "the mouse held, "}};
    RECT place{};
    ::GetWindowRect(program.Frame(), &place);
    std::string text = FormatText("the window at %ld, %ld, ", place.left, place.top);
    for (const auto& [holds, words] : states) text += holds ? words : "";
    return text + "in front " + ClassOf(::GetForegroundWindow()) + ", at the place of Start " +
           ClassOf(::WindowFromPoint(MiddleOf(program.Control(IDC_START)))) + ", last popup " +
           ClassOf(::GetLastActivePopup(program.Frame()));
}

bool CSoakRun::Dismiss() {
    if (::IsIconic(program.Frame()) != FALSE) ::PostMessageA(program.Frame(), WM_SYSCOMMAND, SC_RESTORE, 0);
    program.ComeToFront();
    return Persist(
        [this] { return program.Box() == nullptr && ShownPopup() == nullptr && ::IsIconic(program.Frame()) == FALSE; },
        [this] {
            program.ComeToFront();
            hand.PressKey(VK_ESCAPE);
        });
}

bool CSoakRun::StopPolling() {
    return Persist([this] { return !program.IsPolling(); }, [this] { Dismiss(), hand.Click(IDC_START); });
}

bool CSoakRun::ClosePort() {
    return Persist([this] { return !program.IsPortOpen(); }, [this] { Dismiss(), hand.Click(IDC_PORT); });
}

// The one with the counters, which with the port closed is chosen only.
bool CSoakRun::OpenPort() {
    ::PostMessageA(program.Panel(), WM_COMMAND, ID_PORT_FIRST, 0);
    return Persist([this] { return program.IsPortOpen(); }, [this] { Dismiss(), hand.Click(IDC_PORT); });
}

// Memory may be given out anew in other places, so it grows by a bound; the rest grows by nothing.
void CSoakRun::CountWhatIsHeld() {
    hand.Click(IDC_SENSITIVITY_EDIT); // a caret is an object, too
    hand.PointAt({1000, 740});
    ::Sleep(300);
    const ProcessFigures now = FiguresOf(program.Process());
    if (const std::string painted = program.PaintsWithin(300); !painted.empty())
        record.Fail("painted at rest: " + painted);
    if (!now.AreTold()) record.Fail("the system doesn't tell what is held: " + now.Text());
    std::puts(record.Note("held: " + now.Text()).c_str());
    std::fflush(stdout);
    ++rests;
    // What is wanted for the first time is made then and kept: faces of buttons, brushes of the system, its contexts
    // for windows that it has painted. So the objects rise a few times; those of a leak do so at nearly every rest.
    constexpr std::size_t warmingRests = 5;
    constexpr int risesOfFirstUse = 5;
    constexpr std::int64_t memoryBound = 1024; // KiB
    ++restsOfRun;
    if (restsOfRun == 1) gdiMost = now.gdiObjects, gdiRises = 0;
    if (now.gdiObjects > gdiMost) {
        gdiMost = now.gdiObjects;
        ++gdiRises;
    }
    if (gdiRises > risesOfFirstUse) record.Fail("GDI objects rise again and again: " + now.Text());
    if (restsOfRun <= warmingRests) base = restsOfRun == 1 ? now : Largest(base, now);
    if (restsOfRun <= warmingRests) return;
    ++restsCompared;
    growth = Largest(growth, {.memory = now.memory - base.memory,
                              .handles = now.handles - base.handles,
                              .threads = now.threads - base.threads,
                              .gdiObjects = now.gdiObjects - base.gdiObjects,
                              .windows = now.windows - base.windows,
                              .kinds = {}});
    const bool grows = growth.handles > 0 || growth.threads > 0 || growth.windows > 0;
    if (grows || growth.memory > memoryBound)
        record.Fail("the program holds more than before: " + now.Text() + "; at first " + base.Text());
}

void CSoakRun::CheckPollingAtPeace(const std::vector<std::uint8_t>& addresses) {
    line.Renew(addresses);
    if (!OpenPort()) return record.Fail("the port doesn't open: " + WhatStands());
    if (!Persist([this] { return program.IsPolling(); }, [this] { Dismiss(), hand.Click(IDC_START); }))
        return record.Fail("polling doesn't begin: " + WhatStands());
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        const auto count = static_cast<std::uint16_t>(1000 * (i + 1) + rests % 1000);
        line.Count(i, {.in = count, .out = static_cast<std::uint16_t>(count / 2)});
    }
    if (!AwaitFor(10'000, [&] { return ShowsCounters(addresses); }))
        return record.Fail("on a good line the window shows " + program.Text(IDC_IN_DISPLAY) + " and " +
                           program.Text(IDC_OUT_DISPLAY) + " for counter " + program.Text(IDC_ADDRESS_EDIT));
}

// Long enough after all else that what goes out can be held against what the window read.
void CSoakRun::CheckUpdateAtPeace() {
    if (!StopPolling()) return record.Fail("polling doesn't end");
    ::Sleep(2500);
    hand.Click(program.IsEnabled(IDC_DIRECTION_IN) ? IDC_DIRECTION_IN : IDC_DIRECTION_OUT);
    Type({SoakDeed::Type, {0, static_cast<std::uint32_t>(rests), 0}});
    const std::size_t before = record.UpdatesCompared();
    hand.Click(IDC_UPDATE);
    if (!AwaitFor(5000, [&] { return record.UpdatesCompared() > before; })) record.Fail("a pressed Update isn't sent");
}

// A lamp for each, and the counts of the one that is chosen.
bool CSoakRun::ShowsCounters(const std::vector<std::uint8_t>& addresses) {
    for (int i = 0; i < counterCount; ++i) {
        const int id = IDC_ADDRESS_BUTTON_FIRST + i;
        const bool wanted = static_cast<std::size_t>(i) < addresses.size();
        if (program.IsVisible(id) != wanted) return false;
        if (wanted && program.Text(id) != std::to_string(addresses[static_cast<std::size_t>(i)])) return false;
    }
    if (std::ranges::count(addresses, std::atoi(program.Text(IDC_ADDRESS_EDIT).c_str())) == 0)
        hand.Click(IDC_ADDRESS_BUTTON_FIRST);
    const LineCounts counts =
        line.CountsAt(static_cast<std::uint8_t>(std::atoi(program.Text(IDC_ADDRESS_EDIT).c_str())));
    return program.Text(IDC_IN_DISPLAY) == std::to_string(counts.in) &&
           program.Text(IDC_OUT_DISPLAY) == std::to_string(counts.out);
}
