#include "menu/MenuFont.h"

#include "framework/App.h"
#include "framework/Wnd.h"

LOGFONTW MenuFontDescription() {
    // The size of the record before Windows Vista, which every system takes; newer headers append a field.
    constexpr UINT recordSize = 500;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = recordSize;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, recordSize, &metrics, 0);
    return metrics.lfMenuFont;
}

HWND MenuContextWindow() {
    const CWnd* window = CWinApp::MainWindow();
    return window != nullptr ? window->GetHandle() : nullptr;
}
