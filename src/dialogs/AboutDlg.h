// What the program is, and two links to its maker.
#pragma once

#include <string>

#include "framework/Dialog.h"
#include "skin/LinkStatic.h"
#include "skin/SkinStatic.h"

class CAboutDlg : public CDialog {
public:
    // Owned by the program's dialog on top.
    CAboutDlg();

protected:
    int HostOf(int control) const override;
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;

private:
    void PrepareLinks();
    void PlaceLine(CSkinStatic& line, int top, const std::string& text);

    CSkinStatic panelStatic, companyStatic, versionStatic;
    CLinkStatic mailLink, webLink;
    std::string version, mail, web, company;
};
