// Starts and repaints of the program for which the system refuses one object, the n-th: a pen, a bitmap, a region, a
// window.
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <map>
#include <new>
#include <thread>

#include "framework/CommonControls.h"
#include "framework/ResourceModule.h"
#include "ProgramRun.h"
#include "support/Seed.h"
#include "support/Surface.h"

static std::atomic<long> allocationsLeft{LONG_MAX};

void* operator new(std::size_t size) {
    while (--allocationsLeft < 0) {
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) throw std::bad_alloc();
        handler();
    }
    return ::HeapAlloc(::GetProcessHeap(), 0, size);
}
void operator delete(void* memory) noexcept {
    ::HeapFree(::GetProcessHeap(), 0, memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

const bool everyRequest = std::getenv("QUORVANE_TEST_EVERY_REQUEST") != nullptr;
int requests = 0, refused = 0; // since the counting began; which one is refused, 0 for none

bool Refuses() {
    return ++requests == refused;
}

// Puts itself into the place of an imported function; `index` is another one for each of them.
template <int index, class Result, class... Arguments>
struct Imported {
    static inline Result(WINAPI* original)(Arguments...) = nullptr;
    static Result WINAPI Call(Arguments... arguments) { return Refuses() ? Result{} : original(arguments...); }
};

IMAGE_THUNK_DATA* FindImport(void* function) {
    const auto base = reinterpret_cast<std::uintptr_t>(::GetModuleHandleA(nullptr));
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + static_cast<std::uintptr_t>(dos.e_lfanew));
    const auto& imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
         library->FirstThunk != 0; ++library)
        for (auto* slot = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk); slot->u1.Function != 0;
             ++slot)
            if (slot->u1.Function == reinterpret_cast<std::uintptr_t>(function)) return slot;
    return nullptr;
}

template <int index, class Result, class... Arguments>
void Watch(Result(WINAPI* function)(Arguments...)) {
    using Own = Imported<index, Result, Arguments...>;
    IMAGE_THUNK_DATA* const slot = FindImport(reinterpret_cast<void*>(function));
    if (slot == nullptr) {
        ADD_FAILURE() << index << " is not imported";
        return;
    }
    Own::original = function;
    DWORD former = 0;
    ::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &former);
    slot->u1.Function = reinterpret_cast<std::uintptr_t>(&Own::Call);
}

// What a start comes to: a box, or a window that works.
struct StartOutcome {
    std::string told; // by a box
    int result = 0;   // of the program
    int windows = 0;
    std::vector<COLORREF> look{}; // of the window, painted anew when nothing is refused any more
};

class NthObject : public ProgramRun {
protected:
    static void SetUpTestSuite() {
        ::SetCurrentDirectoryA("..\\bin"); // its pictures
        Watch<0>(&::CreateBitmap), Watch<1>(&::CreateCompatibleBitmap), Watch<2>(&::CreateCompatibleDC);
        Watch<3>(&::CreateDIBSection), Watch<4>(&::CreateEllipticRgn), Watch<5>(&::CreateEllipticRgnIndirect);
        Watch<6>(&::CreateFontIndirectW), Watch<7>(&::CreateHatchBrush), Watch<8>(&::CreatePalette);
        Watch<9>(&::CreatePen), Watch<10>(&::CreateRectRgn), Watch<11>(&::CreateRectRgnIndirect);
        Watch<12>(&::CreateSolidBrush), Watch<13>(&::ExtCreateRegion), Watch<14>(&::CreateIconIndirect);
        Watch<15>(&::CreateWindowExA), Watch<16>(&::CreateDialogIndirectParamA), Watch<17>(&::GetDC);
        Watch<18>(&::LoadImageA), Watch<19>(&::LoadIconA), Watch<20>(&::LoadBitmapA);
    }

    StartOutcome StartRefusing(int n, const std::function<void()>& script) {
        StartOutcome outcome;
        bool ended = false;
        requests = 0, refused = n;
        const CMeanwhile meanwhile([&] {
            frame = ::FindWindowA("#32770", PRODUCT_TITLE);
            if (allocationsLeft < 0) return false; // the box is another thread's to close
            if (const HWND box = ShownDialog(frame)) {
                outcome.told += TextOf(::GetDlgItem(box, 0xFFFF));
                ::SendMessageA(box, WM_COMMAND, IDOK, 0);
            } else if (!ended && ::IsWindowVisible(frame) != FALSE) {
                ended = true;
                refused = 0;
                outcome.look = Look();
                FindBelow(frame, [&](HWND) { return ++outcome.windows < 0; });
                script();
                ::PostMessageA(frame, WM_CLOSE, 0, 0);
            }
            return ended;
        });
        allocationsLeft = memory; // from here on, without the test's own
        outcome.result = run();
        ended = true;
        EXPECT_TRUE(PumpUntil([&] { return meanwhile.IsDone(); }));
        return outcome;
    }

    long memory = LONG_MAX; // how many requests a start is given

    void Repaint() const {
        ::RedrawWindow(frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        PumpMessages();
    }
    std::vector<COLORREF> Look() const {
        const SYSTEMTIME time{2012, 3, 0, 4, 5, 6, 7, 0};
        ::SendMessageA(FindControl(frame, IDC_DATE_PICKER), DTM_SETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time));
        Repaint();
        CRect place;
        ::GetWindowRect(Panel(), &place);
        const HDC screen = ::GetDC(nullptr);
        auto pixels = ReadPixels(screen, place);
        ::ReleaseDC(nullptr, screen);
        return pixels;
    }
    void ExpectPollingStarts() const {
        const HWND start = FindControl(frame, IDC_START);
        for (const std::string caption : {"Stop", "Start"}) {
            ::SendMessageA(::GetParent(start), WM_COMMAND, IDC_START, reinterpret_cast<LPARAM>(start));
            EXPECT_EQ(TextOf(start), caption);
        }
    }
};

TEST_F(NthObject, IsRefusedAtTheStartOrInARepaint) {
    const std::string cannot = "The main window can't be made. The program has to stop.";
    const auto works = [&] { ExpectPollingStarts(); };
    StartRefusing(0, works); // which makes what is kept for good
    int repaints = 0;
    const StartOutcome whole = StartRefusing(0, works);
    const int total = requests;
    StartRefusing(0, [&] {
        const auto look = Look();
        for (bool wasHit = true; wasHit; repaints += wasHit) {
            requests = 0, refused = repaints + 1;
            Repaint();
            wasHit = requests >= refused;
            refused = 0;
            ASSERT_EQ(Look() == look, true) << "after repaint " << repaints;
        }
    });
    std::map<std::string, int> outcomes;
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    const int step = everyRequest ? 1 : 32;
    for (int n = 1 + static_cast<int>(seed % 32) % step; n <= total && !HasFailure(); n += step) {
        SCOPED_TRACE(n);
        const StartOutcome outcome = StartRefusing(n, works);
        std::size_t black = 0;
        for (std::size_t i = 0; i < outcome.look.size(); ++i) black += outcome.look[i] == 0 && whole.look.at(i) != 0;
        EXPECT_LT(black, 100U) << "a control that nobody can read";
        const bool stands = outcome.windows >= whole.windows - 1; // a small button of the bar may be missing
        EXPECT_TRUE(stands ? outcome.told.empty() && outcome.result == 0
                           : outcome.told == cannot && outcome.result == 31)
            << outcome.told << outcome.result;
        ++outcomes[!stands ? "ends with a message" : outcome.look == whole.look ? "looks as ever" : "looks plainer"];
    }
    std::cout << repaints << " refused in a repaint; at the start, of " << total << ":";
    for (const auto& [outcome, count] : outcomes) std::cout << ' ' << count << ' ' << outcome << ';';
    std::cout << '\n';
}

// In a process of its own for each: from its n-th request on the program gets no more memory, on any thread. It says so
// once, though its window is there and would go on, and ends.
TEST_F(NthObject, OfMemoryEndsTheProgramWithOneMessage) {
    const auto child = [this](long n) {
        std::thread([] {
            const auto next = [](HWND box) { // the frame has the same caption before it shows
                do box = ::FindWindowExA(nullptr, box, "#32770", "Quorvane");
                while (box != nullptr && ::IsWindowVisible(box) == FALSE);
                return box;
            };
            while (next(nullptr) == nullptr) ::Sleep(5);
            ::Sleep(500); // more than a poll's interval
            const HWND box = next(nullptr);
            if (next(box) != nullptr) ::TerminateProcess(::GetCurrentProcess(), 77);
            ::PostMessageA(box, WM_COMMAND, IDOK, 0);
            ::Sleep(5000);
            ::TerminateProcess(::GetCurrentProcess(), 78);
        }).detach();
        memory = n;
        StartRefusing(0, [this] {
            const HWND start = FindControl(frame, IDC_START);
            ::SendMessageA(::GetParent(start), WM_COMMAND, IDC_START, reinterpret_cast<LPARAM>(start));
            allocationsLeft = std::min<long>(allocationsLeft, 10);
            PumpUntil([] { return false; });
        });
        std::_Exit(79);
    };
    StartRefusing(0, [] {});
    const long total = memory - allocationsLeft;
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    _putenv_s("QUORVANE_TEST_SEED", std::to_string(seed).c_str()); // a child begins anew, and has to come to the same n
    std::vector<long> points{1 + static_cast<long>(seed % static_cast<unsigned>(total)), 1'000'000};
    if (everyRequest)
        for (long n = 1 + points[0] % 5; n <= total; n += 5) points.push_back(n);
    for (const long n : points) EXPECT_EXIT(child(n), testing::ExitedWithCode(ERROR_NOT_ENOUGH_MEMORY), "") << n;
    std::cout << points.size() << " of " << total << " requests of a start\n";
}

} // namespace
