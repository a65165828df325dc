#include "dialogs/ComSettingDlg.h"

#include <utility>

#include "resources/ResourceIds.h"
#include "serial/PortSelection.h"

CComSettingDlg::CComSettingDlg() : CComSettingDlg([](const std::string& name) { return ProbePort(name.c_str()); }) {}

CComSettingDlg::CComSettingDlg(PortProbe portProbe)
    : CDialog(IDD_COM_SETTING), probe(std::move(portProbe)), text(TextOf(values)) {}

const CMessageMap& CComSettingDlg::ClassMap() {
    static constexpr std::array entries{OnCommandId<IDC_COM_SETTING_OK, &CComSettingDlg::OnConfirm>(),
                                        OnCommandId<IDC_COM_SETTING_CANCEL, &CComSettingDlg::OnDiscard>()};
    static const CMessageMap map{&CDialog::ClassMap(), entries};
    return map;
}

void CComSettingDlg::SetValues(const PortSettings& settings) {
    values = settings;
    text = TextOf(settings);
}

void CComSettingDlg::DoDataExchange(CDataExchange& exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_COM_SETTING_PORT, portCombo);
    DDX_Control(exchange, IDC_COM_SETTING_STOP_BITS, stopBitsCombo);
    DDX_Control(exchange, IDC_COM_SETTING_BAUD, baudCombo);
    DDX_Control(exchange, IDC_COM_SETTING_DATA_BITS, dataBitsCombo);
    DDX_Control(exchange, IDC_COM_SETTING_PARITY, parityCombo);
}

bool CComSettingDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    for (const std::int32_t number : CPortFinder(probe).Await())
        portCombo.SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(PortName(number).c_str()));
    SetDlgItemText(IDC_COM_SETTING_PORT, text.port);
    SetDlgItemText(IDC_COM_SETTING_BAUD, text.baudRate);
    SetDlgItemText(IDC_COM_SETTING_STOP_BITS, text.stopBits);
    SetDlgItemText(IDC_COM_SETTING_DATA_BITS, text.dataBits);
    SetDlgItemText(IDC_COM_SETTING_PARITY, text.parity);
    confirmed = false;
    return true;
}

void CComSettingDlg::OnConfirm() {
    text = {GetDlgItemText(IDC_COM_SETTING_PORT), GetDlgItemText(IDC_COM_SETTING_BAUD),
            GetDlgItemText(IDC_COM_SETTING_PARITY), GetDlgItemText(IDC_COM_SETTING_DATA_BITS),
            GetDlgItemText(IDC_COM_SETTING_STOP_BITS)};
    confirmed = true;
    CDialog::OnOK();
}

void CComSettingDlg::OnDiscard() {
    confirmed = false;
    CDialog::OnCancel();
}
