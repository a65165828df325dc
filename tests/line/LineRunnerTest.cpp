// A line at a port: bytes, wire log, what a user sees, and ports that come and go.
#include <cstdio>
#include <fstream>
#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include "line/LineRunner.h"
#include "support/Hex.h"

namespace {

using namespace std::chrono_literals;

// A port in memory, which can be out of order.
class CMemoryPort final : public CLinePort {
public:
    bool Open(std::string& error) override {
        if (broken) error = "out of order";
        return open = !broken;
    }
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    std::string Name() const override { return "memory"; }
    bool KeepsPace() const override { return keepsPace; }
    bool Read(LineBytes& bytes) override {
        bytes = std::exchange(written, {});
        return !broken;
    }
    bool Write(std::span<const std::uint8_t> bytes) override {
        heard.insert(heard.end(), bytes.begin(), bytes.end());
        return !broken;
    }

    LineBytes written, heard; // by the program
    bool broken = false, open = false, keepsPace = false;
};

class LineRunner : public testing::Test {
protected:
    // Clears the counts of counter 1 at `at`, and hears the line out until `until`.
    std::string Ask(LineTime at, LineTime until) {
        port.heard.clear();
        port.written = BytesOf("02 01 87 88 03");
        runner.Receive(at);
        runner.Speak(until);
        return HexOf(port.heard);
    }
    std::string Said() { return std::exchange(said, {}); }

    std::string error, said;
    CMemoryPort port;
    CLineRunner runner{
        {}, {2012, 7, 2, 16, 21, 20}, 0us, port, [this](const std::string& text) { said += text + '|'; }};
};

TEST_F(LineRunner, LogsAndShowsWhatPassesOnTheWire) {
    const std::string path = testing::TempDir() + "line_runner_wire.log";
    ASSERT_TRUE(runner.Start(path, error)) << error;
    EXPECT_EQ(Ask(1s, 1s + 16ms), "02 01");
    EXPECT_EQ(runner.NextDue(), 1s + 10ms + 415us + 1ms + 3 * 2083us);
    runner.Speak(1040ms);
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    std::remove(path.c_str());
    EXPECT_EQ(text.str(), "1000000 > 02 01 87 88 03\n1016000 < 02 01\n1040000 < 00 01 03\n");
    EXPECT_EQ(Said(), "line at memory|1.000 > 02 01 87 88 03|") << "the reply may go on";
    EXPECT_EQ(runner.NextDue(), 1070ms);
    runner.Speak(1070ms);
    EXPECT_EQ(Said(), "1.016 < 02 01 00 01 03|");
    port.written = LineBytes(256, 0xAB);
    runner.Receive(61'234ms);
    runner.Receive((port.written = {0xCD}, 61'235ms));
    EXPECT_EQ(Said().size(), std::string("61.234 >|").size() + 256 * 3) << "a flood without a pause is cut";
    runner.Obey("traffic off", 62s);
    Ask(63s, 64s);
    EXPECT_EQ(Said(), "ok|");
    EXPECT_FALSE(runner.Start(testing::TempDir() + "no/such/folder", error));
    EXPECT_TRUE(error.starts_with("can't write "));
}

// What a line does, what the port is then, and what is said.
TEST_F(LineRunner, PortsAreGoneAndComeBack) {
    const struct {
        bool broken;
        const char* order; // none: counter 1 is asked
        bool open;
        const char* said;
    } rows[] = {{false, "pull", false, "ok|"},
                {false, nullptr, false, ""},
                {false, "plug", true, "line at memory|ok|"},
                {false, nullptr, true, ""},
                {true, nullptr, false, "error: memory is gone; \"plug\" opens it again|"},
                {true, "plug", false, "error: out of order|"},
                {false, "plug", true, "line at memory|ok|"}};
    port.broken = true;
    EXPECT_FALSE(runner.Start("", error));
    EXPECT_EQ(error, "out of order");
    port.broken = false, port.keepsPace = true;
    ASSERT_TRUE(runner.Start("", error) && runner.Obey("traffic off", 1s));
    Said();
    LineTime time = 2s;
    for (const auto& row : rows) {
        port.broken = row.broken;
        if (row.order != nullptr)
            EXPECT_TRUE(runner.Obey(row.order, time));
        else // due as a whole where the port has a pace
            EXPECT_EQ(Ask(time, time + 1ms), row.open ? "02 01 00 01 03" : "");
        EXPECT_EQ(port.open, row.open) << &row - rows;
        EXPECT_EQ(Said(), row.said);
        time += 1s;
    }
    port.written = BytesOf("02 01 87 88 03");
    runner.Receive(time);
    port.broken = true;
    runner.Speak(time + 1s);
    EXPECT_FALSE(port.open) << "gone while it was written to";
    EXPECT_FALSE(runner.Obey("quit", time));
}

} // namespace
