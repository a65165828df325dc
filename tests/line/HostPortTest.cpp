// The pseudo-terminal as a program sees it: raw, steady under one name, and gone when the cable is pulled.
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "LineFixture.h"
#include "line/ControlInput.h"
#include "line/HostPort.h"

namespace {

bool HasInput(int descriptor) {
    pollfd source{descriptor, POLLIN, 0};
    return poll(&source, 1, 2000) == 1;
}

class HostPortTest : public testing::Test {
protected:
    ~HostPortTest() override { std::filesystem::remove_all(folder); }

    CDescriptor OpenProgramsEnd() { return CDescriptor(open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)); }

    std::filesystem::path folder = [] {
        std::string name = (std::filesystem::temp_directory_path() / "lineXXXXXX").string();
        return std::filesystem::path(mkdtemp(name.data()));
    }();
    std::string link = folder / "com1";
    std::string error;
    CHostPort port{{.link = link, .device = ""}};
};

TEST_F(HostPortTest, PassesEveryByteBothWaysWithoutEcho) {
    ASSERT_TRUE(port.Open(error)) << error;
    const CDescriptor program = OpenProgramsEnd();
    LineBytes all(256);
    for (std::size_t value = 0; value < all.size(); ++value) all[value] = static_cast<std::uint8_t>(value);

    ASSERT_EQ(write(program.Get(), all.data(), all.size()), 256);
    LineBytes heard;
    LineBytes bytes;
    while (heard.size() < all.size() && HasInput(port.Descriptor()) && port.Read(bytes)) {
        heard.insert(heard.end(), bytes.begin(), bytes.end());
    }
    EXPECT_EQ(heard, all);
    std::uint8_t echoed = 0;
    EXPECT_EQ(read(program.Get(), &echoed, 1), -1);

    port.Write(all);
    ASSERT_TRUE(HasInput(program.Get()));
    bytes.resize(512);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(0, read(program.Get(), bytes.data(), bytes.size()))));
    EXPECT_EQ(bytes, all);
}

TEST_F(HostPortTest, AProgramMayComeAndGoAndLeaveItsInputUnread) {
    ASSERT_TRUE(port.Open(error)) << error;
    OpenProgramsEnd();
    LineBytes bytes;
    EXPECT_TRUE(port.Read(bytes)) << "no hang-up";
    EXPECT_TRUE(bytes.empty());
    port.Write(LineBytes(100'000, 0x55));
    EXPECT_TRUE(OpenProgramsEnd().IsOpen());
}

TEST_F(HostPortTest, APulledCableHangsUpAndComesBackUnderTheSameName) {
    ASSERT_TRUE(port.Open(error)) << error;
    const CDescriptor before = OpenProgramsEnd();
    port.Close();
    std::uint8_t byte = 0x55;
    EXPECT_LE(read(before.Get(), &byte, 1), 0);
    EXPECT_EQ(write(before.Get(), &byte, 1), -1) << "hung up";
    EXPECT_FALSE(OpenProgramsEnd().IsOpen());

    ASSERT_TRUE(port.Open(error)) << error;
    const CDescriptor after = OpenProgramsEnd();
    EXPECT_EQ(write(after.Get(), &byte, 1), 1);
    EXPECT_TRUE(HasInput(port.Descriptor()));
}

TEST_F(HostPortTest, ALinkIsReplacedButNeverAFile) {
    std::filesystem::create_symlink(folder / "nothing", link);
    EXPECT_TRUE(port.Open(error)) << error;
    CHostPort other({.link = link, .device = ""});
    EXPECT_TRUE(other.Open(error)) << error;
    port.Close();
    EXPECT_TRUE(OpenProgramsEnd().IsOpen()) << "the link is the other one's now";
    other.Close();
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));

    std::ofstream(link) << "mine";
    EXPECT_FALSE(port.Open(error));
    EXPECT_FALSE(port.IsOpen());
    EXPECT_TRUE(std::filesystem::is_regular_file(link));
}

TEST_F(HostPortTest, AFifoBringsLinesFromOneWriterAfterTheOther) {
    const std::string path = folder / "control";
    {
        CControlInput input;
        ASSERT_TRUE(input.UseFifo(path, error)) << error;
        std::ofstream(path) << "pull\nplug\nsta";
        ASSERT_TRUE(HasInput(input.Descriptor()));
        EXPECT_EQ(input.ReadLines(), (std::vector<std::string>{"pull", "plug"}));
        std::ofstream(path) << "tus\n";
        ASSERT_TRUE(HasInput(input.Descriptor()));
        EXPECT_EQ(input.ReadLines(), std::vector<std::string>{"status"});
    }
    EXPECT_FALSE(std::filesystem::exists(path));
    std::ofstream(path) << "a file";
    EXPECT_FALSE(CControlInput().UseFifo(path, error));
}

} // namespace
