// Both ends of a cable held by the port of the simulated line.
#include <cstdlib>

#include "LineFixture.h"
#include "TimeFactor.h"
#include "line/ComPort.h"

namespace {

void Open(CComPort& port, const char* variable, const char* usual) {
    const char* const name = std::getenv(variable);
    std::string error;
    port.Choose(name == nullptr ? usual : name);
    ASSERT_TRUE(port.Open(error)) << error;
}

// What comes until nothing more has come for a while.
LineBytes Drain(CComPort& port) {
    LineBytes all;
    LineBytes bytes;
    while (WaitForSingleObject(port.InputEvent(), static_cast<DWORD>(500 * TimeFactor())) == WAIT_OBJECT_0) {
        if (!port.Read(bytes)) break;
        all.insert(all.end(), bytes.begin(), bytes.end());
    }
    return all;
}

TEST(ComPortTest, LosesWhatNobodyTakesAndGoesOn) {
    CComPort program(4800);
    CComPort counters(4800);
    ASSERT_NO_FATAL_FAILURE(Open(program, "QUORVANE_TEST_PORT_A", "COM1"));
    ASSERT_NO_FATAL_FAILURE(Open(counters, "QUORVANE_TEST_PORT_B", "COM2"));
    EXPECT_EQ(counters.TimeToLook(), INFINITE) << "a silent line wakes nobody";

    const LineBytes piece(2000, 0x55);
    bool blocked = false;
    for (int round = 0; round < 1000 && !blocked; ++round) {
        ASSERT_TRUE(counters.Write(piece)) << round;
        blocked = counters.TimeToLook() != INFINITE; // bytes wait behind others
    }
    ASSERT_TRUE(blocked);
    Sleep(1100);
    ASSERT_TRUE(counters.Write(piece));
    EXPECT_EQ(counters.TimeToLook(), INFINITE) << "lost";

    EXPECT_GT(Drain(program).size(), piece.size());
    ASSERT_TRUE(counters.Write(Bytes("02 00 00 00 03")));
    EXPECT_EQ(Hex(Drain(program)), "02 00 00 00 03");
}

} // namespace
