// A real panel on a host window, over the program's own queue and a closed line: a test gives it replies as the worker
// posts them, clicks and types, and reads the controls and what goes out.
#pragma once

#include <gtest/gtest.h>

#include "framework/CommonControls.h"
#include "link/ReplyMessages.h"
#include "panel/CounterPanel.h"
#include "Records.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"
#include "support/Boxes.h"
#include "support/Commands.h"

struct CTestPanel : CCounterPanel {
    // The silence of the closed line is not let through: the test itself says what each counter answers.
    struct CSilence : CReplyTarget {
        void PostReply(std::uint32_t, std::unique_ptr<ReplyBlock>, std::intptr_t) override {}
    };

    CTestPanel() { replyTarget = &silence; }

    void SendPoll(std::uint8_t address) override { polls.push_back(address); }

    void LogTransmitted(const void* buffer, std::uint32_t count) override {
        const auto* bytes = static_cast<const std::uint8_t*>(buffer);
        sent.insert(sent.end(), bytes, bytes + count);
        CCounterPanel::LogTransmitted(buffer, count);
    }

    std::vector<int> polls;
    Bytes sent; // written by the worker; to be read once the queue has run
    CSilence silence;
};

// The ports 3 and 17. Opening one gives a file that stands for the device.
struct CTestFrame : CPanelFrame {
    const AvailablePorts& GetAvailablePorts() const override { return ports; }
    void SelectPort(std::int32_t portNumber) override {
        selected = portNumber;
        trace += std::to_string(portNumber) + (CCommPort::Instance()->IsOpen() ? " while open, " : ", ");
    }
    std::int32_t GetSelectedPort() const override { return selected; }
    bool IsChinese() const override { return chinese; }
    int OpenSelectedPort() override {
        trace += "open, ";
        if (!device.empty()) CCommPort::Instance()->Open(device.c_str(), 0, 0, true);
        panel->ShowPortState(CCommPort::Instance()->IsOpen());
        return 1;
    }
    void OnComSetting() override { trace += "setting, "; }

    CCounterPanel* panel = nullptr;
    AvailablePorts ports{{3, 17}, 2};
    std::int32_t selected = 17;
    bool chinese = false;
    std::string device, trace; // the file; what the panel has asked for
};

class PanelTest : public testing::Test {
protected:
    PanelTest() {
        INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
        SystemCommonControls().initialise(&classes);
        host.Create("STATIC", "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 500, 400}, nullptr, 0);
        CreatePanel();
    }
    ~PanelTest() override { ReleasePanel(); }

    void CreatePanel() {
        panel = std::make_unique<CTestPanel>();
        panel->frame = &frame;
        frame.panel = panel.get();
        EXPECT_TRUE(panel->Create(host));
        panel->ShowWindow(SW_SHOW);
    }
    void ReleasePanel() {
        RunQueue(); // no command is left for a panel that is gone
        CCommPort::Instance()->SetTap(nullptr);
        panel->DestroyWindow();
    }

    // The bytes that have gone out since the last call, those of queued commands included.
    Bytes Sent() {
        RunQueue();
        return std::exchange(panel->sent, {});
    }

    // Gives the panel a reply and tells what the boxes say that come of it. Of a command's outcome, no bytes are
    // silence.
    std::string Reply(std::uint32_t message, int address, const Bytes& bytes, const CounterRecord& settings = {}) {
        std::unique_ptr<ReplyBlock> block;
        if (!bytes.empty() || message <= WM_SETTINGS_REPLY) {
            block = std::make_unique<ReplyBlock>(ReplyBlock{static_cast<int>(bytes.size()), address, {}, settings});
            std::ranges::copy(bytes, block->data.begin());
        }
        const CBoxReader reader;
        panel->replies.PostReply(message, std::move(block), address);
        PumpMessages();
        return reader.texts;
    }

    // 0 is selected: 12 in, 34 out, sensitivity 21. Counter 2 is Chinese, OUT, YES, period 31, sensitivity 200.
    void FindTwoCounters() {
        Reply(WM_POLL_REPLY, 0, Status(0, 12, 34));
        Reply(WM_SETTINGS_REPLY, 0, Settings(0));
        Reply(WM_POLL_REPLY, 2, Status(2, 56, 78));
        Reply(WM_SETTINGS_REPLY, 2, Settings(2, 200, 0x1F));
        Sent();
    }

    HWND Control(int id) const { return FindControl(panel->GetHandle(), id); }
    std::string Text(int id) const { return TextOf(Control(id)); }
    bool IsEnabled(int id) const { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool IsVisible(int id) const { return ::IsWindowVisible(Control(id)) != FALSE; }
    void Click(int id) const {
        EXPECT_TRUE(id == IDC_ALL || (IsVisible(id) && IsEnabled(id))) << id << " can't be clicked";
        const HWND control = Control(id);
        ::SendMessageA(::GetParent(control), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(control));
    }
    void Type(int id, const std::string& text) const { ::SetWindowTextA(Control(id), text.c_str()); }

    // A button's caption, with "." behind it if it isn't blue but grey, and "-" if it can't be pressed.
    std::string Look(int id) const {
        const auto* button = dynamic_cast<CSkinButton*>(CWnd::FromHandlePermanent(Control(id)));
        const std::string caption = Text(id);
        const char* const color = button->Shows(caption, 0xFF0000) ? "" : button->Shows(caption, 0x505050) ? "." : "?";
        return caption + color + (IsEnabled(id) ? "" : "-");
    }
    // The choices in force by their captions, then sensitivity, period and address.
    std::string SettingsShown() const {
        std::string shown;
        for (const int first : {IDC_LANGUAGE_ENGLISH, IDC_DIRECTION_IN, IDC_SD_DETECT_YES}) {
            const int inForce = IsEnabled(first) ? first + 1 : first;
            EXPECT_TRUE(Look(inForce) == Text(inForce) + "-" && Look(first + 1 - (inForce - first)).back() == '.');
            shown += Text(inForce) + " ";
        }
        return shown + Text(IDC_SENSITIVITY_EDIT) + " " + Text(IDC_SD_PERIOD_EDIT) + " " + Text(IDC_ADDRESS_EDIT);
    }
    std::string Counts() const { return Text(IDC_IN_DISPLAY) + " " + Text(IDC_OUT_DISPLAY); }

    // The visible address buttons, each with a blank, or an asterisk if it is checked.
    std::string Buttons() const {
        std::string buttons;
        for (int id = IDC_ADDRESS_BUTTON_FIRST; id <= IDC_ADDRESS_BUTTON_LAST; ++id) {
            if (!IsVisible(id)) continue;
            buttons += Text(id) + (::SendMessageA(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED ? "*" : " ");
        }
        return buttons;
    }

    CWnd host;
    CTestFrame frame;
    std::unique_ptr<CTestPanel> panel;
};
