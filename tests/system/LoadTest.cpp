// What polling costs, and how quickly the window answers meanwhile.
#include <algorithm>

#include "SystemTest.h"

namespace {

class Load : public SystemTest {
protected:
    // The time within which 99 of 100 messages were answered, one sent every 5 ms.
    double SlowAnswerMilliseconds() const {
        std::vector<double> times;
        for (const auto end = Clock::now() + 2500ms; Clock::now() < end; std::this_thread::sleep_for(5ms)) {
            const auto sent = Clock::now();
            EXPECT_TRUE(program.Answers());
            times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - sent).count());
        }
        const auto at = times.begin() + static_cast<std::ptrdiff_t>(times.size() * 99 / 100);
        std::ranges::nth_element(times, at);
        return *at;
    }
};

TEST_F(Load, TheWindowAnswersWithinAFrameOfTheScreen) {
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartProgram(true);
    ExpectAddressButtons("0 1 2 3 4 5");
    for (const char* fault : {"", "noise=150 *", "silent *"}) {
        if (*fault != '\0') counters->BringFault(fault);
        const double slow = SlowAnswerMilliseconds();
        RecordProperty(std::string("slowAnswerMilliseconds_") + std::string(fault).substr(0, 5), std::to_string(slow));
        EXPECT_LT(slow, 16) << fault;
    }
}

TEST_F(Load, PollingIsCheapAndLeavesNothingBehind) {
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartProgram(true);
    ExpectAddressButtons("0 1 2 3 4 5");
    ASSERT_TRUE(counters->AwaitFrames(6));
    const DWORD handles = program.HandleCount();
    const double used = program.ProcessorSeconds();
    EXPECT_GT(used, 0) << "no figures";
    const auto begun = Clock::now();
    ASSERT_TRUE(counters->AwaitFrames(25));
    const double part =
        (program.ProcessorSeconds() - used) / std::chrono::duration<double>(Clock::now() - begun).count();
    RecordProperty("percentOfACore", std::to_string(100 * part));
    EXPECT_LT(part, 0.03);
    EXPECT_TRUE(Await([&] { return program.HandleCount() <= handles; }, 1s))
        << program.HandleCount() << " after " << handles;
}

} // namespace
