// Gallery.exe: every control of the skin and every look of the menus in one window, with the pictures of a theme
// folder.
//
//     Gallery.exe [FOLDER]
//
// Without a folder it shows Themes\DefaultTheme under the current directory, or beside the program.
#include <string>
#include <utility>

#include <windows.h>

#include "framework/App.h"
#include "gallery/GalleryDlg.h"
#include "gallery/GalleryTheme.h"

namespace {

class CGalleryApp : public CWinApp {
public:
    explicit CGalleryApp(std::string themeFolder) : folder(std::move(themeFolder)) {}

protected:
    bool InitInstance() override {
        CGalleryDlg gallery(folder);
        mainWindow = &gallery;
        gallery.DoModal();
        mainWindow = nullptr;
        return false;
    }

private:
    std::string folder;
};

} // namespace

// Name and type of the command line are those of the platform's declaration.
// NOLINTNEXTLINE(readability-non-const-parameter)
int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR lpCmdLine, int) {
    CGalleryApp app(ChooseThemeFolder(lpCmdLine));
    return app.Run();
}
