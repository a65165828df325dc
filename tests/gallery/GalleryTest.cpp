// Which theme folder the gallery takes: that of its argument, else the default one here or beside the program.
#include "gallery/GalleryTheme.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "framework/ResourceModule.h"

TEST(ThemeFolder, FollowsTheArgumentAndThenTheCurrentFolder) {
    constexpr const char* rows[][2] = {{"D:\\Blue", "D:\\Blue\\"},
                                       {"D:\\Blue\\", "D:\\Blue\\"},
                                       {"  \"D:\\Two words\" ", "D:\\Two words\\"},
                                       {"themes/blue/", "themes/blue/"}};
    for (const auto& [argument, folder] : rows) EXPECT_EQ(ChooseThemeFolder(argument), folder) << argument;
    namespace fs = std::filesystem;
    const fs::path before = fs::current_path();
    fs::current_path(fs::path(ProgramFolder()) / ".." / "bin");
    EXPECT_EQ(ChooseThemeFolder(""), "Themes\\DefaultTheme\\");
    fs::current_path(fs::temp_directory_path());
    EXPECT_EQ(ChooseThemeFolder(" \"\" "), ProgramFolder() + "Themes\\DefaultTheme\\");
    fs::current_path(before);
}
