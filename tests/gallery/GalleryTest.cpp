// The gallery as a theme designer starts it: every group with its controls, every menu, and a theme that comes later.
#include "gallery/GalleryTheme.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "Program.h"
#include "framework/ResourceModule.h"
#include "gallery/GalleryIds.h"

namespace {

namespace fs = std::filesystem;

struct Group {
    const char* name;
    int firstId;
    int lastId;
};

constexpr Group groups[] = {{"bar", IDC_BAR, IDC_BAR_FRAMES},
                            {"skin button, strip", IDC_STRIP_BUTTON, IDC_STRIP_FRAMES + 3},
                            {"skin button, picture", IDC_PICTURE_BUTTON, IDC_PICTURE_BUTTON_DISABLED},
                            {"static", IDC_STATIC_LABEL, IDC_STATIC_UPRIGHT},
                            {"separator", IDC_SEPARATOR, IDC_SEPARATOR},
                            {"display", IDC_DISPLAY, IDC_DISPLAY_TIME},
                            {"icon button", IDC_ICON_PUSH, IDC_ICON_DROP_DOWN},
                            {"plain icon button", IDC_PLAIN_SQUARE, IDC_PLAIN_DISABLED},
                            {"link", IDC_LINK, IDC_LINK_DISABLED},
                            {"round button", IDC_ROUND, IDC_ROUND_DISABLED},
                            {"combo box", IDC_COMBO_LIST, IDC_COMBO_DISABLED},
                            {"selector", IDC_SELECTOR, IDC_SELECTOR},
                            {"tool strip", IDC_TOOL_STRIP, IDC_TOOL_STRIP},
                            {"buttons of the tool strip", ID_SAMPLE_NEW, ID_SAMPLE_FIND},
                            {"menu buttons", IDC_MENU_MODERN_RAISED, IDC_MENU_SKIN}};

constexpr char exe[] = "Gallery.exe";
constexpr char caption[] = "Quorvane gallery";

class Gallery : public testing::Test {
protected:
    void TearDown() override {
        if (program.Frame() != nullptr) {
            EXPECT_EQ(program.Close(), DWORD{0});
        }
    }
    bool Start(const std::string& folder = CProgram::Folder()) { return program.Start(folder + exe, caption); }

    void ExpectEveryControl() const {
        for (const auto& [name, firstId, lastId] : groups) {
            for (int id = firstId; id <= lastId; ++id) EXPECT_TRUE(program.IsVisible(id)) << name << ' ' << id;
        }
    }
    SIZE SizeOf(int id) const {
        RECT rect{};
        ::GetWindowRect(program.Control(id), &rect);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }
    // Whether both frames of strips that are shown beside the buttons have been cut in the theme's sizes.
    bool ShowsFrames() const {
        const SIZE button = SizeOf(IDC_STRIP_FRAMES + 1), tool = SizeOf(IDC_BAR_FRAMES);
        return button.cx == 74 && button.cy == 22 && tool.cx == 21 && tool.cy == 20;
    }

    CProgram program;
};

bool ShowsMenu() {
    return ::IsWindowVisible(::FindWindowA("#32768", nullptr)) != FALSE;
}

TEST_F(Gallery, ShowsEveryControlWithTheTheme) {
    ASSERT_TRUE(Start());
    ExpectEveryControl();
    EXPECT_TRUE(ShowsFrames());
    EXPECT_EQ(program.Text(IDC_THEME_FOLDER), "Theme: Themes\\DefaultTheme\\");
    RECT client{};
    ::GetClientRect(program.Frame(), &client);
    EXPECT_LE(client.right, 1000);
    EXPECT_LE(client.bottom, 700);
}

TEST_F(Gallery, ShowsEveryMenu) {
    ASSERT_TRUE(Start());
    for (const int id : {IDC_MENU_MODERN_RAISED, IDC_MENU_MODERN_LEVEL, IDC_MENU_MODERN_BARE, IDC_MENU_CLASSIC,
                         IDC_MENU_CLASSIC_BARE, IDC_MENU_SKIN, IDC_ICON_DROP_DOWN}) {
        program.Click(id);
        EXPECT_TRUE(Await(&ShowsMenu)) << id;
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(Await([] { return !ShowsMenu(); })) << id;
        EXPECT_TRUE(program.Answers()) << id;
    }
}

TEST_F(Gallery, LoadsAThemeThatComesLater) {
    const fs::path folder = fs::temp_directory_path() / "quorvane gallery";
    fs::remove_all(folder);
    fs::create_directories(folder);
    fs::copy_file(CProgram::Folder() + exe, folder / exe);
    ASSERT_TRUE(Start(folder.string() + '\\'));
    ExpectEveryControl();
    EXPECT_FALSE(ShowsFrames());
    EXPECT_NE(program.Text(IDC_THEME_FOLDER).find("can't be read: BottomPanel.bmp, "), std::string::npos);
    const fs::path theme = fs::path("Themes") / "DefaultTheme";
    fs::create_directories(folder / theme);
    fs::copy(fs::path(CProgram::Folder()) / theme, folder / theme);
    program.Click(IDC_LOAD_AGAIN);
    EXPECT_TRUE(Await([&] { return ShowsFrames(); }));
    EXPECT_TRUE(program.Answers()); // the rest of the board is there by then
    ExpectEveryControl();
    EXPECT_EQ(program.Text(IDC_THEME_FOLDER).find("can't be read"), std::string::npos);
    EXPECT_EQ(program.Close(), DWORD{0});
    fs::remove_all(folder);
}

TEST(ThemeFolder, FollowsTheArgument) {
    constexpr struct {
        const char* argument;
        const char* folder;
    } rows[] = {{"D:\\Blue", "D:\\Blue\\"},
                {"D:\\Blue\\", "D:\\Blue\\"},
                {"  \"D:\\Two words\" ", "D:\\Two words\\"},
                {"themes/blue/", "themes/blue/"}};
    for (const auto& [argument, folder] : rows) EXPECT_EQ(ChooseThemeFolder(argument), folder) << argument;
}

TEST(ThemeFolder, WithoutAnArgumentIsTheDefaultOne) {
    const fs::path before = fs::current_path();
    fs::current_path(CProgram::Folder());
    EXPECT_EQ(ChooseThemeFolder(""), "Themes\\DefaultTheme\\");
    fs::current_path(fs::temp_directory_path());
    EXPECT_EQ(ChooseThemeFolder(" \"\" "), ProgramFolder() + "Themes\\DefaultTheme\\");
    fs::current_path(before);
}

} // namespace
