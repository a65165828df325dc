// Opening a port beside a driver that takes its time, and beside the thread of the transfers.
#include "serial/PortSelection.h"

#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TimeFactor.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

} // namespace

TEST(PortOpening, ASearchEndsWithinItsLimit) {
    const auto lets = std::make_shared<std::promise<void>>();
    const auto held = lets->get_future().share();
    const auto begun = Clock::now();
    const auto found = FindPorts([held](const std::string& name) {
        if (name == "COM2") held.wait();
        return name.size() == 4;
    });
    EXPECT_LT(Clock::now() - begun, (searchLimit + 500) * 1ms * TimeFactor());
    EXPECT_EQ(found, (std::vector<std::int32_t>{1, 3, 4, 5, 6, 7, 8, 9}));
    lets->set_value();
}
