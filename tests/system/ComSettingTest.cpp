// COM Setting on a line that is in use: baud rate and port change, and polling goes on.
#include <cstdlib>

#include "SystemTest.h"

namespace {

class ComSetting : public SystemTest {
protected:
    // Opens the dialog, writes into one field as a hand would, and confirms.
    void Change(int field, const char* text) const {
        ::PostMessageA(program.Frame(), WM_COMMAND, ID_COM_SETTING, 0);
        HWND dialog = nullptr;
        ASSERT_TRUE(Await([&] { return ::IsWindowVisible(dialog = ::FindWindowA("#32770", "COM Setting")) != FALSE; }));
        DWORD_PTR result = 0;
        ::SendMessageTimeoutA(::GetDlgItem(dialog, field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text), SMTO_NORMAL,
                              5000, &result);
        ::PostMessageA(dialog, WM_COMMAND, IDC_COM_SETTING_OK, 0);
        ASSERT_TRUE(Await([dialog] { return !::IsWindow(dialog); }));
    }
};

TEST_F(ComSetting, AnotherRateAndAnotherPortWhilePolling) {
    PlayCounters({0});
    StartPolling();
    ExpectPollingGoesOn();
    for (const char* rate : {"9600", "115200", "4800"}) {
        ASSERT_NO_FATAL_FAILURE(Change(IDC_COM_SETTING_BAUD, rate));
        EXPECT_EQ(program.Text(IDC_PORT), "Close COM") << rate;
        ExpectPollingGoesOn();
    }
    const char* const secondNear = std::getenv("QUORVANE_TEST_PORT_C");
    const char* const secondFar = std::getenv("QUORVANE_TEST_PORT_D");
    ASSERT_TRUE(secondNear != nullptr && secondFar != nullptr) << "no second cable";
    CCounterPlayer others({0});
    ASSERT_TRUE(others.Play(secondFar));
    ASSERT_NO_FATAL_FAILURE(Change(IDC_COM_SETTING_PORT, secondNear));
    EXPECT_TRUE(others.AwaitFrames(3));
    ExpectText(IDC_PORT, "Close COM");
    EXPECT_EQ(Stored("COM"), static_cast<DWORD>(std::atoi(secondNear + 3))) << "an open port is stored";
    EXPECT_TRUE(counters->AwaitSilence()) << "polls still go out on the former port";
}

} // namespace
