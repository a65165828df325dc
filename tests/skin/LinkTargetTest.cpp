// Command lines and failure texts of links.
#include "skin/LinkTarget.h"

#include <gtest/gtest.h>

namespace {

TEST(LinkTarget, TheTargetTakesThePlaceholder) {
    struct Row {
        const char* registered;
        const char* command;
    };
    const Row rows[] = {{"b.exe \"%1\"", "b.exe  T"},
                        {"b.exe \"%1\" -x", "b.exe  T"},
                        {"b.exe -u %1 -x", "b.exe -u  T"},
                        {"b.exe %1 \"%1\"", "b.exe %1  T"},
                        {"b.exe", "b.exe T"},
                        {"%1", " T"},
                        {"", " T"}};
    for (const Row& row : rows) EXPECT_EQ(BrowserCommand(row.registered, "T"), row.command) << row.registered;
}

TEST(LinkTarget, ACommandThatIsTooLongIsNone) {
    const std::string browser(259, 'b');
    const std::string longest(browserCommandRoom - browser.size() - 2, 't'); // a blank and the ending zero
    EXPECT_EQ(BrowserCommand(browser, longest), browser + " " + longest);
    EXPECT_EQ(BrowserCommand(browser, longest + "t"), std::nullopt);
    EXPECT_TRUE(BrowserCommand("b %1" + browser, longest + "t")); // what is cut off needs no room
}

TEST(LinkTarget, AFailureWithoutATextOfItsOwnIsToldByItsNumber) {
    EXPECT_EQ(OpenFailureText(-7), "Unable to open hyperlink:\n\nUnknown Error (-7) occurred.");
}

} // namespace
