// Names, mappings and the search for ports.
#include "serial/PortSettings.h"

#include <initializer_list>
#include <set>
#include <utility>

#include <gtest/gtest.h>

namespace {

// The ports of `existing` answer; gives what is listed and how far the search went.
std::pair<AvailablePorts, int> Enumerate(const std::set<std::string>& existing) {
    int probes = 0;
    const AvailablePorts listed = EnumeratePorts([&](const std::string& name) {
        EXPECT_EQ(name, PortName(++probes));
        return existing.contains(name);
    });
    return {listed, probes};
}

} // namespace

TEST(PortSettings, OnlyNamesThatAreNoDevicesGetThePrefix) {
    const std::initializer_list<std::pair<const char*, const char*>> cases = {
        {"COM1", "COM1"},
        {"COM9", "COM9"},
        {"COM10", R"(\\.\COM10)"},
        {"COM256", R"(\\.\COM256)"},
        {"COM0", R"(\\.\COM0)"},
        {"COM-5", R"(\\.\COM-5)"},
        {"COM", "COM"},
        {"COM1x", "COM1x"},
        {"COMB1", "COMB1"},
        {R"(\\.\COM12)", R"(\\.\COM12)"},
        {"", ""},
    };
    for (const auto& [name, path] : cases) EXPECT_EQ(DevicePath(name), path) << name;
}

TEST(PortSettings, LettersAndCountsBecomeDcbValues) {
    for (const auto& [letter, parity] : {std::pair{'N', 0U}, {'O', 1U}, {'E', 2U}, {'n', 2U}, {'\0', 2U}})
        EXPECT_EQ(DcbParity(letter), parity) << letter;
    for (const auto& [count, value] : {std::pair{1, 0}, {2, 2}, {0, 2}, {-1, 2}}) EXPECT_EQ(DcbStopBits(count), value);
}

TEST(PortSettings, SixLowestPortsAreListed) {
    struct {
        std::set<std::string> existing;
        AvailablePorts listed;
        int probes;
    } const cases[] = {
        {{}, {}, 256},
        {{"COM1", "COM12"}, {{1, 12}, 2}, 256},
        {{"COM3", "COM4", "COM5", "COM6", "COM7", "COM255", "COM256"}, {{3, 4, 5, 6, 7, 255}, 6}, 255},
        {{"COM1", "COM2", "COM3", "COM4", "COM5", "COM6", "COM7"}, {{1, 2, 3, 4, 5, 6}, 6}, 6},
        {{"COM2", "COM256"}, {{2}, 1}, 256}, // an entry of 8 bits can't hold 256
    };
    for (const auto& each : cases) {
        const auto [listed, probes] = Enumerate(each.existing);
        EXPECT_EQ(listed.numbers, each.listed.numbers);
        EXPECT_EQ(listed.count, each.listed.count);
        EXPECT_EQ(probes, each.probes);
    }
}
