#include "framework/Wnd.h"

#include "framework/Dc.h"
#include "framework/Dialog.h"
#include "framework/HandleMap.h"
#include "framework/Menu.h"
#include "framework/Modality.h"
#include "framework/ResourceModule.h"
#include "framework/WindowEntry.h"

// Objects of static storage may end after any map would; so neither is ever destroyed.
CHandleMap<HWND, CWnd>& WindowMap() {
    static auto* map = new CHandleMap<HWND, CWnd>;
    return *map;
}

CHandleMap<HMENU, CMenu>& MenuMap() {
    static auto* map = new CHandleMap<HMENU, CMenu>;
    return *map;
}

bool HaveTemporaryWrappers() {
    return WindowMap().HasTemporaries() || MenuMap().HasTemporaries();
}

void DropTemporaryWrappers() {
    WindowMap().DropTemporaries();
    MenuMap().DropTemporaries();
}

CWnd* WindowFromHandle(HWND handle) {
    return CWnd::FromHandle(handle);
}

const CMessageMap& CCommandTarget::ClassMap() {
    static const CMessageMap map{nullptr, std::array<MapEntry, 0>{}};
    return map;
}

bool CCommandTarget::Dispatch(MapKind kind, const MapArguments& arguments, LRESULT& result) {
    const MapEntry* entry = GetMessageMap().Find(kind, arguments);
    return entry != nullptr && entry->invoke(*this, arguments, result);
}

bool CCommandTarget::OnCmdMsg(UINT id, UINT code) {
    LRESULT result = 0;
    return Dispatch(MapKind::Command, {id, code, 0, 0}, result);
}

HBRUSH message_map_detail::CallColor(CCommandTarget& target, const MapArguments& arguments,
                                     HBRUSH (*call)(CCommandTarget&, CDC&, CWnd*, UINT)) {
    CDC dc(reinterpret_cast<HDC>(arguments.wParam));
    return call(target, dc, CWnd::FromHandle(reinterpret_cast<HWND>(arguments.lParam)), arguments.code);
}

const CMessageMap& CWnd::ClassMap() {
    return CCommandTarget::ClassMap();
}

CWnd::~CWnd() {
    if (temporary || handle == nullptr) return;
    if (ownsWindow) {
        const HWND window = handle;
        Unbind(); // so that the window's last messages don't reach an object that is half gone
        ::DestroyWindow(window);
    } else {
        UnsubclassWindow();
    }
}

CWnd* CWnd::FromHandle(HWND handle) {
    return WindowMap().Wrap(handle);
}

CWnd* CWnd::FromHandlePermanent(HWND handle) {
    return WindowMap().FindPermanent(handle);
}

std::unique_ptr<CWnd> CWnd::MakeTemporary(HWND handle) {
    auto window = std::make_unique<CWnd>();
    window->handle = handle;
    window->temporary = true;
    return window;
}

void CWnd::BindNew(HWND window, bool owned) {
    handle = window;
    ownsWindow = owned;
    WindowMap().SetPermanent(window, this);
    HookWindow(window);
    PreSubclassWindow();
}

void CWnd::Unbind() {
    WindowMap().RemovePermanent(handle, this);
    handle = nullptr;
    ownsWindow = false;
}

bool CWnd::Create(const char* windowClass, const char* text, DWORD style, const RECT& rect, HWND parent, UINT id,
                  DWORD extendedStyle) {
    if (handle != nullptr) return false;
    const auto menu = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id));
    const HWND window =
        ::CreateWindowExA(extendedStyle, windowClass, text, style, rect.left, rect.top, rect.right - rect.left,
                          rect.bottom - rect.top, parent, menu, ProgramModule(), nullptr);
    if (window == nullptr) return false;
    if ((style & WS_CHILD) != 0) AdmitDialogKeyboard(parent);
    BindNew(window, true);
    return true;
}

bool CWnd::SubclassWindow(HWND window) {
    if (window == nullptr || handle != nullptr || FromHandlePermanent(window) != nullptr) return false;
    BindNew(window, false);
    return true;
}

HWND CWnd::UnsubclassWindow() {
    const HWND window = handle;
    if (window == nullptr) return nullptr;
    UnhookWindow(window);
    Unbind();
    return window;
}

// The dialog keyboard looks for the focus only inside windows of this style, and a search that starts at a focus which
// lies elsewhere may never end. A top-level window needs no such mark.
void CWnd::AdmitDialogKeyboard(HWND container) {
    if ((::GetWindowLongA(container, GWL_STYLE) & WS_CHILD) == 0) return;
    const LONG style = ::GetWindowLongA(container, GWL_EXSTYLE);
    if ((style & WS_EX_CONTROLPARENT) == 0) ::SetWindowLongA(container, GWL_EXSTYLE, style | WS_EX_CONTROLPARENT);
}

void CWnd::ModifyStyle(DWORD remove, DWORD add, UINT positionFlags) {
    const DWORD former = GetStyle();
    const DWORD wanted = (former & ~remove) | add;
    if (wanted == former) return;
    ::SetWindowLongA(handle, GWL_STYLE, static_cast<LONG>(wanted));
    if (positionFlags != 0) {
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | positionFlags);
    }
}

CRect CWnd::GetClientRect() const {
    CRect rect;
    ::GetClientRect(handle, &rect);
    return rect;
}

CRect CWnd::GetWindowRect() const {
    CRect rect;
    ::GetWindowRect(handle, &rect);
    return rect;
}

std::string CWnd::GetWindowText() const {
    std::string text(static_cast<std::size_t>(::GetWindowTextLengthA(handle)) + 1, '\0');
    const int length = ::GetWindowTextA(handle, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string CWnd::GetDlgItemText(int id) const {
    const HWND control = GetDlgItem(id);
    return control != nullptr ? FromHandle(control)->GetWindowText() : std::string();
}

int CWnd::MessageBox(const std::string& text, const std::string& caption, UINT type) const {
    if (CDialog::AllLoopsEnd()) return IDCANCEL;
    const HWND owner = LastPopupOf(::GetAncestor(handle, GA_ROOT));
    const HWND moving = LetGoOfMouse();
    // A null caption would read "Error" in the user's language; an empty one shows none.
    const int answer = ::MessageBoxA(owner, text.c_str(), caption.c_str(), type);
    EndMoving(moving);
    return answer;
}

void CWnd::UpdateData(bool saving) {
    CDataExchange exchange{*this, saving};
    DoDataExchange(exchange);
}

void CWnd::DoDataExchange(CDataExchange&) {}

bool CWnd::PreTranslateMessage(MSG&) {
    return false;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (HandleMessage(message, wParam, lParam, result)) return result;
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::CallWindowProcA(ProcedureBehind(handle), handle, message, wParam, lParam);
}

bool CWnd::ComesAgainBehindMenu() const {
    if (!IsMenuOpen()) return false;
    ::EndMenu();
    const WindowMessage message = CurrentMessage();
    return PostMessage(message.message, message.wParam, message.lParam);
}

LRESULT CWnd::Default() {
    const WindowMessage message = CurrentMessage();
    return DefWindowProc(message.message, message.wParam, message.lParam);
}
