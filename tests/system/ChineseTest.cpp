// The program in Chinese: in a folder of Chinese letters, in its dialogs and messages, beside libraries that are none.
#include <filesystem>
#include <fstream>
#include <functional>

#include "SystemTest.h"

namespace {

namespace files = std::filesystem;

// The library takes narrow text for that of the C locale.
files::path PathOf(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

// The product in a folder of its own, which goes with this object.
class CCopy {
public:
    CCopy() {
        files::remove_all(PathOf(folder));
        files::create_directory(PathOf(folder));
        for (const char* name : {"Quorvane.exe", "QuorvaneZHCN.dll"})
            files::copy(CProgram::Folder() + name, PathOf(folder + name));
        files::copy(CProgram::Folder() + "Themes", PathOf(folder + "Themes"), files::copy_options::recursive);
    }
    CCopy(const CCopy&) = delete;
    CCopy& operator=(const CCopy&) = delete;
    ~CCopy() {
        std::error_code stillUsed;
        files::remove_all(PathOf(folder), stillUsed);
    }

    const std::string folder = CProgram::Folder() + "..\\tests\\三号门 客流统计\\";
    const std::string program = folder + "Quorvane.exe";
    const files::path library = PathOf(folder + "QuorvaneZHCN.dll");
    const files::path log = PathOf(folder + "Quorvane.log");
};

class Chinese : public SystemTest {
protected:
    void SetUp() override {
        SystemTest::SetUp();
        Store("Language", 1);
        Store("COM", nearNumber);
    }

    // The dialog of a command, by its title, with the text of one of its buttons; it is closed by Esc.
    void ExpectDialog(int command, const std::string& title, int button, const std::string& text) {
        program.PostCommand(command);
        HWND dialog = nullptr;
        ASSERT_TRUE(Await([&] { return ::IsWindowVisible(dialog = ::FindWindowA("#32770", title.c_str())) != FALSE; }))
            << "no dialog " << title;
        char found[64]{};
        ::SendMessageA(::GetDlgItem(dialog, button), WM_GETTEXT, sizeof found, reinterpret_cast<LPARAM>(found));
        EXPECT_EQ(found, text);
        ::PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        EXPECT_TRUE(Await([dialog] { return !::IsWindow(dialog); }));
    }
};

TEST_F(Chinese, AFolderOfChineseLettersHoldsLibraryLogAndTheme) {
    const CCopy copy;
    ASSERT_TRUE(program.Start(copy.program));
    ExpectText(IDC_START, "开始"); // from the library
    ExpectText(IDC_IN_LABEL, "   进入人数");
    const HRGN shape = ::CreateRectRgn(0, 0, 0, 0);
    // The first paint cuts it out.
    EXPECT_TRUE(Await([&] { return ::GetWindowRgn(program.Control(IDC_START), shape) != ERROR; }))
        << "a button without its picture";
    ::DeleteObject(shape);
    EXPECT_TRUE(files::exists(copy.log) && files::file_size(copy.log) == 0);
    program.Click(IDC_CLEAR);
    program.ExpectBox("无应答");
    EXPECT_GT(files::file_size(copy.log), 0U) << "what went out isn't in the log";
    EXPECT_EQ(program.Close(), 0U);
}

TEST_F(Chinese, WithoutALibraryThatIsOneItSpeaksEnglish) {
    const CCopy copy;
    const auto write = [&](const std::string& bytes) { std::ofstream(copy.library, std::ios::binary) << bytes; };
    const struct {
        const char* name;
        std::function<void()> make;
    } rows[] = {{"none", [] {}},
                {"an empty file", [&] { write(""); }},
                {"a text", [&] { write("MZ, and then nothing that makes sense"); }},
                {"half a library",
                 [&] {
                     files::copy(CProgram::Folder() + "QuorvaneZHCN.dll", copy.library);
                     files::resize_file(copy.library, files::file_size(copy.library) / 2);
                 }},
                {"a program without resources",
                 [&] { files::copy(CProgram::Folder() + "..\\tests\\empty_window.exe", copy.library); }},
                {"a folder", [&] { files::create_directory(copy.library); }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        files::remove_all(copy.library);
        row.make();
        CProgram started;
        ASSERT_TRUE(started.Start(copy.program));
        EXPECT_EQ(started.Text(IDC_START), "Start");
        EXPECT_EQ(started.Text(IDC_ADDRESS_LABEL), "Address");
        EXPECT_EQ(started.Close(), 0U);
    }
}

TEST_F(Chinese, DialogsAndMessages) {
    PlayCounters({0, 1});
    StartProgram();
    ExpectDialog(ID_ABOUT, std::string("关于 ") + CProgram::title, IDOK, "确定");
    ExpectDialog(ID_COM_SETTING, "串口设置", IDC_COM_SETTING_CANCEL, "取消");
    program.PostCommand(ID_LANGUAGE_ENGLISH);
    program.ExpectBox("设置成功，下次启动时生效");
    program.Click(IDC_START);
    ExpectText(IDC_START, "停止");
    ExpectAddressButtons("0 1");
    program.Click(IDC_START);
    ExpectText(IDC_START, "开始");
    EXPECT_TRUE(counters->AwaitSilence());
    program.Click(IDC_DIRECTION_OUT);
    program.Click(IDC_UPDATE); // all counters
    program.ExpectBox("设备 0, 1 写入设置成功");
    counters->BringFaults({"refuse 1"});
    program.Click(IDC_CLEAR);
    program.ExpectBox("设备 0 清零成功; 设备 1 清零失败，命令错误");
}

} // namespace
