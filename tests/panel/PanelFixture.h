// A real panel on a host window, over the program's own queue and a closed line: a test gives it replies as the worker
// posts them, clicks and types, and reads the controls and what goes out.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "Records.h"
#include "TimeFactor.h"
#include "link/CommandQueue.h"
#include "link/ReplyMessages.h"
#include "panel/CounterPanel.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"
#include "shell/ScreenReader.h"

class CTestPanel : public CCounterPanel {
public:
    void SendPoll(std::uint8_t address) override { polls.push_back(address); }

    // The silence of the closed line is not let through: the test itself says what each counter answers.
    void PostReply(std::uint32_t message, std::unique_ptr<ReplyBlock> block, std::intptr_t lParam) override {
        if (lineAnswers || ::GetCurrentThreadId() == testThread) CCounterPanel::PostReply(message, std::move(block), lParam);
    }

    void LogTransmitted(const void* buffer, std::uint32_t count) override {
        {
            const std::lock_guard guard(lock);
            const auto* bytes = static_cast<const std::uint8_t*>(buffer);
            sent.insert(sent.end(), bytes, bytes + count);
        }
        CCounterPanel::LogTransmitted(buffer, count);
    }

    bool lineAnswers = false; // set before the first command: what the worker brings counts too
    std::vector<int> polls;
    std::mutex lock;
    Bytes sent; // guarded by `lock`
    const DWORD testThread = ::GetCurrentThreadId();
};

class PanelTest : public testing::Test {
protected:
    PanelTest() {
        INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
        ::InitCommonControlsEx(&classes);
        host.Create("STATIC", "Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 500, 400}, nullptr, 0);
        CreatePanel();
    }
    ~PanelTest() override { ReleasePanel(); }

    void CreatePanel() {
        panel = std::make_unique<CTestPanel>();
        EXPECT_TRUE(panel->Create(host));
        panel->ShowWindow(SW_SHOW);
    }
    void ReleasePanel() {
        RunQueue(); // no command is left for a panel that is gone
        CCommPort::Instance()->SetTap(nullptr);
        panel->DestroyWindow();
        panel.reset();
    }

    static bool PumpUntil(const std::function<bool()>& reached) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30) * TimeFactor();
        for (MSG message{};; ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT)) {
            while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
                ::DispatchMessageA(&message);
                if (message.message == WM_TIMER)
                    break; // comes only once nothing else waits, and then may come for ever
            }
            if (reached()) return true;
            if (std::chrono::steady_clock::now() > deadline) return false;
        }
    }
    static void Pump() {
        PumpUntil([] { return true; });
    }

    // Waits until every command has run and what it posted is handled.
    static void RunQueue() {
        static std::atomic<bool> ran;
        struct CLastCommand : CCommand {
            void Execute() override { ran = true; }
        };
        ran = false;
        CCommandQueue::Instance()->Add(std::make_unique<CLastCommand>());
        EXPECT_TRUE(PumpUntil([] { return ran.load(); }));
        Pump();
    }

    // The bytes that have gone out since the last call, those of queued commands included.
    Bytes Sent() {
        RunQueue();
        const std::lock_guard guard(panel->lock);
        return std::exchange(panel->sent, {});
    }

    // Gives the panel a reply, to which `Reply` adds its handling and what the boxes say that come of it.
    void Post(std::uint32_t message, int address, const Bytes& bytes, const CounterRecord& settings = {}) {
        auto block = std::make_unique<ReplyBlock>();
        block->length = static_cast<std::int32_t>(bytes.size());
        block->address = address;
        std::ranges::copy(bytes, block->data.begin());
        block->settings = settings;
        panel->PostReply(message, std::move(block), address);
    }
    std::string Reply(std::uint32_t message, int address, const Bytes& bytes, const CounterRecord& settings = {}) {
        const CBoxReader reader;
        Post(message, address, bytes, settings);
        Pump();
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
    void TypeMinute(WORD minute) const {
        SYSTEMTIME time{2012, 3, 0, 4, 5, minute, 7, 0};
        ::SendMessageA(Control(IDC_DATE_PICKER), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    }

    // The choices in force by their captions, then sensitivity, period and address.
    std::string SettingsShown() const {
        std::string shown;
        for (const int first : {IDC_LANGUAGE_ENGLISH, IDC_DIRECTION_IN, IDC_SD_DETECT_YES}) {
            EXPECT_NE(IsEnabled(first), IsEnabled(first + 1)) << first;
            shown += Text(IsEnabled(first) ? first + 1 : first) + " ";
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
    std::unique_ptr<CTestPanel> panel;
};
