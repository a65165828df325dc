// The small dialogs: the message box in its skin, and About.
#include <functional>
#include <string>

#include <windows.h>

#include <gtest/gtest.h>

#include "GdiHandles.h"
#include "Repeats.h"
#include "ScreenReader.h"
#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "shell/AboutDlg.h"
#include "shell/MessageDlg.h"
#include "shell/ShowMessage.h"

namespace {

// Looks at a dialog while its modal loop runs, and then leaves it by a command.
class CVisitor {
public:
    CVisitor(std::function<void(HWND)> visit, int leave) : look(std::move(visit)), command(leave) {
        current = this;
        timer = ::SetTimer(nullptr, 0, 5, &OnTimer);
    }
    CVisitor(const CVisitor&) = delete;
    CVisitor& operator=(const CVisitor&) = delete;
    ~CVisitor() { ::KillTimer(nullptr, timer); }

    int visits = 0;

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        const HWND dialog = ::GetActiveWindow();
        if (dialog == nullptr || ::IsWindowVisible(dialog) == FALSE) return;
        ++current->visits;
        current->look(dialog);
        ::SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(current->command), 0);
    }

    static inline CVisitor* current = nullptr;

    std::function<void(HWND)> look;
    int command;
    UINT_PTR timer = 0;
};

// "x,y,width,height" in the parent's client area, with the parent's control number behind it.
std::string PlaceOf(HWND dialog, int id) {
    const HWND control = FindControl(dialog, id), parent = ::GetAncestor(control, GA_PARENT);
    RECT place{};
    ::GetWindowRect(control, &place);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return std::to_string(place.left) + "," + std::to_string(place.top) + "," +
           std::to_string(place.right - place.left) + "," + std::to_string(place.bottom - place.top) + " in " +
           std::to_string(parent == dialog ? 0 : ::GetDlgCtrlID(parent));
}

CSize SizeOf(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

TEST(MessageDlg, GrowsWithItsTextAndKeepsItsButtonsInPlace) {
    const struct {
        int style;
        std::size_t bytes;
        LONG width;
        const char* ok;
        bool cancelSeen;
    } rows[] = {{0, 0, 150, "45,40,74,22 in 1055", false},
                {0, 55, 480, "210,40,74,22 in 1055", false},
                {1, 55, 480, "160,40,74,22 in 1055", true},
                {2, 55, 480, "40,40,74,22 in 1055", true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.style) + " with " + std::to_string(row.bytes));
        CMessageDlg message;
        message.style = row.style;
        message.text = std::string(row.bytes, 'm');
        const CVisitor visitor(
            [&](HWND dialog) {
                EXPECT_EQ(SizeOf(dialog).cx, row.width);
                EXPECT_EQ(SizeOf(dialog).cy, 120);
                EXPECT_EQ(PlaceOf(dialog, IDC_MESSAGE_PANEL), "0,0," + std::to_string(row.width - 5) + ",88 in 0");
                EXPECT_EQ(PlaceOf(dialog, IDC_MESSAGE_TEXT), "20,10," + std::to_string(row.width - 40) + ",24 in 1055");
                EXPECT_EQ(PlaceOf(dialog, IDC_MESSAGE_OK), row.ok);
                EXPECT_EQ(PlaceOf(dialog, IDC_MESSAGE_CANCEL), "192,40,74,22 in 1055");
                EXPECT_EQ(::IsWindowVisible(FindControl(dialog, IDC_MESSAGE_CANCEL)) != FALSE, row.cancelSeen);
                EXPECT_EQ(TextOf(FindControl(dialog, IDC_MESSAGE_TEXT)), message.text);
                EXPECT_EQ(TextOf(FindControl(dialog, IDC_MESSAGE_OK)), "OK");
                EXPECT_EQ(TextOf(dialog), productTitle);
            },
            IDC_MESSAGE_OK);
        message.DoModal();
        EXPECT_EQ(visitor.visits, 1);
    }
}

TEST(MessageDlg, TellsHowItWasLeft) {
    for (const auto& [command, cancelled] : {std::pair{IDC_MESSAGE_OK, false}, std::pair{IDC_MESSAGE_CANCEL, true},
                                             std::pair{IDOK, false}, std::pair{IDCANCEL, true}}) {
        CMessageDlg message;
        message.style = 1;
        message.caption = "Title";
        const CVisitor visitor([](HWND dialog) { EXPECT_EQ(TextOf(dialog), "Title"); }, command);
        message.DoModal();
        EXPECT_EQ(message.cancelled, cancelled) << command;
        EXPECT_EQ(ShowMessage("text", "Title", 1), 0) << command;
    }
}

TEST(MessageDlg, TwoHundredLeaveNothingBehind) {
    const auto handles = [] {
        DWORD count = 0;
        ::GetProcessHandleCount(::GetCurrentProcess(), &count);
        return count;
    };
    const auto show = [](int rounds) {
        const CVisitor visitor([](HWND) {}, IDC_MESSAGE_OK);
        for (int i = 0; i < rounds; ++i) ShowMessage("A message.", {}, 0);
        EXPECT_EQ(visitor.visits, rounds);
    };
    show(5);
    const DWORD before = handles();
    const std::size_t gdi = FreeGdiObjects();
    show(Repeats(200));
    EXPECT_LE(handles(), before);
    EXPECT_NEAR(static_cast<double>(FreeGdiObjects()), static_cast<double>(gdi), 8);
}

TEST(AboutDlg, ShowsTheProductAndTwoLinksThatHoldTheirAddresses) {
    CAboutDlg about;
    const CVisitor visitor(
        [](HWND dialog) {
            EXPECT_EQ(TextOf(dialog), LoadText(IDS_ABOUT_TITLE) + productTitle);
            EXPECT_EQ(PlaceOf(dialog, IDC_ABOUT_COMPANY), "10,28,400,24 in 1047");
            EXPECT_EQ(PlaceOf(dialog, IDC_ABOUT_VERSION), "10,5,400,24 in 1047");
            EXPECT_EQ(TextOf(FindControl(dialog, IDC_ABOUT_COMPANY)), productCompany);
            EXPECT_EQ(TextOf(FindControl(dialog, IDC_ABOUT_VERSION)), productVersion);
            RECT client{};
            ::GetClientRect(dialog, &client);
            EXPECT_EQ(PlaceOf(dialog, IDC_ABOUT_PANEL),
                      "0,0," + std::to_string(client.right) + "," + std::to_string(client.bottom) + " in 0");
            for (const auto& [id, text] :
                 {std::pair{IDC_ABOUT_WEB_LINK, productWeb}, std::pair{IDC_ABOUT_MAIL_LINK, productMail}}) {
                const HWND link = FindControl(dialog, id);
                EXPECT_EQ(TextOf(link), text);
                const CClientDC dc(link);
                const CSelectObject font(dc, reinterpret_cast<HFONT>(::SendMessageA(link, WM_GETFONT, 0, 0)));
                EXPECT_GE(SizeOf(link).cx, dc.GetTextExtent(text).cx) << text << " is cut";
            }
            EXPECT_TRUE(::IsWindowVisible(FindControl(dialog, IDOK)));
        },
        IDOK);
    about.DoModal();
    EXPECT_EQ(visitor.visits, 1);
}

} // namespace
