// The commands over files: what they write, what stands in their way, and in whose way they don't stand.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "reader/LogCommand.h"
#include "reader/ReportCommand.h"

namespace {

class FileCommands : public testing::Test {
protected:
    ~FileCommands() override { std::filesystem::remove(path); }

    void Put(std::string_view text) const { std::ofstream(path, std::ios::binary) << text; }
    static TextSink Into(std::string& target) {
        return [&target](std::string_view text) {
            target += text;
            return true;
        };
    }

    std::string path = "file_commands_test.log", out, err;
};

TEST_F(FileCommands, LogWritesRowsWhileOthersWriteTheLog) {
    const std::string second = "2026/11/26 10:00:00: ";
    Put(second + "TX-->02 00 82 82 03 \r\n" + second + "RX-->02 00 12 07 02 16 21 20 15 e4 6b 03 \r\n" + second +
        "TX-->02 00 81 81 03 \r\n" + second + "RX-->\r\nno line\r\n" + second + "TX-->02 0");
    const TextSink meanwhile = [&](std::string_view text) {
        out += text;
        std::ofstream(path, std::ios::app) << "more";
        std::filesystem::rename(path, path + ".old");
        std::filesystem::rename(path + ".old", path);
        return true;
    };
    EXPECT_EQ(RunLog({path, {RowKind::Csv, true}, false}, meanwhile, Into(err)), 0);
    const std::size_t row = out.find("\r\n2026-11-26T10:00:00.000");
    ASSERT_NE(row, std::string::npos) << out;
    EXPECT_EQ(out.substr(row + 31), ",0,,,,silent,21,en,in,no,4\r\n");
    EXPECT_EQ(err, path + ": lines left out that are none of a log: 1");
}

TEST_F(FileCommands, SayInOneLineWhatIsInTheWay) {
    Put("time,address,in,out,clock,answer\n");
    EXPECT_EQ(RunLog({path, {}, false}, Into(out), Into(err)), 1);
    EXPECT_EQ(RunReport({path, "", ReportLanguage::English}, Into(out), Into(err)), 1);
    EXPECT_TRUE(err == path + ": no traffic log" + path + ": no readings in it" && out.empty()) << err << out;
    const std::string rows = "time,address,in,out,answer\n2026-11-26T10:00:00+01:00,0,1,2,ok\n";
    Put(rows);
    err.clear();
    EXPECT_EQ(RunReport({path, "./" + path, ReportLanguage::English}, Into(out), Into(err)), 1);
    EXPECT_TRUE(err == "./" + path + ": the page would take the place of its rows" &&
                std::filesystem::file_size(path) == rows.size())
        << err;
    const std::string beside = path + ".new"; // where the page is written first
    std::filesystem::rename(path, beside);
    EXPECT_EQ(RunReport({beside, path, ReportLanguage::English}, Into(out), Into(err)), 1);
    EXPECT_TRUE(std::filesystem::file_size(beside) == rows.size() && std::filesystem::remove(beside));
    Put("2026/11/26 10:00:00: TX-->02 00 81 81 03 \n");
    const TextSink full = [](std::string_view) { return false; };
    EXPECT_EQ(RunLog({path, {}, false}, full, Into(err)), 1);
    EXPECT_EQ(RunLog({path, {}, true}, full, Into(err)), 1);
    Put("");
    EXPECT_EQ(RunLog({path, {RowKind::Csv, false}, false}, Into(out), Into(err)), 0);
    EXPECT_EQ(out, "time,address,in,out,clock,answer\r\n") << "a log that has just begun";
}

} // namespace
