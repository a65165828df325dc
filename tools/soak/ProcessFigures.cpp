#include "soak/ProcessFigures.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <span>
#include <vector>

#include <psapi.h>
#include <winternl.h>

#include "framework/SystemHandles.h"
#include "framework/Text.h"
#include "user/WindowSearch.h"

namespace {

using Kinds = std::map<std::string, int>;

// The sum, and how it is made up.
int Add(const Kinds& kinds, std::string& text) {
    int sum = 0;
    for (const auto& [kind, count] : kinds) {
        sum += count;
        text += (text.empty() ? "" : ", ") + kind + " " + std::to_string(count);
    }
    return sum;
}

// The system's own counts are asked for first; a system that has none keeps a table of GDI handles in each process,
// with entries of one form for both word sizes.
constexpr std::size_t tableAt = sizeof(void*) == 8 ? 0xF8 : 0x94; // its address in the process's block
constexpr std::size_t entrySize = 24;
constexpr std::size_t typeAt = 14;
constexpr std::size_t entryCount = 65536;

Kinds CountGdiEntries(HANDLE process) {
    PROCESS_BASIC_INFORMATION basic{};
    ULONG length = 0;
    if (::NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, &length) != 0) return {};
    const auto* const block = reinterpret_cast<const std::byte*>(basic.PebBaseAddress);
    const void* table = nullptr;
    if (::ReadProcessMemory(process, block + tableAt, &table, sizeof table, nullptr) == FALSE || table == nullptr)
        return {};
    std::vector<std::byte> entries(entrySize * entryCount);
    if (::ReadProcessMemory(process, table, entries.data(), entries.size(), nullptr) == FALSE) return {};
    Kinds kinds;
    for (std::size_t at = typeAt; at < entries.size(); at += entrySize) {
        constexpr int kindMask = 0x7F; // above it: whether the object is one of the system's own
        const int kind = std::to_integer<int>(entries[at]) & kindMask;
        if (kind != 0) ++kinds["GDI type " + std::to_string(kind)];
    }
    return kinds;
}

void TakeGdiFigures(HANDLE process, ProcessFigures& figures) {
    figures.gdiObjects = static_cast<int>(::GetGuiResources(process, GR_GDIOBJECTS));
    if (figures.gdiObjects == 0) figures.gdiObjects = Add(CountGdiEntries(process), figures.kinds);
}

// In the caller's hands for a moment; one that can't be copied has no type.
std::string TypeOf(HANDLE process, ULONG_PTR handle) {
    HANDLE copied = nullptr;
    if (::DuplicateHandle(process, reinterpret_cast<HANDLE>(handle), ::GetCurrentProcess(), &copied, 0, FALSE,
                          DUPLICATE_SAME_ACCESS) == FALSE)
        return "unknown";
    const CKernelHandle copy(copied);
    struct {
        UNICODE_STRING name;
        wchar_t room[64];
        std::byte rest[256];
    } type{};
    ULONG length = 0;
    if (::NtQueryObject(copied, ObjectTypeInformation, &type, sizeof type, &length) != 0 || type.name.Length == 0)
        return "unknown";
    return ToNarrow({type.name.Buffer, type.name.Length / sizeof(wchar_t)});
}

// What a question to the system answers, whatever room it takes; empty if it is refused.
template <class Ask>
std::vector<ULONG_PTR> AnswerOf(const Ask& ask) {
    constexpr auto tooShort = static_cast<NTSTATUS>(0xC0000004);
    std::vector<ULONG_PTR> room(1 << 17);
    NTSTATUS status = 0;
    while ((status = ask(room.data(), static_cast<ULONG>(room.size() * sizeof(ULONG_PTR)))) == tooShort)
        room.resize(2 * room.size());
    if (status != 0) room.clear();
    return room;
}

// The list of the system's handles; what it tells beside a process's threads is no count on every system.
void TakeHandleFigures(HANDLE process, ProcessFigures& figures) {
    struct Entry {
        void* object;
        ULONG_PTR processId, handle;
        ULONG access;
        USHORT trace, type;
        ULONG attributes, reserved;
    };
    // The header doesn't name this question, whose process ids are of full width.
    using Query = NTSTATUS(NTAPI*)(ULONG, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(reinterpret_cast<void (*)()>(&::NtQuerySystemInformation));
    constexpr ULONG allHandles = 64;
    const auto room = AnswerOf([&](void* answer, ULONG size) {
        ULONG length = 0;
        return query(allHandles, answer, size, &length);
    });
    if (room.empty()) return;
    Kinds kinds;
    for (const Entry& entry : std::span(reinterpret_cast<const Entry*>(room.data() + 2), room[0])) {
        if (entry.processId == ::GetProcessId(process)) ++kinds[TypeOf(process, entry.handle)];
    }
    figures.handles = Add(kinds, figures.kinds);
}

void TakeSystemFigures(DWORD processId, ProcessFigures& figures) {
    const auto room = AnswerOf([](void* answer, ULONG size) {
        ULONG length = 0;
        return ::NtQuerySystemInformation(SystemProcessInformation, answer, size, &length);
    });
    if (room.empty()) return;
    const auto* at = reinterpret_cast<const std::byte*>(room.data());
    for (;;) {
        const auto& each = *reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
        if (reinterpret_cast<std::uintptr_t>(each.UniqueProcessId) == processId) {
            figures.threads = static_cast<int>(each.NumberOfThreads);
        }
        if (each.NextEntryOffset == 0) return;
        at += each.NextEntryOffset;
    }
}

} // namespace

ProcessFigures FiguresOf(HANDLE process) {
    ProcessFigures figures;
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof memory;
    if (::GetProcessMemoryInfo(process, &memory, sizeof memory) != FALSE)
        figures.memory = static_cast<std::int64_t>(memory.PagefileUsage / 1024);
    const DWORD id = ::GetProcessId(process);
    TakeSystemFigures(id, figures);
    TakeHandleFigures(process, figures);
    TakeGdiFigures(process, figures);
    const auto count = [&](HWND) { return ++figures.windows < 0; };
    FindOnDesktop([&](HWND window) {
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        if (owner == id) count(window), FindBelow(window, count);
        return false;
    });
    return figures;
}

bool ProcessFigures::AreTold() const {
    return memory > 0 && handles > 0 && threads > 0 && gdiObjects > 0 && windows > 0;
}

std::string ProcessFigures::Text() const {
    return "memory " + std::to_string(memory) + " KiB, handles " + std::to_string(handles) + ", threads " +
           std::to_string(threads) + ", GDI objects " + std::to_string(gdiObjects) + ", windows " +
           std::to_string(windows) + (kinds.empty() ? "" : " (" + kinds + ")");
}
