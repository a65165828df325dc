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
struct CMemoryPort final : CLinePort {
    bool Open(std::string& error) override { return error = "out of order", open = !broken; }
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    std::string Name() const override { return "memory"; }
    bool KeepsPace() const override { return keepsPace; }
    bool Read(LineBytes& bytes) override { return bytes = std::exchange(written, {}), !broken; }
    bool Write(std::span<const std::uint8_t> bytes) override { return heard += HexOf(bytes), !broken; }

    LineBytes written; // by the program
    std::string heard;
    bool broken = false, open = false, keepsPace = false;
};

struct LineRunner : testing::Test {
    // Clears the counts of counter 1 at `at`, and hears the line out until `until`.
    std::string Ask(LineTime at, LineTime until) {
        port.written = BytesOf("02 01 87 88 03");
        runner.Receive(at);
        runner.Speak(until);
        return std::exchange(port.heard, {});
    }
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
    EXPECT_EQ(std::exchange(said, {}), "line at memory|1.000 > 02 01 87 88 03|") << "the reply may go on";
    EXPECT_EQ(runner.NextDue(), 1070ms);
    runner.Speak(1070ms);
    EXPECT_EQ(std::exchange(said, {}), "1.016 < 02 01 00 01 03|");
    port.written = LineBytes(256, 0xAB);
    runner.Receive(61'234ms);
    runner.Receive((port.written = {0xCD}, 61'235ms));
    EXPECT_EQ(said.size(), std::string("61.234 >|").size() + 256 * 3) << "a flood without a pause is cut";
    EXPECT_TRUE(!runner.Start("no/such/folder", error) && error.starts_with("can't write "));
#ifndef _WIN32
    ASSERT_TRUE(runner.Obey("traffic off", 70s) && runner.Start("/dev/full", error)) << error;
    runner.Speak(79s);
    said.clear();
    Ask(80s, 81s);
    EXPECT_EQ(said, "error: the wire log can't be written and ends here|") << "once";
#endif
}

TEST_F(LineRunner, PortsAreGoneAndComeBack) {
    const std::tuple<bool, const char*, bool, const char*> rows[] = {
        // broken, the order, open then, and what is said
        {false, "pull", false, "ok|"},
        {false, "plug", true, "line at memory|ok|"},
        {true, "", false, "error: memory is gone; \"plug\" opens it again|"},
        {true, "plug", false, "error: out of order|"},
        {false, "plug", true, "line at memory|ok|"}};
    port.broken = port.keepsPace = true;
    EXPECT_TRUE(!runner.Start("", error) && error == "out of order");
    port.broken = false;
    ASSERT_TRUE(runner.Start("", error) && runner.Obey("traffic off", 1s));
    LineTime time = 2s;
    for (const auto& [broken, order, open, words] : rows) {
        port.broken = broken, said = "", time += 1s;
        EXPECT_TRUE(*order == '\0' || runner.Obey(order, time));
        // Due as a whole where the port has a pace.
        EXPECT_EQ(Ask(time, time + 1ms), open ? "02 01 00 01 03" : "");
        EXPECT_TRUE(port.open == open && said == words) << order << ": " << said;
    }
    port.written = BytesOf("02 01 87 88 03");
    runner.Receive(time);
    port.broken = true;
    runner.Speak(time + 1s);
    EXPECT_FALSE(port.open) << "gone while it was written to";
    EXPECT_FALSE(runner.Obey("quit", time));
}

} // namespace
