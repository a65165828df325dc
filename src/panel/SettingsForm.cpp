#include "panel/SettingsForm.h"

#include <utility>

#include "framework/Text.h"
#include "panel/FittingFont.h"
#include "resources/ResourceIds.h"

void CSettingsForm::SetStartSettings() {
    ShowPair(LanguagePair(), 0);
    ShowPair(DirectionPair(), 0);
    ShowPair(SdDetectPair(), 1);
    constexpr WPARAM longestNumber = 9; // characters: whatever number they make has room in 32 bits
    constexpr std::pair<int, int> numbers[] = {
        {IDC_SENSITIVITY_EDIT, 21}, {IDC_SD_PERIOD_EDIT, 4}, {IDC_ADDRESS_EDIT, 0}};
    for (const auto& [edit, number] : numbers) {
        ::SendDlgItemMessageA(dialog.GetHandle(), edit, EM_LIMITTEXT, longestNumber, 0);
        dialog.SetDlgItemInt(edit, number);
    }
}

// The picker is as wide in every language, and a language's font may be too wide for a whole date and time.
void CSettingsForm::PreparePicker() {
    datePicker.SetFormat("yyyy-MM-dd HH:mm:ss");
    constexpr LONG margins = 6;
    LONG width = datePicker.GetClientRect().Width() - margins;
    if (const HWND arrows = ::GetWindow(datePicker.GetHandle(), GW_CHILD)) {
        width -= CWnd::FromHandle(arrows)->GetWindowRect().Width();
    }
    CFont fitting = MakeFittingFont(datePicker, "0000-00-00 00:00:00", width);
    if (fitting.IsEmpty()) return;
    datePicker.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(fitting.GetHandle()), TRUE);
    pickerFont = std::move(fitting); // the former one goes only now that the control doesn't use it any more
}

void CSettingsForm::ShowSettings(const CounterRecord& record) {
    // Most polls bring little that is new: what shows its value already isn't written, and so not painted, again.
    ShowNumber(IDC_SENSITIVITY_EDIT, record.sensitivity);
    ShowNumber(IDC_SD_PERIOD_EDIT, record.sdPeriod);
    ShowNumber(IDC_ADDRESS_EDIT, record.address);
    ShowPair(LanguagePair(), record.language);
    ShowPair(DirectionPair(), record.direction);
    ShowPair(SdDetectPair(), record.sdDetect);
    const CTime time(record.deviceTime);
    if (datePicker.GetTime() != time) datePicker.SetTime(time);
}

CounterRecord CSettingsForm::ReadControls() const {
    CounterRecord record;
    record.sensitivity = dialog.GetDlgItemInt(IDC_SENSITIVITY_EDIT);
    record.sdPeriod = dialog.GetDlgItemInt(IDC_SD_PERIOD_EDIT);
    record.address = dialog.GetDlgItemInt(IDC_ADDRESS_EDIT);
    record.language = englishButton.IsWindowEnabled() ? 1 : 0;
    record.direction = inButton.IsWindowEnabled() ? 1 : 0;
    record.sdDetect = yesButton.IsWindowEnabled() ? 1 : 0;
    record.deviceTime = datePicker.GetTime().GetTime();
    return record;
}

void CSettingsForm::ShowNumber(int editId, std::int32_t number) const {
    // The write raises the edit's change notification, so its range holds for what is shown too.
    if (dialog.GetDlgItemText(editId) != FormatText("%d", number)) dialog.SetDlgItemInt(editId, number);
}

void CSettingsForm::ShowPair(const ChoicePair& pair, std::int32_t value) {
    ShowChoice(pair.first, pair.firstText, value == 0);
    ShowChoice(pair.second, pair.secondText, value == 1);
}

void CSettingsForm::ShowChoice(CSkinButton& button, const std::string& text, bool inForce) const {
    button.EnableWindow(!inForce);
    const COLORREF color = inForce ? activeColor : inactiveColor;
    if (!button.Shows(text, color)) CaptionButton(button, text, color);
}

void CSettingsForm::KeepInRange(int editId, const ValueRange& range) const {
    const int value = dialog.GetDlgItemInt(editId);
    const int kept = range.Clamp(value);
    if (kept != value) dialog.SetDlgItemText(editId, std::to_string(kept));
}

void CSettingsForm::CaptionButton(CSkinButton& button, const std::string& text, COLORREF color) {
    button.SetCaption(text, 5, color);
    button.Invalidate();
}
