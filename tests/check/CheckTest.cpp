// What a machine leaves out, and that no end but a good one counts as a pass.
#include <sstream>

#include <gtest/gtest.h>

#include "check/TestList.h"
#include "check/TestVerdict.h"

namespace {

TEST(TestList, LeavesOutWhatTheMachineLacks) {
    std::istringstream list(
        "system whole 9 cables=A.b pull=A.c:A.d\n\nwindow sheets 5 wine=*\nports pair 5\npure sums 5\n"
        "window rows 5 wine=R.r");
    const CheckedMachine machines[] = {{}, {.cables = 1}, {.cables = 2, .hasPull = true}};
    const char* const expected[] = {"sums[] sheets[*] rows[R.r] pair[*] whole[*] ",
                                    "sums[] sheets[*] rows[R.r] pair[] whole[A.b:A.c:A.d] ",
                                    "sums[] sheets[*] rows[R.r] pair[] whole[] "};
    const auto programs = ReadTestList(list);
    for (std::size_t i = 0; i < std::size(machines); ++i) {
        std::string left;
        for (const ListedProgram& program : programs)
            left += program.name + "[" + LeftOutOf(program, machines[i]).tests + "] ";
        EXPECT_EQ(left, expected[i]);
    }
}

TEST(TestVerdict, OnlyAGoodEndIsAPass) {
    const std::string begun = "[ RUN      ] A.b\r\n", passed = "[  PASSED  ] 2 tests.\r\n";
    const std::string failed = "[  FAILED  ] A.b (3 ms)\n[  PASSED  ] 1 test.\n[  FAILED  ] 1 test, listed below:\n";
    const std::tuple<TestRun, bool, std::string> rows[] = {
        {{true, false, 0, begun + passed}, true, "2 passed"},
        {{true, false, 0, begun + passed + "[  SKIPPED ] 1 test, listed below:\n"}, true, "2 passed, 1 skipped"},
        {{true, false, 1, begun + failed}, false, "1 passed, 1 failed"},
        {{true, false, 0, begun}, false, "0 passed"}, // ended by a call of its own
        {{true, false, 0xC0000005, begun}, false, "code C0000005 in A.b"},
        {{true, false, 3, begun + passed}, false, "code 00000003 in A.b"}, // at its very end
        {{true, true, 1, begun + passed}, false, "not done after 7 s, in A.b"},
        {{false, false, 2, ""}, false, "doesn't start, error 2"}};
    for (const auto& [run, isPass, text] : rows) {
        const TestVerdict verdict = VerdictOf(run, 7);
        EXPECT_TRUE(verdict.isPass == isPass && verdict.text == text) << verdict.text << ", not " << text;
    }
}

} // namespace
