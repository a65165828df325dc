// The program's one top-level window: title, icon, the port settings, and the panel that fills it.
#pragma once

#include <cstdint>
#include <string>

#include "framework/Dialog.h"
#include "panel/PanelFrame.h"
#include "serial/PortSettings.h"

class CCounterPanel;

class CFrameDlg : public CDialog, public CPanelFrame {
public:
    explicit CFrameDlg(CWnd* parentWindow);

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // Whether the running language is Chinese. Set before DoModal.
    bool language = false;
    // Whether DoModal has made the window.
    bool HasBegun() const { return begun; }

    const AvailablePorts& GetAvailablePorts() const override { return availablePorts; }
    void SelectPort(std::int32_t portNumber) override { port.portNumber = portNumber; }
    int OpenSelectedPort() override;
    void OnComSetting() override;
    std::int32_t GetSelectedPort() const override { return port.portNumber; }
    bool IsChinese() const override { return language; }

    // With no focus in the panel, Enter goes to the panel, and Escape closes nothing.
    void OnOK() override;
    void OnCancel() override {}

protected:
    bool OnInitDialog() override;

private:
    // False if another copy has it.
    bool TakeName();
    bool CreatePanel();
    void FitPanel();
    // `limit` in ms.
    void OpenPortWithin(std::uint32_t limit);
    // Tells the panel whether the port is open, and stores the number of an open one.
    void ReportPort();

    void OnSysCommand(UINT command, LPARAM lParam);
    void OnPaint();
    HICON OnQueryDragIcon() { return icon; }
    void OnSize(UINT kind, int width, int height);
    LRESULT OnActivate(WPARAM state, LPARAM);
    void OnSysColorChange();
    void OnClose();
    LRESULT OnEndSession(WPARAM ends, LPARAM);
    void OnUnusedCommand() {}

    bool begun = false;
    HICON icon;                     // shared, never destroyed
    CCounterPanel* panel = nullptr; // on the heap until the process ends: replies may be under way to it
    std::string title;
    AvailablePorts availablePorts;
    PortSettings port;
};
