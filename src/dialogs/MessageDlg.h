// The program's message box in its skin. It grows with its text, which stands on one line.
#pragma once

#include <string>

#include "framework/Dialog.h"
#include "skin/SkinButton.h"
#include "skin/SkinStatic.h"

class CMessageDlg : public CDialog {
public:
    // Owned by the program's dialog on top.
    CMessageDlg();

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // To be set before DoModal.
    int style = 0;       // 0 OK alone, 1 OK and Cancel
    std::string text;    // the message
    std::string caption; // empty: the product title

    // Afterwards: whether the user left by Cancel.
    bool cancelled = false;

protected:
    int HostOf(int control) const override;
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    void OnOK() override;
    void OnCancel() override;

private:
    void PlaceText(int width);
    void PlaceButtons(int width);

    CSkinStatic panelStatic, textStatic;
    CSkinButton okButton, cancelButton;
    std::string okText, cancelText;
};

// Shows `text` and returns when the user has closed it; messages go on being handled meanwhile. An empty caption stands
// for the product title. `style` 0 offers OK, 1 OK and Cancel. Gives 0 whatever the user pressed.
int ShowMessage(const std::string& text, const std::string& caption, int style);
