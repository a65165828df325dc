// Update and Clear from the click to the frame on the wire, the answer, and the words for the user.
#include <algorithm>

#include "Input.h"
#include "SystemTest.h"

namespace {

class Settings : public SystemTest {
protected:
    // Polls until all counters are known with their settings, then stops.
    void FindCounters(const std::vector<std::uint8_t>& addresses, const std::string& shown) {
        PlayCounters(addresses);
        StartProgram(true);
        ExpectAddressButtons(shown);
        ExpectPollingGoesOn(addresses.front());
        ExpectText(IDC_SENSITIVITY_EDIT, "21");
        StopPolling();
        before = counters->HeardCount();
    }

    // The frames since the last call, checksum and all.
    std::vector<std::string> NewFrames() {
        EXPECT_TRUE(counters->AwaitSilence());
        const auto heard = counters->Heard();
        std::vector<std::string> frames;
        for (; before < heard.size(); ++before) frames.push_back(HexOf(heard[before].bytes));
        return frames;
    }

    // What the picker shows, as a clock field.
    std::string PickedClock() const {
        const std::string shown = program.Text(IDC_DATE_PICKER); // 2012-07-02 16:21:20
        std::string field;
        for (const std::size_t at : {2U, 5U, 8U, 11U, 14U, 17U}) field += shown.substr(at, 2) + " ";
        return field;
    }

    // A frame to all counters, from its command byte and body.
    static std::string Frame(const std::string& body) {
        LineBytes bytes{0x02, 0xFF};
        for (std::size_t at = 0; at + 1 < body.size(); at += 3) {
            bytes.push_back(static_cast<std::uint8_t>(std::stoi(body.substr(at, 2), nullptr, 16)));
        }
        unsigned sum = 0;
        for (std::size_t i = 1; i < bytes.size(); ++i) sum += bytes[i];
        bytes.push_back(static_cast<std::uint8_t>(sum));
        bytes.push_back(0x03);
        return HexOf(bytes);
    }

    using Frames = std::vector<std::string>;
    std::size_t before = 0;
};

TEST_F(Settings, UpdateWritesWhatTheUserHasChanged) {
    FindCounters({0, 3}, "0 3");
    EXPECT_EQ(program.Text(IDC_DATE_PICKER).substr(0, 15), "2012-07-02 16:2");
    program.Click(IDC_UPDATE);
    EXPECT_EQ(NewFrames(), Frames{}) << "nothing was changed";

    program.Type(IDC_SENSITIVITY_EDIT, "150");
    program.Click(IDC_DIRECTION_OUT);
    EXPECT_TRUE(Await([&] { return program.IsEnabled(IDC_DIRECTION_IN) && !program.IsEnabled(IDC_DIRECTION_OUT); }));
    const std::string clock = PickedClock();
    program.Click(IDC_UPDATE);
    EXPECT_EQ(program.TakeBox(), "Device 0, 3 write command sucess");
    EXPECT_EQ(NewFrames(), Frames{Frame("88 " + clock + "00 00 00 00 00 00 96 a4 ")});
    ExpectText(IDC_SENSITIVITY_EDIT, "150");
    program.Click(IDC_UPDATE);
    EXPECT_EQ(NewFrames(), Frames{}) << "what was written counts as known";

    // The year with the keyboard: the clock alone goes out.
    program.Click(IDC_DATE_PICKER);
    PressKey(VK_UP);
    EXPECT_TRUE(Await([&] { return PickedClock() != clock; }));
    program.Click(IDC_UPDATE);
    EXPECT_EQ(program.TakeBox(), "Device 0, 3 write clock sucess");
    EXPECT_EQ(NewFrames(), Frames{Frame("8a " + PickedClock())});

    counters->BringFault("refuse 3");
    program.Click(IDC_SD_DETECT_YES);
    program.Click(IDC_LANGUAGE_CHINESE);
    program.Type(IDC_SD_PERIOD_EDIT, "9");
    program.Click(IDC_UPDATE);
    EXPECT_EQ(program.TakeBox(), "Device 0 write command sucess; Device 3 write command fail, command error");
    EXPECT_EQ(NewFrames(), Frames{Frame("88 " + PickedClock() + "00 00 00 00 00 00 96 09 ")});
}

TEST_F(Settings, RefusalsAndSilenceAreToldInWords) {
    FindCounters({0, 3}, "0 3");
    counters->BringFault("refuse=5 *");
    program.Click(IDC_CLEAR); // before the first Update to the counter shown alone
    EXPECT_EQ(program.TakeBox(), "Device 0 clear fail, command error");
    EXPECT_EQ(NewFrames(), Frames{"02 00 87 87 03 "});
    program.Type(IDC_SENSITIVITY_EDIT, "33");
    program.Click(IDC_UPDATE);
    EXPECT_EQ(program.TakeBox(), "Device 0, 3 write command fail, command error");
    program.Type(IDC_ADDRESS_EDIT, "2");
    program.Click(IDC_UPDATE); // both are still to be written; two answers are none to a new address
    EXPECT_EQ(program.TakeBox(), "Device 0, 3 write command fail, command error");
    EXPECT_EQ(NewFrames().size(), 3U);

    counters->ClearFaults();
    counters->BringFault("silent *");
    program.Click(IDC_CLEAR);
    EXPECT_EQ(program.TakeBox(), "No Response");
    program.Click(IDC_UPDATE);
    EXPECT_EQ(program.TakeBox(), "No Response");
    EXPECT_EQ(program.TakeBox(), "No Response");
    for (const char* fault : {"torn *", "checksum *"}) {
        counters->ClearFaults();
        counters->BringFault(fault);
        program.Click(IDC_CLEAR);
        NewFrames();
        EXPECT_FALSE(program.ShowsBox()) << fault;
    }
}

TEST_F(Settings, ClearResetsCountsAndTotals) {
    FindCounters({0, 3}, "0 3");
    program.Click(IDC_CLEAR);
    EXPECT_EQ(program.TakeBox(), "Device 0 Clear Success");
    EXPECT_EQ(NewFrames(), Frames{"02 00 87 87 03 "});
    ExpectTotals(5, 5);
    ExpectText(IDC_IN_DISPLAY, "0");
    ExpectText(IDC_OUT_DISPLAY, "0");

    program.Click(IDC_UPDATE); // from the first Update on, to all
    counters->BringFault("refuse 3");
    program.Click(IDC_CLEAR);
    EXPECT_EQ(program.TakeBox(), "Device 0 Clear Success; Device 3 clear fail, command error");
    EXPECT_EQ(NewFrames(), Frames{"02 ff 87 86 03 "});
    ExpectTotals(5, 10);
}

TEST_F(Settings, ACounterMovesToItsNewAddress) {
    FindCounters({1}, "1");
    program.Type(IDC_ADDRESS_EDIT, "4");
    program.Type(IDC_SENSITIVITY_EDIT, "30");
    const std::string clock = PickedClock();
    program.Click(IDC_UPDATE);
    // The second result stands over the first; both are closed from the top.
    EXPECT_TRUE(Await([&] { return counters->HeardCount() == before + 2; }));
    std::vector<std::string> results{program.TakeBox(), program.TakeBox()};
    std::ranges::sort(results);
    EXPECT_EQ(results, (std::vector<std::string>{"Device 1 write command sucess", "Set address success"}));
    EXPECT_EQ(NewFrames(), (Frames{Frame("88 " + clock + "00 00 00 00 00 00 1e e4 "), Frame("89 04 ")}));
    ExpectAddressButtons("4");
    program.Click(IDC_START);
    ExpectPollingGoesOn(4);
    ExpectAddressButtons("4");
}

TEST_F(Settings, FieldsKeepTheirRange) {
    StartProgram();
    const struct {
        int id;
        const char* typed;
        const char* reads;
    } rows[] = {{IDC_SENSITIVITY_EDIT, "251", "250"}, {IDC_SD_PERIOD_EDIT, "3", "4"}, {IDC_ADDRESS_EDIT, "300", "255"}};
    for (const auto& row : rows) {
        program.Type(row.id, row.typed, row.reads);
    }
}

} // namespace
