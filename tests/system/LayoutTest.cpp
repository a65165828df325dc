// Where each control of the panel stands at the start, in whose window, whether it can be seen and pressed.
#include "SystemTest.h"

namespace {

constexpr int onPanel = 0; // the panel's own window as the parent

struct Place {
    int id, parent;
    LONG x, y, width, height; // pixels in the parent's client area
    bool visible = true, enabled = true;
};

constexpr Place places[] = {
    {IDC_PANEL_STATIC, onPanel, 0, 0, 480, 347},
    // What stays where the template has it.
    {IDC_DATE_PICKER, onPanel, 136, 98, 160, 22},
    {IDC_SENSITIVITY_EDIT, onPanel, 136, 148, 72, 24},
    {IDC_SD_PERIOD_EDIT, onPanel, 136, 222, 72, 24},
    {IDC_ADDRESS_EDIT, onPanel, 136, 246, 72, 24},
    {IDC_IN_DISPLAY, onPanel, 30, 28, 132, 38},
    {IDC_OUT_DISPLAY, onPanel, 216, 28, 128, 38},
    {IDC_ALL, onPanel, 338, 82, 38, 20, false},
    {IDC_ADDRESS_BUTTON_FIRST, onPanel, 404, 100, 38, 20, false},
    {IDC_ADDRESS_BUTTON_SECOND, onPanel, 404, 124, 38, 20, false},
    {IDC_ADDRESS_BUTTON_THIRD, onPanel, 404, 148, 38, 20, false},
    {IDC_ADDRESS_BUTTON_FOURTH, onPanel, 404, 172, 38, 20, false},
    {IDC_ADDRESS_BUTTON_FIFTH, onPanel, 404, 196, 38, 20, false},
    {IDC_ADDRESS_BUTTON_LAST, onPanel, 404, 220, 38, 20, false},
    {IDC_COM_SETTING, onPanel, 358, 48, 34, 24, false},
    {IDC_RECEIVED_EDIT, onPanel, 208, 288, 158, 24},
    {IDC_TRANSMITTED_EDIT, onPanel, 30, 288, 162, 24},
    // Labels and borders.
    {IDC_IN_LABEL, IDC_PANEL_STATIC, 30, 66, 133, 22},
    {IDC_OUT_LABEL, IDC_PANEL_STATIC, 216, 66, 129, 22},
    {IDC_DATE_LABEL, IDC_PANEL_STATIC, 24, 97, 340, 24},
    {IDC_LANGUAGE_LABEL, IDC_PANEL_STATIC, 24, 122, 340, 24},
    {IDC_SENSITIVITY_LABEL, IDC_PANEL_STATIC, 24, 147, 340, 24},
    {IDC_DIRECTION_LABEL, IDC_PANEL_STATIC, 24, 172, 340, 24},
    {IDC_SD_DETECT_LABEL, IDC_PANEL_STATIC, 24, 197, 340, 24},
    {IDC_SD_PERIOD_LABEL, IDC_PANEL_STATIC, 24, 222, 340, 24},
    {IDC_ADDRESS_LABEL, IDC_PANEL_STATIC, 24, 247, 340, 24},
    {IDC_UPPER_BORDER, IDC_PANEL_STATIC, 10, 90, 464, 5},
    {IDC_LOWER_BORDER, IDC_PANEL_STATIC, 10, 278, 464, 5},
    {IDC_RIGHT_BORDER, IDC_PANEL_STATIC, 370, 90, 5, 192},
    {IDC_TOTALS_LABEL, IDC_PANEL_STATIC, 10, 316, 200, 20},
    // Buttons; of each pair, the choice in force can't be pressed.
    {IDC_LANGUAGE_ENGLISH, IDC_LANGUAGE_LABEL, 115, 0, 74, 22, true, false},
    {IDC_LANGUAGE_CHINESE, IDC_LANGUAGE_LABEL, 192, 0, 74, 22},
    {IDC_DIRECTION_IN, IDC_DIRECTION_LABEL, 115, 0, 74, 22, true, false},
    {IDC_DIRECTION_OUT, IDC_DIRECTION_LABEL, 192, 0, 74, 22},
    {IDC_SD_DETECT_YES, IDC_SD_DETECT_LABEL, 115, 0, 74, 22},
    {IDC_SD_DETECT_NO, IDC_SD_DETECT_LABEL, 192, 0, 74, 22, true, false},
    {IDC_START, IDC_PANEL_STATIC, 378, 30, 74, 22},
    {IDC_CLEAR, IDC_PANEL_STATIC, 378, 60, 74, 22},
    {IDC_UPDATE, IDC_PANEL_STATIC, 384, 252, 74, 22},
    {IDC_PORT, IDC_PANEL_STATIC, 384, 290, 74, 22},
    {IDC_TOP_BAR, IDC_PANEL_STATIC, 9, 0, 465, 26},
    {ID_HELP_MENU, IDC_TOP_BAR, 11, 3, 21, 20},
    {ID_LANGUAGE_MENU, IDC_TOP_BAR, 32, 3, 21, 20},
    {ID_PORT_MENU, IDC_TOP_BAR, 53, 3, 21, 20},
};

BOOL CALLBACK CountChild(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

TEST_F(SystemTest, EveryControlStandsInItsPlaceInBothLanguages) {
    for (const DWORD language : {0, 1}) {
        SCOPED_TRACE(language == 0 ? "English" : "Chinese");
        Store("Language", language);
        StartProgram();
        for (const auto& [id, parent, x, y, width, height, visible, enabled] : places) {
            const HWND control = program.Control(id);
            const HWND holder = parent == onPanel ? program.Panel() : program.Control(parent);
            EXPECT_EQ(::GetAncestor(control, GA_PARENT), holder) << id;
            RECT place{};
            ::GetWindowRect(control, &place);
            ::MapWindowPoints(nullptr, holder, reinterpret_cast<POINT*>(&place), 2);
            EXPECT_TRUE(place.left == x && place.top == y && place.right == x + width && place.bottom == y + height)
                << id << " is at " << place.left << ", " << place.top << ", " << place.right - place.left << " by "
                << place.bottom - place.top;
            EXPECT_EQ(program.IsVisible(id), visible) << id;
            EXPECT_EQ(program.IsEnabled(id), enabled) << id;
        }
        int children = 0;
        ::EnumChildWindows(program.Panel(), &CountChild, reinterpret_cast<LPARAM>(&children));
        EXPECT_EQ(children, std::ssize(places) + 1); // the picker's own arrows
        RECT client{};
        ::GetClientRect(program.Frame(), &client);
        EXPECT_TRUE(client.right == 480 && client.bottom == 346) << client.right << " by " << client.bottom;
        EXPECT_EQ(program.Close(), 0U);
    }
}

} // namespace
