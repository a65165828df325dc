// The settings of the line as texts, and texts as settings.
#include "dialogs/ComSettingText.h"

#include <gtest/gtest.h>

TEST(ComSettingText, ShowsTheSettingsAndIsTakenAsTyped) {
    EXPECT_EQ(TextOf({}), (ComSettingText{"COM1", "4800", "NONE", "8", "1"}));
    EXPECT_EQ(TextOf({12, 256000, 'O', 7, 2}), (ComSettingText{"COM12", "256000", "ODD", "7", "2"}));
    EXPECT_EQ(TextOf({-3, 0, 'E', 0, -1}), (ComSettingText{"COM-3", "0", "EVEN", "0", "-1"}));
    EXPECT_EQ(TextOf({1, 1, 'x', 5, 1}).parity, "NONE");
    const std::pair<ComSettingText, PortSettings> rows[] = {
        {{"COM3", "9600", "EVEN", "7", "2"}, {3, 9600, 'E', 7, 2}},
        {{"COM 4x", " 300 baud", "none", "+8", "1.5"}, {4, 300, 'n', 8, 1}},
        {{"com4", "", "", "eight", "-"}, {7, 0, '\0', 0, 0}},
        {{"COM", "1", "N", "1", "1"}, {7, 1, 'N', 1, 1}},
        {{"COMx5", "2147483648", "N", "-2147483649", "99999999999999999999"},
         {7, 2147483647, 'N', -2147483647 - 1, 2147483647}},
        {{"COM-1", "0x10", "N", "08", "2"}, {-1, 0, 'N', 8, 2}}};
    for (const auto& [text, settings] : rows) EXPECT_EQ(SettingsOf(text, {7, 4800, 'N', 8, 1}), settings) << text.port;
}
