// RunTests.exe: runs the test programs in the folder "tests" beside it, as its list programs.txt says. The report with
// all that they write goes to the standard output, one line for each program to the standard error. The exit code is 0
// if nothing has failed, 1 if something has, 2 without a list. With an argument it runs nothing: whoever asks learns
// that it starts here.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <windows.h>

#include "check/LimitedProgram.h"
#include "check/TestList.h"

namespace {

void EnterTests() {
    std::array<wchar_t, MAX_PATH> path{};
    ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size() - 1));
    const std::wstring program(path.data());
    ::SetCurrentDirectoryW((program.substr(0, program.rfind(L'\\') + 1) + L"tests").c_str());
}

CheckedMachine ThisMachine() {
    const auto has = [](const char* name) { return std::getenv(name) != nullptr; };
    CheckedMachine machine;
    machine.cables = has("QUORVANE_TEST_PORT_A") && has("QUORVANE_TEST_PORT_B") ? 1 : 0;
    machine.cables += machine.cables > 0 && has("QUORVANE_TEST_PORT_C") && has("QUORVANE_TEST_PORT_D") ? 1 : 0;
    machine.hasPull = has("QUORVANE_TEST_PULLED");
    return machine;
}

void Say(const std::string& line) {
    for (std::FILE* const stream : {stdout, stderr}) {
        std::fprintf(stream, "%s\n", line.c_str());
        std::fflush(stream);
    }
}

// Whether it hasn't failed.
bool Check(const ListedProgram& program, const CheckedMachine& machine) {
    const LeftOutTests left = LeftOutOf(program, machine);
    if (left.tests == "*") {
        Say("LEFT OUT " + program.name + ": " + left.why);
        return true;
    }
    if (!left.tests.empty()) Say("LEFT OUT " + program.name + " " + left.tests + ": " + left.why);
    std::string command = program.name + ".exe";
    if (!left.tests.empty()) command += " --gtest_filter=-" + left.tests;
    const TestRun run = RunLimited(command, program.seconds);
    std::printf("%s\n", run.output.c_str());
    const TestVerdict verdict = VerdictOf(run, program.seconds);
    Say((verdict.isPass ? "PASS " : "FAIL ") + program.name + ": " + verdict.text);
    return verdict.isPass;
}

} // namespace

int main(int argc, char**) {
    if (argc > 1) return 0;
    EnterTests();
    std::ifstream file("programs.txt");
    const auto programs = ReadTestList(file);
    if (programs.empty()) {
        Say("no list of programs");
        return 2;
    }
    int failed = 0;
    for (const ListedProgram& program : programs) failed += Check(program, ThisMachine()) ? 0 : 1;
    Say(std::to_string(programs.size()) + " programs, " + std::to_string(failed) + " failed");
    return failed == 0 ? 0 : 1;
}
