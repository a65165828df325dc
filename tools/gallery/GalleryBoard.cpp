#include "gallery/GalleryBoard.h"

#include <array>
#include <iterator>

#include "framework/Dc.h"

namespace {

CFont MakeSmallFont(LONG weight) {
    LOGFONTW description{};
    description.lfHeight = -11;
    description.lfWeight = weight;
    ::lstrcpynW(description.lfFaceName, L"Tahoma", static_cast<int>(std::size(description.lfFaceName)));
    return CFont(description);
}

// The pixel of column 50 and row 40, which the panel draws out over most of its area.
COLORREF PanelColor(const std::string& path) {
    CSkinBitmap panel;
    panel.LoadFromFile(path, 0);
    const CMemoryDC dc(nullptr);
    const CSelectObject selected(dc, panel.GetHandle());
    const COLORREF color = panel.IsEmpty() ? CLR_INVALID : ::GetPixel(dc.GetHandle(), 50, 40);
    return color != CLR_INVALID ? color : ::GetSysColor(COLOR_3DFACE);
}

} // namespace

const CMessageMap& CBoardLabel::ClassMap() {
    static constexpr std::array entries{OnReflectColor<&CBoardLabel::CtlColor>()};
    static const CMessageMap map{&CStatic::ClassMap(), entries};
    return map;
}

HBRUSH CBoardLabel::CtlColor(CDC& dc, UINT) {
    dc.SetBkColor(color);
    dc.SetTextColor(RGB(0, 0, 0));
    return brush;
}

void CFrameView::Cut(const std::string& path, int column, int row, int columns, int rows) {
    CSkinBitmap strip;
    strip.LoadFromFile(path, 0);
    strip.GetFrame(frame, column, row, columns, rows);
    SetWindowPos(nullptr, 0, 0, frame.GetWidth(), frame.GetHeight(), SWP_NOMOVE | SWP_NOZORDER);
}

void CFrameView::PaintOn(CDC& dc) {
    dc.FillSolidRect(GetClientRect(), ground);
    frame.DrawTransparent(dc.GetHandle(), frame.GetBounds(), outside);
}

CGalleryBoard::CGalleryBoard(const CWnd& galleryWindow, std::string themeFolder)
    : window(galleryWindow), folder(std::move(themeFolder)), groundColor(PanelColor(ThemeFile("BottomPanel.bmp"))),
      groundBrush(groundColor), smallFont(MakeSmallFont(FW_NORMAL)), boldFont(MakeSmallFont(FW_BOLD)) {}

// The last ones first, as some stand on others.
CGalleryBoard::~CGalleryBoard() {
    while (!controls.empty()) controls.pop_back();
}

void CGalleryBoard::AddText(UINT id, const std::string& text, const CRect& place, HFONT font) {
    const CWnd& label =
        Add<CBoardLabel>(id, text.c_str(), place, SS_LEFT | SS_NOPREFIX, groundBrush.GetHandle(), groundColor);
    label.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font));
}

void CGalleryBoard::AddTitle(const char* text, int x, int y) {
    constexpr int width = 464, height = 15;
    AddText(0, text, CRect::Sized(x, y, width, height), boldFont.GetHandle());
}

void CGalleryBoard::AddLabel(const char* text, int x, int y, int width) {
    constexpr int height = 14;
    AddText(0, text, CRect::Sized(x, y, width, height), SmallFont());
}

void CGalleryBoard::AddFrame(UINT id, const char* picture, CPoint place, int column, int row, int columns, int rows) {
    const CRect rect(place.x, place.y, place.x, place.y);
    Add<CFrameView>(id, "", rect, 0, groundColor).Cut(ThemeFile(picture), column, row, columns, rows);
}
