// Every byte on the line: into the log file, into the two traffic edits, into the totals.
//
// The two taps run on the worker, inside a transfer but outside the section in which the port waits for it. Setting an
// edit's text from there is a synchronous call into the user-interface thread, so a transfer ends only after that
// thread has handled it; the totals' label is built and painted on that thread alone.
#include "panel/CounterPanel.h"

#include <cstdio>
#include <memory>

#include <shellapi.h>

#include "framework/ResourceModule.h"
#include "panel/PanelMessages.h"
#include "panel/TrafficText.h"
#include "resources/ResourceIds.h"

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

} // namespace

void CCounterPanel::PrepareLog() {
    logPath = ProgramFolder() + "Quorvane.log";
    const File emptied(std::fopen(logPath.c_str(), "w"));
}

void CCounterPanel::AppendLogLine(const std::string& text) const {
    // Opened and closed for every line: the file is complete at every moment, and free for other programs between
    // lines.
    const File file(std::fopen(logPath.c_str(), "a+"));
    if (file) std::fprintf(file.get(), "%s\n", FormatLogLine(CTime::Now(), text).c_str());
}

void CCounterPanel::LogTransfer(const char* arrow, std::atomic<std::int32_t>& total, int editId, const void* buffer,
                                std::uint32_t count) {
    const std::string hex = FormatHexBytes({static_cast<const std::uint8_t*>(buffer), count});
    total += static_cast<std::int32_t>(count);
    const HWND window = replyWindow;
    ::PostMessageA(window, WM_TOTALS_CHANGED, 0, 0);
    ::SetDlgItemTextA(window, editId, hex.c_str());
    AppendLogLine(arrow + hex);
}

void CCounterPanel::LogTransmitted(const void* buffer, std::uint32_t count) {
    LogTransfer("TX-->", txByteTotal, IDC_TRANSMITTED_EDIT, buffer, count);
}

void CCounterPanel::LogReceived(const void* buffer, std::uint32_t count) {
    LogTransfer("RX-->", rxByteTotal, IDC_RECEIVED_EDIT, buffer, count);
}

LRESULT CCounterPanel::OnTotalsChanged(WPARAM, LPARAM) {
    ShowTrafficTotals();
    return 0;
}

void CCounterPanel::ShowTrafficTotals() {
    totalsLabel.SetCaption(FormatTotals(LoadText(IDS_TX), txByteTotal, LoadText(IDS_RX), rxByteTotal), 10, 0xFFFFFF);
    totalsLabel.Invalidate();
}

void CCounterPanel::OnOpenLog() {
    ::ShellExecuteA(nullptr, "open", logPath.c_str(), nullptr, nullptr, SW_SHOW);
}
