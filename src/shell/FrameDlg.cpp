#include "shell/FrameDlg.h"

#include <utility>

#include "dialogs/AboutDlg.h"
#include "dialogs/ComSettingDlg.h"
#include "dialogs/StoredValues.h"
#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "framework/SystemHandles.h"
#include "link/CommandQueue.h"
#include "panel/CounterPanel.h"
#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"
#include "serial/PortSelection.h"
#include "shell/StopCommands.h"

namespace {

constexpr UINT aboutSystemCommand = 16;

HICON LoadApplicationIcon() {
    const char* name = MAKEINTRESOURCEA(IDI_APPLICATION_ICON);
    return ::LoadIconA(FindResourceModule(name, RT_GROUP_ICON), name);
}

BOOL CALLBACK PassColorChange(HWND window, LPARAM) {
    ::SendMessageA(window, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

// Of copies that start at the same moment one at a time looks for others and takes its name. One that hangs in between
// keeps the rest for a while only.
class CStartTurn {
public:
    CStartTurn() {
        const DWORD waited = ::WaitForSingleObject(mutex.GetHandle(), patience);
        isOurs = waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
    }
    CStartTurn(const CStartTurn&) = delete;
    CStartTurn& operator=(const CStartTurn&) = delete;
    ~CStartTurn() {
        if (isOurs) ::ReleaseMutex(mutex.GetHandle());
    }

private:
    static constexpr DWORD patience = 3000; // ms
    CKernelHandle mutex{::CreateMutexA(nullptr, FALSE, "Quorvane.Start")};
    bool isOurs = false;
};

} // namespace

CFrameDlg::CFrameDlg(CWnd* parentWindow)
    : CDialog(IDD_FRAME, parentWindow), icon(LoadApplicationIcon()), title(PRODUCT_TITLE) {}

const CMessageMap& CFrameDlg::ClassMap() {
    static constexpr std::array entries{On<WM_SYSCOMMAND, &CFrameDlg::OnSysCommand>(),
                                        On<WM_PAINT, &CFrameDlg::OnPaint>(),
                                        On<WM_QUERYDRAGICON, &CFrameDlg::OnQueryDragIcon>(),
                                        On<WM_SIZE, &CFrameDlg::OnSize>(),
                                        OnMessage<WM_ACTIVATE, &CFrameDlg::OnActivate>(),
                                        On<WM_SYSCOLORCHANGE, &CFrameDlg::OnSysColorChange>(),
                                        On<WM_CLOSE, &CFrameDlg::OnClose>(),
                                        OnMessage<WM_ENDSESSION, &CFrameDlg::OnEndSession>(),
                                        OnCommandId<ID_COM_SETTING, &CFrameDlg::OnComSetting>(),
                                        OnCommandId<ID_OPEN_LOG, &CFrameDlg::OnUnusedCommand>(),
                                        OnCommandId<ID_FRAME_UNUSED, &CFrameDlg::OnUnusedCommand>()};
    static const CMessageMap map{&CDialog::ClassMap(), entries};
    return map;
}

bool CFrameDlg::OnInitDialog() {
    begun = true;
    CDialog::OnInitDialog();
    SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    SendMessage(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
    if (!TakeName()) {
        // Nothing after this: log, ports and stored values belong to the copy that runs.
        CDialog::OnOK();
        return true;
    }
    if (ReadRegistryInt("COM", port.portNumber, 1) == 0) WriteRegistryInt("COM", 1);
    const auto probe = [](const std::string& name) { return ProbePort(name.c_str()); };
    CPortFinder finder(probe, availablePorts.numbers.size()); // while the panel is made
    if (!CreatePanel()) {
        EndDialog(IDABORT); // the application tells it
        return true;
    }
    availablePorts = EnumeratePorts(finder);
    OpenPortWithin(openLimitAtStart);
    return true;
}

bool CFrameDlg::TakeName() {
    const CStartTurn turn;
    // This window doesn't match: its caption is still that of the template. A hidden one mostly is about to end.
    constexpr DWORD patience = 1000, step = 50, driverRest = 500; // ms
    DWORD waited = 0;
    while (const HWND other = ::FindWindowA(nullptr, title.c_str())) {
        if (::IsWindowVisible(other) != FALSE || waited >= patience) return false;
        ::Sleep(step);
        waited += step;
    }
    SetWindowText(title);
    // It closed its device a moment ago, and some drivers refuse one for so long after that.
    if (waited > 0) ::Sleep(driverRest);
    return true;
}

bool CFrameDlg::CreatePanel() {
    panel = new CCounterPanel;
    panel->frame = this;
    if (!panel->Create(*this)) return false;
    FitPanel();
    panel->ShowWindow(SW_SHOW);
    return true;
}

void CFrameDlg::FitPanel() {
    if (panel != nullptr) panel->MoveWindow(GetClientRect());
}

int CFrameDlg::OpenSelectedPort() {
    OpenPortWithin(openLimit);
    return 1;
}

void CFrameDlg::OpenPortWithin(std::uint32_t limit) {
    if (CCommandQueue::Instance()->IsShut()) return; // the end has closed it for good
    ::OpenSelectedPort(*CCommPort::Instance(), port, limit);
    ReportPort();
}

void CFrameDlg::ReportPort() {
    const bool open = CCommPort::Instance()->IsOpen();
    if (panel != nullptr) panel->ShowPortState(open);
    if (open) WriteRegistryInt("COM", port.portNumber);
}

void CFrameDlg::OnComSetting() {
    CComSettingDlg dialog;
    dialog.SetValues(port);
    dialog.DoModal();
    if (!dialog.IsConfirmed() || CCommandQueue::Instance()->IsShut()) return;
    const PortSettings former = std::exchange(port, dialog.GetValues());
    if (MoveLine(*CCommPort::Instance(), former, port)) ReportPort();
}

void CFrameDlg::OnOK() {
    if (panel != nullptr) panel->OnOK();
}

void CFrameDlg::OnSysCommand(UINT command, LPARAM) {
    // The low four bits are the system's own.
    if ((command & 0xFFF0) == aboutSystemCommand) {
        CAboutDlg().DoModal();
    } else {
        Default();
    }
}

void CFrameDlg::OnPaint() {
    if (!IsIconic()) {
        Default();
        return;
    }
    CPaintDC dc(*this);
    SendMessage(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc.GetHandle()));
    const CRect client = GetClientRect();
    const int x = (client.Width() - ::GetSystemMetrics(SM_CXICON) + 1) / 2;
    const int y = (client.Height() - ::GetSystemMetrics(SM_CYICON) + 1) / 2;
    ::DrawIcon(dc.GetHandle(), x, y, icon);
}

void CFrameDlg::OnSize(UINT, int, int) {
    Default();
    FitPanel();
}

// The platform tells top-level windows alone.
void CFrameDlg::OnSysColorChange() {
    ::EnumChildWindows(GetHandle(), &PassColorChange, 0);
    Default();
}

// The platform gives the focus back to what had it, which may have been hidden or disabled meanwhile.
LRESULT CFrameDlg::OnActivate(WPARAM state, LPARAM) {
    const LRESULT result = Default();
    if (LOWORD(state) != WA_INACTIVE && panel != nullptr && !IsIconic() && IsWindowEnabled()) panel->KeepFocus();
    return result;
}

void CFrameDlg::OnClose() {
    EndAllLoops(); // hides every window at once
    if (panel != nullptr) panel->StopWork();
    StopCommands(); // while there still is a window for the command in flight
}

LRESULT CFrameDlg::OnEndSession(WPARAM ends, LPARAM) {
    if (ends != 0) OnClose(); // the system may end the process as soon as this returns
    return 0;
}
