// What a user calls a port, and the order in which ports are listed.
#include <algorithm>

#include <gtest/gtest.h>

#include "port/PortNames.h"

namespace {

TEST(PortNames, AreThoseOfTheSystem) {
    for (const char* const word : {"COM12", "com12", "Com12", "12"}) EXPECT_EQ(ComPortName(word), "COM12") << word;
    for (const char* const word : {"COM257", "COM0", "COM-1", "COM", "LPT1", "COM99999999999", ""})
        EXPECT_EQ(ComPortName(word), std::nullopt) << word;
    EXPECT_TRUE(ComPortNumber("COM256") == 256 && ComPortNumber("com2") == 0 && ComPortNumber("CON") == 0);
}

TEST(PortNames, StandByTheirNumbersAndOnce) {
    std::vector<NamedPort> ports{{"COM2", ""},         {"COM10", ""},         {"COM2", "USB Serial Port (COM2)"},
                                 {"/dev/ttyUSB1", ""}, {"/dev/ttyUSB11", ""}, {"/dev/ttyS4", ""}};
    const std::vector<NamedPort> expected{{"/dev/ttyS4", ""},
                                          {"/dev/ttyUSB1", ""},
                                          {"/dev/ttyUSB11", ""},
                                          {"COM2", "USB Serial Port (COM2)"},
                                          {"COM10", ""}};
    EXPECT_EQ(InPortOrder(ports), expected);
    std::ranges::reverse(ports);
    EXPECT_EQ(InPortOrder(ports), expected);
}

} // namespace
