// Fuzzes the control lines of the simulated line: one that is refused changes nothing.
#include <cstdlib>

#include "line/LineControl.h"
#include "support/TokenText.h"

namespace {

constexpr std::string_view controlTokens[] = {
    "\n",        " ",           "fault ",       "clear ", "counts ", "rate ",    "settings ", "send ",    "pull",
    "plug",      "status",      "* ",           "0 ",     "3 ",      "65536 ",   "silent ",   "torn",     "=",
    "noise",     "detect=yes ", "period=",      "late=",  "31 ",     "255 ",     "02 ",       "traffic ", "on",
    "language=", "chinese ",    "sensitivity=", "help",   "quit",    "1000000 ", "100000 "};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = TokenText({data, size}, controlTokens);
    LineTime now{};
    CCounterLine line({}, now);
    for (std::size_t at = 0; at < text.size(); now += LineTime(1'000'000)) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string before = DescribeCounters(line, now);
        const ControlAnswer answer = RunControlLine(line, std::string_view(text).substr(at, end - at), now);
        const bool isRefused = answer.text.starts_with("error: ");
        if (isRefused && (answer.text.size() < 10 || DescribeCounters(line, now) != before)) std::abort();
        if ((answer.quit || answer.traffic) && answer.text != "ok") std::abort();
        constexpr std::uint8_t poll[] = {0x02, 0x00, 0x81, 0x81, 0x03};
        line.Feed(poll, now);
        line.TakeDue(now + LineTime(500'000));
        at = end + 1;
    }
    return 0;
}
