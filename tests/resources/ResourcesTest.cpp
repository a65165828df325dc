// Both languages have the same texts in other words, and every text fits into its dialog.
#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "dialogs/AboutDlg.h"
#include "dialogs/ComSettingDlg.h"
#include "dialogs/MessageDlg.h"
#include "framework/CommonControls.h"
#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "panel/ResultText.h"
#include "resources/ResourceIds.h"
#include "support/Meanwhile.h"

namespace {

std::string ProductFolder() {
    const std::string tests = ProgramFolder();
    return tests.substr(0, tests.rfind('\\', tests.size() - 2) + 1) + "bin\\";
}

HMODULE ChineseLibrary() {
    static const HMODULE library = ::LoadLibraryA((ProductFolder() + "QuorvaneZHCN.dll").c_str());
    return library;
}

// Each test runs in English and in Chinese, from the folder from which the theme is loaded.
class Resources : public testing::TestWithParam<bool> {
protected:
    Resources() {
        const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
        SystemCommonControls().initialise(&classes);
        ::SetCurrentDirectoryA(ProductFolder().c_str());
        if (GetParam()) SetResourceModule(ChineseLibrary());
    }
    ~Resources() override { SetResourceModule(nullptr); }
    void SetUp() override { ASSERT_NE(ChineseLibrary(), nullptr) << "no QuorvaneZHCN.dll"; }
};

INSTANTIATE_TEST_SUITE_P(Languages, Resources, testing::Bool());

TEST(ResourceLanguages, DifferInTheirWordsAlone) {
    const std::set<UINT> names{IDS_COM, IDS_MENU_ENGLISH, IDS_ENGLISH, IDS_TX, IDS_RX}; // read the same in both
    const auto shape = [](const std::string& text) { // blanks, since texts are joined to others, and marks
        return std::tuple(text.find_first_not_of(' '), text.size() - text.find_last_not_of(' '),
                          std::ranges::count(text, '&'), std::ranges::count(text, '%'));
    };
    for (UINT id = 1; id < 0x10000; ++id) {
        SetResourceModule(nullptr);
        const std::string text = LoadText(id);
        SetResourceModule(ChineseLibrary());
        EXPECT_EQ(shape(LoadText(id)), shape(text)) << text;
        EXPECT_EQ(LoadText(id) == text, text.empty() || names.contains(id)) << text;
    }
    EXPECT_NE(LoadText(IDS_RX), "");
    SetResourceModule(nullptr);
}

// Of the labels and buttons that are seen.
void ExpectDialogFits(CDialog& dialog, int texts) {
    const CMeanwhile meanwhile([&] {
        if (!dialog.IsWindowVisible()) return false;
        int measured = 0;
        FindBelow(dialog.GetHandle(), [&](HWND control) {
            const std::string text = TextOf(control);
            if ((!IsOfClass(control, "Static") && !IsOfClass(control, "Button")) || text.empty()) return false;
            if (!::IsWindowVisible(control)) return false;
            const CClientDC dc(control);
            const LRESULT own = ::SendMessageA(control, WM_GETFONT, 0, 0);
            const LRESULT font = own != 0 ? own : ::SendMessageA(dialog.GetHandle(), WM_GETFONT, 0, 0);
            const CSelectObject selected(dc, reinterpret_cast<HFONT>(font));
            const CSize size = dc.GetTextExtent(text);
            RECT client{};
            ::GetClientRect(control, &client);
            const int margin = ::GetDlgCtrlID(control) == IDC_MESSAGE_TEXT ? 10 : 0;
            EXPECT_TRUE(size.cx <= client.right - margin && size.cy <= client.bottom) << text;
            ++measured;
            return false;
        });
        EXPECT_EQ(measured, texts);
        dialog.SendMessage(WM_COMMAND, IDCANCEL);
        return true;
    });
    dialog.DoModal();
}

TEST_P(Resources, TextsFitInEveryDialog) {
    std::vector<std::string> texts;
    for (const UINT id : {IDS_NO_RESPONSE, IDS_ADDRESS_DONE, IDS_ADDRESS_FAILED, IDS_LANGUAGE_SET})
        texts.push_back(LoadText(id));
    for (const UINT done : {IDS_CLEAR_DONE, IDS_WRITE_DONE, IDS_CLOCK_DONE}) {
        const ResultPhrases phrases{LoadText(IDS_DEVICE), LoadText(done), LoadText(done + 1)};
        const std::string few = phrases.device + " 0", many = phrases.device + " 0, 1, 2, 3, 4";
        texts.push_back(ResultText{many, few}.Join(phrases));
    }
    for (const std::string& text : texts) {
        CMessageDlg message;
        message.text = text;
        message.style = 1; // Cancel can be seen too
        ExpectDialogFits(message, 3);
    }
    CAboutDlg about;
    ExpectDialogFits(about, 5);
    CComSettingDlg setting([](const std::string&) { return false; });
    setting.SetValues({255, 256000, 'N', 8, 1});
    ExpectDialogFits(setting, 5 + 2);
}

} // namespace
