// The link on a real window, over calls that open nothing: its size, colours, pointer states, and how opening fails.
#include "skin/LinkStatic.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "ControlGround.h"

namespace {

class COpenerStandIn : public CLinkOpener {
public:
    int shellResult = 33, runResult = 40;
    std::map<std::string, std::string> registry;
    std::vector<std::string> opened, run;

protected:
    int OpenByShell(const std::string& target, int) override {
        opened.push_back(target);
        return shellResult;
    }
    bool ReadDefaultValue(const std::string& subKey, std::string& value) override {
        const auto found = registry.find(subKey);
        if (found != registry.end()) value = found->second;
        return found != registry.end();
    }
    int RunCommand(const std::string& command, int) override {
        run.push_back(command);
        return runResult;
    }
};

class CCountedLink : public CLinkStatic {
public:
    using CLinkStatic::CLinkStatic;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_PAINT) ++paints;
        return CLinkStatic::WindowProc(message, wParam, lParam);
    }

    int paints = 0;
};

// What the message box said, which is closed at once.
std::string boxText;
void CALLBACK CloseBox(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND box = ::FindWindowA("#32770", "Keldrun");
    if (box == nullptr) return;
    ::KillTimer(nullptr, timer);
    std::array<char, 200> text{};
    ::GetDlgItemTextA(box, 0xFFFF, text.data(), static_cast<int>(text.size()));
    boxText = text.data();
    ::PostMessageA(box, WM_COMMAND, IDOK, 0);
}

const CRect place(40, 10, 141, 41);
constexpr COLORREF linkColor = RGB(0, 0, 238), visitedColor = RGB(85, 26, 139), hoverColor = RGB(1, 2, 3);

class LinkStatic : public testing::Test {
protected:
    void Make(const char* text, DWORD style = SS_LEFT, DWORD extendedStyle = WS_EX_TRANSPARENT) {
        link.Create("STATIC", text, WS_CHILD | WS_VISIBLE | style, place, ground.GetHandle(), 1001, extendedStyle);
        link.SetColors(link.GetLinkColor(), link.GetVisitedColor(), hoverColor);
        CGround::Pump();
    }
    bool Shows(COLORREF color) {
        CGround::Pump();
        const std::vector<COLORREF> pixels = ground.Pixels(place);
        return std::find(pixels.begin(), pixels.end(), color) != pixels.end();
    }
    CRect Place() const {
        CRect rect = link.GetWindowRect();
        ::MapWindowPoints(nullptr, ground.GetHandle(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    void Click() const { link.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1)); }

    COpenerStandIn opener;
    CControlGround ground;
    CCountedLink link{opener};
};

TEST_F(LinkStatic, TakesTheSizeOfItsTextOnItsOwnSide) {
    for (const char* text : {"i", "W", "much longer than the control was made to be"}) {
        for (const LONG style : {SS_LEFT, SS_CENTER, SS_RIGHT, SS_LEFT | SS_CENTERIMAGE, SS_RIGHT | SS_CENTERIMAGE}) {
            COpenerStandIn none;
            CLinkStatic made(none);
            made.Create("STATIC", text, WS_CHILD | static_cast<DWORD>(style), place, ground.GetHandle(), 1002);
            CSize extent;
            {
                const CClientDC dc(made.GetHandle());
                const CSelectObject font(dc, reinterpret_cast<HFONT>(made.SendMessage(WM_GETFONT)));
                extent = dc.GetTextExtent(text);
            }
            const LONG side = (101 - extent.cx) / 2, edge = (31 - extent.cy) / 2;
            CRect wanted(40, 10, 141, 10 + extent.cy);
            if ((style & SS_CENTERIMAGE) != 0) wanted = CRect(40, 10 + edge, 141, 41 - edge);
            if ((style & 3) == SS_LEFT) wanted.right = 40 + extent.cx;
            if ((style & 3) == SS_CENTER) wanted = CRect(40 + side, wanted.top, 141 - side, wanted.bottom);
            if ((style & 3) == SS_RIGHT) wanted.left = 141 - extent.cx;
            CRect found = made.GetWindowRect();
            ::MapWindowPoints(nullptr, ground.GetHandle(), reinterpret_cast<POINT*>(&found), 2);
            EXPECT_EQ(found, wanted) << text << style;
        }
    }
}

TEST_F(LinkStatic, TextAndTargetStandInForEachOther) {
    link.SetTarget("target");
    link.SetUnderlined(false);
    Make("");
    EXPECT_EQ(link.GetWindowText(), "target");
    EXPECT_EQ(TipOf(link), "target");
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(link.SendMessage(WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(font.lfUnderline, FALSE);
    link.SetUnderlined(true);
    ::GetObjectW(reinterpret_cast<HFONT>(link.SendMessage(WM_GETFONT)), sizeof font, &font);
    EXPECT_NE(font.lfUnderline, FALSE);
    const CRect before = Place();
    link.SetWindowText("another, longer text");
    EXPECT_EQ(Place(), before);
    link.SetTarget("other");
    EXPECT_GT(Place().right, before.right);
    EXPECT_EQ(TipOf(link), "other");

    link.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(2, 2));
    link.UnsubclassWindow();
    Make("another window");
    EXPECT_EQ(TipOf(link), "other");
    EXPECT_TRUE(Shows(linkColor) && !Shows(hoverColor));

    CLinkStatic second(opener);
    second.Create("STATIC", "own text", WS_CHILD, place, ground.GetHandle(), 1002);
    EXPECT_EQ(second.GetTarget(), "own text");
}

TEST_F(LinkStatic, HoverHoldsTheCaptureAndWinsOverVisited) {
    Make("WWW");
    const auto move = [this](short x) { link.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(x, 2)); };
    const auto color = [this] { // of the text, as the control is told it
        const CClientDC dc(link.GetHandle());
        ground.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.GetHandle()),
                           reinterpret_cast<LPARAM>(link.GetHandle()));
        return ::GetTextColor(dc.GetHandle());
    };
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"outside", [&] { move(-1); }},
        {"left", [this] { link.SendMessage(WM_MOUSELEAVE); }},
        {"capture", [this] { ::SetCapture(ground.GetHandle()); }},
        {"modes", [this] { link.SendMessage(WM_CANCELMODE); }},
        {"disabled", [this] { link.EnableWindow(!link.EnableWindow(false)); }},
        {"hidden", [this] { link.ShowWindow(SW_HIDE); }},
        {"disabled window", [&] {
             ground.EnableWindow(false);
             move(2);
             Click();
             ground.EnableWindow(true);
         }}};
    for (const auto& [name, end] : ends) {
        link.SetVisited(!link.GetVisited());
        const COLORREF calm = link.GetVisited() ? visitedColor : linkColor;
        EXPECT_EQ(color(), calm) << name;
        link.ShowWindow(SW_SHOW);
        move(2);
        EXPECT_EQ(::GetCapture(), link.GetHandle()) << name;
        EXPECT_EQ(color(), hoverColor) << name;
        end();
        EXPECT_NE(::GetCapture(), link.GetHandle()) << name;
        EXPECT_EQ(color(), calm) << name;
        ::ReleaseCapture();
    }
    EXPECT_TRUE(opener.opened.empty());
    link.SetColors(1, 2, CLinkStatic::highlightColor);
    EXPECT_EQ(link.GetHoverColor(), ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(LinkStatic, ThePointerLightsItUntilItJumpsIntoAnotherProgram) {
    Make("WWW");
    EXPECT_TRUE(Shows(linkColor));
    CPoint point(2, 2);
    ::ClientToScreen(link.GetHandle(), &point);
    CGround::RestCursorAt(point.x, point.y);
    link.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(2, 2));
    EXPECT_TRUE(Shows(hoverColor) && !Shows(linkColor));
    CGround::RestCursorElsewhere();
    for (const DWORD begun = ::GetTickCount(); Shows(hoverColor) && ::GetTickCount() - begun < 3000;) ::Sleep(10);
    EXPECT_TRUE(Shows(linkColor) && !Shows(hoverColor));
    EXPECT_EQ(::GetCapture(), HWND{});
}

// Beneath the link lies a picture, as a sibling.
TEST_F(LinkStatic, NothingOfAFormerTextStaysOnThePictureBeneath) {
    CWnd picture;
    picture.Create("STATIC", "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SS_WHITERECT, {0, 0, 200, 100},
                   ground.GetHandle(), 1003);
    Make("WWW");
    ::SetWindowPos(link.GetHandle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    CGround::Pump();
    const std::vector<COLORREF> look = ground.Pixels(place);
    EXPECT_TRUE(Shows(linkColor) && Shows(RGB(255, 255, 255)));
    link.SetWindowText("MiM");
    CGround::Pump();
    EXPECT_NE(ground.Pixels(place), look);
    link.SetWindowText("WWW");
    link.EnableWindow(false);
    link.EnableWindow(true);
    CGround::Pump();
    EXPECT_EQ(ground.Pixels(place), look);
    const int before = link.paints;
    CGround::Pump();
    EXPECT_EQ(link.paints, before) << "nothing is painted at rest";
    RecordProperty("MicrosecondsPerPaint", std::to_string(PaintOften(link)));
}

TEST_F(LinkStatic, AClickOpensOrTellsWhyNot) {
    Make("http://www.brenholt.example");
    opener.shellResult = 31;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 20, &CloseBox);
    Click();
    ::KillTimer(nullptr, timer);
    EXPECT_EQ(boxText,
              "Unable to open hyperlink:\n\nThere is no application associated\nwith the given filename extension.");
    EXPECT_FALSE(link.GetVisited());
    opener.shellResult = 33;
    Click();
    EXPECT_TRUE(link.GetVisited());
    EXPECT_TRUE(Shows(visitedColor));
    EXPECT_EQ(opener.opened, std::vector<std::string>(2, "http://www.brenholt.example"));
    EXPECT_TRUE(ground.commands.empty()) << "the link keeps its clicks to itself";
}

TEST(LinkOpener, TheBrowserIsTheSecondRoad) {
    const std::pair<const std::string, std::string> type{".htm", "page"}, command{"page\\shell\\open\\command", "b %1"},
        tooLong{command.first, std::string(519, 'b')};
    struct Row {
        int shell;
        std::map<std::string, std::string> registry;
        int result;
        std::vector<std::string> run;
    };
    const Row rows[] = {
        {33, {type, command}, 33, {}}, {32, {type, command}, 7, {"b  T"}}, {2, {}, 2, {}}, {2, {type}, 2, {}},
        {2, {command}, 2, {}},         {5, {type, tooLong}, 5, {}}};
    for (const Row& row : rows) {
        COpenerStandIn opener;
        opener.shellResult = row.shell;
        opener.runResult = 7;
        opener.registry = row.registry;
        EXPECT_EQ(opener.Open("T", SW_SHOW), row.result) << &row - rows;
        EXPECT_EQ(opener.run, row.run) << &row - rows;
    }
}

} // namespace
