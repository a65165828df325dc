// The dialog that changes all five line settings at once. It only asks: what has been chosen is put on the line by the
// caller.
//
// Only its own OK button confirms. Neither button is the default one, so Enter leaves the dialog like Escape, Cancel
// and the close box do: without the values. User-interface thread.
#pragma once

#include "dialogs/ComSettingText.h"
#include "framework/Dialog.h"
#include "serial/PortSearch.h"
#include "skin/ColorCombo.h"

class CComSettingDlg : public CDialog {
public:
    // The ports that answer the probe, of all 256, are offered; the machine's ports if none is given. A port that this
    // process holds doesn't answer, so it stands in the edit field alone.
    CComSettingDlg();
    explicit CComSettingDlg(PortProbe portProbe);

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // What the dialog starts with; before DoModal.
    void SetValues(const PortSettings& settings);
    // What stood in the edit fields when OK was pressed, unchecked (ComSettingText.h); before that, what was set.
    PortSettings GetValues() const { return SettingsOf(text, values); }
    // Whether the dialog was left by its OK button.
    bool IsConfirmed() const { return confirmed; }

protected:
    void DoDataExchange(CDataExchange& exchange) override;
    bool OnInitDialog() override;

private:
    void OnConfirm();
    void OnDiscard();

    PortProbe probe;
    CColorCombo portCombo, stopBitsCombo, baudCombo, dataBitsCombo, parityCombo;
    PortSettings values;
    ComSettingText text;
    bool confirmed = false;
};
