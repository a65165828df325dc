// The clock of the system is set while the program polls.
#include <cstdlib>

#include "framework/Time.h"
#include "SystemTest.h"

namespace {

class ClockTest : public SystemTest {
protected:
    static std::string Today() { return CTime::Now().Format("%Y/%m/%d"); }
    // By so many days, as in "+2d", from the true time. Whoever reads the clock finds the file whole.
    static void SetClock(const std::string& days) {
        const std::filesystem::path file = std::getenv("QUORVANE_TEST_CLOCK"), next = file.string() + ".next";
        std::ofstream(next) << days << '\n';
        std::filesystem::rename(next, file);
    }
    static std::string LastLine() {
        const std::string text = LogText();
        const std::size_t end = text.find_last_of('\n', text.size() - 2);
        return text.substr(end == std::string::npos ? 0 : end + 1);
    }
};

TEST_F(ClockTest, PollingGoesOnAndLogLinesHaveTheNewTime) {
    ASSERT_NE(std::getenv("QUORVANE_TEST_CLOCK"), nullptr);
    SetClock("+0d");
    PlayCounters({0, 1, 2, 3, 4, 5});
    StartPolling();
    ExpectAddressButtons("0 1 2 3 4 5");
    program.Click(IDC_ADDRESS_BUTTON_FIRST); // another one may have come first
    std::string former = Today();
    for (const char* days : {"+2d", "-2d", "+0d"}) {
        SetClock(days);
        EXPECT_NE(std::exchange(former, Today()), Today()) << "the clock isn't set";
        ExpectPollingGoesOn();
        EXPECT_TRUE(Await([] { return LastLine().starts_with(Today()); })) << LastLine() << ", today is " << Today();
    }
    StopPolling();
    const std::string log = LogText();
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(log, '\n')), 2 * counters->Heard().size());
}

} // namespace
