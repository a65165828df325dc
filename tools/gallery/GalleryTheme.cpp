#include "gallery/GalleryTheme.h"

#include <initializer_list>

#include <windows.h>

#include "framework/ResourceModule.h"
#include "pictures/SkinBitmap.h"
#include "skin/Theme.h"

namespace {

bool IsFolder(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

std::string ChooseThemeFolder(std::string argument) {
    constexpr char around[] = " \t\"";
    argument.erase(0, argument.find_first_not_of(around));
    argument.erase(argument.find_last_not_of(around) + 1);
    const std::string standard = std::string(themeFolder) + "\\";
    if (argument.empty()) return IsFolder(standard) ? standard : ProgramFolder() + standard;
    const char last = argument.back();
    return last == '\\' || last == '/' ? argument : argument + '\\';
}

std::vector<std::string> FindUnreadablePictures(const std::string& folder) {
    std::vector<std::string> missing;
    for (const char* name :
         {"BottomPanel.bmp", "BottomBorder.bmp", "LeftTitleBar.bmp", "TopBorder.bmp", "RightBorder.bmp", "TextBK.bmp",
          "XButton.bmp", "StatusToolBar.bmp", "DialogPanel.bmp", "TextBK2.bmp"}) {
        CSkinBitmap picture;
        if (!picture.LoadFromFile(folder + name, 0)) missing.emplace_back(name);
    }
    return missing;
}
