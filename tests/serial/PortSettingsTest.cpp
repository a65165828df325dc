// Names, texts and mappings of ports, the search for them, and the gate of their users.
#include <set>

#include <gtest/gtest.h>

#include "serial/ComSettingText.h"
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

TEST(PortSettings, TextsShowThemAndAreTakenAsTyped) {
    EXPECT_EQ(TextOf({}), (ComSettingText{"COM1", "4800", "NONE", "8", "1"}));
    EXPECT_EQ(TextOf({12, 256000, 'O', 7, 2}), (ComSettingText{"COM12", "256000", "ODD", "7", "2"}));
    EXPECT_EQ(TextOf({-3, 0, 'E', 0, -1}), (ComSettingText{"COM-3", "0", "EVEN", "0", "-1"}));
    EXPECT_EQ(TextOf({1, 1, 'x', 5, 1}).parity, "NONE");
    const std::pair<ComSettingText, PortSettings> rows[] = {
        {{"COM3", "9600", "EVEN", "7", "2"}, {3, 9600, 'E', 7, 2}},
        {{"COM 4x", " 300 baud", "none", "+8", "1.5"}, {4, 300, 'n', 8, 1}},
        {{"com4", "", "", "eight", "-"}, {7, 0, '\0', 0, 0}},
        {{"COM", "1", "N", "1", "1"}, {7, 1, 'N', 1, 1}},
        {{"COMx5", "2147483648", "N", "-2147483649", "99999999999999999999"},
         {7, 2147483647, 'N', -2147483647 - 1, 2147483647}},
        {{"COM-1", "0x10", "N", "08", "2"}, {-1, 0, 'N', 8, 2}}};
    for (const auto& [text, settings] : rows) EXPECT_EQ(SettingsOf(text, {7, 4800, 'N', 8, 1}), settings) << text.port;
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
