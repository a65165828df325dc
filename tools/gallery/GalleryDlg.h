// The gallery's window.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "framework/Dialog.h"
#include "framework/Gdi.h"
#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"

class CGalleryDlg : public CDialog {
public:
    // With the pictures of this folder, named with a backslash at its end.
    explicit CGalleryDlg(std::string themeFolder) : CDialog(IDD_GALLERY), folder(std::move(themeFolder)) {}

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    bool PreTranslateMessage(MSG& message) override;

protected:
    bool OnInitDialog() override;
    void OnOK() override {} // Enter presses what has the focus, and closes nothing

private:
    void PlaceWindow() const;
    void OnLoadAgain();
    void OnMenuButton(UINT id);
    bool OnEraseBkgnd(HDC dc);
    void ShowFolder() const;

    std::string folder;
    std::unique_ptr<CGalleryBoard> board;
};
