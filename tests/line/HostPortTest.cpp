// The pseudo-terminal as a program sees it: raw, steady under one name, gone when the cable is pulled; and the program
// that plays counters there.
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
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

struct HostPort : testing::Test {
    ~HostPort() override { std::filesystem::remove_all(folder); }
    CDescriptor OpenProgramsEnd() { return CDescriptor(open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)); }

    std::filesystem::path folder = [] {
        std::string name = (std::filesystem::temp_directory_path() / "lineXXXXXX").string();
        return std::filesystem::path(mkdtemp(name.data()));
    }();
    std::string link = folder / "com1", error;
};

TEST_F(HostPort, BytesPassUnchangedAndProgramsComeAndGo) {
    CHostPort port({.link = link, .device = ""}), other({.link = link, .device = ""}),
        device({.link = "", .device = link}), odd({.link = "", .device = link, .baudRate = 4801});
    std::filesystem::create_symlink(folder / "nothing", link);
    ASSERT_TRUE(port.Open(error) && !port.KeepsPace()) << error;
    OpenProgramsEnd();
    LineBytes bytes, all(256);
    EXPECT_TRUE(port.Read(bytes) && bytes.empty()) << "no hang-up";
    EXPECT_TRUE(port.Write(LineBytes(100'000, 0x55))) << "left unread, and lost";
    ASSERT_TRUE(port.Open(error)) << error;
    const CDescriptor before = OpenProgramsEnd();
    for (std::size_t value = 0; value < all.size(); ++value) all[value] = static_cast<std::uint8_t>(value);
    ASSERT_EQ(write(before.Get(), all.data(), all.size()), 256);
    EXPECT_TRUE(HasInput(port.Descriptor()) && port.Read(bytes) && bytes == all);
    port.Write(all);
    EXPECT_EQ(Hear(before.Get(), 256), all) << "or an echo";
    EXPECT_TRUE(device.Open(error) && device.IsOpen() && device.Name() == link && !odd.Open(error));
    EXPECT_EQ(error, "a device can't have 4801 baud");

    EXPECT_TRUE(other.Open(error)) << error;
    port.Close();
    EXPECT_FALSE(port.Read(bytes) || port.IsOpen());
    EXPECT_EQ(write(before.Get(), all.data(), 1), -1) << "hung up";
    EXPECT_TRUE(OpenProgramsEnd().IsOpen()) << "the link is the other one's now";
    other.Close();
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
    std::ofstream(link) << "mine";
    EXPECT_FALSE(port.Open(error) || port.IsOpen() || CControlInput().UseFifo(link, error));
    EXPECT_EQ(ContentOf(link), "mine");
}

// Started with a shell that gives it its input, and ended by a control line.
TEST_F(HostPort, TheProgramPlaysCounters) {
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
    for (int turn = 0; turn < 10'000 && !std::filesystem::exists(link); ++turn) poll(nullptr, 0, 1);
    const CDescriptor end = OpenProgramsEnd();
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
    std::fputs("counts 3 1 2\nquit", input); // the last line needs no end
    EXPECT_EQ(pclose(input), 0);
    EXPECT_FALSE(std::filesystem::exists(fifo) || std::filesystem::exists(std::filesystem::symlink_status(link)));
    const std::string all = ContentOf(said);
    EXPECT_TRUE(all.starts_with("line at /dev/") && all.ends_with("ok\nok\n")) << all;
    EXPECT_NE(all.find("\nok\n3: 0 in 0 out, 20"), std::string::npos) << all;
    EXPECT_NE(all.find(" > 02 03 87 8A 03\n"), std::string::npos) << all;
    EXPECT_NE(ContentOf(wire).find(" < 55\n"), std::string::npos);
}

} // namespace
