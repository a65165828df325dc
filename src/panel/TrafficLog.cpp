#include "panel/TrafficLog.h"

#include <cstdio>

#include "framework/FileStream.h"
#include "framework/ResourceModule.h"
#include "framework/Shell.h"
#include "framework/SystemHandles.h"
#include "panel/TrafficText.h"
#include "resources/ResourceIds.h"

void CTrafficLog::PrepareLog() {
    logPath = ProgramFolderWide() + L"Quorvane.log";
    const CFileStream emptied(::_wfopen(logPath.c_str(), L"w"));
}

void CTrafficLog::AppendLogLine(const std::string& text) const {
    // Opened and closed for every line: the file is complete at every moment, and free for other programs between
    // lines. Each line is one write, and of one that finds no room nothing stays.
    const CFileHandle file(::CreateFileW(logPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                         OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER end{};
    if (::SetFilePointerEx(file.GetHandle(), {}, &end, FILE_END) == FALSE) return;
    const std::string line = FormatLogLine(CTime::Now(), text) + "\r\n";
    DWORD written = 0;
    ::WriteFile(file.GetHandle(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    if (written == line.size()) return;
    ::SetFilePointerEx(file.GetHandle(), end, nullptr, FILE_BEGIN);
    ::SetEndOfFile(file.GetHandle());
}

void CTrafficLog::LogTransfer(const char* arrow, std::atomic<std::int32_t>& total, HWND edit, const void* buffer,
                              std::uint32_t count) {
    const std::string hex = FormatHexBytes({static_cast<const std::uint8_t*>(buffer), count});
    total += static_cast<std::int32_t>(count);
    // Its change notification also brings the totals up to date.
    ::SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(hex.c_str()));
    AppendLogLine(arrow + hex);
}

void CTrafficLog::LogTransmitted(const void* buffer, std::uint32_t count) {
    LogTransfer("TX-->", txByteTotal, transmittedWindow, buffer, count);
}

void CTrafficLog::LogReceived(const void* buffer, std::uint32_t count) {
    LogTransfer("RX-->", rxByteTotal, receivedWindow, buffer, count);
}

void CTrafficLog::RefreshTrafficTotals() {
    if (txByteTotal != shownTxTotal || rxByteTotal != shownRxTotal) ShowTrafficTotals();
}

void CTrafficLog::ShowTrafficTotals() {
    shownTxTotal = txByteTotal;
    shownRxTotal = rxByteTotal;
    totalsLabel.SetCaption(FormatTotals(LoadText(IDS_TX), shownTxTotal, LoadText(IDS_RX), shownRxTotal), 10, 0xFFFFFF);
    totalsLabel.PaintNow();
}

void CTrafficLog::OpenLog() const {
    SystemShell().openWide(nullptr, L"open", logPath.c_str(), nullptr, nullptr, SW_SHOW);
}
