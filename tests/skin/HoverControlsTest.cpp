// What all controls share that feel the mouse: hover, press, capture, clicks and focus, against a model of them under
// random input; and who gets the focus of one that is disabled or hidden.
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "Ground.h"
#include "skin/LinkStatic.h"
#include "skin/PlainIconButton.h"
#include "skin/RoundButton.h"
#include "skin/SkinButton.h"
#include "skin/SkinSelector.h"
#include "support/Seed.h"

namespace {

enum class Kind : std::uint8_t { Strip, Picture, Push, Check, Round, Link };

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

    void LetGo() {
        cancelled = cancelled || pressed;
        hover = pressed = captured = false;
    }
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
    void Click() {
        ++clicks;
        if (kind == Kind::Check) isChecked = !isChecked;
    }
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
        switch (GetParam()) {
        case Kind::Strip: {
            std::string row;
            for (const char column : std::string("1234")) row += std::string(24, column);
            MakeSkinButton(CSkinButton::stripMode, Art(16, row));
            break;
        }
        case Kind::Picture: MakeSkinButton(CSkinButton::pictureMode, Art(4, "pppp")); break;
        case Kind::Push:
        case Kind::Check: {
            auto made = std::make_unique<CIconButton>();
            for (const auto& [index, color] : {std::pair(0U, '2'), {2U, '1'}, {4U, 'F'}})
                made->SetColor(index, ColorOf(color), false);
            heir = &made->focusHeir;
            control = std::move(made);
            break;
        }
        case Kind::Round: Keep(std::make_unique<CRoundButton>()); break;
        default: {
            auto made = std::make_unique<CLinkStatic>(opener);
            made->SetColors(ColorOf('1'), ColorOf('1'), ColorOf('2'));
            Keep(std::move(made));
        }
        }
        next.Create("BUTTON", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {140, 0, 160, 20}, ground.GetHandle(), 1);
        other.Create("BUTTON", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {170, 0, 190, 20}, ground.GetHandle(), 2);
    }
    template <class Control>
    void Keep(std::unique_ptr<Control> made) {
        heir = &made->focusHeir;
        control = std::move(made);
    }
    void MakeSkinButton(int mode, const Art& art) {
        auto made = std::make_unique<CSkinButton>();
        const CBitmap picture(MakeBitmap(art)), former(made->SetBitmapHandle(picture.GetHandle()));
        made->drawMode = mode;
        Keep(std::move(made));
    }
    void Bind(const CWnd& parent) {
        const bool link = GetParam() == Kind::Link;
        const DWORD type = GetParam() == Kind::Check ? BS_AUTOCHECKBOX : link ? SS_LEFT : WS_TABSTOP;
        ASSERT_TRUE(control->Create(link ? "STATIC" : "BUTTON", link ? "W" : "", WS_CHILD | WS_VISIBLE | type, place,
                                    parent.GetHandle(), id));
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
        const auto isClick = [this](const ReceivedCommand& command) {
            return command == ReceivedCommand{id, BN_CLICKED, control->GetHandle()};
        };
        return opened() + static_cast<std::size_t>(std::ranges::count_if(ground.commands, isClick));
    }
    std::size_t opened() const { return opener.opened; }

    // One random operation on the control and on the model alike; its name.
    std::string Step(Model& model, std::mt19937& random) {
        const auto draw = [&](unsigned count) { return random() % count; };
        const auto mouse = [&](UINT message) {
            Mouse(*control, message, model.inside ? 6 : -5, model.inside ? 6 : 150, model.held ? MK_LBUTTON : 0);
        };
        const unsigned operation = draw(16);
        if (!model.open && (operation == 12 || operation == 13)) return ""; // nobody can take the focus then
        switch (operation) {
        case 0:
        case 1:
        case 2: return model.Move(true), mouse(WM_MOUSEMOVE), "in ";
        case 3:
        case 4: // only a capture brings such a move
            if (!model.captured) return "";
            return model.Move(false), mouse(WM_MOUSEMOVE), "out ";
        case 5:
        case 6:
            if (model.held) return "";
            if (draw(4) == 0) return model.Down(true), mouse(WM_LBUTTONDBLCLK), "double ";
            return model.Down(false), mouse(WM_LBUTTONDOWN), "down ";
        case 7:
        case 8:
            if (!model.inside && !model.captured) return model.held = false, "(up elsewhere) ";
            return model.Up(), mouse(WM_LBUTTONUP), "up ";
        case 9: return model.Leave(), control->SendMessage(WM_MOUSELEAVE), "leave ";
        case 10: return model.Steal(), ::SetCapture(ground.GetHandle()), ::ReleaseCapture(), "steal ";
        case 11: return model.LetGo(), control->SendMessage(WM_CANCELMODE), "cancel ";
        case 12:
            if (!model.enabled) return model.enabled = true, control->EnableWindow(true), "enable ";
            return model.Take(model.enabled), control->EnableWindow(false), "disable ";
        case 13:
            if (!model.shown) return model.shown = true, control->ShowWindow(SW_SHOW), "show ";
            return model.Take(model.shown), control->ShowWindow(SW_HIDE), "hide ";
        case 14:
            if (!model.open) return model.open = true, ground.EnableWindow(true), "ground on ";
            if (draw(2) == 0) return model.open = false, ground.EnableWindow(false), "ground off ";
            if (!model.Takes() || model.kind == Kind::Link || draw(2) == 0)
                return model.LoseFocus(), ground.SetFocus(), "focus away ";
            return model.focus = true, control->SetFocus(), "focus ";
        default:
            if (!model.focus || !model.Takes() || (!model.IsSkin() && model.pressed)) return "";
            control->SendMessage(WM_KEYDOWN, VK_SPACE);
            const bool ends = draw(2) == 0;
            if (ends && draw(2) == 0) {
                model.LetGo(), control->SendMessage(WM_CANCELMODE);
            } else if (ends) {
                model.LoseFocus(), ground.SetFocus();
            } else {
                model.Click();
            }
            control->SendMessage(WM_KEYUP, VK_SPACE);
            return ends ? "space ended " : "space ";
        }
    }

    CGround ground;
    CNoOpener opener;
    std::unique_ptr<CWnd> control;
    HWND* heir = nullptr;
    CWnd next, other;
};

INSTANTIATE_TEST_SUITE_P(All, HoverControls,
                         testing::Values(Kind::Strip, Kind::Picture, Kind::Push, Kind::Check, Kind::Round, Kind::Link));

// One object for all windows, each of which ends amidst the input.
TEST_P(HoverControls, BehaveAsTheModelUnderRandomInput) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    *heir = other.GetHandle();
    for (int window = 0; window < 40; ++window) {
        ground.EnableWindow(true);
        other.SetFocus();
        Bind(ground);
        control->SendMessage(WM_KEYUP, VK_SPACE); // pressed in the window before
        Model model{GetParam()};
        model.clicks = opened();
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

TEST_P(HoverControls, PassTheFocusOnWhenTheyAreDisabledOrHidden) {
    const bool icon = GetParam() == Kind::Push || GetParam() == Kind::Check;
    CWnd panel;
    panel.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 60, 60}, ground.GetHandle(), 3);
    for (const bool nested : {false, true}) {
        const CWnd& parent = nested ? panel : ground;
        if (control->GetHandle() != nullptr) control->DestroyWindow();
        Bind(parent);
        for (const char* way : {"disabled", "hidden", "placed"}) {
            for (const char* heirIs : {"there", "none", "disabled", "hidden"}) {
                const std::string state = heirIs;
                *heir = state == "none" ? nullptr : other.GetHandle();
                other.EnableWindow(state != "disabled");
                other.ShowWindow(state == "hidden" ? SW_HIDE : SW_SHOW);
                const auto takeAway = [&] {
                    if (way[0] == 'd') return static_cast<void>(control->EnableWindow(false));
                    if (way[0] == 'h') return static_cast<void>(control->ShowWindow(SW_HIDE));
                    control->SetWindowPos(nullptr, 0, 0, 0, 0,
                                          SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_HIDEWINDOW);
                };
                control->SetFocus();
                takeAway();
                const HWND focus = ::GetFocus();
                EXPECT_EQ(focus == other.GetHandle(), state == "there") << way << nested << state;
                if (state != "there" && way[0] == 'd') {
                    EXPECT_EQ(focus, (nested && icon ? panel : next).GetHandle()) << nested << state;
                }
                control->EnableWindow(true);
                control->ShowWindow(SW_SHOW);
                next.SetFocus();
                takeAway();
                EXPECT_EQ(::GetFocus(), next.GetHandle()) << "it had none to pass on: " << way << nested;
                control->EnableWindow(true);
                control->ShowWindow(SW_SHOW);
            }
        }
    }
    next.EnableWindow(false);
    *heir = nullptr;
    control->SetFocus();
    control->EnableWindow(false);
    if (icon) {
        EXPECT_EQ(::GetFocus(), panel.GetHandle()) << "without another tab stop, the parent";
    }
}

TEST_P(HoverControls, FeelThatTheRealPointerComesAndGoes) {
    Bind(ground);
    if (GetParam() == Kind::Round) return;
    POINT point{3, 5};
    ::ClientToScreen(control->GetHandle(), &point);
    ::SetCursorPos(point.x, point.y);
    EXPECT_TRUE(PumpUntil([this] { return Look() == '2'; }));
    ::SetCursorPos(700, 700);
    EXPECT_TRUE(PumpUntil([this] { return Look() == '1' && ::GetCapture() == nullptr; }));
}

} // namespace
