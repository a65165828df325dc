// What a growing file holds, whatever it held before and however full the disk is.
#include <cstdio>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "reader/AddressList.h"
#include "reader/OutputFile.h"
#include "reader/PortsText.h"
#include "reader/ReadingFormat.h"
#include "reader/RowFile.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#endif

namespace {

struct RowFile : testing::Test {
    ~RowFile() override { std::remove(path.c_str()); }
    void Hold(const std::string& text) const { std::ofstream(path, std::ios::binary) << text; }
    std::string Content() const {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }
    std::string path = testing::TempDir() + "rows.csv", error;
};

TEST_F(RowFile, EndsInWholeLines) {
    const std::string longLine(5000, 'x');
    const RowFormat json{RowKind::JsonLines, false};
    const struct {
        std::string before, after; // empty: refused
        std::string header = "h\r\n", front = "h\r\n";
    } cases[] = {{"", "h\r\nrow\r\n"},
                 {"h", "h\r\nrow\r\n"}, // torn within the header
                 {"h\r", "h\r\nrow\r\n"},
                 {"h\r\n", "h\r\nrow\r\n"},
                 {"h\r\n1\r\n", "h\r\n1\r\nrow\r\n"},
                 {"h\r\n1\r\n2", "h\r\n1\r\nrow\r\n"},
                 {"h\r\n1\r\n2\r", "h\r\n1\r\nrow\r\n"},
                 {"h\n1\n", ""},
                 {"hh\r\n", ""},
                 {"note", ""},
                 {longLine, ""},
                 {"", "row\r\n", "", RowFront(json)},
                 {"{\"ti", "row\r\n", "", RowFront(json)},
                 {"{\"time\":1}\n{\"ti", "{\"time\":1}\nrow\r\n", "", RowFront(json)},
                 {"{\n}", "", "", RowFront(json)},
                 {"h\r\n1\r\n", "", "", RowFront(json)}};
    for (const auto& each : cases) {
        Hold(each.before);
        CRowFile file(path, each.header, each.front);
        EXPECT_EQ(file.Append("row\r\n", error), !each.after.empty()) << each.before << error;
        EXPECT_EQ(Content(), each.after.empty() ? each.before : each.after);
    }
    EXPECT_EQ(error, path + ": the file has other columns, or none");
}

TEST_F(RowFile, KeepsRowsWhileAnotherHoldsIt) {
    CRowFile file(path, "", "");
    const std::string flood = std::string(1023, '.') + '\n';
    {
        COutputFile other;
        ASSERT_TRUE(other.Open(path, error)) << error;
        EXPECT_FALSE(file.Append("1\n", error));
        EXPECT_TRUE(error.starts_with(path + ": ")) << error;
        for (int line = 0; line < 100; ++line) EXPECT_FALSE(file.Append(flood, error));
    }
    const std::size_t lost = file.TakeLost(), kept = file.Waiting();
    EXPECT_TRUE(lost + kept == 101 && kept <= 64 && kept > 61) << kept;
    EXPECT_TRUE(file.Append(flood + flood + "2\n", error)) << error;
    EXPECT_TRUE(Content().size() == (kept + 2) * flood.size() + 2 && Content().ends_with("\n2\n") &&
                file.TakeLost() == 0)
        << "what can be written needs no room";
}

TEST_F(RowFile, AReplacedFileIsTheOldOrTheNewOne) {
    Hold("old");
    EXPECT_TRUE(ReplaceWholeFile(path, "new\n", error)) << error;
    EXPECT_EQ(Content(), "new\n");
    EXPECT_FALSE(ReplaceWholeFile(path + "/nothing", "", error));
    EXPECT_FALSE(std::ifstream(path + ".new").is_open());
}

#ifndef _WIN32
TEST_F(RowFile, NoLinkAndNoDeviceIsReplaced) {
    const std::string link = path + ".link";
    Hold("old");
    EXPECT_EQ(symlink(path.c_str(), link.c_str()), 0);
    EXPECT_TRUE(ReplaceWholeFile(link, "new", error) && Content() == "new") << error;
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    std::remove(link.c_str());
    EXPECT_EQ(mkfifo(link.c_str(), 0600), 0);
    const CDescriptor pipe(open(link.c_str(), O_RDWR | O_NONBLOCK));
    EXPECT_TRUE(ReplaceWholeFile(link, "page", error)) << error;
    std::string got(9, '\0');
    EXPECT_EQ(read(pipe.Get(), got.data(), got.size()), 4);
    std::remove(link.c_str());
}

TEST_F(RowFile, WhatCantBeReadIsLeftAlone) {
    Hold("h\n1\n");
    chmod(path.c_str(), 0222);
    const uid_t user = geteuid();
    EXPECT_EQ(seteuid(user == 0 ? 65534 : user), 0) << "root reads all";
    EXPECT_FALSE(CRowFile(path, "h\n", "h\n").Append("2\n", error));
    EXPECT_EQ(seteuid(user), 0);
    chmod(path.c_str(), 0666);
    EXPECT_EQ(Content(), "h\n1\n");
}

TEST_F(RowFile, AFullDiskTearsNoLine) {
    const auto limit = [](rlim_t size) {
        rlimit files{};
        getrlimit(RLIMIT_FSIZE, &files);
        files.rlim_cur = size;
        setrlimit(RLIMIT_FSIZE, &files);
    };
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    CRowFile file(path, "header\n", "header\n");
    EXPECT_TRUE(file.Append("1\n", error));
    limit(12);
    EXPECT_FALSE(file.Append("2 and 3\n", error) || ReplaceWholeFile(path, "longer than that\n", error));
    EXPECT_EQ(Content(), "header\n1\n");
    limit(RLIM_INFINITY);
    EXPECT_TRUE(file.Append("4\n", error));
    EXPECT_EQ(Content(), "header\n1\n2 and 3\n4\n");
    std::signal(SIGXFSZ, before);
    EXPECT_FALSE(CRowFile("/dev/full", "", "").Append("1\n", error));
}
#endif

TEST(PortsText, MarksWhatQuorvaneOffersAndHasStored) {
    const std::vector<NamedPort> ports{{"COM1", ""},  {"COM3", "USB Serial Port"},
                                       {"COM4", ""},  {"COM5", ""},
                                       {"COM6", ""},  {"COM7", ""},
                                       {"COM12", ""}, {"COM17", ""}};
    const std::string offered = "(offered by Quorvane)\n";
    const std::string six = "COM1   " + offered + "COM3   USB Serial Port " + offered + "COM4   " + offered +
                            "COM5   " + offered + "COM6   " + offered + "COM7   " + offered;
    EXPECT_EQ(PortsText(ports, std::nullopt), six + "COM12\nCOM17\n");
    EXPECT_EQ(PortsText(ports, 17), six + "COM12\nCOM17  (stored by Quorvane)\n");
    EXPECT_EQ(PortsText({{"COM1", ""}, {"COM256", ""}}, 1), "COM1    (offered by Quorvane, stored)\nCOM256\n");
    EXPECT_EQ(PortsText({}, 2), "COM2  (stored by Quorvane, but not there)\n");
    EXPECT_EQ(PortsText({{"/dev/ttyS0", ""}}, std::nullopt), "/dev/ttyS0\n");
}

TEST(AddressList, TakesRangesAndListsAndNothingElse) {
    using Addresses = std::vector<std::uint8_t>;
    EXPECT_EQ(AddressesOf("0-5"), (Addresses{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(AddressesOf("5,0,3"), (Addresses{0, 3, 5}));
    EXPECT_EQ(AddressesOf("4-5,0-1,1"), (Addresses{0, 1, 4, 5}));
    for (const char* const text :
         {"", ",", "6", "-1", "1-", "1-6", "3-1", "0,", ",0", "0;1", "0 1", "00", "255", "0-2-4"})
        EXPECT_EQ(AddressesOf(text), std::nullopt) << text;
}

} // namespace
