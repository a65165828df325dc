#include "panel/TrafficLog.h"

#include <cstdio>

#include "framework/FileStream.h"
#include "framework/ResourceModule.h"
#include "framework/Shell.h"
#include "panel/TrafficText.h"
#include "resources/ResourceIds.h"

void CTrafficLog::PrepareLog() {
    logPath = ProgramFolderWide() + L"Quorvane.log";
    const CFileStream emptied(::_wfopen(logPath.c_str(), L"w"));
}

void CTrafficLog::AppendLogLine(const std::string& text) const {
    // Opened and closed for every line: the file is complete at every moment, and free for other programs between
    // lines. In binary mode the longest line is one write, and nobody looks for an end mark in a file of any size.
    const CFileStream file(::_wfopen(logPath.c_str(), L"ab"));
    const std::string line = FormatLogLine(CTime::Now(), text) + "\r\n";
    if (!file.IsEmpty()) std::fwrite(line.data(), 1, line.size(), file.GetHandle());
}

void CTrafficLog::LogTransfer(const char* arrow, std::atomic<std::int32_t>& total, int editId, const void* buffer,
                              std::uint32_t count) {
    const std::string hex = FormatHexBytes({static_cast<const std::uint8_t*>(buffer), count});
    total += static_cast<std::int32_t>(count);
    ::SetDlgItemTextA(trafficWindow, editId, hex.c_str()); // its change notification also brings the totals up to date
    AppendLogLine(arrow + hex);
}

void CTrafficLog::LogTransmitted(const void* buffer, std::uint32_t count) {
    LogTransfer("TX-->", txByteTotal, IDC_TRANSMITTED_EDIT, buffer, count);
}

void CTrafficLog::LogReceived(const void* buffer, std::uint32_t count) {
    LogTransfer("RX-->", rxByteTotal, IDC_RECEIVED_EDIT, buffer, count);
}

void CTrafficLog::RefreshTrafficTotals() {
    if (txByteTotal != shownTxTotal || rxByteTotal != shownRxTotal) ShowTrafficTotals();
}

void CTrafficLog::ShowTrafficTotals() {
    shownTxTotal = txByteTotal;
    shownRxTotal = rxByteTotal;
    totalsLabel.SetCaption(FormatTotals(LoadText(IDS_TX), shownTxTotal, LoadText(IDS_RX), shownRxTotal), 10, 0xFFFFFF);
    totalsLabel.Invalidate();
}

void CTrafficLog::OpenLog() const {
    SystemShell().openWide(nullptr, L"open", logPath.c_str(), nullptr, nullptr, SW_SHOW);
}
