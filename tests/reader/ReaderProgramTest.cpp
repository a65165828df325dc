// The program as a user runs it, on a line whose counters another program plays.
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include "reader/OutputFile.h"

#ifdef _WIN32
#include "support/Ports.h"
#else
#include <sys/wait.h>

#include <csignal>
#endif

namespace {

using namespace std::chrono_literals;

#ifdef _WIN32
FILE* Start(const std::string& command, const char* mode) {
    return _popen(command.c_str(), mode);
}
int CodeOf(FILE* program) {
    return _pclose(program);
}
constexpr char readMode[] = "rb";
#else
FILE* Start(const std::string& command, const char* mode) {
    return popen(command.c_str(), mode);
}
int CodeOf(FILE* program) {
    const int status = pclose(program);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
constexpr char readMode[] = "r";
#endif

// What the program says, and its exit code.
struct Outcome {
    std::string text;
    int code = 0;
};

Outcome OutcomeOf(FILE* program) {
    Outcome outcome;
    for (int each = 0; (each = std::fgetc(program)) != EOF;) outcome.text += static_cast<char>(each);
    outcome.code = CodeOf(program);
    return outcome;
}

Outcome RunReader(const std::string& arguments) {
    return OutcomeOf(Start(std::string(READER_PROGRAM) + ' ' + arguments + " 2>&1", readMode));
}

// With T in place of each time.
std::string WithoutTimes(const std::string& text) {
    static const std::regex time(R"(\d{4}-\d\d-\d\d[T ]\d\d:\d\d:\d\d(\.\d{3})?([+-]\d\d:\d\d)?)");
    return std::regex_replace(text, time, "T");
}

// Counters 0 and 2 that nobody passes, and two of them at 4.
struct ReaderProgram : testing::Test {
    ReaderProgram() {
        const std::string options = " --counters 0,2,4,4 --rate 0 --traffic off --pace port " + PlaceOfLine();
        line = Start(LINE_PROGRAM + options + " > " + said, "w");
        EXPECT_TRUE(Hears("line at "));
        Tell("counts 0 12 65535");
        Tell("counts 2 0 7");
    }
    ~ReaderProgram() override {
        std::fputs("quit\n", line);
        CodeOf(line);
        std::remove(said.c_str());
    }
    // How often the line has said it.
    int Count(const std::string& words) const {
        std::ostringstream text;
        text << std::ifstream(said).rdbuf();
        int count = 0;
        const std::string all = text.str();
        for (std::size_t at = 0; (at = all.find(words, at)) != std::string::npos; ++at) ++count;
        return count;
    }
    bool Hears(const std::string& words, int times = 1) const {
        for (int turn = 0; turn < 1000 && Count(words) < times; ++turn) std::this_thread::sleep_for(10ms);
        return Count(words) >= times;
    }
    void Tell(const std::string& control) {
        const int before = Count("ok\n");
        std::fputs((control + '\n').c_str(), line);
        std::fflush(line);
        EXPECT_TRUE(Hears("ok\n", before + 1)) << control;
    }
#ifdef _WIN32
    static std::string PlaceOfLine() {
        return "--port " + TestPort('B');
    }
    std::string Port() const {
        return TestPort('A');
    }
    void Pull() {
        std::ofstream(std::getenv("QUORVANE_TEST_PULLED")).flush();
    }
    void Plug() {
        std::remove(std::getenv("QUORVANE_TEST_PULLED"));
        // The port comes back by and by.
        const int before = Count("line at ");
        for (int turn = 0; turn < 100 && Count("line at ") == before; ++turn) {
            std::fputs("plug\n", line);
            std::fflush(line);
            std::this_thread::sleep_for(100ms);
        }
    }
#else
    static std::string PlaceOfLine() {
        return "--link " + testing::TempDir() + "reader_line";
    }
    std::string Port() const {
        return testing::TempDir() + "reader_line";
    }
    void Pull() {
        Tell("pull");
    }
    void Plug() {
        Tell("plug");
    }
#endif
    std::string said = testing::TempDir() + "reader_line_said.txt";
    FILE* line = nullptr;
};

TEST_F(ReaderProgram, TellsWhatEachCounterAnswered) {
    const std::string csv = " --format csv", header = "time,address,in,out,clock,answer";
    const struct {
        const char* control;
        std::string arguments, text;
        int code;
    } cases[] = {
        {"clear", "0-2" + csv, header + "\r\nT,0,12,65535,T,ok\r\nT,1,,,,silent\r\nT,2,0,7,T,ok\r\n", 2},
        {"clear", "2,0 --format jsonl",
         R"({"time":"T","address":0,"in":12,"out":65535,"clock":"T","answer":"ok"})"
         "\n"
         R"({"time":"T","address":2,"in":0,"out":7,"clock":"T","answer":"ok"})"
         "\n",
         0},
        {"clear", "1,2 --settings" + csv,
         header + ",sensitivity,language,direction,sd_detect,sd_period\r\nT,1,,,,silent,,,,,\r\n"
                  "T,2,0,7,T,ok,21,en,in,no,4\r\n",
         2},
        {"clear", "4" + csv, header + "\r\nT,4,,,,spoilt\r\n", 2}, // both speak at once
        {"fault twice 0", "0" + csv, header + "\r\nT,0,,,,doubled\r\n", 2},
        {"fault torn 0", "0" + csv, header + "\r\nT,0,,,,spoilt\r\n", 2},
        {"fault echo", "0" + csv, header + "\r\nT,0,12,65535,T,ok\r\n", 0},
        {"fault noise=4", "0" + csv, header + "\r\nT,0,12,65535,T,ok\r\n", 0},
    };
    for (const auto& each : cases) {
        Tell("clear");
        Tell(each.control);
        const Outcome outcome = RunReader("counts --port " + Port() + " --addresses " + each.arguments);
        EXPECT_EQ(WithoutTimes(outcome.text), each.text) << each.control;
        EXPECT_EQ(outcome.code, each.code) << each.control;
    }
    Tell("clear");
    EXPECT_EQ(RunReader("check --seconds 1 --port " + Port()).code, 2) << "of the two at 4";
    const Outcome sound = RunReader("check --seconds 1 --addresses 0,2 --port " + Port());
    EXPECT_TRUE(sound.code == 0 && sound.text.find("The line is sound.") != std::string::npos) << sound.text;
}

TEST_F(ReaderProgram, RefusesInOneLine) {
    const std::string counts = "counts --port " + Port();
    const std::string cases[] = {"",
                                 "nonsense",
                                 "counts",
                                 "counts --port no_such_port",
                                 "counts --port " + said, // a file, but no port
                                 counts + " --port",
                                 counts + " --every 0",
                                 counts + " --every 1e3",
                                 counts + " --every 99999999999999999999",
                                 counts + " --every 2 --once",
                                 counts + " --addresses 6",
                                 counts + " --baud 0",
                                 counts + " --baud 0x12c0", // that of the counters, but not as people write it
                                 counts + " --format xml",
                                 counts + " --output " + testing::TempDir() + "no_such_folder/rows.csv",
                                 counts + " --format prom --output " + testing::TempDir() + "no_such_folder/file.prom",
#ifndef _WIN32
                                 counts + " --output /dev/stdout", // a pipe here
                                 counts + " --format prom --output /dev/stdout",
#endif
                                 counts + " more",
                                 "check --seconds -1 --port " + Port(),
                                 counts + " --output \"\"",
                                 "ports use \"\"",
                                 "ports use COM257",
                                 "log no_such_file"};
    for (const std::string& arguments : cases) {
        const Outcome outcome = RunReader(arguments);
        EXPECT_TRUE(outcome.text.starts_with("quorvane-read: ") && outcome.text.find('\n') == outcome.text.size() - 1)
            << arguments << ": " << outcome.text;
        EXPECT_EQ(outcome.code, 1) << arguments;
    }
    for (const char* const command : {"", "ports", "counts", "check", "log"}) {
        const Outcome help = RunReader(std::string(command) + " --help");
        EXPECT_TRUE(help.code == 0 && help.text.find("Examples:") != std::string::npos) << command;
    }
}

TEST_F(ReaderProgram, GoesOnWhenThePortComesBackAndEndsWithItsReader) {
    const std::string command = " counts --every 1 --addresses 0 --format csv --port ";
    FILE* const program = Start(READER_PROGRAM + command + Port() + " 2>&1", readMode);
    std::string text;
    // Reads on until the program has said that.
    const auto hears = [&](const std::string& words) {
        const std::size_t begin = text.size();
        std::array<char, 256> part{};
        while (text.find(words, begin) == std::string::npos && std::fgets(part.data(), part.size(), program))
            text += part.data();
        return text.find(words, begin) != std::string::npos;
    };
    EXPECT_TRUE(hears("12,65535,"));
    Pull();
    EXPECT_TRUE(hears(" is gone") && hears(",0,,,,not_asked\r\n") && hears(",0,,,,not_asked\r\n")) << text;
    Plug();
    EXPECT_TRUE(hears(" is back") && hears("12,65535,")) << text;
    EXPECT_EQ(text.find(" is gone"), text.rfind(" is gone")) << text;
    EXPECT_EQ(CodeOf(program), 1);
}

TEST_F(ReaderProgram, ASingleRoundWaitsForItsFile) {
    const std::string rows = testing::TempDir() + "reader_held.csv", poll = "> 02 00 81 81 03";
    const std::string arguments = " counts --addresses 0 --format csv --port " + Port() + " --output " + rows;
    COutputFile other;
    std::string error;
    ASSERT_TRUE(other.Open(rows, error)) << error;
    Tell("traffic on");
    FILE* const program = Start(READER_PROGRAM + arguments + " 2>&1", readMode);
    EXPECT_TRUE(Hears(poll));
    std::this_thread::sleep_for(1s); // beyond the round
    other.Close();
    const Outcome late = OutcomeOf(program);
    EXPECT_TRUE(late.code == 0 && late.text.find("; it is tried again\n") != std::string::npos &&
                late.text.ends_with("written again; rows that are missing: 0\n"))
        << late.text;
    std::ostringstream text;
    text << std::ifstream(rows, std::ios::binary).rdbuf();
    EXPECT_EQ(WithoutTimes(text.str()), "time,address,in,out,clock,answer\r\nT,0,12,65535,T,ok\r\n");
#ifndef _WIN32
    const std::string unheard = READER_PROGRAM + (" counts --addresses 0 --port " + Port()) + " <&- >&-";
    EXPECT_EQ(CodeOf(Start(unheard, "r")), 0);
    ASSERT_TRUE(other.Open(rows, error)) << error;
    FILE* const ended = Start("echo $$; exec " + (READER_PROGRAM + arguments) + " --every 1 2>&1", "r");
    int id = 0;
    ASSERT_EQ(std::fscanf(ended, "%d", &id), 1);
    EXPECT_TRUE(Hears(poll, 4)); // of its second round
    kill(id, SIGTERM);
    const Outcome lost = OutcomeOf(ended);
    EXPECT_TRUE(lost.code == 1 && lost.text.find("given up; rows that are missing: ") != std::string::npos)
        << lost.text;
    EXPECT_EQ(Count("> 74 69 6"), 0) << "the rows of the one without streams went out on the line";
#endif
    std::remove(rows.c_str());
}

#ifdef _WIN32
TEST_F(ReaderProgram, TellsQuorvaneItsPort) {
    EXPECT_EQ(RunReader("ports use com17").text, "Quorvane opens COM17 at its next start\n");
    const Outcome list = RunReader("ports");
    EXPECT_NE(list.text.find("COM17  (stored by Quorvane, but not there)\n"), std::string::npos) << list.text;
    EXPECT_EQ(std::system("reg delete HKCU\\SOFTWARE\\BRENHOLT\\QV /v COM /f"), 0);
}
#else
TEST_F(ReaderProgram, EndsBySignalsWithItsLastLineWhole) {
    const std::string rows = testing::TempDir() + "reader_rows.csv";
    const std::string command = "counts --every 1 --addresses 0,2 --format csv --port ";
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        FILE* const program =
            Start(std::string("echo $$; exec ") + READER_PROGRAM + ' ' + command + Port() + " --output " + rows, "r");
        int id = 0;
        ASSERT_EQ(std::fscanf(program, "%d", &id), 1);
        std::this_thread::sleep_for(number * 100ms + 600ms); // in a pause, or between rounds
        const Outcome second = RunReader(command + Port());
        EXPECT_TRUE(second.code == 1 && second.text.starts_with("quorvane-read: another program holds "))
            << second.text;
        kill(id, number);
        EXPECT_EQ(CodeOf(program), 0);
    }
    std::ostringstream text;
    text << std::ifstream(rows, std::ios::binary).rdbuf();
    std::remove(rows.c_str());
    EXPECT_TRUE(std::regex_match(WithoutTimes(text.str()),
                                 std::regex("time,.*\r\n(T,0,12,65535,T,ok\r\n|T,2,0,7,T,ok\r\n){6,}")))
        << text.str();
}
#endif

} // namespace
