// Every byte on the line: into the log file, into two edits, into the totals.
//
// The two taps run on the worker, inside a transfer but outside the section in which the port waits for it. Setting an
// edit's text from there is a synchronous call into the user-interface thread, so a transfer ends only after that
// thread has handled it; the notification of the edit makes that thread bring the label of the totals up to date.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include <windows.h>

#include "serial/TrafficTap.h"
#include "skin/SkinStatic.h"

class CTrafficLog : public CTrafficTap {
public:
    void LogTransmitted(const void* buffer, std::uint32_t count) override;
    void LogReceived(const void* buffer, std::uint32_t count) override;

protected:
    // All of it but the taps on the user-interface thread; the first two before the worker can log.
    // The edits with the latest bytes of each way.
    void SetTrafficEdits(HWND transmitted, HWND received) {
        transmittedWindow = transmitted;
        receivedWindow = received;
    }
    // Empties the log beside the program, or makes it.
    void PrepareLog();

    void ShowTrafficTotals();
    // Shows the totals if they aren't those of the label.
    void RefreshTrafficTotals();
    void OpenLog() const;

    CSkinStatic totalsLabel;
    std::atomic<std::int32_t> txByteTotal{0}, rxByteTotal{0};

private:
    void LogTransfer(const char* arrow, std::atomic<std::int32_t>& total, HWND edit, const void* buffer,
                     std::uint32_t count);
    void AppendLogLine(const std::string& text) const;

    std::atomic<HWND> transmittedWindow{nullptr}, receivedWindow{nullptr};
    std::wstring logPath;                            // set once; wide, as a folder's name may be of any language
    std::int32_t shownTxTotal = 0, shownRxTotal = 0; // in the label, which is blank at first
};
