#include "framework/Controls.h"

#include <commctrl.h>

bool CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_DRAWITEM) {
        DrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        return true;
    }
    return CWnd::OnChildNotify(message, wParam, lParam, result);
}

void CDateTimeCtrl::SetFormat(const char* format) const {
    SendMessage(DTM_SETFORMATA, 0, reinterpret_cast<LPARAM>(format));
}

void CDateTimeCtrl::SetTime(CTime time) const {
    const CalendarFields fields = time.GetLocalFields();
    SYSTEMTIME date{};
    date.wYear = static_cast<WORD>(fields.year);
    date.wMonth = static_cast<WORD>(fields.month);
    date.wDay = static_cast<WORD>(fields.day);
    date.wHour = static_cast<WORD>(fields.hour);
    date.wMinute = static_cast<WORD>(fields.minute);
    date.wSecond = static_cast<WORD>(fields.second);
    SendMessage(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
}

CTime CDateTimeCtrl::GetTime() const {
    SYSTEMTIME date{};
    if (SendMessage(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date)) != GDT_VALID) return CTime();
    return CTime(CalendarFields{date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute, date.wSecond});
}
