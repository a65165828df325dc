#include "menu/MenuFont.h"

#include "framework/App.h"
#include "framework/Wnd.h"

LOGFONTA MenuFontDescription() {
    // The size of the record before Windows Vista, which every system takes; newer headers append a field.
    constexpr UINT recordSize = 340;
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = recordSize;
    ::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, recordSize, &metrics, 0);
    return metrics.lfMenuFont;
}

HWND MenuContextWindow() {
    const CWnd* window = CWinApp::MainWindow();
    return window != nullptr ? window->GetHandle() : nullptr;
}
