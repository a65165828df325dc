// A dialog that plays a script: the test says what happens at its initialisation and then, one by one, at its timer
// ticks.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "TestIds.h"
#include "framework/Dialog.h"

class CScriptedDialog : public CDialog {
public:
    explicit CScriptedDialog(UINT templateNumber, CWnd* parentWindow = nullptr)
        : CDialog(templateNumber, parentWindow) {}

    static constexpr INT_PTR scriptOver = 77; // how the dialog ends when the steps have run out

    std::function<void()> atInit;
    std::vector<std::function<void()>> steps;
    std::function<void()> meanwhile; // at the ticks while a step still runs: one that shows a dialog or a menu
    std::string trace;               // "ok " and "cancel "
    bool closes = true;              // whether OK and Cancel end the dialog
    bool everVisible = false;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        everVisible = everVisible || IsWindowVisible();
        if (message == WM_TIMER) Tick();
        return CDialog::WindowProc(message, wParam, lParam);
    }

protected:
    bool OnInitDialog() override {
        CDialog::OnInitDialog();
        if (atInit) atInit();
        if (!steps.empty()) SetTimer(1, 10);
        return true;
    }
    void OnOK() override {
        trace += "ok ";
        if (closes) CDialog::OnOK();
    }
    void OnCancel() override {
        trace += "cancel ";
        if (closes) CDialog::OnCancel();
    }

private:
    void Tick() {
        if (running) {
            if (meanwhile) meanwhile();
        } else if (next == steps.size()) {
            EndDialog(scriptOver);
        } else {
            running = true;
            steps[next++]();
            running = false;
        }
    }

    std::size_t next = 0;
    bool running = false;
};
