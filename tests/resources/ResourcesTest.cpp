// Both languages have the same resources, which differ in their words alone, and every text fits into its dialog.
#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include <commctrl.h>

#include "dialogs/AboutDlg.h"
#include "dialogs/ComSettingDlg.h"
#include "dialogs/MessageDlg.h"
#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "framework/Text.h"
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
        ::InitCommonControlsEx(&classes);
        ::SetCurrentDirectoryA(ProductFolder().c_str());
        if (GetParam()) SetResourceModule(ChineseLibrary());
    }
    ~Resources() override { SetResourceModule(nullptr); }
    void SetUp() override { ASSERT_NE(ChineseLibrary(), nullptr) << "no QuorvaneZHCN.dll"; }
};

INSTANTIATE_TEST_SUITE_P(Languages, Resources, testing::Bool());

// What is the same in both languages: the numbers, the controls with their styles, their places where code counts on
// those, and the rows of lists.
std::string CommonPart(HMODULE module) {
    static std::string seen;
    struct CSee {
        static BOOL CALLBACK Resource(HMODULE from, const char* type, char* name, LONG_PTR) {
            const auto number = static_cast<unsigned>(reinterpret_cast<UINT_PTR>(name));
            seen += FormatText("\nresource %u ", number);
            if (type != RT_DIALOG) {
                const HRSRC found = ::FindResourceA(from, name, type);
                const auto* const bytes = static_cast<const char*>(::LockResource(::LoadResource(from, found)));
                seen.append(bytes, ::SizeofResource(from, found));
                return TRUE;
            }
            CWnd host;
            host.Create("STATIC", "", WS_OVERLAPPEDWINDOW, {0, 0, 600, 500}, nullptr, 0);
            const HWND dialog = ::CreateDialogParamA(from, name, host.GetHandle(), &Nothing, 0);
            Window(dialog, 0);
            ::EnumChildWindows(dialog, &Window, number != IDD_ABOUT && number != IDD_COM_SETTING);
            return TRUE;
        }
        static BOOL CALLBACK Window(HWND window, LPARAM withPlace) {
            char name[32]{};
            ::GetClassNameA(window, name, sizeof name);
            const std::string place = withPlace != 0 ? PlaceText(window) : "";
            seen += FormatText("\n%d %s %lx %lx ", ::GetDlgCtrlID(window), name, ::GetWindowLongA(window, GWL_STYLE),
                               ::GetWindowLongA(window, GWL_EXSTYLE)) +
                    place;
            return TRUE;
        }
        static INT_PTR CALLBACK Nothing(HWND, UINT, WPARAM, LPARAM) { return FALSE; }
    };
    seen.clear();
    constexpr UINT_PTR initLists = 240;
    for (const char* type : {RT_DIALOG, RT_GROUP_ICON, MAKEINTRESOURCEA(initLists)})
        ::EnumResourceNamesA(module, type, &CSee::Resource, 0);
    return seen;
}

TEST(ResourceLanguages, DifferInTheirWordsAlone) {
    EXPECT_EQ(CommonPart(ChineseLibrary()), CommonPart(ProgramModule()));
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
