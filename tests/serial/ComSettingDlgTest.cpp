// The COM Setting dialog, used by its controls and keys, in both languages; and the line that follows it.
#include "serial/ComSettingDlg.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "SimulatedPlatform.h"
#include "TapRecorder.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"
#include "serial/PortSelection.h"

namespace {

// Runs `script` once it has begun; the script's last act leaves it.
class CUsedDlg : public CComSettingDlg {
public:
    CUsedDlg(const std::set<std::string>& ports, std::function<void(CUsedDlg&)> steps)
        : CComSettingDlg([ports](const std::string& name) { return ports.contains(name); }), script(std::move(steps)) {}

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER) {
            KillTimer(1);
            script(*this);
        }
        return CComSettingDlg::WindowProc(message, wParam, lParam);
    }

    std::vector<std::string> Rows(int id) const {
        const HWND combo = GetDlgItem(id);
        std::vector<std::string> rows;
        for (LRESULT row = 0; row < ::SendMessageA(combo, CB_GETCOUNT, 0, 0); ++row) {
            char entry[64]{};
            ::SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(entry));
            rows.emplace_back(entry);
        }
        return rows;
    }
    std::vector<std::string> Fields() const {
        std::vector<std::string> fields;
        for (const int id : {IDC_COM_SETTING_PORT, IDC_COM_SETTING_BAUD, IDC_COM_SETTING_STOP_BITS,
                             IDC_COM_SETTING_DATA_BITS, IDC_COM_SETTING_PARITY})
            fields.push_back(GetDlgItemText(id));
        return fields;
    }
    void Choose(int id, int row) const { ::SendMessageA(GetDlgItem(id), CB_SETCURSEL, static_cast<WPARAM>(row), 0); }
    void Click(int id) const { ::PostMessageA(GetDlgItem(id), BM_CLICK, 0, 0); }
    static void Press(WPARAM key) { ::PostMessageA(::GetFocus(), WM_KEYDOWN, key, 1); }

protected:
    bool OnInitDialog() override {
        SetTimer(1, 1);
        return CComSettingDlg::OnInitDialog();
    }

private:
    std::function<void(CUsedDlg&)> script;
};

using Rows = std::vector<std::string>;

const PortSettings odd{3, 1200, 'O', 7, 2};

// A driver that knows two ports only, each for one holder.
class CTwoPorts : public CSimulatedPlatform {
public:
    HANDLE CreateFileA(const char* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD disposition,
                       DWORD flags, HANDLE model) override {
        if (std::string(name) != "COM3" && std::string(name) != "COM5")
            return ::SetLastError(ERROR_FILE_NOT_FOUND), INVALID_HANDLE_VALUE;
        return CSimulatedPlatform::CreateFileA(name, access, share, security, disposition, flags, model);
    }
};

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
    std::set<std::string> ports;
    Rows listed{""};
    for (const int number : {1, 2, 4, 5, 6, 7, 8, 99, 255, 256}) {
        ports.insert(PortName(number));
        listed.push_back(PortName(number));
    }
    for (const auto& language : languages) {
        SetResourceModule(language.module);
        CUsedDlg dialog(ports, [&](CUsedDlg& shown) {
            EXPECT_EQ(shown.GetWindowText(), language.title);
            EXPECT_EQ(shown.GetDlgItemText(IDC_COM_SETTING_OK), language.confirm);
            EXPECT_EQ(shown.GetClientRect().Size(), CSize(306, 132));
            EXPECT_EQ(shown.Rows(IDC_COM_SETTING_PORT), listed);
            EXPECT_EQ(shown.Rows(IDC_COM_SETTING_BAUD),
                      (Rows{"256000", "128000", "115200", "57600", "56000", "38400", "9600", "4800", "1200", "2400"}));
            EXPECT_EQ(shown.Rows(IDC_COM_SETTING_DATA_BITS), (Rows{"8", "7", "6"}));
            EXPECT_EQ(shown.Rows(IDC_COM_SETTING_STOP_BITS), (Rows{"1", "2"}));
            EXPECT_EQ(shown.Rows(IDC_COM_SETTING_PARITY), (Rows{"NONE", "ODD", "EVEN"}));
            EXPECT_EQ(shown.Fields(), (Rows{"COM3", "1200", "2", "7", "ODD"}))
                << "COM3 is held, and stands all the same";
            CUsedDlg::Press(VK_ESCAPE);
        });
        dialog.SetValues(odd);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
    SetResourceModule(ProgramModule());
    ::FreeLibrary(chinese);
}

TEST(ComSettingDlg, OnlyItsOkButtonConfirms) {
    const struct {
        const char* way;
        void (*leave)(CUsedDlg&);
        bool confirmed;
    } rows[] = {{"OK", [](CUsedDlg& shown) { shown.Click(IDC_COM_SETTING_OK); }, true},
                {"Cancel", [](CUsedDlg& shown) { shown.Click(IDC_COM_SETTING_CANCEL); }, false},
                {"Enter", [](CUsedDlg&) { CUsedDlg::Press(VK_RETURN); }, false},
                {"Escape", [](CUsedDlg&) { CUsedDlg::Press(VK_ESCAPE); }, false},
                {"close box", [](CUsedDlg& shown) { shown.PostMessage(WM_CLOSE); }, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.way);
        CUsedDlg dialog({"COM5"}, [&](CUsedDlg& shown) {
            EXPECT_TRUE(::IsChild(shown.GetDlgItem(IDC_COM_SETTING_PORT), ::GetFocus()));
            shown.Choose(IDC_COM_SETTING_PORT, 1);
            shown.Choose(IDC_COM_SETTING_BAUD, 6);
            shown.Choose(IDC_COM_SETTING_STOP_BITS, 0);
            shown.SetDlgItemText(IDC_COM_SETTING_DATA_BITS, "five");
            shown.SetDlgItemText(IDC_COM_SETTING_PARITY, "");
            row.leave(shown);
        });
        dialog.SetValues(odd);
        dialog.DoModal();
        EXPECT_EQ(dialog.IsConfirmed(), row.confirmed);
        EXPECT_EQ(dialog.GetValues(), row.confirmed ? (PortSettings{5, 9600, '\0', 0, 1}) : odd);
    }
}

TEST(MoveLine, TheLiveLineFollows) {
    // What the tap is told, and the line afterwards: its path, empty where none is open, and what the DCB holds.
    const PortSettings from{3, 4800, 'N', 8, 1};
    const struct {
        const char* name;
        bool open;
        PortSettings to;
        bool moved;
        const char *reported, *path;
        DWORD speed;
        int parity, stopBits, opened;
    } rows[] = {{"other speed", true, {3, 9600, 'N', 8, 1}, false, "", "COM3", 9600, 0, 0, 0},
                {"other frame", true, {3, 4800, 'E', 7, 2}, false, "", "COM3", 4800, 2, 2, 0},
                {"other port", true, {5, 9600, 'O', 8, 1}, true, "closed", "COM5", 9600, 1, 0, 1},
                {"missing port", true, {9, 9600, 'O', 8, 1}, true, "closed", "", 0, 0, 0, 0},
                {"closed, other speed", false, {3, 9600, 'N', 8, 1}, false, "", "", 0, 0, 0, 0},
                {"closed, other port", false, {5, 9600, 'N', 8, 2}, true, "", "COM5", 9600, 0, 2, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CTwoPorts platform;
        CTapRecorder tap;
        CCommPort port(platform);
        port.SetTap(&tap);
        if (row.open) {
            EXPECT_TRUE(OpenSelectedPort(port, from));
        }
        platform.openings = 0;
        EXPECT_EQ(MoveLine(port, from, row.to), row.moved);
        EXPECT_EQ(tap.Take(), row.reported);
        EXPECT_EQ(platform.openings, row.opened);
        ASSERT_EQ(port.IsOpen(), *row.path != '\0');
        if (!port.IsOpen()) continue;
        EXPECT_EQ(platform.path, row.path);
        EXPECT_EQ(platform.state.BaudRate, row.speed);
        EXPECT_EQ(platform.state.ByteSize, row.to.dataBits);
        EXPECT_EQ(platform.state.Parity, row.parity);
        EXPECT_EQ(platform.state.StopBits, row.stopBits);
    }
}
