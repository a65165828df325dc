// The program that plays counters on a port, at the other end of a cable.
#include <gtest/gtest.h>

#include "framework/SystemHandles.h"
#include "port/ComPort.h"
#include "support/Hex.h"
#include "support/Ports.h"

TEST(ComPort, TheProgramPlaysCounters) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE input = nullptr, write = nullptr, read = nullptr, output = nullptr;
    ASSERT_TRUE(CreatePipe(&input, &write, &inherited, 0) && CreatePipe(&read, &output, &inherited, 0));
    SetHandleInformation(write, HANDLE_FLAG_INHERIT, 0);
    const CKernelHandle reading(read);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input, start.hStdOutput = start.hStdError = output;
    PROCESS_INFORMATION process{};
    std::string command = "..\\bin\\QuorvaneLine.exe --rate 0 --counters 3";
    ASSERT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process));
    for (const HANDLE done : {input, output, process.hThread}) CloseHandle(done);
    const CKernelHandle running(process.hProcess);
    DWORD count = 0, code = 99;
    const auto say = [&](const std::string& line) {
        WriteFile(write, line.data(), static_cast<DWORD>(line.size()), &count, nullptr);
    };
    std::string said;
    // Reads on until the program has said that.
    const auto hears = [&](const std::string& text) {
        for (char part = 0;
             said.find(text) == std::string::npos && ReadFile(read, &part, 1, &count, nullptr) && count > 0;)
            said += part;
        return said.find(text) != std::string::npos;
    };
    say("COM999\r\n" + TestPort('B') + "\n");
    ASSERT_TRUE(hears("\"COM999\" is no port from COM1 to COM256") && hears("line at " + TestPort('B'))) << said;
    CComPort program(4800);
    program.Choose(TestPort('A'));
    std::string error;
    ASSERT_TRUE(program.Open(error)) << error;
    EXPECT_EQ(program.TimeToLook(), INFINITE) << "a silent line wakes nobody";
    ASSERT_TRUE(program.Write(BytesOf("02 03 87 8a 03")));
    std::string heard;
    for (LineBytes bytes; heard.size() < 15 && WaitForSingleObject(program.InputEvent(), 10'000) == WAIT_OBJECT_0 &&
                          program.Read(bytes);)
        heard += HexOf(bytes) + (bytes.empty() ? "" : " ");
    EXPECT_EQ(heard, "02 03 00 03 03 ");
    say("counts 3 1 2\nstatus\nquit");
    CloseHandle(write); // the last line needs no end
    EXPECT_TRUE(hears("3: 1 in 2 out")) << said;
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 10'000), WAIT_OBJECT_0);
    EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &code) && code == 0);
}
