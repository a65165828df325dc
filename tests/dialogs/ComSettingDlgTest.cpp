// The COM Setting dialog, used by its controls and keys.
#include "dialogs/ComSettingDlg.h"

#include <gtest/gtest.h>

#include "resources/ResourceIds.h"
#include "support/Meanwhile.h"

// "COM3: COM1 COM2 ": what stands in a combo box, and the rows of its list.
static std::string RowsOf(HWND combo) {
    std::string rows = TextOf(combo) + ": ";
    char entry[64]{};
    for (WPARAM row = 0; ::SendMessageA(combo, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(entry)) != CB_ERR; ++row)
        rows += entry + std::string(" ");
    return rows;
}

TEST(ComSettingDlg, OffersItsListsAndOnlyItsOkButtonConfirms) {
    const std::tuple<int, const char*, const char*> controls[] = {
        {IDC_COM_SETTING_PORT, "COM3:  COM1 COM2 COM99 COM256 ", "COM5"}, // COM3 is held, and stands all the same
        {IDC_COM_SETTING_BAUD, "1200: 256000 128000 115200 57600 56000 38400 9600 4800 1200 2400 ", "9600"},
        {IDC_COM_SETTING_STOP_BITS, "2: 1 2 ", "1"},
        {IDC_COM_SETTING_DATA_BITS, "7: 8 7 6 ", "five"},
        {IDC_COM_SETTING_PARITY, "ODD: NONE ODD EVEN ", ""}};
    const PortSettings odd{3, 1200, 'O', 7, 2};
    CComSettingDlg dialog(
        [](const std::string& name) { return std::string(" COM1 COM2 COM99 COM256 ").find(' ' + name + ' ') < 99; });
    EXPECT_EQ(dialog.GetValues(), PortSettings());
    // A button that is clicked, a key, or the close box; the same dialog again and again.
    const std::pair<int, int> ways[] = {{IDC_COM_SETTING_OK, 0}, {IDC_COM_SETTING_CANCEL, 0},
                                        {IDC_COM_SETTING_OK, 0}, {0, VK_RETURN},
                                        {0, VK_ESCAPE},          {0, 0}};
    for (const auto& [button, key] : ways) {
        SCOPED_TRACE(testing::Message() << button << ' ' << key);
        dialog.SetValues(odd);
        CMeanwhile used([&, chosen = button, pressed = static_cast<WPARAM>(key)] {
            const HWND shown = ShownDialog();
            if (shown == nullptr) return false;
            EXPECT_TRUE(::IsChild(::GetDlgItem(shown, IDC_COM_SETTING_PORT), ::GetFocus()));
            for (const auto& [id, rows, typed] : controls) {
                EXPECT_EQ(RowsOf(::GetDlgItem(shown, id)), rows);
                ::SetDlgItemTextA(shown, id, typed);
            }
            if (chosen != 0) ::PostMessageA(::GetDlgItem(shown, chosen), BM_CLICK, 0, 0);
            if (chosen == 0) ::PostMessageA(::GetFocus(), pressed == 0 ? WM_NULL : WM_KEYDOWN, pressed, 1);
            if (chosen == 0 && pressed == 0) ::PostMessageA(shown, WM_CLOSE, 0, 0);
            return true;
        });
        dialog.DoModal();
        EXPECT_EQ(dialog.IsConfirmed(), button == IDC_COM_SETTING_OK);
        EXPECT_EQ(dialog.GetValues(), button == IDC_COM_SETTING_OK ? (PortSettings{5, 9600, '\0', 0, 1}) : odd);
    }
}
