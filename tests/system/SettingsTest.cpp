// Update and Clear from the click to the frame on the wire, the answer, and the words for the user.
#include "SystemTest.h"

namespace {

class Settings : public SystemTest {
protected:
    // Polls until the counters are known with their settings, then stops.
    void FindCounters(const std::vector<std::uint8_t>& addresses, const std::string& shown) {
        PlayCounters(addresses, true);
        StartPolling();
        ExpectAddressButtons(shown);
        ExpectPollingGoesOn(addresses.front());
        EXPECT_TRUE(Await([&] { return counters->Heard("82").size() == addresses.size(); }));
        StopPolling();
        before = counters->Heard().size();
    }

    // Clicks; the box reads so, if there is to be one, and only these bodies have been sent.
    void Press(int button, const std::string& box, const std::vector<std::string>& bodies) {
        program.Click(button);
        if (!box.empty()) program.ExpectBox(box);
        // What else goes out behind a box shows at the next press.
        EXPECT_TRUE(box.empty() ? counters->AwaitSilence() : Await([&] { return Sent().size() >= bodies.size(); }));
        EXPECT_EQ(program.Box(), nullptr);
        std::vector<std::string> expected;
        for (const std::string& body : bodies) expected.push_back(HexOf(FrameOf(body)));
        EXPECT_EQ(Sent(), expected);
        before += bodies.size();
    }
    // since the former press
    std::vector<std::string> Sent() const {
        const std::vector<std::string> heard = counters->Heard();
        return {heard.begin() + static_cast<std::ptrdiff_t>(before), heard.end()};
    }
    std::size_t before = 0;
};

TEST_F(Settings, WhatTheUserHasChangedIsSentAndItsResultTold) {
    const std::string clock = "12 07 02 16 21 20 ";
    FindCounters({0, 3}, "0 3");
    ExpectText(IDC_DATE_PICKER, "2012-07-02 16:21:20");
    Press(IDC_UPDATE, "", {}); // nothing was changed
    program.Type(IDC_SENSITIVITY_EDIT, "251");
    ExpectText(IDC_SENSITIVITY_EDIT, "250");
    program.Type(IDC_SD_PERIOD_EDIT, "9");
    program.Click(IDC_DIRECTION_OUT);
    Press(IDC_UPDATE, "Device 0, 3 write command sucess", {"ff 88 " + clock + "00 00 00 00 00 00 fa a9"});
    Press(IDC_UPDATE, "", {}); // what was written counts as known
    program.Click(IDC_DATE_PICKER);
    PressKey(VK_UP); // the clock alone, by the keyboard
    EXPECT_TRUE(Await([this] { return program.Text(IDC_DATE_PICKER) != "2012-07-02 16:21:20"; }));
    std::string set; // as a clock field
    for (std::size_t at = 2; at < 19; at += 3) set += program.Text(IDC_DATE_PICKER).substr(at, 2) + " ";
    Press(IDC_UPDATE, "Device 0, 3 write clock sucess", {"ff 8a " + set.substr(0, 17)});
    counters->BringFaults({"refuse 3"});
    program.Click(IDC_SD_DETECT_YES);
    program.Click(IDC_LANGUAGE_CHINESE);
    const std::string body = "ff 88 " + set + "00 00 00 00 00 00 fa 09";
    Press(IDC_UPDATE, "Device 0 write command sucess; Device 3 write command fail, command error", {body});
    counters->BringFaults({"refuse=5 *"});
    Press(IDC_CLEAR, "Device 0, 3 clear fail, command error", {"ff 87"}); // all counters, as Update's before
    counters->BringFaults({"silent *"});
    Press(IDC_CLEAR, "No Response", {"ff 87"});
    counters->BringFaults({"checksum *"});
    Press(IDC_CLEAR, "", {"ff 87"});
}

TEST_F(Settings, ACounterMovesToItsNewAddress) {
    FindCounters({1}, "1");
    Press(IDC_CLEAR, "Device 1 Clear Success", {"01 87"}); // before the first Update only the one that is shown
    ExpectTotals(5, 5);
    program.Type(IDC_ADDRESS_EDIT, "4");
    program.Type(IDC_SENSITIVITY_EDIT, "30");
    program.Click(IDC_UPDATE);
    program.ExpectBox("Set address success"); // two results: the second stands over the first
    program.ExpectBox("Device 1 write command sucess");
    const std::string settings = HexOf(FrameOf("ff 88 12 07 02 16 21 20 00 00 00 00 00 00 1e e4"));
    EXPECT_EQ(Sent(), (std::vector{settings, HexOf(FrameOf("ff 89 04"))}));
    StartPolling();
    ExpectPollingGoesOn(4);
    ExpectAddressButtons("4");
}

} // namespace
