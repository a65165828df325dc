// What the user changes and sends: the pairs of choices, the edits with their ranges, Update and Clear.
#include "panel/CounterPanel.h"

#include "link/DeviceCommands.h"
#include "panel/SettingsChange.h"
#include "resources/ResourceIds.h"

namespace {

void KeepInRange(const CWnd& dialog, int editId, const ValueRange& range) {
    const int value = dialog.GetDlgItemInt(editId);
    const int kept = range.Clamp(value);
    if (kept != value) dialog.SetDlgItemText(editId, std::to_string(kept));
}

} // namespace

void CCounterPanel::Choose(const ChoicePair& pair, std::int32_t value) {
    if (!polling) ShowPair(pair, value);
}

void CCounterPanel::OnEnglish() {
    Choose(LanguagePair(), 0);
}
void CCounterPanel::OnChinese() {
    Choose(LanguagePair(), 1);
}
void CCounterPanel::OnIn() {
    Choose(DirectionPair(), 0);
}
void CCounterPanel::OnOut() {
    Choose(DirectionPair(), 1);
}
void CCounterPanel::OnYes() {
    Choose(SdDetectPair(), 0);
}
void CCounterPanel::OnNo() {
    Choose(SdDetectPair(), 1);
}

void CCounterPanel::OnSensitivityChange() {
    KeepInRange(*this, IDC_SENSITIVITY_EDIT, sensitivityRange);
}
void CCounterPanel::OnPeriodChange() {
    KeepInRange(*this, IDC_SD_PERIOD_EDIT, sdPeriodRange);
}
void CCounterPanel::OnAddressChange() {
    KeepInRange(*this, IDC_ADDRESS_EDIT, addressRange);
}

void CCounterPanel::OnAll() {
    allCounters = !allCounters;
}

CounterRecord CCounterPanel::ReadControls() {
    CounterRecord record;
    record.sensitivity = GetDlgItemInt(IDC_SENSITIVITY_EDIT);
    record.sdPeriod = GetDlgItemInt(IDC_SD_PERIOD_EDIT);
    record.address = GetDlgItemInt(IDC_ADDRESS_EDIT);
    record.language = englishButton.IsWindowEnabled() ? 1 : 0;
    record.direction = inButton.IsWindowEnabled() ? 1 : 0;
    record.sdDetect = yesButton.IsWindowEnabled() ? 1 : 0;
    record.deviceTime = datePicker.GetTime().GetTime();
    return record;
}

void CCounterPanel::OnUpdate() {
    allCounters = true;
    const CounterRecord former =
        IsCounterAddress(selected) ? records[static_cast<std::size_t>(selected)] : CounterRecord{};
    const CounterRecord wanted = ReadControls();
    const SettingsChange change = CompareSettings(former, wanted);
    const WireRequest request{
        .address = allCountersAddress, .newAddress = static_cast<std::uint8_t>(wanted.address), .settings = wanted};
    if (change.writeSettings) SendCommand(*replyTarget, RequestCode::WriteSettings, request);
    if (change.setClock) SendCommand(*replyTarget, RequestCode::SetClock, request);
    if (change.setAddress) SendCommand(*replyTarget, RequestCode::SetAddress, {.newAddress = request.newAddress});
}

void CCounterPanel::OnClear() {
    txByteTotal = 0;
    rxByteTotal = 0;
    ShowTrafficTotals();
    SendCommand(*replyTarget, RequestCode::ClearCounts,
                {.address = allCounters ? allCountersAddress : static_cast<std::uint8_t>(selected)});
}
