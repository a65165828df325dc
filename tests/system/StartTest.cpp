// How the program starts: on nothing, on stored values of any kind, in a Chinese folder, beside another copy.
#include <filesystem>
#include <fstream>

#include "SystemTest.h"

namespace {

namespace files = std::filesystem;
using Start = SystemTest;

TEST_F(Start, OnStoredValuesOfAnyKind) {
    const auto number = static_cast<char>(nearNumber);
    const struct {
        const char* name;
        DWORD type;
        std::string bytes;
        bool opens;
    } rows[] = {{"none", REG_DWORD, "", nearNumber == 1},
                {"COM", REG_BINARY, {number}, true},                          // short, reads as a small number
                {"COM", REG_BINARY, std::string(8, '\x09'), nearNumber == 1}, // too long, so the default holds
                {"COM", REG_DWORD, "\xFF\xFF\xFF\xFF", false},
                {"COM", REG_SZ, {'z', 0}, false}, // reads as the number of no port
                {"Language", REG_SZ, "Chinese, please", true},
                {"Language", REG_DWORD, "\xFF\xFF\xFF\xFF", true}};
    for (const auto& [name, type, bytes, opens] : rows) {
        SCOPED_TRACE(std::string(name) + " of type " + std::to_string(type));
        std::ofstream(LogPath()) << "left by an earlier run";
        if (name != std::string("none")) Store("COM", nearNumber), Store(name, type, bytes);
        CProgram started;
        ASSERT_TRUE(started.Start());
        EXPECT_EQ(started.Text(IDC_PORT), opens ? "Close COM" : "Open COM");
        EXPECT_EQ(started.Text(IDC_START), "Start");
        EXPECT_TRUE(files::exists(LogPath()) && LogText().empty());
        EXPECT_EQ(started.Close(), 0U);
        EXPECT_TRUE(!opens || Stored("COM") == nearNumber);
    }
}

TEST_F(Start, ASecondCopyLeavesTheFirstAlone) {
    PlayCounters({0});
    StartPolling();
    ExpectPollingGoesOn();
    const std::string log = LogText();
    Store("COM", 77); // neither to be used nor to be overwritten
    CProgram second;
    ASSERT_TRUE(second.Launch());
    EXPECT_EQ(second.AwaitExit(), 0U);
    ExpectPollingGoesOn();
    EXPECT_EQ(Stored("COM"), 77U);
    EXPECT_TRUE(LogText().starts_with(log));
}

TEST_F(Start, InAFolderOfChineseLettersWithItsLibraryAndWithNone) {
    const auto path = [](const std::string& utf8) { return files::path(std::u8string(utf8.begin(), utf8.end())); };
    const std::string folder = CProgram::Folder() + "..\\tests\\三号门 客流统计\\";
    const files::path library = path(folder + "QuorvaneZHCN.dll");
    files::remove_all(path(folder));
    files::create_directory(path(folder));
    for (const char* name : {"Quorvane.exe", "QuorvaneZHCN.dll", "Themes"})
        files::copy(CProgram::Folder() + name, path(folder + name), files::copy_options::recursive);
    for (const std::string there : {"whole", "half", "a folder"}) {
        SCOPED_TRACE(there);
        if (there == "half") files::resize_file(library, files::file_size(library) / 2);
        if (there == "a folder") files::remove(library), files::create_directory(library);
        const bool chinese = there == "whole";
        Store("Language", 1);
        Store("COM", nearNumber);
        CProgram started;
        ASSERT_TRUE(started.Start(folder + "Quorvane.exe"));
        EXPECT_EQ(started.Text(IDC_START), chinese ? "开始" : "Start");
        EXPECT_EQ(started.Text(IDC_ADDRESS_LABEL), chinese ? "地址" : "Address");
        started.Click(IDC_CLEAR);
        started.ExpectBox(chinese ? "无应答" : "No Response");
        EXPECT_GT(files::file_size(path(folder + "Quorvane.log")), 0U) << "what went out isn't in the log";
        EXPECT_EQ(started.Close(), 0U);
    }
    files::remove_all(path(folder));
}

} // namespace
