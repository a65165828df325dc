// The Chinese library against the English resources: the same resources under the same numbers, the same controls, the
// same pixels where the program counts on them. A change of one language alone fails here.
#include <algorithm>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "ChineseLibrary.h"
#include "framework/Text.h"
#include "resources/ResourceIds.h"

namespace {

const char* const initLists = MAKEINTRESOURCEA(240);

class ResourceTwins : public testing::Test {
protected:
    ResourceTwins() {
        INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
        ::InitCommonControlsEx(&classes);
    }
    void SetUp() override { ASSERT_NE(chinese, nullptr) << "no QuorvaneZHCN.dll"; }

    const HMODULE english = ProgramModule();
    const HMODULE chinese = ChineseLibrary();
};

using Numbers = std::set<std::uintptr_t>;

BOOL CALLBACK AddNumber(HMODULE, const char*, char* name, LONG_PTR numbers) {
    reinterpret_cast<Numbers*>(numbers)->insert(reinterpret_cast<std::uintptr_t>(name));
    return TRUE;
}

Numbers NumbersOf(HMODULE module, const char* type) {
    Numbers numbers;
    ::EnumResourceNamesA(module, type, &AddNumber, reinterpret_cast<LONG_PTR>(&numbers));
    return numbers;
}

std::map<UINT, std::string> StringsOf(HMODULE module) {
    std::map<UINT, std::string> strings;
    for (const std::uintptr_t block : NumbersOf(module, RT_STRING)) {
        for (UINT id = static_cast<UINT>(block - 1) * 16, end = id + 16; id < end; ++id) {
            const wchar_t* text = nullptr;
            const int length = ::LoadStringW(module, id, reinterpret_cast<wchar_t*>(&text), 0);
            if (length > 0) strings[id] = ToNarrow({text, static_cast<std::size_t>(length)});
        }
    }
    return strings;
}

std::string BytesOf(HMODULE module, std::uintptr_t number, const char* type) {
    const HRSRC found = ::FindResourceA(module, reinterpret_cast<const char*>(number), type);
    const auto* bytes = static_cast<const char*>(::LockResource(::LoadResource(module, found)));
    return {bytes, ::SizeofResource(module, found)};
}

INT_PTR CALLBACK LeaveAlone(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

struct Item {
    std::string kind; // number, class, styles
    RECT place{};     // in the dialog's client area
};

// A dialog as the platform makes it from its template: itself first, then its controls from the top one down.
class CBareDialog {
public:
    CBareDialog(HMODULE module, std::uintptr_t number)
        : window(::CreateDialogParamA(module, reinterpret_cast<const char*>(number), host, &LeaveAlone, 0)) {}
    CBareDialog(const CBareDialog&) = delete;
    CBareDialog& operator=(const CBareDialog&) = delete;
    ~CBareDialog() { ::DestroyWindow(host); }

    std::vector<Item> Items() const {
        std::vector<Item> items;
        if (window != nullptr) items.push_back({KindOf(window), {}});
        if (window != nullptr) ::GetClientRect(window, &items.front().place);
        for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
            Item item{KindOf(child), {}};
            ::GetWindowRect(child, &item.place);
            ::MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&item.place), 2);
            items.push_back(item);
        }
        return items;
    }

private:
    static std::string KindOf(HWND window) {
        char name[32]{};
        ::GetClassNameA(window, name, sizeof name);
        return FormatText("%d %s %lx %lx", ::GetDlgCtrlID(window), name, ::GetWindowLongA(window, GWL_STYLE),
                          ::GetWindowLongA(window, GWL_EXSTYLE));
    }

    HWND host =
        ::CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 600, 500, nullptr, nullptr, nullptr, nullptr);
    HWND window;
};

TEST_F(ResourceTwins, EveryDialogIconAndStringHasItsTwin) {
    const Numbers dialogs{IDD_ABOUT, IDD_FRAME, IDD_PANEL, IDD_MESSAGE, IDD_COM_SETTING};
    EXPECT_EQ(NumbersOf(english, RT_DIALOG), dialogs);
    for (const char* type : std::initializer_list<const char*>{RT_DIALOG, RT_GROUP_ICON, initLists})
        EXPECT_EQ(NumbersOf(chinese, type), NumbersOf(english, type)) << reinterpret_cast<std::uintptr_t>(type);
    for (const std::uintptr_t number : NumbersOf(english, initLists))
        EXPECT_EQ(BytesOf(chinese, number, initLists), BytesOf(english, number, initLists)) << number;
}

// A text that is joined to others needs its blanks in both languages, a menu's its mark.
TEST_F(ResourceTwins, StringsDifferInTheirWordsAlone) {
    const Numbers names{IDS_COM, IDS_MENU_ENGLISH, IDS_ENGLISH, IDS_TX, IDS_RX}; // read the same in both
    const auto translated = StringsOf(chinese);
    std::vector<UINT> missing;
    for (const auto& [id, text] : StringsOf(english)) {
        const auto found = translated.find(id);
        if (found == translated.end()) {
            missing.push_back(id);
            continue;
        }
        const std::string& other = found->second;
        EXPECT_EQ(other == text, names.contains(id)) << id << ": " << text;
        EXPECT_EQ(other.find_first_not_of(' '), text.find_first_not_of(' ')) << other;
        EXPECT_EQ(other.size() - other.find_last_not_of(' '), text.size() - text.find_last_not_of(' ')) << other;
        EXPECT_EQ(std::ranges::count(other, '&'), std::ranges::count(text, '&')) << other;
    }
    EXPECT_EQ(missing, std::vector<UINT>{});
    EXPECT_EQ(translated.size(), StringsOf(english).size()) << "strings that English doesn't have";
}

TEST_F(ResourceTwins, DialogsHaveTheSameControlsAndWhereItCountsTheSamePixels) {
    const Numbers ownLayout{IDD_ABOUT, IDD_COM_SETTING}; // which no code places by numbers of pixels in the template
    for (const std::uintptr_t number : NumbersOf(english, RT_DIALOG)) {
        const std::vector<Item> wanted = CBareDialog(english, number).Items(),
                                items = CBareDialog(chinese, number).Items();
        ASSERT_FALSE(wanted.empty()) << number;
        ASSERT_EQ(items.size(), wanted.size()) << number;
        for (std::size_t i = 0; i < items.size(); ++i) {
            EXPECT_EQ(items[i].kind, wanted[i].kind) << number;
            if (ownLayout.contains(number)) continue;
            EXPECT_TRUE(::EqualRect(&items[i].place, &wanted[i].place)) << wanted[i].kind;
        }
    }
}

} // namespace
