// Whole runs of the program over a driver that refuses one call, the n-th, for every n; or that one and all after it.
#include <fstream>
#include <iostream>
#include <map>
#include <set>

#include "framework/ResourceModule.h"
#include "panel/Records.h"
#include "ProgramRun.h"
#include "serial/PortSelection.h"
#include "serial/SimulatedPlatform.h"
#include "support/Commands.h"

namespace {

// Counters on COM1 of a simulated driver. A read ends when it is waited for, as over a real one.
struct CCounterPlatform : CSimulatedPlatform {
    CCounterPlatform() {
        names = {"COM1"};
        transfers = Transfers::EndWhenAwaited;
    }
    BOOL WriteFile(HANDLE line, const void* buffer, DWORD count, DWORD* done, OVERLAPPED* overlapped) override {
        written.clear();
        const BOOL result = CSimulatedPlatform::WriteFile(line, buffer, count, done, overlapped);
        if (written.empty()) return result;
        wire.push_back(HexOf(std::span(reinterpret_cast<const std::uint8_t*>(written.data()), written.size())));
        const auto address = static_cast<std::uint8_t>(written[1]), code = static_cast<std::uint8_t>(written[2]);
        const Bytes answer = code == 0x81 ? Status(address, 12, 34) : code == 0x82 ? Settings(address) : Answer(0, 0);
        received.append(answer.begin(), answer.end());
        return result;
    }
    std::vector<std::string> wire; // the frames that went out
} platform;

CCommPort port(platform);

} // namespace

// What the linker hands the program in place of its own: the port over that driver, its search, and short pauses.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" CCommPort* __wrap__ZN9CCommPort8InstanceEv() {
    return &port;
}
extern "C" bool __wrap__Z9ProbePortPKc(const char* name) {
    return ProbePort(name, platform);
}
extern "C" void __wrap__Z11PauseThreadj(std::uint32_t) {
    ::Sleep(1);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

struct NthCall : ProgramRun {
    void Press(int id) const {
        const HWND control = FindControl(frame, id);
        ::SendMessageA(::GetParent(control), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(control));
        RunQueue();
    }
    // What a user sees who polls once, writes settings and clears: the port's caption, the lamp, two boxes.
    std::vector<std::string> Use() {
        std::vector seen{Text(IDC_PORT)};
        Press(IDC_START);
        ::KillTimer(Panel(), 101);
        ::SendMessageA(Panel(), WM_TIMER, 101, 0);
        RunQueue();
        RunQueue(); // the settings that are asked for then
        Press(IDC_START);
        const HWND lamp = FindBelow(frame, [text = std::to_string(polled++ % 6)](HWND child) {
            return ::GetDlgCtrlID(child) >= IDC_ADDRESS_BUTTON_FIRST &&
                   ::GetDlgCtrlID(child) <= IDC_ADDRESS_BUTTON_LAST && ::IsWindowVisible(child) != FALSE &&
                   TextOf(child) == text;
        });
        if (lamp != nullptr) Press(::GetDlgCtrlID(lamp));
        seen.emplace_back(lamp != nullptr ? "lamp" : "no lamp");
        ::SetWindowTextA(FindControl(frame, IDC_SENSITIVITY_EDIT), std::to_string(100 + ++uses % 100).c_str());
        for (const int id : {IDC_UPDATE, IDC_CLEAR}) {
            const CBoxReader reader(frame);
            Press(id);
            seen.push_back(reader.texts);
        }
        return seen;
    }
    // How many of the frames that went out the log of this run doesn't hold in their order.
    static std::size_t MissingInLog() {
        std::ifstream log(ProgramFolder() + "Quorvane.log");
        std::size_t found = 0;
        for (std::string line; found < platform.wire.size() && std::getline(log, line);)
            found += line.ends_with("TX-->" + platform.wire[found] + " ");
        return platform.wire.size() - found;
    }
    int uses = 0, polled = 0; // polls of this run
};

// Each call alone, from the start of the program on; and of every second one, with the port opened anew, that one and
// all after it, as when an adapter is pulled. What is in order again is used as before by opening the port.
TEST_F(NthCall, IsRefusedAndTheRunGoesOn) {
    const std::set<std::string> ports{"Open COM", "Close COM"}, lamps{"lamp", "no lamp"},
        updates{"No Response|", "No Response|No Response|", "Device 0 write command sucess|"},
        clears{"No Response|", "Device 0 Clear Success|", "Device 0, 0 Clear Success|"}; // a late answer counts
    std::map<std::string, int> outcomes;
    const auto look = [&] {
        const auto seen = Use();
        EXPECT_TRUE(ports.contains(seen[0]) && lamps.contains(seen[1]) && updates.contains(seen[2]) &&
                    clears.contains(seen[3]))
            << testing::PrintToString(seen);
        ++outcomes[testing::PrintToString(seen)];
    };
    bool wasHit = false;
    const auto repair = [&] {
        if (port.IsOpen()) Press(IDC_PORT); // whose calls are counted too
        EXPECT_TRUE(platform.HandlesBecome(0));
        wasHit = platform.failingCall == 0;
        platform.staysBroken = false, platform.failingCall = 0, platform.pending = nullptr;
        platform.received.clear();
        Press(IDC_PORT);
    };
    int refused = 0, broken = 0;
    for (bool goesOn = true; goesOn && !HasFailure(); ++refused) {
        SCOPED_TRACE(refused + 1);
        platform.wire.clear();
        polled = 0;
        platform.failingCall = refused + 1;
        RunProgram([&] {
            look();
            repair();
            goesOn = wasHit;
            if (refused % 2 == 0) {
                platform.staysBroken = true, platform.failingCall = refused + 1;
                Press(IDC_PORT), Press(IDC_PORT);
                look();
                repair();
                ++broken;
            }
            EXPECT_EQ(Use(), (std::vector<std::string>{"Close COM", "lamp", "Device 0 write command sucess|",
                                                       "Device 0 Clear Success|"}));
        });
        EXPECT_TRUE(platform.HandlesBecome(0));
        EXPECT_EQ(MissingInLog(), 0) << "bytes went out that the log doesn't hold";
    }
    EXPECT_GT(refused, 40) << "where are the calls?";
    std::cout << refused - 1 << " calls refused, and all from a call on " << broken << " times\n";
    for (const auto& [seen, count] : outcomes) std::cout << count << " times " << seen << '\n';
}

} // namespace
