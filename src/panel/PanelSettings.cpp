// What the user changes and sends: the pairs of choices, the edits with their ranges, Update and Clear.
#include "panel/CounterPanel.h"

#include "link/DeviceCommands.h"
#include "panel/SettingsChange.h"
#include "resources/ResourceIds.h"

void CCounterPanel::Choose(const ChoicePair& pair, std::int32_t value) {
    if (!polling) ShowPair(pair, value);
}

void CCounterPanel::OnLanguageChoice(UINT id) {
    Choose(LanguagePair(), id == IDC_LANGUAGE_ENGLISH ? 0 : 1);
}
void CCounterPanel::OnDirectionChoice(UINT id) {
    Choose(DirectionPair(), id == IDC_DIRECTION_IN ? 0 : 1);
}
void CCounterPanel::OnSdDetectChoice(UINT id) {
    Choose(SdDetectPair(), id == IDC_SD_DETECT_YES ? 0 : 1);
}

void CCounterPanel::OnSensitivityChange() {
    KeepInRange(IDC_SENSITIVITY_EDIT, sensitivityRange);
}
void CCounterPanel::OnPeriodChange() {
    KeepInRange(IDC_SD_PERIOD_EDIT, sdPeriodRange);
}
void CCounterPanel::OnAddressChange() {
    KeepInRange(IDC_ADDRESS_EDIT, addressRange);
}

void CCounterPanel::OnAll() {
    allCounters = !allCounters;
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
