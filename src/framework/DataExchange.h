// Binding of dialog controls to members.
#pragma once

class CWnd;

struct CDataExchange {
    CWnd& dialog;
    bool saving; // false: from members to controls, as at initialisation
};

// Puts `control` in front of the dialog's control with this id, unless it has a window already. A template without that
// control leaves it without a window, and its operations without effect.
void DDX_Control(CDataExchange& exchange, int id, CWnd& control);
