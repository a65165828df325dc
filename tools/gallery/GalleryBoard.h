// The board on which the pages of the gallery put their controls: it makes and owns them, and writes the names.
//
// Each page is a function that adds the groups of one family of controls (GalleryPages.h). User-interface thread only.
#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "framework/Controls.h"
#include "framework/Gdi.h"
#include "pictures/SkinBitmap.h"
#include "skin/SkinControl.h"

// Where the two columns of groups begin, in pixels of the board.
inline constexpr int leftColumn = 16;
inline constexpr int rightColumn = 504;

inline constexpr COLORREF outside = RGB(255, 0, 255); // what is cut away of pictures

// A name on the board, on the board's ground.
class CBoardLabel : public CStatic {
public:
    // The brush is borrowed.
    CBoardLabel(HBRUSH groundBrush, COLORREF groundColor) : brush(groundBrush), color(groundColor) {}

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

private:
    HBRUSH CtlColor(CDC& dc, UINT kind);

    HBRUSH brush;
    COLORREF color;
};

// One frame of a strip, cut out, for a state that a control takes by the mouse alone.
class CFrameView : public CSkinControl<CStatic> {
public:
    explicit CFrameView(COLORREF groundColor) : ground(groundColor) {}

    // Columns and rows count from 1.
    void Cut(const std::string& path, int column, int row, int columns, int rows);

protected:
    void PaintOn(CDC& dc) override;

private:
    COLORREF ground;
    CSkinBitmap frame;
};

class CGalleryBoard {
public:
    // The window must outlive the board, and carries the font of the controls.
    CGalleryBoard(const CWnd& galleryWindow, std::string themeFolder);
    CGalleryBoard(const CGalleryBoard&) = delete;
    CGalleryBoard& operator=(const CGalleryBoard&) = delete;
    ~CGalleryBoard();

    const CWnd& Window() const { return window; }
    std::string ThemeFile(const char* name) const { return folder + name; }
    // The colour that the theme's panel is stretched with; the system's face colour without that picture.
    COLORREF GroundColor() const { return groundColor; }

    // What a page adds. Places are pixels in the client area of the gallery's window.
    // A text breaks into lines where it is wider than its place.
    void AddText(UINT id, const std::string& text, const CRect& place, HFONT font);
    void AddTitle(const char* text, int x, int y);
    void AddLabel(const char* text, int x, int y, int width);
    // The frame of a strip under the id, in its own size.
    void AddFrame(UINT id, const char* picture, CPoint place, int column, int row, int columns, int rows);
    // A control under the id. Its style comes beside WS_CHILD and WS_VISIBLE. `arguments` make the object.
    template <class Control, class... Arguments>
    Control& Add(UINT id, const char* text, const CRect& place, DWORD style = 0, Arguments&&... arguments);

    // The small font of names and plain controls.
    HFONT SmallFont() const { return smallFont.GetHandle(); }

private:
    template <class Control>
    static constexpr const char* WindowClass();

    const CWnd& window;
    std::string folder;
    COLORREF groundColor;
    CBrush groundBrush;
    CFont smallFont;
    CFont boldFont;
    std::vector<std::unique_ptr<CWnd>> controls;
};

template <class Control>
constexpr const char* CGalleryBoard::WindowClass() {
    if (std::is_base_of_v<CButton, Control>) return "BUTTON";
    return std::is_base_of_v<CComboBox, Control> ? "COMBOBOX" : "STATIC";
}

template <class Control, class... Arguments>
Control& CGalleryBoard::Add(UINT id, const char* text, const CRect& place, DWORD style, Arguments&&... arguments) {
    auto made = std::make_unique<Control>(std::forward<Arguments>(arguments)...);
    Control& control = *made;
    controls.push_back(std::move(made));
    control.Create(WindowClass<Control>(), text, WS_CHILD | WS_VISIBLE | style, place, window.GetHandle(), id);
    return control;
}
