// Both ends of a cable: the port of the simulated line, and the program that plays counters on it.
#include <gtest/gtest.h>

#include "line/ComPort.h"
#include "line/Handle.h"
#include "support/Hex.h"
#include "support/Ports.h"

namespace {

void Open(CComPort& port, char end) {
    std::string error;
    port.Choose(TestPort(end));
    ASSERT_TRUE(port.Open(error)) << error;
}

// What comes until there are so many bytes, or nothing more for ten seconds.
LineBytes Hear(CComPort& port, std::size_t size) {
    LineBytes all, bytes;
    while (all.size() < size && WaitForSingleObject(port.InputEvent(), 10'000) == WAIT_OBJECT_0 && port.Read(bytes))
        all.insert(all.end(), bytes.begin(), bytes.end());
    return all;
}

TEST(ComPort, LosesWhatNobodyTakesAndGoesOn) {
    CComPort program(4800), counters(4800);
    ASSERT_NO_FATAL_FAILURE(Open(program, 'A'));
    ASSERT_NO_FATAL_FAILURE(Open(counters, 'B'));
    EXPECT_EQ(counters.TimeToLook(), INFINITE) << "a silent line wakes nobody";
    const LineBytes piece(2000, 0x55);
    std::size_t written = 0;
    for (int waited = 0; waited < 300 && written < 1'000'000; ++waited) { // until some wait that nothing moves
        if (counters.TimeToLook() == INFINITE) waited = 0, written += piece.size();
        ASSERT_TRUE(counters.Write(waited == 0 ? piece : LineBytes()));
        Sleep(1);
    }
    ASSERT_LT(written, 1'000'000U);
    Sleep(1100);
    ASSERT_TRUE(counters.Write(piece));
    EXPECT_EQ(counters.TimeToLook(), INFINITE) << "lost";
    EXPECT_EQ(Hear(program, written - piece.size()).size(), written - piece.size()) << "all that had begun to pass";
    Sleep(500); // until the driver has seen the end of its write
    ASSERT_TRUE(counters.Write(BytesOf("02 00 00 00 03")));
    EXPECT_EQ(HexOf(Hear(program, 5)), "02 00 00 00 03");
}

TEST(ComPort, TheProgramPlaysCounters) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE input = nullptr, write = nullptr, read = nullptr, output = nullptr;
    ASSERT_TRUE(CreatePipe(&input, &write, &inherited, 0) && CreatePipe(&read, &output, &inherited, 0));
    SetHandleInformation(write, HANDLE_FLAG_INHERIT, 0);
    const UniqueHandle reading(read);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input, start.hStdOutput = start.hStdError = output;
    PROCESS_INFORMATION process{};
    std::string command = "..\\bin\\QuorvaneLine.exe --rate 0 --counters 3";
    ASSERT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process));
    for (const HANDLE done : {input, output, process.hThread}) CloseHandle(done);
    const UniqueHandle running(process.hProcess);
    const auto say = [&](const std::string& line) {
        DWORD count;
        WriteFile(write, line.data(), static_cast<DWORD>(line.size()), &count, nullptr);
    };
    std::string said;
    // Reads on until the program has said that.
    const auto hears = [&](const std::string& text) {
        char part[512];
        DWORD count = 0;
        while (said.find(text) == std::string::npos && ReadFile(read, part, sizeof part, &count, nullptr) && count > 0)
            said.append(part, count);
        return said.find(text) != std::string::npos;
    };
    say("COM999\n" + TestPort('B') + "\n");
    ASSERT_TRUE(hears("\"COM999\" is no port from COM1 to COM256") && hears("line at " + TestPort('B'))) << said;
    CComPort program(4800);
    ASSERT_NO_FATAL_FAILURE(Open(program, 'A'));
    ASSERT_TRUE(program.Write(BytesOf("02 03 87 8a 03")));
    EXPECT_EQ(HexOf(Hear(program, 5)), "02 03 00 03 03");
    say("counts 3 1 2\nstatus\nquit");
    CloseHandle(write); // the last line needs no end
    EXPECT_TRUE(hears("3: 1 in 2 out")) << said;
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 10'000), WAIT_OBJECT_0);
    DWORD code = 99;
    GetExitCodeProcess(process.hProcess, &code);
    EXPECT_EQ(code, 0U);
}

} // namespace
