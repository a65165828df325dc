// Update and Clear from the click to the frame on the wire, the answer, and the words for the user.
#include "SystemTest.h"

namespace {

class Settings : public SystemTest {
protected:
    // Polls until the counters are known with their settings, then stops.
    void FindCounters(const std::vector<std::uint8_t>& addresses, const std::string& shown) {
        PlayCounters(addresses);
        StartPolling();
        ExpectAddressButtons(shown);
        ExpectPollingGoesOn(addresses.front());
        ExpectText(IDC_SENSITIVITY_EDIT, "21");
        StopPolling();
        before = counters->Heard().size();
    }

    // What has been sent since the last time; the bodies are given.
    void ExpectFrames(const std::vector<std::string>& bodies) {
        const auto allCame = [&] { return counters->Heard().size() >= before + bodies.size(); };
        EXPECT_TRUE(bodies.empty() ? counters->AwaitSilence() : Await(allCame));
        std::vector<std::string> sent, expected;
        for (const HeardFrame& frame : counters->Heard()) sent.push_back(frame.hex);
        sent.erase(sent.begin(), sent.begin() + static_cast<std::ptrdiff_t>(before));
        for (const std::string& body : bodies) expected.push_back(FrameAround(body));
        EXPECT_EQ(sent, expected);
        before += sent.size();
    }

    void ClickUpdate() const { program.Click(IDC_UPDATE); }
    void ClickClear() const { program.Click(IDC_CLEAR); }

    // What the picker shows, as a clock field.
    std::string PickedClock() const {
        const std::string shown = program.Text(IDC_DATE_PICKER); // 2012-07-02 16:21:20
        std::string field;
        for (std::size_t at = 2; at + 1 < shown.size(); at += 3) field += shown.substr(at, 2) + " ";
        return field;
    }

    std::size_t before = 0;
};

TEST_F(Settings, UpdateSendsWhatTheUserHasChanged) {
    FindCounters({0, 3}, "0 3");
    EXPECT_TRUE(PickedClock().starts_with("12 07 02 16 2")) << PickedClock();
    ClickUpdate();
    ExpectFrames({}); // nothing was changed

    program.Type(IDC_SENSITIVITY_EDIT, "251");
    ExpectText(IDC_SENSITIVITY_EDIT, "250");
    program.Type(IDC_SD_PERIOD_EDIT, "9");
    program.Click(IDC_DIRECTION_OUT);
    EXPECT_TRUE(Await([&] { return program.IsEnabled(IDC_DIRECTION_IN) && !program.IsEnabled(IDC_DIRECTION_OUT); }));
    const std::string clock = PickedClock();
    ClickUpdate();
    program.ExpectBox("Device 0, 3 write command sucess");
    ExpectFrames({"ff 88 " + clock + "00 00 00 00 00 00 fa a9 "});
    ExpectText(IDC_SENSITIVITY_EDIT, "250");
    ClickUpdate();
    ExpectFrames({}); // what was written counts as known

    // The clock alone, by the keyboard.
    program.Click(IDC_DATE_PICKER);
    PressKey(VK_UP);
    EXPECT_TRUE(Await([&] { return PickedClock() != clock; }));
    ClickUpdate();
    program.ExpectBox("Device 0, 3 write clock sucess");
    ExpectFrames({"ff 8a " + PickedClock()});

    counters->BringFaults({"refuse 3"});
    program.Click(IDC_SD_DETECT_YES);
    program.Click(IDC_LANGUAGE_CHINESE);
    EXPECT_TRUE(Await([&] { return program.IsEnabled(IDC_SD_DETECT_NO) && program.IsEnabled(IDC_LANGUAGE_ENGLISH); }));
    ClickUpdate();
    program.ExpectBox("Device 0 write command sucess; Device 3 write command fail, command error");
    ExpectFrames({"ff 88 " + PickedClock() + "00 00 00 00 00 00 fa 09 "});
}

TEST_F(Settings, ClearResetsCountsAndTotals) {
    FindCounters({0, 3}, "0 3");
    ClickClear(); // before the first Update only the counter that is shown
    program.ExpectBox("Device 0 Clear Success");
    ExpectFrames({"00 87 "});
    ExpectTotals(5, 5);
    ExpectText(IDC_IN_DISPLAY, "0");
    ExpectText(IDC_OUT_DISPLAY, "0");
    ClickUpdate();
    counters->BringFaults({"refuse 3"});
    ClickClear();
    program.ExpectBox("Device 0 Clear Success; Device 3 clear fail, command error");
    ExpectFrames({"ff 87 "});
    ExpectTotals(5, 10);
}

TEST_F(Settings, RefusalsAndSilenceAreToldInWordsAndGarbageIsNot) {
    FindCounters({0, 3}, "0 3");
    counters->BringFaults({"refuse=5 *"});
    ClickClear();
    program.ExpectBox("Device 0 clear fail, command error");
    program.Click(IDC_DATE_PICKER);
    PressKey(VK_UP);
    ClickUpdate();
    program.ExpectBox("Device 0, 3 write clock fail, command error");
    program.Type(IDC_SENSITIVITY_EDIT, "33");
    ClickUpdate();
    program.ExpectBox("Device 0, 3 write command fail, command error");
    counters->BringFaults({"silent *"});
    ClickClear();
    program.ExpectBox("No Response");
    ClickUpdate();
    program.ExpectBox("No Response");
    for (const char* fault : {"torn *", "checksum *"}) {
        counters->BringFaults({fault});
        ClickUpdate();
        EXPECT_TRUE(counters->AwaitFrames(1) && counters->AwaitSilence());
        EXPECT_FALSE(program.ShowsBox()) << fault;
    }
}

TEST_F(Settings, ACounterMovesToItsNewAddress) {
    FindCounters({1}, "1");
    program.Type(IDC_ADDRESS_EDIT, "4");
    ExpectText(IDC_ADDRESS_EDIT, "4");
    counters->BringFaults({"refuse 1"});
    ClickUpdate();
    program.ExpectBox("Set address fail, command error");
    ExpectFrames({"ff 89 04 "});

    // Two results: the second stands over the first.
    counters->BringFaults({});
    program.Type(IDC_SENSITIVITY_EDIT, "30");
    const std::string clock = PickedClock();
    ClickUpdate();
    program.ExpectBox("Set address success");
    program.ExpectBox("Device 1 write command sucess");
    ExpectFrames({"ff 88 " + clock + "00 00 00 00 00 00 1e e4 ", "ff 89 04 "});
    ExpectAddressButtons("4");
    StartPolling();
    ExpectPollingGoesOn(4);
    ExpectAddressButtons("4");
}

} // namespace
