// Reads the marks in square brackets that GoogleTest puts before each line.
#include "check/TestVerdict.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

// The number behind the last of these marks that has one, as in "[  PASSED  ] 12 tests."
int SumAt(std::string_view output, std::string_view mark) {
    int sum = 0;
    for (std::size_t at = output.find(mark); at != std::string_view::npos; at = output.find(mark, at + 1)) {
        const std::string behind(output.substr(at + mark.size(), 24));
        char* end = nullptr;
        const long number = std::strtol(behind.c_str(), &end, 10);
        if (std::string_view(end).starts_with(" test")) sum = static_cast<int>(number);
    }
    return sum;
}

// The test that began last.
std::string LastBegun(std::string_view output) {
    constexpr std::string_view mark = "[ RUN      ] ";
    const std::size_t at = output.rfind(mark);
    if (at == std::string_view::npos) return "no test";
    const std::string_view name = output.substr(at + mark.size());
    return std::string(name.substr(0, name.find_first_of("\r\n")));
}

std::string SumsOf(int passed, int failed, int skipped) {
    std::string text = std::to_string(passed) + " passed";
    if (failed > 0) text += ", " + std::to_string(failed) + " failed";
    if (skipped > 0) text += ", " + std::to_string(skipped) + " skipped";
    return text;
}

} // namespace

TestVerdict VerdictOf(const TestRun& run, int seconds) {
    if (!run.hasStarted) return {false, "doesn't start, error " + std::to_string(run.code)};
    if (run.isLate) return {false, "not done after " + std::to_string(seconds) + " s, in " + LastBegun(run.output)};
    const int passed = SumAt(run.output, "[  PASSED  ] "), failed = SumAt(run.output, "[  FAILED  ] ");
    const int skipped = SumAt(run.output, "[  SKIPPED ] ");
    if (run.code != 0 && failed == 0) {
        std::array<char, 16> code{};
        std::snprintf(code.data(), code.size(), "%08X", static_cast<unsigned>(run.code));
        return {false, std::string("code ") + code.data() + " in " + LastBegun(run.output)};
    }
    return {run.code == 0 && failed == 0 && passed > 0, SumsOf(passed, failed, skipped)};
}
