// Where the panel's controls stand and which theme pictures they show. All places are pixels in the client area of the
// control's parent: most controls stand on the ground, and the buttons of a choice on its label. The template's
// order holds for all of them: what covers what, what comes after what for Tab and for assistive software.
#include "panel/CounterPanel.h"

#include "framework/Dc.h"
#include "framework/Geometry.h"
#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "skin/Theme.h"

namespace {

constexpr CRect barPlace = CRect::Sized(9, 0, 465, 26);
constexpr CRect groundPlace = CRect::Sized(0, 0, 480, 347);

void MoveTo(const CWnd& control, const CRect& place, UINT flags = 0) {
    control.SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(),
                         SWP_NOZORDER | SWP_NOACTIVATE | flags);
}

constexpr COLORREF lampTextLit = 0x00B200;  // green
constexpr COLORREF lampTextDark = 0x008000; // dark green
constexpr COLORREF digitColor = 0xFFFFFF;   // white

} // namespace

int CCounterPanel::HostOf(int control) const {
    switch (control) {
    case IDC_LANGUAGE_ENGLISH:
    case IDC_LANGUAGE_CHINESE:
        return IDC_LANGUAGE_LABEL;
    case IDC_DIRECTION_IN:
    case IDC_DIRECTION_OUT:
        return IDC_DIRECTION_LABEL;
    case IDC_SD_DETECT_YES:
    case IDC_SD_DETECT_NO:
        return IDC_SD_DETECT_LABEL;
    case IDC_DATE_LABEL:
    case IDC_LANGUAGE_LABEL:
    case IDC_SENSITIVITY_LABEL:
    case IDC_DIRECTION_LABEL:
    case IDC_SD_DETECT_LABEL:
    case IDC_SD_PERIOD_LABEL:
    case IDC_ADDRESS_LABEL:
    case IDC_IN_LABEL:
    case IDC_OUT_LABEL:
    case IDC_TOP_BAR:
    case IDC_START:
    case IDC_CLEAR:
    case IDC_PORT:
    case IDC_UPDATE:
    case IDC_UPPER_BORDER:
    case IDC_LOWER_BORDER:
    case IDC_RIGHT_BORDER:
    case IDC_TOTALS_LABEL:
        return IDC_PANEL_STATIC;
    default:
        return 0;
    }
}

// Those that have not been shown with their place. The address buttons wait for their counters.
void CCounterPanel::ShowControls() const {
    for (const auto& [id, control, isVisible] : Controls()) {
        const bool waits = id >= IDC_ADDRESS_BUTTON_FIRST && id <= IDC_ADDRESS_BUTTON_LAST;
        if (isVisible && !waits && ::GetParent(control) == GetHandle()) ::ShowWindow(control, SW_SHOWNA);
    }
}

void CCounterPanel::PrepareIndicators() {
    for (CSegmentDisplay* display : {&inDisplay, &outDisplay}) {
        display->SetBackColor(themeBlue);
        display->SetSegmentColor(digitColor);
        display->SetGhostSegments(false);
    }
    const auto prepare = [this](CIconButton& button) {
        button.focusHeir = startButton.GetHandle();
        button.SetIcons(IDI_LAMP_LIT, IDI_LAMP_DARK);
        button.SetColor(CIconButton::ActiveText, lampTextLit, true);
        button.SetColor(CIconButton::IdleText, lampTextDark, true);
    };
    prepare(allButton);
    for (CAddressButton& button : addressButtons) {
        prepare(button);
        button.ShowWindow(SW_HIDE);
    }
    PreparePicker();
}

void CCounterPanel::PlaceGround() {
    panelStatic.SetBitmapFile(ThemeFile("BottomPanel.bmp"));
    panelStatic.cornerWidth = 50;
    panelStatic.cornerHeight = 40;
    bottomBorder.LoadFromFile(ThemeFile("BottomBorder.bmp"));
    // By so much the template is larger than the frame's client area.
    constexpr int excessWidth = 54, excessHeight = 19;
    const CRect client = GetClientRect();
    MoveTo(panelStatic, {0, 0, client.Width() - excessWidth, client.Height() - excessHeight});
}

void CCounterPanel::PlaceLabels() {
    struct Label {
        CSkinStatic& control;
        CRect place;
        UINT textId;
        int left;
    };
    const Label labels[] = {{dateLabel, CRect::Sized(24, 97, 340, 24), IDS_DATE, 10},
                            {languageLabel, CRect::Sized(24, 122, 340, 24), IDS_LANGUAGE, 10},
                            {sensitivityLabel, CRect::Sized(24, 147, 340, 24), IDS_SENSITIVITY, 10},
                            {directionLabel, CRect::Sized(24, 172, 340, 24), IDS_DIRECTION, 10},
                            {sdDetectLabel, CRect::Sized(24, 197, 340, 24), IDS_SD_DETECT, 10},
                            {sdPeriodLabel, CRect::Sized(24, 222, 340, 24), IDS_SD_PERIOD, 10},
                            {addressLabel, CRect::Sized(24, 247, 340, 24), IDS_ADDRESS, 10},
                            {inLabel, CRect::Sized(30, 66, 133, 22), IDS_COUNTER_IN, 5},
                            {outLabel, CRect::Sized(216, 66, 129, 22), IDS_COUNTER_OUT, 5}};
    for (const Label& label : labels) {
        label.control.SetBitmapFile(ThemeFile("LeftTitleBar.bmp"));
        MoveTo(label.control, label.place, SWP_SHOWWINDOW);
        label.control.SetCaption(LoadText(label.textId), label.left, themeBlue);
    }
}

void CCounterPanel::PlaceTopBar() {
    topBar.SetButtonIds({ID_HELP_MENU, ID_LANGUAGE_MENU, ID_PORT_MENU});
    std::string about = LoadText(IDS_ABOUT_TITLE);
    about.erase(about.find_last_not_of(' ') + 1); // it ends where the product's name follows
    topBar.SetButtonNames({about, LoadText(IDS_LANGUAGE), LoadText(IDS_COM)});
    topBar.SetBitmapFile(ThemeFile("LeftTitleBar.bmp"));
    topBar.cornerWidth = 30;
    topBar.cornerHeight = 30;
    topBar.LoadButtons(ThemeFile("StatusToolBar.bmp"));
    MoveTo(topBar, barPlace, SWP_SHOWWINDOW);
    topBar.Invalidate();
}

void CCounterPanel::PlaceButtons() {
    struct Button {
        CSkinButton& control;
        CPoint corner;
        const std::string& text;
        COLORREF color;
    };
    const Button buttons[] = {
        {chineseButton, {192, 0}, chineseText, inactiveColor}, {englishButton, {115, 0}, englishText, inactiveColor},
        {inButton, {115, 0}, inText, inactiveColor},           {outButton, {192, 0}, outText, inactiveColor},
        {yesButton, {115, 0}, yesText, inactiveColor},         {noButton, {192, 0}, noText, inactiveColor},
        {startButton, {378, 30}, startText, activeColor},      {clearButton, {378, 60}, clearText, activeColor},
        {portButton, {384, 290}, openText, activeColor},       {updateButton, {384, 252}, updateText, activeColor}};
    for (const Button& button : buttons) {
        button.control.SetBitmapFile(ThemeFile("XButton.bmp"));
        MoveTo(button.control, CRect::Sized(button.corner.x, button.corner.y, 74, 22), SWP_SHOWWINDOW);
        button.control.SetCaption(button.text, 5, button.color);
        button.control.focusHeir = startButton.GetHandle();
        if (&button.control == &startButton) startButton.SetFocus();
    }
}

void CCounterPanel::PlaceBorders() {
    struct Border {
        CSkinStatic& control;
        const char* picture;
        CRect place;
    };
    const Border borders[] = {{upperBorder, "TopBorder.bmp", CRect::Sized(10, 90, 464, 5)},
                              {lowerBorder, "TopBorder.bmp", CRect::Sized(10, 278, 464, 5)},
                              {rightBorder, "RightBorder.bmp", CRect::Sized(370, 90, 5, 192)},
                              {totalsLabel, "TextBK.bmp", CRect::Sized(10, 316, 200, 20)}};
    for (const Border& border : borders) {
        border.control.SetBitmapFile(ThemeFile(border.picture));
        MoveTo(border.control, border.place, SWP_SHOWWINDOW);
    }
}

void CCounterPanel::OnPaint() {
    CPaintDC dc(*this);
    const CRect client = GetClientRect();
    constexpr int edgeHeight = 3;
    bottomBorder.DrawNineSlice(dc.GetHandle(), {0, client.bottom - edgeHeight, client.right, client.bottom}, 50, 0);
}

void CCounterPanel::OnSize(UINT, int, int) {
    Default();
    if (!initialized) return;
    MoveTo(panelStatic, groundPlace);
    MoveTo(topBar, barPlace);
    topBar.Invalidate();
}

// Names for assistive software. It would take a label that stands directly before a control, in the same window; the
// panel's labels lie on the ground, and edits and picker over it. So these are told their names.
void CCounterPanel::NameControls() {
    datePicker.SetAccessibleName(LoadText(IDS_DATE));
    sensitivityEdit.SetAccessibleName(LoadText(IDS_SENSITIVITY));
    sdPeriodEdit.SetAccessibleName(LoadText(IDS_SD_PERIOD));
    addressEdit.SetAccessibleName(LoadText(IDS_ADDRESS));
    transmittedEdit.SetAccessibleName(LoadText(IDS_TX));
    receivedEdit.SetAccessibleName(LoadText(IDS_RX));
}
