// The link on a real window, over calls that open nothing: its size, text and looks, and how opening fails.
#include "skin/LinkStatic.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "Ground.h"
#include "support/Meanwhile.h"

namespace {

class COpenerStandIn : public CLinkOpener {
public:
    int shellResult = 33;
    std::map<std::string, std::string> registry;
    std::vector<std::string> opened, run;

protected:
    int OpenByShell(const std::string& target, int) override {
        opened.push_back(target);
        return shellResult;
    }
    bool ReadDefaultValue(const std::string& subKey, std::string& value) override {
        value = registry[subKey];
        return !value.empty();
    }
    int RunCommand(const std::string& command, int) override {
        run.push_back(command);
        return 7;
    }
};

constexpr COLORREF linkColor = RGB(0, 0, 238), visitedColor = RGB(85, 26, 139);

class LinkStatic : public testing::Test {
protected:
    static inline const CRect place{40, 10, 141, 41};
    void Make(const char* text, LONG style = SS_LEFT) {
        if (link.GetHandle() != nullptr) link.DestroyWindow();
        Put(link, ground, "STATIC", place, style, text);
    }
    bool Shows(COLORREF color) {
        PumpMessages();
        return std::ranges::count(ground.Pixels(place), color) != 0;
    }

    COpenerStandIn opener;
    CGround ground;
    CLinkStatic link{opener};
};

TEST_F(LinkStatic, TakesTheSizeOfItsTextOnItsOwnSide) {
    for (const LONG style : {SS_LEFT, SS_CENTER, SS_RIGHT, SS_LEFT | SS_CENTERIMAGE, SS_RIGHT | SS_CENTERIMAGE}) {
        link.SetFitToText(false);
        Make("W", style);
        EXPECT_EQ(CRect(PlaceInParent(link.GetHandle())), place);
        link.SetFitToText(true);
        const CClientDC dc(link.GetHandle());
        const CSelectObject font(dc, reinterpret_cast<HFONT>(link.SendMessage(WM_GETFONT)));
        const CSize extent = dc.GetTextExtent("W");
        const LONG left = std::array{0L, (101 - extent.cx) / 2, 101 - extent.cx}[static_cast<std::size_t>(style & 3)];
        const LONG right = std::array{101 - extent.cx, left, 0L}[static_cast<std::size_t>(style & 3)];
        const LONG edge = (31 - extent.cy) / 2;
        CRect wanted(40 + left, 10, 141 - right, 10 + extent.cy);
        if ((style & SS_CENTERIMAGE) != 0) wanted = CRect(wanted.left, 10 + edge, wanted.right, 41 - edge);
        EXPECT_EQ(CRect(PlaceInParent(link.GetHandle())), wanted) << style;
    }
}

TEST_F(LinkStatic, TextTargetAndCursorGoFromWindowToWindow) {
    link.SetTarget("target");
    Make("");
    EXPECT_EQ(link.GetWindowText(), "target");
    const CRect before = PlaceInParent(link.GetHandle());
    link.SetWindowText("another, longer text");
    EXPECT_EQ(CRect(PlaceInParent(link.GetHandle())), before);
    link.SetTarget("other");
    EXPECT_GT(PlaceInParent(link.GetHandle()).right, before.right);
    Make("another window");
    MSG hover{link.GetHandle(), WM_MOUSEMOVE, 0, 0, 0, {}};
    link.PreTranslateMessage(hover);
    EXPECT_EQ(TipOf(link), "other");
    link.SetTarget("third");
    EXPECT_EQ(TipOf(link), "third");
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW), cross = ::LoadCursorA(nullptr, IDC_CROSS);
    for (const HCURSOR cursor : {cross, HCURSOR{}}) {
        ::SetCursor(arrow);
        link.SetLinkCursor(cursor);
        link.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(link.GetHandle()), HTCLIENT);
        EXPECT_TRUE((::GetCursor() == cross) == (cursor == cross) &&
                    (link.GetLinkCursor() == cross) == (cursor == cross));
    }
    link.SetColors(1, 2, CLinkStatic::highlightColor);
    EXPECT_EQ(link.GetHoverColor(), ::GetSysColor(COLOR_HIGHLIGHT));
}

// Beneath the link lies a picture, as a sibling.
TEST_F(LinkStatic, NothingOfAFormerLookStaysOnThePictureBeneath) {
    CWnd picture;
    Put(picture, ground, "STATIC", {0, 0, 200, 100}, WS_CLIPSIBLINGS | SS_WHITERECT);
    Make("WWW");
    ::SetWindowLongA(link.GetHandle(), GWL_EXSTYLE, WS_EX_TRANSPARENT);
    ::SetWindowPos(link.GetHandle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    PumpMessages();
    const std::vector<COLORREF> look = ground.Pixels(place);
    link.SetVisited(true);
    EXPECT_TRUE(Shows(visitedColor) && Shows(RGB(255, 255, 255)) && !Shows(linkColor));
    Mouse(link, WM_MOUSEMOVE, 2, 2);
    EXPECT_TRUE(Shows(link.GetHoverColor()) && !Shows(visitedColor));
    link.SetVisited(false);
    link.SendMessage(WM_MOUSELEAVE);
    link.SetWindowText("MiM");
    PumpMessages();
    EXPECT_NE(ground.Pixels(place), look);
    link.SetWindowText("WWW");
    for (const bool on : {false, true}) link.EnableWindow(on);
    PumpMessages();
    EXPECT_EQ(ground.Pixels(place), look);
}

TEST_F(LinkStatic, AClickOpensOrTellsWhyNot) {
    Make("http://www.brenholt.example");
    const std::pair<int, const char*> failures[] = {{31, "no application"}, {32, "dynamic-link"}, {6, "Error (6)"}};
    const auto fail = [&](int failure, const char* words) {
        opener.shellResult = failure;
        const CMeanwhile meanwhile([&] {
            const HWND box = ShownDialog();
            return box != nullptr && TextOf(::GetDlgItem(box, 0xFFFF)).find(words) != std::string::npos &&
                   ::PostMessageA(box, WM_COMMAND, IDOK, 0) != FALSE;
        });
        Mouse(link, WM_LBUTTONDOWN, 1, 1, MK_LBUTTON);
    };
    for (const auto& [failure, words] : failures) {
        fail(failure, words);
        EXPECT_FALSE(link.GetVisited());
    }
    opener.shellResult = 33;
    Mouse(link, WM_LBUTTONDOWN, 1, 1, MK_LBUTTON);
    EXPECT_TRUE(link.GetVisited());
    fail(31, "no application");
    EXPECT_TRUE(link.GetVisited()) << "a visit isn't undone";
    EXPECT_EQ(opener.opened, std::vector<std::string>(5, "http://www.brenholt.example"));
    EXPECT_TRUE(ground.commands.empty()) << "the link keeps its clicks to itself";
}

TEST(LinkOpener, TheBrowserIsTheSecondWay) {
    const std::pair<const std::string, std::string> type{".htm", "page"}, command{"page\\shell\\open\\command", "b %1"},
        tooLong{command.first, std::string(519, 'b')};
    const std::tuple<int, std::map<std::string, std::string>, int, std::vector<std::string>> rows[] = {
        {33, {type, command}, 33, {}}, {32, {type, command}, 7, {"b  T"}}, {2, {}, 2, {}}, {2, {type}, 2, {}},
        {2, {command}, 2, {}},         {5, {type, tooLong}, 5, {}}};
    for (const auto& [shell, registry, result, run] : rows) {
        COpenerStandIn opener;
        opener.shellResult = shell;
        opener.registry = registry;
        EXPECT_EQ(opener.Open("T", SW_SHOW), result) << shell;
        EXPECT_EQ(opener.run, run) << shell;
    }
}

} // namespace
