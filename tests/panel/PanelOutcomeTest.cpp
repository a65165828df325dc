// What became of the user's commands, the traffic log and its totals, and the port.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "PanelFixture.h"
#include "framework/ResourceModule.h"

namespace {

TEST_F(PanelTest, ResultsAreToldInOneTextEach) {
    const Bytes done = Answer(0, 0), refused = Answer(4, 2);
    const struct {
        std::uint32_t message;
        Bytes reply;
        const char* shown;
    } rows[] = {
        {WM_CLEAR_REPLY, Line({done, refused}), "Device 0 Clear Success; Device 4 clear fail, command error|"},
        {WM_CLEAR_REPLY, refused, "Device 4 clear fail, command error|"},
        {WM_CLOCK_REPLY, done, "Device 0 write clock sucess|"},
        {WM_CLOCK_REPLY, refused, "Device 4 write clock fail, command error|"},
        {WM_WRITE_REPLY, done, "Device 0 write command sucess|"},
        {WM_WRITE_REPLY, refused, ": Device 4 write command fail, command error|"}, // the platform's box, without title
        {WM_ADDRESS_REPLY, refused, "Set address fail, command error|"},
        {WM_CLEAR_REPLY, Torn(done), ""},
        {WM_WRITE_REPLY, Spoilt(done), ""},
        {WM_ADDRESS_REPLY, Spoilt(done), ""},
        {WM_ADDRESS_REPLY, Line({{0}, done}), ""},
        {WM_ADDRESS_REPLY, Line({done, Answer(1, 0)}), ""}, // two can't have taken one address
        {WM_ADDRESS_REPLY, Answer(6, 0), ""},
        {WM_ADDRESS_REPLY, Answer(255, 0), ""},
    };
    FindTwoCounters();
    for (const auto& row : rows) EXPECT_EQ(Reply(row.message, -1, row.reply), row.shown) << "row " << &row - rows;
    for (const std::uint32_t message : {WM_CLEAR_REPLY, WM_WRITE_REPLY, WM_ADDRESS_REPLY, WM_CLOCK_REPLY}) {
        const CBoxReader reader;
        panel->PostReply(message, nullptr, 0);
        Pump();
        EXPECT_EQ(reader.texts, "No Response|");
    }
    EXPECT_EQ(panel->selected, 0);
}

TEST_F(PanelTest, ThoseThatDidItChangeAndNobodyElse) {
    FindTwoCounters();
    auto expected = panel->records;
    const CounterRecord sent{.deviceTime = RecordTime() + 60, .language = 1, .sdPeriod = 9, .sensitivity = 100};
    const auto reply = [&](std::uint32_t message, const Bytes& bytes) {
        Reply(message, -1, bytes, sent);
        EXPECT_EQ(panel->records, expected) << message;
    };
    for (const std::uint32_t message : {WM_CLEAR_REPLY, WM_WRITE_REPLY, WM_ADDRESS_REPLY, WM_CLOCK_REPLY})
        reply(message, Answer(0, 1));
    const Bytes firstOnly = Line({Answer(0, 0), Answer(2, 1), Answer(9, 0)});
    expected[0].deviceTime = sent.deviceTime;
    reply(WM_CLOCK_REPLY, firstOnly);
    expected[0].inCount = expected[0].outCount = expected[0].extraCount = 0;
    reply(WM_CLEAR_REPLY, firstOnly);
    EXPECT_EQ(Counts(), "0 0");
    expected[0] = sent; // all of it, until the next poll
    reply(WM_WRITE_REPLY, firstOnly);
    EXPECT_EQ(SettingsShown(), "Chinese IN YES 100 9 0");
}

TEST_F(PanelTest, AMovedCounterIsShownUnderItsNewAddress) {
    EXPECT_EQ(Reply(WM_ADDRESS_REPLY, -1, Answer(3, 0)), ""); // nobody is selected
    FindTwoCounters();
    Click(IDC_ADDRESS_BUTTON_SECOND);
    EXPECT_EQ(Reply(WM_ADDRESS_REPLY, -1, Answer(3, 0)), "Set address success|");
    EXPECT_EQ(panel->selected, 3);
    EXPECT_EQ(Buttons(), "3 2*"); // always the first button
    EXPECT_EQ(SettingsShown(), "Chinese OUT YES 200 31 3");
    EXPECT_EQ(Counts(), "56 78");
    EXPECT_EQ(panel->records[2].address, 2);
    Click(IDC_ADDRESS_BUTTON_FIRST);
    EXPECT_EQ(panel->selected, 3);
    Reply(WM_POLL_REPLY, 2, {}); // the next round of polls sorts it out
    Reply(WM_POLL_REPLY, 3, Status(3, 57, 79));
    EXPECT_EQ(Buttons(), "0*3 ");
    EXPECT_EQ(Counts(), "57 79");
}

TEST_F(PanelTest, TwoResultsStandOverEachOtherWhileRepliesGoOn) {
    FindTwoCounters();
    const CBoxReader reader(2);
    Post(WM_CLOCK_REPLY, -1, Answer(0, 0));
    Post(WM_ADDRESS_REPLY, -1, Answer(1, 4));
    Post(WM_POLL_REPLY, 0, Status(0, 50, 51));
    Pump();
    EXPECT_EQ(reader.mostTogether, 2);
    EXPECT_EQ(Counts(), "50 51");
}

TEST_F(PanelTest, ThePortButtonIsRepaintedOncePerChange) {
    const auto repaints = [&](bool open) {
        ::ValidateRect(Control(IDC_PORT), nullptr);
        panel->ShowPortState(open);
        return ::GetUpdateRect(Control(IDC_PORT), nullptr, FALSE) != FALSE;
    };
    EXPECT_TRUE(repaints(false)); // the first call, whatever it says
    EXPECT_FALSE(repaints(false));
    EXPECT_TRUE(repaints(true));
    EXPECT_FALSE(repaints(true));
}

const std::filesystem::path logPath = ProgramFolderWide() + L"Quorvane.log";

std::string ReadLog() {
    std::ifstream file(logPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(PanelTest, TheLogHoldsOneRunLineByLine) {
    panel->CCounterPanel::SendPoll(5); // counts on a closed line too
    RunQueue();
    panel->LogReceived("abc", 3);
    EXPECT_EQ(Text(IDC_RECEIVED_EDIT), "61 62 63 ");
    panel->LogReceived(nullptr, 0);
    Pump();
    EXPECT_EQ(Text(IDC_RECEIVED_EDIT), "");
    EXPECT_EQ(Text(IDC_TRANSMITTED_EDIT), "02 05 81 86 03 ");
    EXPECT_EQ(Text(IDC_TOTALS_LABEL), "TX:     5    RX:     3");
    const std::string time = R"(\d{4}/\d\d/\d\d \d\d:\d\d:\d\d: )";
    const std::regex lines(time + "TX-->02 05 81 86 03 \r\n" + time + "RX-->61 62 63 \r\n" + time + "RX-->\r\n");
    EXPECT_TRUE(std::regex_match(ReadLog(), lines)) << ReadLog();

    Click(IDC_CLEAR);
    EXPECT_EQ(Text(IDC_TOTALS_LABEL), "TX:     0    RX:     0"); // before its own frame
    RunQueue();
    EXPECT_EQ(Text(IDC_TOTALS_LABEL), "TX:     5    RX:     0");
    ReleasePanel();
    CreatePanel();
    EXPECT_EQ(ReadLog(), "");
}

TEST_F(PanelTest, ALogThatCannotBeWrittenLosesItsLinesOnly) {
    ReleasePanel();
    std::filesystem::remove(logPath);
    ASSERT_TRUE(std::filesystem::create_directory(logPath));
    CreatePanel();
    panel->LogTransmitted("abc", 3);
    Pump();
    EXPECT_TRUE(std::filesystem::remove(logPath));
    EXPECT_EQ(Text(IDC_TRANSMITTED_EDIT), "61 62 63 ");
    EXPECT_EQ(Text(IDC_TOTALS_LABEL), "TX:     3    RX:     0");
}

// A frame with the ports 3 and 7. A file stands for the device: it opens, and knows nothing of line parameters.
class CFileFrame : public CPanelFrame {
public:
    explicit CFileFrame(CTrafficTap& tap) : panel(tap) { std::ofstream(file).put(' '); }
    CFileFrame(const CFileFrame&) = delete;
    CFileFrame& operator=(const CFileFrame&) = delete;
    ~CFileFrame() {
        CCommPort::Instance()->Close();
        std::remove(file.c_str());
    }

    const AvailablePorts& GetAvailablePorts() const override { return ports; }
    void SelectPort(std::int32_t portNumber) override {
        selected = portNumber;
        trace += std::to_string(portNumber) + (CCommPort::Instance()->IsOpen() ? " while open, " : ", ");
    }
    std::int32_t GetSelectedPort() const override { return selected; }
    bool IsChinese() const override { return chinese; }
    int OpenSelectedPort() override {
        trace += "open, ";
        if (deviceIsThere) CCommPort::Instance()->Open(file.c_str(), 0, 0, true);
        panel.ShowPortState(CCommPort::Instance()->IsOpen());
        return 1;
    }

    std::string trace;
    bool deviceIsThere = true;
    std::int32_t selected = 3;
    bool chinese = false;

private:
    CTrafficTap& panel;
    const std::string file = ProgramFolder() + "panel_test.port";
    const AvailablePorts ports{{3, 7}, 2};
};

TEST_F(PanelTest, ThePortIsChosenOpenedAndClosed) {
    CFileFrame frame(*panel);
    panel->frame = &frame;
    const auto choose = [&](UINT row) { panel->SendMessage(WM_COMMAND, ID_PORT_FIRST + row); };
    const struct {
        std::function<void()> action;
        std::string trace, caption;
    } steps[] = {{[&] { choose(0); }, "3, ", "Open COM"}, // closed: remembered only
                 {[&] { choose(2), choose(5); }, "", "Open COM"},
                 {[&] { Click(IDC_PORT); }, "open, ", "Close COM"},
                 {[&] { choose(1); }, "7, open, ", "Close COM"},
                 {[&] { Click(IDC_PORT); }, "", "Open COM"},
                 {[&] { Click(IDC_PORT); }, "open, ", "Close COM"},
                 {[&] { frame.deviceIsThere = false, choose(0); }, "3, open, ", "Open COM"},
                 {[&] { choose(1); }, "7, ", "Open COM"}};
    for (const auto& step : steps) {
        SCOPED_TRACE(testing::Message() << "step " << &step - steps);
        step.action();
        EXPECT_EQ(std::exchange(frame.trace, {}), step.trace);
        EXPECT_EQ(Text(IDC_PORT), step.caption);
        EXPECT_EQ(CCommPort::Instance()->IsOpen(), step.caption == "Close COM");
    }
}

} // namespace
