#include "dialogs/MessageDlg.h"

#include "framework/ResourceModule.h"
#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "skin/Theme.h"

namespace {

// Two columns of pixels for each half of a byte's width, and room around; in bytes, whatever the text is written in.
int WidthFor(const std::string& text) {
    return (static_cast<int>(text.size()) * 3 + 75) * 2;
}

int OkButtonLeft(int style, int windowWidth) {
    switch (style) {
    case 0:
        return windowWidth / 2 - 30;
    case 1:
        return windowWidth / 2 - 80;
    default:
        return 40;
    }
}

void PlaceButton(CSkinButton& button, int left, const std::string& text) {
    button.SetBitmapFile(ThemeFile("XButton.bmp"));
    // On top of those before: where Cancel covers a part of OK, both captions are read.
    button.SetWindowPos(HWND_TOP, left, 40, 74, 22, SWP_NOACTIVATE);
    button.SetCaption(text, 5, themeBlue);
}

} // namespace

CMessageDlg::CMessageDlg() : CDialog(IDD_MESSAGE) {}

const CMessageMap& CMessageDlg::ClassMap() {
    static constexpr std::array entries{OnCommandId<IDC_MESSAGE_OK, &CMessageDlg::OnOK>(),
                                        OnCommandId<IDC_MESSAGE_CANCEL, &CMessageDlg::OnCancel>()};
    static const CMessageMap map{&CDialog::ClassMap(), entries};
    return map;
}

void CMessageDlg::DoDataExchange(CDataExchange& exchange) {
    DDX_Control(exchange, IDC_MESSAGE_PANEL, panelStatic);
    DDX_Control(exchange, IDC_MESSAGE_TEXT, textStatic);
    DDX_Control(exchange, IDC_MESSAGE_OK, okButton);
    DDX_Control(exchange, IDC_MESSAGE_CANCEL, cancelButton);
}

int CMessageDlg::HostOf(int control) const {
    return control == IDC_MESSAGE_PANEL ? 0 : IDC_MESSAGE_PANEL;
}

bool CMessageDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    okText = LoadText(IDS_OK);
    cancelText = LoadText(IDS_CANCEL);
    DressDialogPanel(panelStatic);
    constexpr int height = 120;
    const int width = WidthFor(text);
    const CPoint corner = GetWindowRect().TopLeft();
    MoveWindow(CRect::Sized(corner.x, corner.y, width, height));

    constexpr int edges = 5, titleAndEdges = 32; // of a dialog, in the classic sizes
    const CRect window = GetWindowRect();
    panelStatic.SetWindowPos(nullptr, 0, 0, window.Width() - edges, window.Height() - titleAndEdges, SWP_NOZORDER);
    PlaceText(width);
    PlaceButtons(window.Width());
    SetWindowText(caption.empty() ? PRODUCT_TITLE : caption);
    return true;
}

void CMessageDlg::PlaceText(int width) {
    textStatic.SetBitmapFile(ThemeFile("TextBK2.bmp"));
    textStatic.SetWindowPos(nullptr, 20, 10, width - 40, 24, SWP_NOZORDER | SWP_NOACTIVATE);
    textStatic.SetCaption(text, 10, themeBlue);
}

void CMessageDlg::PlaceButtons(int width) {
    PlaceButton(okButton, OkButtonLeft(style, width), okText);
    PlaceButton(cancelButton, 192, cancelText);
    if (style == 0) cancelButton.ShowWindow(SW_HIDE);
}

void CMessageDlg::OnOK() {
    cancelled = false;
    CDialog::OnOK();
}

void CMessageDlg::OnCancel() {
    cancelled = true;
    CDialog::OnCancel();
}

int ShowMessage(const std::string& text, const std::string& caption, int style) {
    CMessageDlg dialog;
    dialog.text = text;
    dialog.caption = caption;
    dialog.style = style;
    dialog.DoModal();
    return 0;
}
