// The pseudo-terminal as a program sees it: raw, steady under one name, gone when the cable is pulled; and the program
// that plays counters there.
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "line/ControlInput.h"
#include "line/PseudoTerminal.h"
#include "port/SerialDevice.h"
#include "support/Hex.h"

namespace {

std::string ContentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

// So many bytes, as they come.
std::string Hear(int descriptor, std::size_t size) {
    LineBytes heard(size);
    pollfd source{descriptor, POLLIN, 0};
    for (std::size_t at = 0; at < size; ++at)
        if (poll(&source, 1, 10'000) != 1 || read(descriptor, &heard[at], 1) != 1) return "nothing";
    return HexOf(heard);
}

// Started with a shell that gives it its input, and ended by a control line.
TEST(PseudoTerminal, TheProgramPlaysCountersAtItsPort) {
    std::string name = (std::filesystem::temp_directory_path() / "lineXXXXXX").string(), error;
    const std::filesystem::path folder = mkdtemp(name.data());
    const std::string link = folder / "com1";
    const auto openProgramsEnd = [&] { return CDescriptor(open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)); };
    std::ofstream(link) << "mine";
    EXPECT_FALSE(CPseudoTerminal(link).Open(error) || CControlInput().UseFifo(link, error));
    EXPECT_EQ(ContentOf(link), "mine") << "no file is ever replaced, but a link";
    std::filesystem::remove(link);
    std::filesystem::create_symlink(folder / "nothing", link);
    const std::string said = folder / "said", fifo = folder / "control", wire = folder / "wire";
    const std::string program = LINE_PROGRAM;
    EXPECT_EQ(WEXITSTATUS(std::system((program + " --baud fast 2> " + said).c_str())), 1);
    EXPECT_EQ(ContentOf(said), "quorvane-line: --baud: \"fast\" is no number from 0 to 1000000\n");

    FILE* const input = popen((program + " --link " + link + " --control " + fifo + " --wire " + wire +
                               " --counters 3 --rate 0 --fault 'echo * 1' > " + said)
                                  .c_str(),
                              "w");
    for (int turn = 0; turn < 10'000 && !openProgramsEnd().IsOpen(); ++turn) poll(nullptr, 0, 1);
    CDescriptor end = openProgramsEnd();
    const auto ask = [&](std::size_t size) {
        const LineBytes request = BytesOf("02 03 87 8a 03");
        EXPECT_EQ(write(end.Get(), request.data(), request.size()), 5);
        return Hear(end.Get(), size);
    };
    EXPECT_EQ(ask(10), "02 03 87 8a 03 02 03 00 03 03");
    std::ofstream(fifo) << "fault refuse=7\nstatus\nsend 5";
    std::ofstream(fifo) << "5\n"; // another writer goes on where the one before has stopped
    EXPECT_EQ(Hear(end.Get(), 1), "55");
    EXPECT_EQ(ask(5), "02 03 07 0a 03");
    CSerialDevice device(link, 4800), odd(link, 4801);
    EXPECT_TRUE(device.Open(error) && !device.KeepsPace() && !odd.Open(error)) << error;
    device.Close();
    std::ofstream(fifo) << "pull\n"; // hangs up, and the link goes
    EXPECT_TRUE(Hear(end.Get(), 1) == "nothing" && write(end.Get(), "x", 1) == -1 && !openProgramsEnd().IsOpen());
    std::ofstream(fifo) << "plug\n";
    for (int turn = 0; turn < 10'000 && !(end = openProgramsEnd()).IsOpen(); ++turn) poll(nullptr, 0, 1);
    EXPECT_EQ(ask(5), "02 03 07 0a 03");
    std::fputs("counts 3 1 2\nquit", input); // the last line needs no end
    EXPECT_EQ(pclose(input), 0);
    EXPECT_FALSE(std::filesystem::exists(fifo) || std::filesystem::exists(std::filesystem::symlink_status(link)));
    const std::string all = ContentOf(said) + ContentOf(wire);
    for (const char* const part :
         {"line at /dev/", "\nok\n3: 0 in 0 out, 20", " > 02 03 87 8A 03\n", "ok\nok\n", " < 55\n"})
        EXPECT_NE(all.find(part), std::string::npos) << all;
    std::filesystem::remove_all(folder);
}

TEST(PseudoTerminal, TheProgramGoesOnInTheBackgroundOfATerminal) {
    std::string name = (std::filesystem::temp_directory_path() / "lineXXXXXX").string();
    const std::filesystem::path folder = mkdtemp(name.data());
    const std::string link = folder / "com1", fifo = folder / "control";
    const std::string program = std::string(LINE_PROGRAM) + " --link " + link + " --control " + fifo;
    EXPECT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    // Nobody in the foreground reads what is typed.
    const std::string shell = "sh -mc '" + program + " & while test -p " + fifo + "; do sleep 0.1; done'";
    FILE* const keyboard = popen(("script -qc \"" + shell + "\" /dev/null > /dev/null").c_str(), "w");
    CDescriptor end;
    for (int turn = 0; turn < 10'000 && !end.IsOpen(); ++turn) {
        poll(nullptr, 0, 1);
        end = CDescriptor(open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK));
    }
    std::fputs("ls\n", keyboard);
    std::fflush(keyboard);
    poll(nullptr, 0, 300); // so that it is there
    const LineBytes request = BytesOf("02 03 87 8a 03");
    EXPECT_EQ(write(end.Get(), request.data(), request.size()), 5);
    EXPECT_EQ(Hear(end.Get(), 5), "02 03 00 03 03");
    std::ofstream(fifo) << "quit\n";
    std::filesystem::remove_all(folder);
    EXPECT_EQ(pclose(keyboard), 0);
}

} // namespace
