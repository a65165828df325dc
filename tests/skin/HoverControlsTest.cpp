// What all controls share that feel the mouse: hover, press, capture, clicks and focus, against a model of them under
// random input; and who gets the focus of one that is disabled or hidden.
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "Ground.h"
#include "skin/IconButton.h"
#include "skin/LinkStatic.h"
#include "skin/RoundButton.h"
#include "skin/SegmentDisplay.h"
#include "skin/SkinBar.h"
#include "skin/SkinButton.h"
#include "support/Seed.h"

namespace {

enum class Kind : std::uint8_t { Strip, Picture, Push, Check, Round, Link, Bar, Display };

class CNoOpener : public CLinkOpener {
public:
    std::size_t opened = 0;

protected:
    int OpenByShell(const std::string&, int) override { return static_cast<int>(33 + ++opened); }
};

// Looks: '1' at rest, '2' under the mouse, '3' pressed, '4' disabled, 'F' with the focus, '-' not looked at.
struct Model {
    Kind kind;
    bool enabled = true, shown = true, open = true;
    bool hover = false, pressed = false, captured = false, cancelled = false, focus = false, isChecked = false;
    bool held = false, inside = false; // the mouse's button, and where it is
    std::size_t clicks = 0;

    bool IsSkin() const { return kind == Kind::Strip || kind == Kind::Picture; }
    bool IsIcon() const { return kind == Kind::Push || kind == Kind::Check; }
    bool Takes() const { return enabled && shown && open; }
    char Look() const {
        if (!shown || kind == Kind::Round) return '-';
        if (IsIcon()) return hover || (pressed && inside) || isChecked ? '2' : focus ? 'F' : '1';
        if (!enabled && kind == Kind::Strip) return '4';
        return !hover ? '1' : pressed ? '3' : '2';
    }

    void LetGo() { cancelled = cancelled || pressed, hover = pressed = captured = false; }
    void Move(bool in) {
        inside = in;
        if (!Takes()) return LetGo();
        if (IsIcon() && (!held || hover)) hover = in;
        if (kind == Kind::Link) hover = captured = !hover || in;
        if (!IsSkin()) return;
        if (pressed && !captured && !held) pressed = hover = false;
        if (!held) cancelled = false;
        captured = in || pressed;
        hover = in;
    }
    void Down(bool twice) {
        inside = held = true;
        if (!Takes()) return LetGo();
        if (kind == Kind::Link) {
            clicks += twice ? 0 : 1;
        } else if (IsIcon() || !twice) {
            pressed = focus = true;
            cancelled = false;
            (IsSkin() ? hover : captured) = true;
        }
    }
    void Up() {
        held = false;
        if (!Takes()) return LetGo();
        if (kind == Kind::Link) return;
        if (IsSkin() ? hover && !cancelled : pressed && inside) Click();
        if (IsSkin()) hover = cancelled = false;
        pressed = captured = false;
    }
    void Click() { ++clicks, isChecked = isChecked != (kind == Kind::Check); }
    void Leave() {
        if (IsSkin() && !captured) pressed = false;
        hover = false;
        if (IsSkin() ? !pressed : kind == Kind::Link) captured = false;
    }
    void Steal() {
        if (!captured) return;
        const bool stays = hover && IsIcon();
        LetGo();
        hover = stays;
    }
    void LoseFocus() {
        if (focus) LetGo();
        focus = false;
    }
    void Take(bool& way) { // disabled or hidden
        if (way) LetGo();
        way = focus = false;
    }
};

class HoverControls : public testing::TestWithParam<Kind> {
protected:
    static constexpr UINT id = 1024;
    static inline const CRect place{10, 10, 34, 26};

    HoverControls() {
        std::string row;
        for (const char column : std::string("1234")) row += std::string(24, column);
        const CBitmap strip(MakeBitmap(Art(16, row))), picture(MakeBitmap(Art(4, "pppp")));
        if (GetParam() == Kind::Strip) {
            const CBitmap former(Keep<CSkinButton>().SetBitmapHandle(strip.GetHandle()));
        } else if (GetParam() == Kind::Picture) {
            auto& made = Keep<CSkinButton>();
            const CBitmap former(made.SetBitmapHandle(picture.GetHandle()));
            made.drawMode = CSkinButton::pictureMode;
        } else if (GetParam() == Kind::Round) {
            Keep<CRoundButton>();
        } else if (GetParam() == Kind::Link) {
            Keep<CLinkStatic>(opener).SetColors(ColorOf('1'), ColorOf('1'), ColorOf('2'));
        } else if (GetParam() == Kind::Bar) {
            Keep<CSkinBar>().SetCaption("W", 5, 0x123456);
        } else if (GetParam() == Kind::Display) {
            Keep<CSegmentDisplay>();
        } else {
            auto& icon = Keep<CIconButton>();
            icon.SetBitmapHandles(MakeBitmap({"A.", "A."}), ColorOf('.'), nullptr, 0);
            for (const unsigned back : {0U, 2U, 4U}) icon.SetColor(back, ColorOf("2 1 F"[back]), false);
        }
        Put(next, ground, "BUTTON", {140, 0, 160, 20}, WS_TABSTOP);
        Put(other, ground, "BUTTON", {170, 0, 190, 20}, WS_TABSTOP);
    }
    template <class Control, class... Arguments>
    Control& Keep(Arguments&... arguments) {
        auto made = std::make_unique<Control>(arguments...);
        if constexpr (requires { made->focusHeir; }) heir = &made->focusHeir;
        control = std::move(made);
        return static_cast<Control&>(*control);
    }
    void Bind(const CWnd& parent) {
        const bool isStatic = GetParam() >= Kind::Link;
        const LONG style = isStatic ? SS_LEFT : WS_TABSTOP;
        Put(*control, parent, isStatic ? "STATIC" : "BUTTON", place,
            GetParam() == Kind::Check ? BS_AUTOCHECKBOX : style, isStatic ? "W" : "", id);
        ::SetWindowPos(control->GetHandle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        PumpMessages();
    }
    char Look() const {
        if (GetParam() == Kind::Round || !control->IsWindowVisible()) return '-';
        if (GetParam() == Kind::Link) {
            const CClientDC dc(ground.GetHandle());
            ground.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.GetHandle()),
                               reinterpret_cast<LPARAM>(control->GetHandle()));
            return ::GetTextColor(dc.GetHandle()) == ColorOf('2') ? '2' : '1';
        }
        control->UpdateWindow();
        if (GetParam() != Kind::Picture) return ground.Look({15, 15, 16, 16})[0][0];
        const COLORREF edge = ground.Pixels({11, 11, 12, 12})[0];
        return edge == ColorOf('g') ? '1' : edge == ::GetSysColor(COLOR_3DHIGHLIGHT) ? '2' : '3';
    }
    std::size_t Clicks() const {
        const ReceivedCommand click{id, BN_CLICKED, control->GetHandle()};
        return opener.opened + static_cast<std::size_t>(std::ranges::count(ground.commands, click));
    }

    // One random operation on the control and on the model alike; its name.
    std::string Step(Model& model, std::mt19937& random) {
        const auto draw = [&](unsigned count) { return random() % count; };
        const auto mouse = [&](UINT message) {
            Mouse(*control, message, model.inside ? 6 : -5, model.inside ? 6 : 150, model.held ? MK_LBUTTON : 0);
        };
        const char operation = "iiiooddulscehfk"[draw(15)];
        if (!model.open && (operation == 'e' || operation == 'h')) return ""; // nobody can take the focus then
        if (operation == 'i') return model.Move(true), mouse(WM_MOUSEMOVE), "in ";
        if (operation == 'o' && !model.captured) return ""; // only a capture brings such a move
        if (operation == 'o') return model.Move(false), mouse(WM_MOUSEMOVE), "out ";
        if (operation == 'd' && model.held) return "";
        if (operation == 'd' && draw(4) == 0) return model.Down(true), mouse(WM_LBUTTONDBLCLK), "double ";
        if (operation == 'd') return model.Down(false), mouse(WM_LBUTTONDOWN), "down ";
        if (operation == 'u' && !model.inside && !model.captured) return model.held = false, "(up elsewhere) ";
        if (operation == 'u') return model.Up(), mouse(WM_LBUTTONUP), "up ";
        if (operation == 'l') return model.Leave(), control->SendMessage(WM_MOUSELEAVE), "leave ";
        if (operation == 's') return model.Steal(), ::SetCapture(ground.GetHandle()), ::ReleaseCapture(), "steal ";
        if (operation == 'c') return model.LetGo(), control->SendMessage(WM_CANCELMODE), "cancel ";
        if (operation == 'e' && !model.enabled) return model.enabled = true, control->EnableWindow(true), "enable ";
        if (operation == 'e') return model.Take(model.enabled), control->EnableWindow(false), "disable ";
        if (operation == 'h' && !model.shown) return model.shown = true, control->ShowWindow(SW_SHOW), "show ";
        if (operation == 'h') return model.Take(model.shown), control->ShowWindow(SW_HIDE), "hide ";
        if (operation == 'f') {
            if (!model.open) return model.open = true, ground.EnableWindow(true), "ground on ";
            if (draw(2) == 0) return model.open = false, ground.EnableWindow(false), "ground off ";
            if (model.Takes() && model.kind != Kind::Link && draw(2) == 0)
                return model.focus = true, control->SetFocus(), "focus ";
            return model.LoseFocus(), ground.SetFocus(), "focus away ";
        }
        if (!model.focus || !model.Takes() || (!model.IsSkin() && model.pressed)) return "";
        control->SendMessage(WM_KEYDOWN, VK_SPACE);
        const unsigned end = draw(4);
        if (end == 0) model.LetGo(), control->SendMessage(WM_CANCELMODE);
        if (end == 1) model.LoseFocus(), ground.SetFocus();
        if (end > 1) model.Click();
        control->SendMessage(WM_KEYUP, VK_SPACE);
        return end < 2 ? "space ended " : "space ";
    }

    CGround ground;
    CNoOpener opener;
    std::unique_ptr<CWnd> control;
    HWND* heir = nullptr;
    CWnd next, other;
};

INSTANTIATE_TEST_SUITE_P(All, HoverControls,
                         testing::Values(Kind::Strip, Kind::Picture, Kind::Push, Kind::Check, Kind::Round, Kind::Link,
                                         Kind::Bar, Kind::Display));
using InputControls = HoverControls;
INSTANTIATE_TEST_SUITE_P(All, InputControls,
                         testing::Values(Kind::Strip, Kind::Picture, Kind::Push, Kind::Check, Kind::Round, Kind::Link));
using PointerControls = HoverControls;
INSTANTIATE_TEST_SUITE_P(All, PointerControls,
                         testing::Values(Kind::Strip, Kind::Picture, Kind::Push, Kind::Check, Kind::Link));
using PictureControls = HoverControls;
INSTANTIATE_TEST_SUITE_P(All, PictureControls, testing::Values(Kind::Strip, Kind::Picture, Kind::Bar, Kind::Display));
// One object for all windows, each of which ends amidst the input.
TEST_P(InputControls, BehaveAsTheModelUnderRandomInput) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    *heir = other.GetHandle();
    for (int window = 0; window < 25; ++window) {
        ground.EnableWindow(true);
        other.SetFocus();
        Bind(ground);
        control->SendMessage(WM_KEYUP, VK_SPACE); // pressed in the window before
        Model model{GetParam()};
        model.clicks = opener.opened;
        ground.commands.clear();
        std::string steps;
        for (int step = 0; step < 40; ++step) {
            steps += Step(model, random);
            ASSERT_EQ(Look(), model.Look()) << steps;
            ASSERT_EQ(::GetCapture() == control->GetHandle(), model.captured) << steps;
            ASSERT_EQ(::GetFocus() == control->GetHandle(), model.focus) << steps;
            ASSERT_EQ(Clicks(), model.clicks) << steps;
        }
        if (model.focus) control->SendMessage(WM_KEYDOWN, VK_SPACE);
        control->DestroyWindow();
    }
}

TEST_P(InputControls, PassTheFocusOnWhenTheyAreDisabledOrHidden) {
    const bool icon = GetParam() == Kind::Push || GetParam() == Kind::Check;
    CWnd panel;
    Put(panel, ground, "STATIC", {0, 0, 60, 60});
    for (int round = 0; round < 48; ++round) {
        if (round == 24) control->DestroyWindow();
        const bool nested = round >= 24, had = round % 2 == 0;
        if (round % 24 == 0) Bind(nested ? panel : ground);
        const int way = round / 2 % 3, heirIs = round / 6 % 4; // there, none, disabled, hidden
        *heir = heirIs == 1 ? nullptr : other.GetHandle();
        other.EnableWindow(heirIs != 2);
        other.ShowWindow(heirIs == 3 ? SW_HIDE : SW_SHOW);
        ::SetFocus(had ? control->GetHandle() : next.GetHandle());
        if (way == 0) control->EnableWindow(false);
        if (way == 1) control->ShowWindow(SW_HIDE);
        if (way == 2) ::SetWindowPos(control->GetHandle(), nullptr, 10, 10, 24, 16, SWP_HIDEWINDOW);
        const HWND focus = ::GetFocus(), line = (had && nested && icon ? panel : next).GetHandle();
        EXPECT_EQ(focus == other.GetHandle(), had && heirIs == 0) << round;
        EXPECT_TRUE((had && (heirIs == 0 || way != 0)) || focus == line) << round;
        control->EnableWindow(true);
        control->ShowWindow(SW_SHOW);
    }
    next.EnableWindow(false);
    control->SetFocus();
    control->EnableWindow(false);
    EXPECT_TRUE(!icon || ::GetFocus() == panel.GetHandle()) << "without another tab stop, the parent";
}

TEST_P(PointerControls, FeelThatTheRealPointerComesAndGoes) {
    Bind(ground);
    POINT point{3, 5};
    ::ClientToScreen(control->GetHandle(), &point);
    ::SetCursorPos(point.x, point.y);
    EXPECT_TRUE(PumpUntil([this] { return Look() == '2'; }));
    ::SetCursorPos(700, 700);
    EXPECT_TRUE(PumpUntil([this] { return Look() == '1' && ::GetCapture() == nullptr; }));
}

TEST_P(HoverControls, LoseNoHandleAndPaintNothingAtRest) {
    ExpectNoGdiObjectLost(20, [this] {
        Bind(ground);
        for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_CANCELMODE, WM_SYSCOLORCHANGE}) {
            Mouse(*control, message, 2, 2);
            ::RedrawWindow(control->GetHandle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        }
        control->EnableWindow(false);
        PumpMessages();
        EXPECT_FALSE(::GetUpdateRect(control->GetHandle(), nullptr, FALSE));
        control->DestroyWindow();
    });
}

// Whatever the platform's class would paint at once. A strip has another look while it is disabled.
TEST_P(PictureControls, NeverShowThePlatformsLook) {
    Bind(ground);
    const auto look = ground.Pixels(place);
    // clang-format off
    const std::tuple<UINT, WPARAM, LPARAM> rows[] = {
        {WM_SETTEXT, 0, reinterpret_cast<LPARAM>("Other")}, {WM_ENABLE, 0, 0}, {BM_SETSTATE, 1, 0}, {BM_SETSTYLE, 1, 1},
        {WM_SETFONT, 0, 1}, {WM_UPDATEUISTATE, 0x30002, 0}, {WM_SETFOCUS, 0, 0}, {WM_KEYDOWN, VK_SPACE, 0},
        {WM_KEYUP, VK_SPACE, 0}, {WM_KILLFOCUS, 0, 0}, {BM_CLICK, 0, 0}, {WM_STYLECHANGED, 0, 0}};
    // clang-format on
    for (const auto& [message, wParam, lParam] : rows) {
        const bool disables = message == WM_STYLECHANGED;
        if (disables) control->ModifyStyle(0, WS_DISABLED);
        if (!disables) control->SendMessage(message, wParam, lParam);
        EXPECT_EQ(ground.Pixels(place), look) << message;
        PumpMessages();
        EXPECT_EQ(ground.Pixels(place) == look, !disables || GetParam() != Kind::Strip);
    }
    EXPECT_EQ(control->GetWindowText(), "Other");
}

} // namespace
