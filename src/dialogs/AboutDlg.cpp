#include "dialogs/AboutDlg.h"

#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "skin/Theme.h"

namespace {

// The links have the size of the template's texts, which leave room for an address. One that needs more gets it: half
// an address would mislead.
void MakeRoomForText(CLinkStatic& link) {
    const CClientDC dc(link.GetHandle());
    const CSelectObject font(dc, reinterpret_cast<HFONT>(link.SendMessage(WM_GETFONT)));
    if (dc.GetTextExtent(link.GetWindowText()).cx > link.GetClientRect().Width()) link.SetFitToText(true);
}

} // namespace

CAboutDlg::CAboutDlg() : CDialog(IDD_ABOUT) {}

void CAboutDlg::DoDataExchange(CDataExchange& exchange) {
    DDX_Control(exchange, IDC_ABOUT_PANEL, panelStatic);
    DDX_Control(exchange, IDC_ABOUT_COMPANY, companyStatic);
    DDX_Control(exchange, IDC_ABOUT_VERSION, versionStatic);
    DDX_Control(exchange, IDC_ABOUT_MAIL_LINK, mailLink);
    DDX_Control(exchange, IDC_ABOUT_WEB_LINK, webLink);
}

// The links and OK stand in the dialog itself.
int CAboutDlg::HostOf(int control) const {
    return control == IDC_ABOUT_COMPANY || control == IDC_ABOUT_VERSION ? IDC_ABOUT_PANEL : 0;
}

bool CAboutDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    DressDialogPanel(panelStatic);
    const CRect client = GetClientRect();
    panelStatic.SetWindowPos(nullptr, 0, 0, client.Width(), client.Height(), SWP_NOZORDER);
    PrepareLinks();
    SetWindowText(LoadText(IDS_ABOUT_TITLE) + PRODUCT_TITLE);
    version = "Version " PRODUCT_VERSION;
    company = PRODUCT_COMPANY;
    PlaceLine(companyStatic, 28, company);
    PlaceLine(versionStatic, 5, version);
    return true;
}

void CAboutDlg::PrepareLinks() {
    // Target and underline come before the texts: they still find the template's, which size the links.
    mail = PRODUCT_MAIL;
    mailLink.SetTarget("mailto:" + mail);
    mailLink.SetUnderlined(true);
    web = PRODUCT_WEB;
    webLink.SetTarget(web);
    webLink.SetUnderlined(true);
    SetDlgItemText(IDC_ABOUT_MAIL_LINK, mail);
    SetDlgItemText(IDC_ABOUT_WEB_LINK, web);
    MakeRoomForText(mailLink);
    MakeRoomForText(webLink);
}

void CAboutDlg::PlaceLine(CSkinStatic& line, int top, const std::string& text) {
    line.SetBitmapFile(ThemeFile("TextBK2.bmp"));
    line.SetWindowPos(nullptr, 10, top, 400, 24, SWP_NOZORDER | SWP_NOACTIVATE);
    line.SetCaption(text, 10, RGB(0, 0, 0));
}
