// The programs' approved looks: what a user sees of the main window, the popups and the dialogs in both languages, and
// of the gallery, pixel by pixel as in docs/pictures.
#include <algorithm>
#include <filesystem>

#include "gallery/GalleryIds.h"
#include "support/Look.h"
#include "SystemTest.h"

namespace {

namespace fs = std::filesystem;

Picture TakeFromScreen(const RECT& place) {
    const CClientDC screen(nullptr);
    return {place.right - place.left, ReadPixels(screen.GetHandle(), place)};
}

RECT WindowRect(HWND window) {
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return rect;
}

// Looks at the place of the screen until it is as approved: windows come up one after the other, and carets blink. What
// is in `masks` may be anything.
void ExpectLook(const std::string& name, const RECT& place, const std::vector<RECT>& masks = {}) {
    const auto masked = [&](Picture picture) {
        for (const RECT& mask : masks) {
            for (LONG y = mask.top; y < mask.bottom && y * picture.width < std::ssize(picture.pixels); ++y)
                std::fill_n(picture.pixels.begin() + y * picture.width + mask.left, mask.right - mask.left, 0);
        }
        return picture;
    };
    Picture present, approved = ApprovedLook(name);
    if (std::getenv("QUORVANE_LOOKS_APPROVE") != nullptr) {
        const auto rests = [&] {
            std::this_thread::sleep_for(150ms);
            const Picture former = std::exchange(present, TakeFromScreen(place));
            return masked(former) == masked(present);
        };
        EXPECT_TRUE(Await([&] { return rests() && rests(); })) << name << " doesn't come to rest";
        // A new clock is no new look.
        return ExpectApproved(name, masked(present) == masked(approved) ? approved : present, {});
    }
    approved = masked(std::move(approved));
    Await([&] { return (present = masked(TakeFromScreen(place))) == approved; });
    ExpectApproved(name, present, approved);
}

// What may be anything, in the frame's client area.
const std::vector<RECT> clock{{136, 98, 280, 120}}; // the machine's, until a counter has told its own
const std::vector<RECT> traffic{{30, 288, 192, 312}, {208, 288, 366, 312}, {10, 316, 210, 336}}; // goes on

class Looks : public SystemTest, public testing::WithParamInterface<const char*> {
protected:
    // The masks in the frame's client area.
    void Expect(const std::string& name, std::vector<RECT> masks = {}) const {
        const RECT frame = WindowRect(program.Frame());
        POINT origin{};
        ::ClientToScreen(program.Frame(), &origin);
        for (RECT& mask : masks) ::OffsetRect(&mask, origin.x - frame.left, origin.y - frame.top);
        ExpectLook(GetParam() + ("-" + name), frame, masks);
    }
    // A piece of the client area, {left, top, right, bottom}.
    void ExpectPiece(const std::string& name, RECT piece) const {
        ::MapWindowPoints(program.Frame(), nullptr, reinterpret_cast<POINT*>(&piece), 2);
        ExpectLook(GetParam() + ("-" + name), piece, clock);
    }
    // At a place of the panel where it changes nothing.
    POINT RestPlace() const {
        POINT place{462, 85};
        ::ClientToScreen(program.Frame(), &place);
        return place;
    }
    void RestPointer() const { PointAt(RestPlace()); }
    void Click(int id) const {
        program.Click(id);
        RestPointer();
    }
    void AwaitBox() const {
        ASSERT_TRUE(Await([this] { return program.Box() != nullptr; })) << "no box";
    }
    void CloseBox() const {
        const HWND box = program.Box();
        PressKey(VK_ESCAPE);
        ASSERT_TRUE(Await([box] { return !::IsWindow(box); }));
    }
    void ExpectMenu(const std::string& name, int button, std::initializer_list<int> keys) const {
        program.OpenMenu(button);
        for (const int key : keys) PressKey(key);
        ExpectPiece(name, {0, 0, 270, 130});
        ASSERT_TRUE(Await([] {
            if (ShownPopup() != nullptr) PressKey(VK_ESCAPE);
            std::this_thread::sleep_for(50ms);
            return ShownPopup() == nullptr;
        }));
    }
};

TEST_P(Looks, OfTheMainWindowAndItsDialogs) {
    Store("Language", std::string(GetParam()) == "zh" ? 1 : 0);
    PlayCounters({0, 1}, true);
    StartProgram();
    RestPointer();
    Expect("start", clock);
    ExpectMenu("menu-port", ID_PORT_MENU, {VK_DOWN, VK_RIGHT});
    ExpectMenu("menu-device", ID_PORT_MENU, {VK_DOWN, VK_DOWN, VK_RIGHT});
    ExpectMenu("menu-language", ID_LANGUAGE_MENU, {VK_DOWN});
    ExpectMenu("menu-help", ID_HELP_MENU, {});
    RestPointer();
    for (const auto& [command, name] : {std::pair(ID_ABOUT, "about"), {ID_COM_SETTING, "com-setting"}}) {
        ::PostMessageA(command == ID_ABOUT ? program.Panel() : program.Frame(), WM_COMMAND, command, 0);
        AwaitBox();
        Expect(name, clock);
        CloseBox();
    }
    MoveButton(MOUSEEVENTF_LEFTDOWN, MiddleOf(program.Control(IDC_LANGUAGE_CHINESE)));
    ExpectPiece("buttons", {10, 118, 380, 150});
    MoveButton(MOUSEEVENTF_LEFTUP, RestPlace()); // out of the button, so that nothing is chosen

    counters->Count(0, 1286, 1241);
    counters->Count(1, 402, 397);
    StartPolling();
    RestPointer();
    ExpectAddressButtons("0 1");
    Expect("polling", traffic);
    counters->BringFaults({"silent 0"});
    ExpectAddressButtons("1");
    Expect("one-left", traffic);
    counters->BringFaults({"silent *"});
    ExpectAddressButtons("");
    Expect("none-left", traffic);
    counters->BringFaults({"silent 1"}); // who comes back first is the one that is shown
    ExpectAddressButtons("0");
    counters->BringFaults({});
    ExpectAddressButtons("0 1");
    StopPolling();
    Click(IDC_CLEAR);
    AwaitBox();
    Expect("message-done");
    CloseBox();
    program.Type(IDC_SENSITIVITY_EDIT, "250");
    for (const int id : {IDC_LANGUAGE_CHINESE, IDC_DIRECTION_OUT, IDC_SD_DETECT_YES}) program.Click(id);
    Click(IDC_PORT);
    Expect("closed");
    Click(IDC_PORT);
    counters->BringFaults({"silent *"});
    Click(IDC_UPDATE);
    AwaitBox();
    Expect("message-silent");
    CloseBox();
}

INSTANTIATE_TEST_SUITE_P(Languages, Looks, testing::Values("en", "zh"),
                         [](const auto& language) { return language.param; });

constexpr std::pair<int, const char*> menus[] = {
    {IDC_MENU_MODERN_RAISED, "raised"}, {IDC_MENU_MODERN_LEVEL, "level"},        {IDC_MENU_MODERN_BARE, "bare"},
    {IDC_MENU_CLASSIC, "classic"},      {IDC_MENU_CLASSIC_BARE, "classic-bare"}, {IDC_MENU_SKIN, "skin"},
    {IDC_ICON_DROP_DOWN, "drop-down"}};

TEST(GalleryLooks, WithAndWithoutATheme) {
    const fs::path folder = fs::temp_directory_path() / "quorvane gallery", theme = fs::path("Themes") / "DefaultTheme";
    fs::remove_all(folder);
    fs::create_directories(folder / theme);
    fs::copy_file(CProgram::Folder() + "Gallery.exe", folder / "Gallery.exe");
    CProgram program;
    PointAt({1, 1}); // before a window comes up beneath the pointer
    ASSERT_TRUE(program.Start((folder / "Gallery.exe").string(), "Quorvane gallery"));
    const RECT frame = WindowRect(program.Frame());
    RECT time = WindowRect(program.Control(IDC_DISPLAY_TIME)); // the machine's
    ::OffsetRect(&time, -frame.left, -frame.top);
    ExpectLook("gallery-without-theme", frame, {time});
    fs::copy(fs::path(CProgram::Folder()) / theme, folder / theme);
    PressKey(VK_F5);
    ExpectLook("gallery", frame, {time});
    for (const auto& [id, name] : menus) {
        ::PostMessageA(program.Control(id), BM_CLICK, 0, 0);
        ASSERT_TRUE(Await(&ShownPopup)) << name;
        for (int row = 0; row < 2; ++row) PressKey(VK_DOWN);
        ExpectLook(std::string("gallery-menu-") + name, WindowRect(ShownPopup()));
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(Await([] { return ShownPopup() == nullptr; })) << name;
    }
    EXPECT_EQ(program.Close(), 0U);
    fs::remove_all(folder);
}

} // namespace
