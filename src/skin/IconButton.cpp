#include "skin/IconButton.h"

#include <windows.h>

#include "framework/ResourceModule.h"
#include "framework/Shell.h"
#include "pictures/ColorMath.h"

namespace {

constexpr DWORD buttonTypeBits = 0x1F;
constexpr UINT_PTR onlyTool = 1;

} // namespace

CIconButton::CIconButton() {
    SetDefaultColors(false);
}

CIconButton::~CIconButton() = default;

const CMessageMap& CIconButton::ClassMap() {
    static constexpr std::array entries{On<WM_SETCURSOR, &CIconButton::OnSetCursor>(),
                                        On<WM_MOUSEMOVE, &CIconButton::OnMouseMove>(),
                                        On<WM_SYSCOLORCHANGE, &CIconButton::OnSysColorChange>(),
                                        OnReflect<BN_CLICKED, &CIconButton::OnClicked>(),
                                        On<WM_ACTIVATE, &CIconButton::OnActivate>(),
                                        On<WM_GETDLGCODE, &CIconButton::OnGetDlgCode>(),
                                        OnReflectColor<&CIconButton::CtlColor>(),
                                        On<WM_MENUCHAR, &CIconButton::OnMenuChar>(),
                                        On<WM_MEASUREITEM, &CIconButton::OnMeasureItem>(),
                                        OnMessage<BM_SETSTYLE, &CIconButton::OnSetStyle>(),
                                        On<WM_MOUSELEAVE, &CIconButton::CancelHover>(),
                                        OnMessage<BM_SETCHECK, &CIconButton::OnSetCheck>(),
                                        OnMessage<BM_GETCHECK, &CIconButton::OnGetCheck>()};
    static const CMessageMap map{&CButton::ClassMap(), entries};
    return map;
}

void CIconButton::PreSubclassWindow() {
    hovering = menuOpen = false; // a former window may have ended below its menu
    checked = 0;
    DropSnapshot();
    toolTip.DestroyWindow();
    const DWORD style = GetStyle();
    buttonType = static_cast<std::uint8_t>(style & buttonTypeBits);
    isCheckBox = (style & 2) != 0; // check boxes of every kind, by this bit of their type
    isDefault = buttonType == BS_DEFPUSHBUTTON;
    if (isDefault) buttonType = BS_PUSHBUTTON;
    ModifyStyle(buttonTypeBits, BS_OWNERDRAW, SWP_FRAMECHANGED);
    CInputControl::PreSubclassWindow();
}

int CIconButton::Finish(bool redraw) const {
    if (redraw) Invalidate();
    return Done;
}

int CIconButton::SetFlat(bool on, bool redraw) {
    flat = on;
    return Finish(redraw);
}

int CIconButton::SetImageAlign(unsigned value, bool redraw) {
    if (value > static_cast<unsigned>(ImageAlign::Right)) return NoSuchAlignment;
    imageAlign = static_cast<ImageAlign>(value);
    return Finish(redraw);
}

int CIconButton::SetDrawBorder(bool on, bool redraw) {
    drawBorder = on;
    return Finish(redraw);
}

int CIconButton::SetDrawFlatFocus(bool on, bool redraw) {
    drawFlatFocus = on;
    return Finish(redraw);
}

int CIconButton::SetTransparent(bool redraw) {
    transparent = true;
    DropSnapshot();
    return Finish(redraw);
}

int CIconButton::SetAlwaysTrack(bool on) {
    alwaysTrack = on;
    return Done;
}

int CIconButton::SetCheck(int value, bool redraw) {
    if (!isCheckBox) return Done;
    checked = value != 0 ? 1 : 0;
    return Finish(redraw);
}

int CIconButton::SetDefaultColors(bool redraw) {
    for (std::size_t i = 0; i < colors.size(); ++i) {
        colors[i] = ::GetSysColor(i % 2 == 0 ? COLOR_BTNFACE : COLOR_BTNTEXT);
    }
    return Finish(redraw);
}

int CIconButton::SetColor(unsigned index, COLORREF color, bool redraw) {
    if (index >= colors.size()) return NoSuchColor;
    colors[index] = color;
    return Finish(redraw);
}

int CIconButton::GetColor(unsigned index, COLORREF& color) const {
    if (index >= colors.size()) return NoSuchColor;
    color = colors[index];
    return Done;
}

int CIconButton::ShiftColor(unsigned index, std::int16_t shade, bool redraw) {
    if (index >= colors.size()) return NoSuchColor;
    const auto shifted = ShiftedColor(colors[index], shade);
    if (!shifted) return NoSuchShade;
    return SetColor(index, *shifted, redraw);
}

int CIconButton::SetButtonCursor(int id, bool redraw) {
    cursor.Close();
    if (id == 0) return Done;
    const char* name = MAKEINTRESOURCEA(static_cast<WORD>(id));
    cursor.Attach(static_cast<HCURSOR>(
        ::LoadImageA(FindResourceModule(name, RT_GROUP_CURSOR), name, IMAGE_CURSOR, 0, 0, LR_DEFAULTCOLOR)));
    return !cursor.IsEmpty() ? Finish(redraw) : int{ImageUnreadable};
}

void CIconButton::EnsureToolTip() {
    constexpr int widestTip = 400;
    if (GetHandle() == nullptr || toolTip.GetHandle() != nullptr) return;
    toolTip.Create(*this);
    toolTip.SetMaxTipWidth(widestTip);
}

int CIconButton::SetToolTip(const char* text, bool activate) {
    if (text == nullptr) return Done;
    EnsureToolTip();
    if (toolTip.GetToolCount() == 0) toolTip.AddTool(*this, onlyTool, GetClientRect(), text);
    toolTip.UpdateTipText(*this, onlyTool, text);
    toolTip.Activate(activate);
    return Done;
}

int CIconButton::SetToolTipFromResource(UINT id, bool activate) {
    const std::string text = LoadText(id);
    return text.empty() ? int{Done} : SetToolTip(text.c_str(), activate);
}

int CIconButton::ActivateToolTip(bool on) {
    if (toolTip.GetHandle() != nullptr && toolTip.GetToolCount() != 0) toolTip.Activate(on);
    return Done;
}

int CIconButton::SetUrl(const char* text) {
    constexpr std::size_t longest = 260;
    url = text != nullptr ? std::string(text).substr(0, longest) : std::string();
    return Done;
}

bool CIconButton::PreTranslateMessage(MSG& message) {
    EnsureToolTip();
    toolTip.RelayEvent(message);
    return CButton::PreTranslateMessage(message);
}

LRESULT CIconButton::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    // A double click counts as two presses.
    return CButton::DefWindowProc(message == WM_LBUTTONDBLCLK ? WM_LBUTTONDOWN : message, wParam, lParam);
}

bool CIconButton::OnSetCursor(CWnd*, UINT, UINT) {
    if (cursor.IsEmpty()) return Default() != 0;
    ::SetCursor(cursor.GetHandle());
    return true;
}

void CIconButton::OnActivate(UINT state, CWnd*, bool) {
    Default();
    if (state == WA_INACTIVE) CancelHover();
}

void CIconButton::OnSysColorChange() {
    Default();
    DropSnapshot();
}

HWND CIconButton::NextInLine() const {
    const HWND parent = ::GetParent(GetHandle());
    const HWND next = ::GetNextDlgTabItem(parent, GetHandle(), FALSE);
    return next != nullptr && next != GetHandle() ? next : parent;
}

UINT CIconButton::OnGetDlgCode() {
    return static_cast<UINT>(Default()) | (isDefault ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

HBRUSH CIconButton::CtlColor(CDC&, UINT) {
    return static_cast<HBRUSH>(::GetStockObject(HOLLOW_BRUSH));
}

LRESULT CIconButton::OnSetStyle(WPARAM style, LPARAM redraw) {
    const auto type = static_cast<DWORD>(style) & buttonTypeBits;
    if (type == BS_DEFPUSHBUTTON) isDefault = true;
    if (type == BS_PUSHBUTTON) isDefault = false;
    constexpr WPARAM otherTypes = 0x14; // would make an owner-drawn type another one
    return DefWindowProc(BM_SETSTYLE, (style & ~otherTypes) | BS_OWNERDRAW, redraw);
}

LRESULT CIconButton::OnSetCheck(WPARAM value, LPARAM) {
    SetCheck(value == BST_CHECKED || value == BST_INDETERMINATE ? 1 : 0, true);
    return 0;
}

void CIconButton::OnMouseMove(UINT keys, CPoint point) {
    Default();
    if (!flat) return;
    // A press begun elsewhere doesn't light the button.
    if ((keys & MK_LBUTTON) != 0 && !hovering) return;
    ::ClientToScreen(GetHandle(), &point);
    const bool tracked = alwaysTrack || ::GetActiveWindow() != nullptr;
    if (!tracked || ::WindowFromPoint(point) != GetHandle()) {
        CancelHover();
        return;
    }
    if (hovering) return;
    hovering = true;
    Invalidate();
    AwaitMouseLeave();
}

void CIconButton::CancelHover() {
    if (!flat || !hovering) return;
    hovering = false;
    Invalidate();
}

bool CIconButton::OnClicked() {
    SetFocus();
    if (isCheckBox) {
        checked = 1 - checked;
        Invalidate();
    } else if (HasDropMenu()) {
        return ShowDropMenu();
    } else if (!url.empty()) {
        SHELLEXECUTEINFOA open{};
        open.cbSize = sizeof open;
        open.fMask = SEE_MASK_FLAG_NO_UI;
        open.lpVerb = "open";
        open.lpFile = url.c_str();
        open.nShow = SW_MAXIMIZE;
        SystemShell().openWith(&open);
    }
    return false; // the parent hears of it as well, after the check state has changed
}
