// A process in a job, its output in a file that goes when it is closed.
#include "check/LimitedProgram.h"

#include <array>
#include <optional>

#include <windows.h>

#include "framework/SystemHandles.h"

namespace {

constexpr int outputLimit = 4 << 20; // bytes; what goes on after that is left out

CFileHandle MakeOutputFile() {
    std::array<wchar_t, MAX_PATH + 1> folder{}, path{};
    ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    ::GetTempFileNameW(folder.data(), L"qvt", 0, path.data());
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CFileHandle(::CreateFileW(path.data(), GENERIC_READ | GENERIC_WRITE,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
}

std::string ReadFromStart(HANDLE file) {
    std::string text(outputLimit, '\0');
    DWORD count = 0;
    ::SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    if (!::ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr)) count = 0;
    text.resize(count);
    return text;
}

CKernelHandle MakeEndingJob() {
    CKernelHandle job(::CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(job.GetHandle(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

std::optional<PROCESS_INFORMATION> StartSuspended(std::string& command, HANDLE output) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = output;
    PROCESS_INFORMATION made{};
    if (!::CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr, &start,
                          &made))
        return std::nullopt;
    return made;
}

} // namespace

TestRun RunLimited(std::string command, int seconds) {
    const CFileHandle output = MakeOutputFile();
    const auto made = StartSuspended(command, output.GetHandle());
    if (!made) return {.code = ::GetLastError()};
    const CKernelHandle process(made->hProcess), thread(made->hThread), job = MakeEndingJob();
    ::AssignProcessToJobObject(job.GetHandle(), process.GetHandle());
    ::ResumeThread(thread.GetHandle());
    TestRun run{.hasStarted = true};
    run.isLate = ::WaitForSingleObject(process.GetHandle(), static_cast<DWORD>(seconds) * 1000) != WAIT_OBJECT_0;
    if (run.isLate) {
        ::TerminateJobObject(job.GetHandle(), 1);
        ::TerminateProcess(process.GetHandle(), 1);
        ::WaitForSingleObject(process.GetHandle(), 5000);
    }
    DWORD code = 0;
    ::GetExitCodeProcess(process.GetHandle(), &code);
    run.code = code;
    run.output = ReadFromStart(output.GetHandle());
    return run;
}
