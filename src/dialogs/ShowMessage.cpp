#include "dialogs/ShowMessage.h"

#include "dialogs/MessageDlg.h"

int ShowMessage(const std::string& text, const std::string& caption, int style) {
    CMessageDlg dialog;
    dialog.text = text;
    dialog.caption = caption;
    dialog.style = style;
    dialog.DoModal();
    return 0;
}
