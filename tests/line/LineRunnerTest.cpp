// A line at a port: bytes, wire log, control lines, and ports that come and go.
#include <cstdio>
#include <fstream>
#include <sstream>

#include "LineFixture.h"
#include "line/LineRunner.h"

namespace {

using namespace std::chrono_literals;

// A port in memory, which can be out of order.
class CMemoryPort final : public CLinePort {
public:
    bool Open(std::string& error) override {
        if (broken) error = "out of order";
        open = !broken;
        return open;
    }
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    std::string Name() const override { return "memory"; }
    bool KeepsPace() const override { return false; }
    bool Read(LineBytes& bytes) override {
        bytes.swap(written);
        written.clear();
        return !broken;
    }
    bool Write(std::span<const std::uint8_t> bytes) override {
        heard.insert(heard.end(), bytes.begin(), bytes.end());
        return !broken;
    }

    LineBytes written; // by the program
    LineBytes heard;   // by the program
    bool broken = false;
    bool open = false;
};

class LineRunnerTest : public testing::Test {
protected:
    // Writes a request, and hears the line out until `until`.
    std::string Ask(std::string_view hex, LineTime at, LineTime until) {
        port.heard.clear();
        port.written = Bytes(hex);
        runner.Receive(at);
        runner.Speak(until);
        return Hex(port.heard);
    }

    std::string error;
    std::string said;
    CMemoryPort port;
    CLineRunner runner{
        {}, {2012, 7, 2, 16, 21, 20}, 0us, port, [this](const std::string& text) { said += text + '\n'; }};
};

constexpr std::string_view clearOne = "02 01 87 88 03";
constexpr std::string_view acknowledged = "02 01 00 01 03";

TEST_F(LineRunnerTest, LogsWhatPassesOnTheWire) {
    const std::string path = testing::TempDir() + "line_runner_wire.log";
    ASSERT_TRUE(runner.Start(path, error)) << error;
    EXPECT_EQ(Ask(clearOne, 1s, 1s + 16ms), "02 01");
    runner.Receive(1s + 17ms);
    runner.Speak(1040ms);
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    EXPECT_EQ(text.str(), "1000000 > 02 01 87 88 03\n1016000 < 02 01\n1040000 < 00 01 03\n");
    EXPECT_EQ(said, "line at memory\n1.000 > 02 01 87 88 03\n") << "the reply may go on";
    EXPECT_EQ(runner.NextDue(), 1070ms);
    runner.Speak(1070ms);
    EXPECT_EQ(said, "line at memory\n1.000 > 02 01 87 88 03\n1.016 < 02 01 00 01 03\n");
    std::remove(path.c_str());

    EXPECT_FALSE(runner.Start(testing::TempDir() + "no/such/folder", error));
    EXPECT_NE(error, "");
}

TEST_F(LineRunnerTest, PullsAndPlugsThePort) {
    ASSERT_TRUE(runner.Start("", error));
    EXPECT_TRUE(runner.Obey("traffic off", 1s));
    EXPECT_TRUE(runner.Obey("pull", 1s));
    EXPECT_FALSE(port.open);
    EXPECT_EQ(Ask(clearOne, 1s, 2s), "");
    EXPECT_TRUE(runner.Obey("plug", 2s));
    EXPECT_TRUE(port.open);
    EXPECT_EQ(Ask(clearOne, 2s, 3s), acknowledged);
    EXPECT_FALSE(runner.Obey("quit", 3s));
    EXPECT_EQ(said, "line at memory\nok\nok\nline at memory\nok\nok\n");
}

TEST_F(LineRunnerTest, OutlivesAPortThatIsGone) {
    ASSERT_TRUE(runner.Start("", error));
    port.broken = true;
    EXPECT_EQ(Ask(clearOne, 1s, 2s), "");
    EXPECT_FALSE(port.open);
    EXPECT_TRUE(runner.Obey("plug", 2s));
    EXPECT_FALSE(port.open);
    port.broken = false;
    said.clear();
    EXPECT_TRUE(runner.Obey("plug", 3s));
    EXPECT_EQ(said, "line at memory\nok\n");
    EXPECT_EQ(Ask(clearOne, 3s, 4s), acknowledged);

    port.written = Bytes(clearOne);
    runner.Receive(5s);
    port.broken = true;
    runner.Speak(6s);
    EXPECT_FALSE(port.open) << "gone while it was written to";
}

} // namespace
