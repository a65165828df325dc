#include "framework/ToolTip.h"

#include <commctrl.h>

namespace {

// The record's size in the form that every version of the common controls knows.
TOOLINFOA DescribeTool(const CWnd& owner, UINT_PTR id, std::string& text) {
    TOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.hwnd = owner.GetHandle();
    tool.uId = id;
    tool.lpszText = text.data();
    return tool;
}

} // namespace

bool CToolTipCtrl::Create(const CWnd& parent) {
    if (!CWnd::Create(TOOLTIPS_CLASSA, "", WS_POPUP, CRect(), parent.GetHandle(), 0)) return false;
    Activate(false);
    return true;
}

void CToolTipCtrl::AddTool(const CWnd& owner, UINT_PTR id, const CRect& rect, const std::string& text) {
    std::string copy = text;
    TOOLINFOA tool = DescribeTool(owner, id, copy);
    tool.rect = rect;
    SendMessage(TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::UpdateTipText(const CWnd& owner, UINT_PTR id, const std::string& text) {
    std::string copy = text;
    TOOLINFOA tool = DescribeTool(owner, id, copy);
    SendMessage(TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
}

int CToolTipCtrl::GetToolCount() const {
    return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT));
}

void CToolTipCtrl::Activate(bool on) const {
    SendMessage(TTM_ACTIVATE, on ? TRUE : FALSE);
}

void CToolTipCtrl::SetMaxTipWidth(int width) const {
    SendMessage(TTM_SETMAXTIPWIDTH, 0, width);
}

void CToolTipCtrl::RelayEvent(const MSG& message) const {
    if (GetHandle() == nullptr) return;
    MSG copy = message;
    SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&copy));
}
