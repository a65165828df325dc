// Runs the program in this process, from its start to its end.
#pragma once

#include <functional>

#include <gtest/gtest.h>

#include "dialogs/StoredValues.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"
#include "shell/QuorvaneApp.h"
#include "support/Boxes.h"
#include "support/Meanwhile.h"

inline constexpr char keyName[] = "SOFTWARE\\BRENHOLT\\QV";
inline constexpr std::int32_t missing = -99;

inline std::int32_t Stored(const char* name) {
    std::int32_t value = 0;
    ReadRegistryInt(name, value, missing);
    return value;
}

// Begins without stored values; at the end they are again what they were.
class ProgramRun : public testing::Test {
protected:
    ProgramRun() { ::RegDeleteKeyA(HKEY_CURRENT_USER, keyName); }
    ~ProgramRun() override {
        CCommPort::Instance()->SetTap(nullptr); // the panel's window is gone
        CCommPort::Instance()->Close();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, keyName);
        if (com != missing) WriteRegistryInt("COM", com);
        if (language != missing) WriteRegistryInt("Language", language);
    }

    // Runs the whole program. Once its window stands, `script` runs, and then `end` closes the window. Gives the exit
    // code.
    int RunProgram(const std::function<void()>& script, UINT end = WM_CLOSE, WPARAM wParam = 0) {
        const CMeanwhile meanwhile([&] {
            frame = ::FindWindowA("#32770", PRODUCT_TITLE);
            if (::IsWindowVisible(frame) == FALSE) return false;
            script();
            return ::PostMessageA(frame, end, wParam, 0) != FALSE;
        });
        return run();
    }
    // One that must not get as far as a window; gives what it says.
    static std::string RunInVain() {
        const CBoxReader reader;
        CQuorvaneApp().Run();
        return reader.texts;
    }

    HWND Panel() const { return ::GetWindow(frame, GW_CHILD); }
    std::string Text(int id) const { return TextOf(FindControl(frame, id)); }

    bool PanelFillsFrame() const {
        RECT client{}, panel = PlaceInParent(Panel());
        return ::GetClientRect(frame, &client) != FALSE && ::EqualRect(&client, &panel) != FALSE;
    }

    int (*run)() = [] { return CQuorvaneApp().Run(); };
    HWND frame = nullptr;
    const std::int32_t com = Stored("COM"), language = Stored("Language"); // before the test
};
