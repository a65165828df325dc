// The controls in which the user sees and edits a counter's settings: a record into them, and they into a record.
//
// What is edited lives in the controls: of a pair of choices, the button in force is the disabled one.
#pragma once

#include <string>

#include "framework/Controls.h"
#include "framework/Gdi.h"
#include "link/CounterRecord.h"
#include "panel/SettingsChange.h"
#include "skin/NamedControl.h"
#include "skin/SkinButton.h"
#include "skin/Theme.h"

class CSettingsForm {
protected:
    // A pair of buttons that works like two radio buttons.
    struct ChoicePair {
        CSkinButton& first;
        const std::string& firstText;
        CSkinButton& second;
        const std::string& secondText;
    };

    // The dialog that has the controls; it outlives the form.
    explicit CSettingsForm(CWnd& owner) : dialog(owner) {}

    // What the controls show before a counter is known, and how long a number may be.
    void SetStartSettings();
    // Gives the picker its format, and a font in which all of it can be seen.
    void PreparePicker();

    // Writes what isn't shown yet, counts aside.
    void ShowSettings(const CounterRecord& record);
    CounterRecord ReadControls() const;
    void ShowPair(const ChoicePair& pair, std::int32_t value);
    void KeepInRange(int editId, const ValueRange& range) const;

    static void CaptionButton(CSkinButton& button, const std::string& text, COLORREF color);

    ChoicePair LanguagePair() { return {englishButton, englishText, chineseButton, chineseText}; }
    ChoicePair DirectionPair() { return {inButton, inText, outButton, outText}; }
    ChoicePair SdDetectPair() { return {yesButton, yesText, noButton, noText}; }

    const COLORREF activeColor = themeBlue;  // captions in force
    const COLORREF inactiveColor = 0x505050; // dark grey: the others

    CSkinButton chineseButton, englishButton, inButton, outButton, yesButton, noButton;
    CNamedControl<CDateTimeCtrl> datePicker;
    CNamedControl<CWnd> sensitivityEdit, sdPeriodEdit, addressEdit;
    std::string englishText, chineseText, inText, outText, yesText, noText;

private:
    void ShowNumber(int editId, std::int32_t number) const;
    void ShowChoice(CSkinButton& button, const std::string& text, bool inForce) const;

    CWnd& dialog;
    CFont pickerFont; // empty while the picker has the dialog's
};
