// Names, texts and mappings of ports, the search for them, and the gate of their users.
#include <set>

#include <gtest/gtest.h>

#include "serial/PortSearch.h"
#include "serial/UseGate.h"

TEST(PortSettings, OnlyNamesThatAreNoDevicesGetThePrefix) {
    for (const char* const own :
         {"COM1", "COM9", "COM", "COM-", "COM1x", "COMB1", "COM12 ", "com12", R"(\\.\COM12)", ""})
        EXPECT_EQ(DevicePath(own), own);
    for (const char* const name : {"COM10", "COM256", "COM0", "COM-5", "COM90"})
        EXPECT_EQ(DevicePath(name), std::string(R"(\\.\)") + name);
    EXPECT_TRUE(DcbParity('N') == 0 && DcbParity('O') == 1 && DcbParity('E') == 2 && DcbParity('\0') == 2);
    EXPECT_TRUE(DcbStopBits(1) == 0 && DcbStopBits(2) == 2 && DcbStopBits(0) == 2);
}

TEST(PortSearch, FindsTheLowestPorts) {
    const std::tuple<std::set<int>, AvailablePorts, int> rows[] = {
        // what there is, is listed, and how many are probed
        {{}, {}, 256},
        {{1, 12}, {{1, 12}, 2}, 256},
        {{3, 4, 5, 6, 7, 255, 256}, {{3, 4, 5, 6, 7, 255}, 6}, 255},
        {{1, 2, 3, 4, 5, 6, 7}, {{1, 2, 3, 4, 5, 6}, 6}, 6},
        {{2, 256}, {{2}, 1}, 256}}; // an entry of 8 bits can't hold 256
    for (const auto& [existing, listed, wanted] : rows) {
        int probes = 0;
        const auto probe = [&, &there = existing](const std::string& name) {
            EXPECT_EQ(name, PortName(++probes));
            return there.contains(probes);
        };
        CPortSearch search(probe, 6), stopped(probe);
        search.Run();
        EXPECT_EQ(ListPorts(search.Found()), listed);
        stopped.Stop();
        stopped.Run();
        EXPECT_EQ(probes, wanted);
    }
    CPortSearch* again = nullptr; // goes on beside the first probe, which is slow
    CPortSearch slow([&](const std::string& name) { return name != "COM1" || (again->Run(), true); }, 2);
    again = &slow;
    slow.Run();
    EXPECT_EQ(slow.Found(), (std::vector<std::int32_t>{1, 2})) << "and not the third, too";
}

TEST(UseGate, TellsTheCloserOfTheLastUser) {
    for (const bool isUsed : {false, true}) {
        CUseGate gate;
        EXPECT_TRUE(gate.Enter() && gate.Enter());
        EXPECT_FALSE(gate.Leave() || (!isUsed && gate.Leave()));
        EXPECT_EQ(gate.Shut(), isUsed);
        EXPECT_FALSE(gate.Enter());
        EXPECT_TRUE(!isUsed || gate.Leave());
    }
}
