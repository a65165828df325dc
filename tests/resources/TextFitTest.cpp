// Every text of both languages fits into its control, in the font that draws it. What the program shows is measured in
// its own windows; texts that come up only in use are measured in the control that takes them.
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "ChineseLibrary.h"
#include "framework/Dc.h"
#include "panel/CounterPanel.h"
#include "panel/ResultText.h"
#include "resources/ResourceIds.h"
#include "serial/ComSettingDlg.h"
#include "serial/CommPort.h"
#include "shell/AboutDlg.h"
#include "shell/MessageDlg.h"
#include "shell/ScreenReader.h"

namespace {

std::string ClassOf(HWND window) {
    char name[32]{};
    ::GetClassNameA(window, name, sizeof name);
    return name;
}

HFONT FontOf(HWND window) {
    LRESULT font = 0;
    for (; font == 0 && window != nullptr; window = ::GetParent(window))
        font = ::SendMessageA(window, WM_GETFONT, 0, 0);
    return reinterpret_cast<HFONT>(font);
}

void ExpectFits(HWND control, const std::string& text, LONG usedByOthers) {
    const CClientDC dc(control);
    const CSelectObject font(dc, FontOf(control));
    const CSize size = dc.GetTextExtent(text);
    RECT client{};
    ::GetClientRect(control, &client);
    EXPECT_LE(size.cx, client.right - usedByOthers) << "\"" << text << "\" in control " << ::GetDlgCtrlID(control);
    EXPECT_LE(size.cy, client.bottom) << "\"" << text << "\" in control " << ::GetDlgCtrlID(control);
}

// Pixels of a control's width that its text can't have: what is left of the caption, and what stands on it.
LONG UsedByOthers(int id) {
    switch (id) {
    case IDC_DATE_LABEL:
    case IDC_LANGUAGE_LABEL:
    case IDC_SENSITIVITY_LABEL:
    case IDC_DIRECTION_LABEL:
    case IDC_SD_DETECT_LABEL:
    case IDC_SD_PERIOD_LABEL:
    case IDC_ADDRESS_LABEL:
        return 10 + 340 - (136 - 24); // the values begin at 136, the label at 24
    case IDC_IN_LABEL:
    case IDC_OUT_LABEL:
        return 5;
    case IDC_MESSAGE_TEXT:
        return 10;
    default:
        return 0;
    }
}

// On the panel (control numbers are unique within one dialog only): the displays draw figures of their own, the others
// show a picture alone, or nothing yet.
bool ShowsItsText(HWND control) {
    static const std::set<int> pictures{IDC_PANEL_STATIC, IDC_TOP_BAR,    IDC_UPPER_BORDER, IDC_LOWER_BORDER,
                                        IDC_RIGHT_BORDER, IDC_IN_DISPLAY, IDC_OUT_DISPLAY,  IDC_TOTALS_LABEL};
    const std::string kind = ClassOf(control);
    return (kind == "Static" || kind == "Button") && ::IsWindowVisible(control) != FALSE &&
           !(ClassOf(::GetAncestor(control, GA_ROOT)) == "Static" && pictures.contains(::GetDlgCtrlID(control)));
}

BOOL CALLBACK ExpectTextFits(HWND control, LPARAM measured) {
    const std::string text = TextOf(control);
    if (text.empty() || !ShowsItsText(control)) return TRUE;
    ++*reinterpret_cast<int*>(measured);
    ExpectFits(control, text, UsedByOthers(::GetDlgCtrlID(control)));
    return TRUE;
}

int ExpectTextsFit(HWND window) {
    int measured = 0;
    ::EnumChildWindows(window, &ExpectTextFits, reinterpret_cast<LPARAM>(&measured));
    return measured;
}

bool ShowsBlue(HWND link) {
    const CClientDC dc(link);
    RECT client{};
    ::GetClientRect(link, &client);
    for (int x = 0; x < client.right; ++x) {
        for (int y = 0; y < client.bottom; ++y) {
            const COLORREF pixel = ::GetPixel(dc.GetHandle(), x, y);
            if (GetBValue(pixel) > GetRValue(pixel) + 100) return true;
        }
    }
    return false;
}

// Each test runs in English and in Chinese.
class TextFit : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
        ::InitCommonControlsEx(&classes);
        ::GetCurrentDirectoryA(sizeof formerFolder, formerFolder);
        ::SetCurrentDirectoryA(ProductFolder().c_str()); // from which the theme is loaded
        if (GetParam()) {
            ASSERT_NE(ChineseLibrary(), nullptr) << "no QuorvaneZHCN.dll";
            SetResourceModule(ChineseLibrary());
        }
    }
    void TearDown() override {
        SetResourceModule(nullptr);
        ::SetCurrentDirectoryA(formerFolder);
    }

    // Looks at a modal dialog once it stands, and leaves it.
    static void Look(CDialog& dialog, const std::function<void(HWND)>& look) {
        shown = &dialog;
        visit = &look;
        visits = 0;
        const UINT_PTR timer = ::SetTimer(nullptr, 0, 5, &OnTimer);
        dialog.DoModal();
        ::KillTimer(nullptr, timer);
        EXPECT_GE(visits, 1);
    }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        const HWND window = shown->GetHandle();
        if (window == nullptr || ::IsWindowVisible(window) == FALSE || visits++ > 0) return;
        (*visit)(window);
        ::SendMessageA(window, WM_COMMAND, IDCANCEL, 0);
    }

    char formerFolder[MAX_PATH]{};
    static inline CDialog* shown = nullptr;
    static inline const std::function<void(HWND)>* visit = nullptr;
    static inline int visits = 0;
};

INSTANTIATE_TEST_SUITE_P(Languages, TextFit, testing::Bool(),
                         [](const auto& row) { return row.param ? "Chinese" : "English"; });

TEST_P(TextFit, OnThePanel) {
    CWnd host;
    host.Create("STATIC", "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 500, 400}, nullptr, 0);
    CCounterPanel panel;
    ASSERT_TRUE(panel.Create(host));
    panel.ShowWindow(SW_SHOW);
    const auto control = [&](int id) { return FindControl(panel.GetHandle(), id); };
    EXPECT_EQ(ExpectTextsFit(panel.GetHandle()), 9 + 10) << "labels and buttons";
    for (const auto& [id, text] : {std::pair{IDC_START, IDS_STOP}, std::pair{IDC_PORT, IDS_CLOSE_COM}})
        ExpectFits(control(id), LoadText(static_cast<UINT>(text)), 0);
    ExpectFits(control(IDC_TOTALS_LABEL), LoadText(IDS_TX) + "999999    " + LoadText(IDS_RX) + "999999", 10);
    RECT arrows{};
    ::GetClientRect(::GetWindow(control(IDC_DATE_PICKER), GW_CHILD), &arrows);
    ExpectFits(control(IDC_DATE_PICKER), "2099-12-28 20:58:58", arrows.right);
    for (const int id : {IDC_SENSITIVITY_EDIT, IDC_SD_PERIOD_EDIT, IDC_ADDRESS_EDIT}) ExpectFits(control(id), "255", 4);
    CCommPort::Instance()->SetTap(nullptr);
}

TEST_P(TextFit, InEveryMessage) {
    std::vector<std::string> texts;
    for (const UINT id : {IDS_NO_RESPONSE, IDS_ADDRESS_DONE, IDS_ADDRESS_FAILED, IDS_LANGUAGE_SET})
        texts.push_back(LoadText(id));
    for (const auto& [done, failed] :
         {std::pair{IDS_CLEAR_DONE, IDS_CLEAR_FAILED}, std::pair{IDS_WRITE_DONE, IDS_WRITE_FAILED},
          std::pair{IDS_CLOCK_DONE, IDS_CLOCK_FAILED}}) {
        const ResultPhrases phrases{LoadText(IDS_DEVICE), LoadText(static_cast<UINT>(done)),
                                    LoadText(static_cast<UINT>(failed))};
        const std::string few = phrases.device + " 0", many = phrases.device + " 0, 1, 2, 3, 4";
        for (const ResultText& result : {ResultText{few, ""}, ResultText{"", few}, ResultText{many, few}})
            texts.push_back(result.Join(phrases));
    }
    for (const std::string& text : texts) {
        CMessageDlg message;
        message.text = text;
        message.style = 1; // Cancel can be seen too
        Look(message, [](HWND dialog) { EXPECT_EQ(ExpectTextsFit(dialog), 3); });
    }
}

TEST_P(TextFit, InAbout) {
    CAboutDlg about;
    Look(about, [](HWND dialog) {
        EXPECT_EQ(ExpectTextsFit(dialog), 5);
        // The links lie on the panel, which must not be painted over them.
        for (const int id : {IDC_ABOUT_WEB_LINK, IDC_ABOUT_MAIL_LINK})
            EXPECT_TRUE(ShowsBlue(::GetDlgItem(dialog, id))) << TextOf(::GetDlgItem(dialog, id)) << " can't be seen";
    });
}

TEST_P(TextFit, InComSetting) {
    CComSettingDlg setting([](const std::string&) { return false; });
    setting.SetValues({255, 256000, 'N', 8, 1});
    Look(setting, [](HWND dialog) {
        EXPECT_EQ(ExpectTextsFit(dialog), 5 + 2) << "labels and buttons";
        if (!GetParam()) return; // the English fields scroll the longest of these
        for (int id = IDC_COM_SETTING_PORT; id <= IDC_COM_SETTING_PARITY; ++id) {
            const HWND edit = ::GetWindow(::GetDlgItem(dialog, id), GW_CHILD);
            if (edit != nullptr && ClassOf(edit) == "Edit") ExpectFits(edit, TextOf(edit), 0);
        }
    });
}

} // namespace
