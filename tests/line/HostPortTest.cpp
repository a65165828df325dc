// The pseudo-terminal as a program sees it: raw, steady under one name, gone when the cable is pulled; and the program
// that plays counters there.
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "line/ControlInput.h"
#include "line/HostPort.h"
#include "support/Hex.h"

namespace {

bool HasInput(int descriptor) {
    pollfd source{descriptor, POLLIN, 0};
    return poll(&source, 1, 10'000) == 1;
}

std::string ContentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

// What comes until there are so many bytes.
LineBytes Hear(int descriptor, std::size_t size) {
    LineBytes heard;
    while (heard.size() < size && HasInput(descriptor)) {
        std::uint8_t part[512];
        const ssize_t count = read(descriptor, part, sizeof part);
        heard.insert(heard.end(), part, part + std::max<ssize_t>(count, 0));
    }
    return heard;
}

// Started with a shell that gives it its input, and ended by a control line.
TEST(HostPort, TheProgramPlaysCountersAtItsPort) {
    std::string name = (std::filesystem::temp_directory_path() / "lineXXXXXX").string(), error;
    const std::filesystem::path folder = mkdtemp(name.data());
    const std::string link = folder / "com1";
    const auto openProgramsEnd = [&] { return CDescriptor(open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)); };
    std::ofstream(link) << "mine";
    EXPECT_FALSE(CHostPort({.link = link, .device = ""}).Open(error) || CControlInput().UseFifo(link, error));
    EXPECT_EQ(ContentOf(link), "mine") << "no file is ever replaced, but a link";
    std::filesystem::remove(link);
    std::filesystem::create_symlink(folder / "nothing", link);
    const std::string said = folder / "said", fifo = folder / "control", wire = folder / "wire";
    const std::string program = LINE_PROGRAM;
    EXPECT_EQ(std::system((program + " --help > " + said).c_str()), 0);
    EXPECT_NE(ContentOf(said).find("--control PATH"), std::string::npos);
    EXPECT_EQ(WEXITSTATUS(std::system((program + " --baud fast 2> " + said).c_str())), 1);
    EXPECT_EQ(ContentOf(said), "quorvane-line: --baud: \"fast\" is no number from 0 to 1000000\n");
    EXPECT_EQ(WEXITSTATUS(std::system((program + " --wire " + link + "/no 2> " + said).c_str())), 1);

    FILE* const input = popen((program + " --link " + link + " --control " + fifo + " --wire " + wire +
                               " --counters 3 --rate 0 --fault 'echo * 1' > " + said)
                                  .c_str(),
                              "w");
    for (int turn = 0; turn < 10'000 && !openProgramsEnd().IsOpen(); ++turn) poll(nullptr, 0, 1);
    CDescriptor end = openProgramsEnd();
    const auto ask = [&](std::size_t size) {
        const LineBytes request = BytesOf("02 03 87 8a 03");
        EXPECT_EQ(write(end.Get(), request.data(), request.size()), 5);
        return HexOf(Hear(end.Get(), size));
    };
    EXPECT_EQ(ask(10), "02 03 87 8a 03 02 03 00 03 03");
    std::ofstream(fifo) << "fault refuse=7\nstatus\nsend 5";
    std::ofstream(fifo) << "5\n"; // another writer goes on where the one before has stopped
    EXPECT_EQ(HexOf(Hear(end.Get(), 1)), "55");
    EXPECT_EQ(ask(5), "02 03 07 0a 03");
    CHostPort device({.link = "", .device = link}), odd({.link = "", .device = link, .baudRate = 4801});
    EXPECT_TRUE(device.Open(error) && device.Name() == link && !device.KeepsPace() && !odd.Open(error)) << error;
    device.Close();
    std::ofstream(fifo) << "pull\n"; // hangs up, and the link goes
    EXPECT_TRUE(HasInput(end.Get()) && write(end.Get(), "x", 1) == -1 && !openProgramsEnd().IsOpen());
    std::ofstream(fifo) << "plug\n";
    for (int turn = 0; turn < 10'000 && !(end = openProgramsEnd()).IsOpen(); ++turn) poll(nullptr, 0, 1);
    EXPECT_EQ(ask(5), "02 03 07 0a 03");
    std::fputs("counts 3 1 2\nquit", input); // the last line needs no end
    EXPECT_EQ(pclose(input), 0);
    EXPECT_FALSE(std::filesystem::exists(fifo) || std::filesystem::exists(std::filesystem::symlink_status(link)));
    const std::string all = ContentOf(said);
    EXPECT_TRUE(all.starts_with("line at /dev/") && all.ends_with("ok\nok\n")) << all;
    EXPECT_NE(all.find("\nok\n3: 0 in 0 out, 20"), std::string::npos) << all;
    EXPECT_NE(all.find(" > 02 03 87 8A 03\n"), std::string::npos) << all;
    EXPECT_NE(ContentOf(wire).find(" < 55\n"), std::string::npos);
    std::filesystem::remove_all(folder);
}

} // namespace
