// The COM Setting dialog, used by its controls and keys, in both languages.
#include "serial/ComSettingDlg.h"

#include <set>

#include <gtest/gtest.h>

#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "support/Meanwhile.h"

namespace {

const PortSettings odd{3, 1200, 'O', 7, 2};

// "COM1 COM2": the rows of a list.
std::string RowsOf(HWND combo) {
    std::string rows;
    for (LRESULT row = 0; row < ::SendMessageA(combo, CB_GETCOUNT, 0, 0); ++row) {
        char entry[64]{};
        ::SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(entry));
        rows += (row == 0 ? "" : " ") + std::string(entry);
    }
    return rows;
}

constexpr int controls[] = {IDC_COM_SETTING_PORT, IDC_COM_SETTING_BAUD, IDC_COM_SETTING_STOP_BITS,
                            IDC_COM_SETTING_DATA_BITS, IDC_COM_SETTING_PARITY};

} // namespace

TEST(ComSettingDlg, OffersItsListsInTheirOrderInBothLanguages) {
    const HMODULE chinese =
        ::LoadLibraryExA((ProgramFolder() + "..\\bin\\QuorvaneZHCN.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(chinese, nullptr);
    const struct {
        HINSTANCE module;
        const char *title, *confirm;
    } languages[] = {{ProgramModule(), "COM Setting", "OK"},
                     {chinese, "\xE4\xB8\xB2\xE5\x8F\xA3\xE8\xAE\xBE\xE7\xBD\xAE", "\xE7\xA1\xAE\xE5\xAE\x9A"}};
    const char* const lists[] = {" COM1 COM2 COM4 COM99 COM256",
                                 "256000 128000 115200 57600 56000 38400 9600 4800 1200 2400", "1 2", "8 7 6",
                                 "NONE ODD EVEN"};
    const char* const fields[] = {"COM3", "1200", "2", "7", "ODD"}; // COM3 is held, and stands all the same
    for (const auto& language : languages) {
        SetResourceModule(language.module);
        CComSettingDlg dialog([](const std::string& name) {
            return std::set<std::string>{"COM1", "COM2", "COM4", "COM99", "COM256"}.contains(name);
        });
        dialog.SetValues(odd);
        CMeanwhile used([&] {
            const HWND shown = ShownDialog();
            if (shown == nullptr) return false;
            EXPECT_EQ(dialog.GetWindowText(), language.title);
            EXPECT_EQ(dialog.GetDlgItemText(IDC_COM_SETTING_OK), language.confirm);
            for (int at = 0; at < 5; ++at) {
                EXPECT_EQ(RowsOf(::GetDlgItem(shown, controls[at])), lists[at]);
                EXPECT_EQ(dialog.GetDlgItemText(controls[at]), fields[at]);
            }
            ::PostMessageA(::GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
            return true;
        });
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
    SetResourceModule(ProgramModule());
    ::FreeLibrary(chinese);
}

TEST(ComSettingDlg, OnlyItsOkButtonConfirms) {
    CComSettingDlg dialog([](const std::string& name) { return name == "COM5"; });
    EXPECT_EQ(dialog.GetValues(), PortSettings());
    // A button that is clicked, a key, or the close box; the same dialog again and again.
    const struct {
        int button;
        WPARAM key;
        bool confirmed;
    } rows[] = {{IDC_COM_SETTING_OK, 0, true}, {IDC_COM_SETTING_CANCEL, 0, false},
                {IDC_COM_SETTING_OK, 0, true}, {0, VK_RETURN, false},
                {0, VK_ESCAPE, false},         {0, 0, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.button << ' ' << row.key);
        dialog.SetValues(odd);
        CMeanwhile used([&] {
            const HWND shown = ShownDialog();
            if (shown == nullptr) return false;
            EXPECT_TRUE(::IsChild(::GetDlgItem(shown, IDC_COM_SETTING_PORT), ::GetFocus()));
            const char* const typed[] = {"", "", "1", "five", ""};
            for (int at = 0; at < 5; ++at) ::SetDlgItemTextA(shown, controls[at], typed[at]);
            ::SendDlgItemMessageA(shown, IDC_COM_SETTING_PORT, CB_SETCURSEL, 1, 0);
            ::SendDlgItemMessageA(shown, IDC_COM_SETTING_BAUD, CB_SETCURSEL, 6, 0);
            if (row.button != 0) ::PostMessageA(::GetDlgItem(shown, row.button), BM_CLICK, 0, 0);
            if (row.key != 0) ::PostMessageA(::GetFocus(), WM_KEYDOWN, row.key, 1);
            if (row.button == 0 && row.key == 0) ::PostMessageA(shown, WM_CLOSE, 0, 0);
            return true;
        });
        dialog.DoModal();
        EXPECT_EQ(dialog.IsConfirmed(), row.confirmed);
        EXPECT_EQ(dialog.GetValues(), row.confirmed ? (PortSettings{5, 9600, '\0', 0, 1}) : odd);
    }
}
