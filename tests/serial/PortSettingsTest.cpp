// Names, mappings and the search for ports.
#include "serial/PortSearch.h"

#include <array>
#include <future>
#include <initializer_list>
#include <set>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

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

TEST(PortSearch, ListsTheSixLowestPorts) {
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
        int probes = 0;
        CPortSearch search(
            [&](const std::string& name) {
                EXPECT_EQ(name, PortName(++probes));
                return each.existing.contains(name);
            },
            6);
        search.Run();
        EXPECT_EQ(ListPorts(search.Found()), each.listed);
        EXPECT_EQ(probes, each.probes);
    }
}

TEST(PortSearch, GoesOnBesideAProbeThatIsHeld) {
    std::promise<void> letsGo;
    CPortSearch search(
        [&](const std::string& name) {
            EXPECT_LE(name, "COM6") << "begun although three lower ones are open";
            if (name == "COM2") letsGo.get_future().wait();
            return name == "COM2" || name >= "COM4";
        },
        3);
    std::array<std::thread, 2> searching;
    for (auto& thread : searching) thread = std::thread([&] { search.Run(); });
    while (search.Found().size() < 3) std::this_thread::yield();
    EXPECT_EQ(search.Found(), (std::vector<std::int32_t>{4, 5, 6}));
    letsGo.set_value();
    for (auto& thread : searching) thread.join();
    EXPECT_EQ(search.Found(), (std::vector<std::int32_t>{2, 4, 5})) << "an answer in time counts";
}
