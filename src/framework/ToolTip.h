// Tool tips: one tool of a control, shown by the platform.
#pragma once

#include <string>

#include "framework/Wnd.h"

class CToolTipCtrl : public CWnd {
public:
    // A tip window owned by `parent`, switched off at first.
    bool Create(const CWnd& parent);
    // Tool `id` of `owner` over a rectangle of its client area.
    void AddTool(const CWnd& owner, UINT_PTR id, const CRect& rect, const std::string& text);
    void UpdateTipText(const CWnd& owner, UINT_PTR id, const std::string& text);
    int GetToolCount() const;
    void Activate(bool on) const;
    // Longer texts break into lines at this width in pixels.
    void SetMaxTipWidth(int width) const;
    // A message of the owner on its way, by which the tip follows the pointer.
    void RelayEvent(const MSG& message) const;
};
