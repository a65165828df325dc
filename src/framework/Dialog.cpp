#include "framework/Dialog.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "framework/App.h"
#include "framework/DialogTemplate.h"
#include "framework/MessageLoop.h"
#include "framework/Modality.h"
#include "framework/ResourceModule.h"
#include "framework/Text.h"

namespace {

// The described font, `height` pixels high, a line with its room included. For a character set that the described face
// may not have, the face that every system with this set has; where that is missing too, the platform finds one by
// character set and height. The point size plays no part.
CFont MakeDialogFont(const DialogFont& described, int height) {
    const std::u16string face = described.characterSet == GB2312_CHARSET ? u"SimSun" : described.face;
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWeight = described.weight;
    font.lfItalic = described.italic ? 1 : 0;
    font.lfCharSet = described.characterSet;
    std::copy_n(face.begin(), std::min<std::size_t>(face.size(), LF_FACESIZE - 1), font.lfFaceName);
    return CFont(font);
}

// The dialog whose window is being created: its window procedure binds it at the first message that it gets.
CDialog* dialogInCreation = nullptr;

const char* const dialogInitType = MAKEINTRESOURCEA(240); // RT_DLGINIT

// Initialisation lists keep the message numbers of 16-bit Windows.
UINT TranslateInitMessage(UINT message) {
    switch (message) {
    case 0x0401:
        return LB_ADDSTRING;
    case 0x0403:
        return CB_ADDSTRING;
    default:
        return message;
    }
}

// The dialogs whose DoModal runs, the outermost first; and whether all of them are to end.
struct ModalStack {
    std::vector<CDialog*> dialogs;
    bool ending = false;
};

ModalStack& Modals() {
    static auto* const stack = new ModalStack; // outlives whatever static object may still run a dialog
    return *stack;
}

// A dialog's place on the stack, for the time of its DoModal.
class CModalEntry {
public:
    explicit CModalEntry(CDialog& dialog) { Modals().dialogs.push_back(&dialog); }
    CModalEntry(const CModalEntry&) = delete;
    CModalEntry& operator=(const CModalEntry&) = delete;
    ~CModalEntry() {
        Modals().dialogs.pop_back();
        if (Modals().dialogs.empty()) Modals().ending = false;
    }
};

// The platform's own boxes: dialogs of this thread that no object stands in front of.
BOOL CALLBACK EndForeignDialog(HWND window, LPARAM) {
    constexpr ATOM dialogClass = 32770;
    if (::GetClassLongA(window, GCW_ATOM) == dialogClass && CWnd::FromHandlePermanent(window) == nullptr) {
        ::EndDialog(window, IDCANCEL);
    }
    return TRUE;
}

BOOL CALLBACK AddToList(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

CRect PlaceIn(HWND dialog, HWND control) {
    CRect place;
    ::GetWindowRect(control, &place);
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// As far as the screen's work area reaches around the window.
CPoint CentredCorner(HWND window, const CSize& size) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoA(::MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& work = monitor.rcWork;
    return {(work.left + work.right - size.cx) / 2, (work.top + work.bottom - size.cy) / 2};
}

} // namespace

void DDX_Control(CDataExchange& exchange, int id, CWnd& control) {
    if (control.GetHandle() == nullptr) control.SubclassWindow(exchange.dialog.FindControl(id));
}

const CMessageMap& CDialog::ClassMap() {
    static constexpr std::array entries{OnMessage<WM_GETFONT, &CDialog::OnGetFont>(),
                                        OnCommandId<IDOK, &CDialog::OnOK>(),
                                        OnCommandId<IDCANCEL, &CDialog::OnCancel>()};
    static const CMessageMap map{&CWnd::ClassMap(), entries};
    return map;
}

INT_PTR CALLBACK CDialog::DialogEntry(HWND window, UINT message, WPARAM, LPARAM lParam) noexcept {
    // Messages of a dialog that stands already come here as well while another one, a child perhaps, is being created.
    if (dialogInCreation != nullptr && FromHandlePermanent(window) == nullptr) {
        std::exchange(dialogInCreation, nullptr)->BindNew(window, true);
    }
    if (message != WM_INITDIALOG) return FALSE; // everything else has passed the message map before it comes here
    auto* dialog = dynamic_cast<CDialog*>(FromHandlePermanent(window));
    // The platform's own message brings the parameter that CreateFromTemplate gave; one sent by somebody else doesn't.
    if (dialog == nullptr || lParam != reinterpret_cast<LPARAM>(dialog)) return FALSE;
    if (!dialog->LayOut()) {
        dialog->DestroyWindow();
        return FALSE;
    }
    const bool placeFocus = dialog->OnInitDialog();
    const HWND focus = ::GetFocus();
    const bool focusInside = focus != nullptr && ::IsChild(window, focus) != FALSE;
    dialog->initialFocus = focusInside ? focus : nullptr;
    return placeFocus && !focusInside ? TRUE : FALSE;
}

bool CDialog::CreateFromTemplate(HWND owner, bool hidden) {
    const char* name = MAKEINTRESOURCEA(templateId);
    const auto resource = LoadResourceBytes(name, RT_DIALOG);
    if (resource.empty() || GetHandle() != nullptr) return false;
    // The platform believes what a template says of itself, and would read beyond one that is cut or made up.
    if (!ReadDialogLayout(resource)) return false;
    std::vector<std::byte> bytes(resource.begin(), resource.end());
    if (hidden) HideDialogTemplate(bytes);
    if (makesHidden) HideDialogItems(bytes);
    RemoveDialogItems(bytes, [this](const DialogItem& item) { return HostOf(item.id) != 0; });
    CDialog* outer = std::exchange(dialogInCreation, this);
    const HWND window = ::CreateDialogIndirectParamA(FindResourceModule(name, RT_DIALOG),
                                                     reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), owner,
                                                     &DialogEntry, reinterpret_cast<LPARAM>(this));
    dialogInCreation = outer;
    return window != nullptr && GetHandle() != nullptr; // the initialisation may have destroyed it
}

bool CDialog::Create(CWnd& parentWindow) {
    parent = &parentWindow;
    return CreateFromTemplate(parentWindow.GetHandle(), false);
}

INT_PTR CDialog::DoModal() {
    if (GetHandle() != nullptr) return -1;
    if (AllLoopsEnd()) return IDCANCEL;
    const CModalEntry entry(*this);
    const HWND owner = ModalOwner(parent);
    const HWND moving = LetGoOfMouse();
    if (owner != nullptr && ::IsWindowEnabled(owner) != FALSE) {
        // Before the dialog exists, so that no click slips in between.
        ::EnableWindow(owner, FALSE);
        disabledOwner = owner;
    }
    modal = true;
    ended = false;
    modalResult = -1;
    if (CreateFromTemplate(owner, true)) {
        if (!ended) {
            Show();
            RunModalLoop();
        }
    }
    ReleaseOwner();
    DestroyWindow();
    EndMoving(moving);
    modal = false;
    return modalResult;
}

void CDialog::ReleaseOwner() {
    const HWND owner = std::exchange(disabledOwner, nullptr);
    if (owner == nullptr) return;
    ::EnableWindow(owner, TRUE);
    if (GetHandle() != nullptr && ::GetActiveWindow() == GetHandle()) ::SetActiveWindow(owner);
}

void CDialog::Show() const {
    ShowWindow(SW_SHOW);
    // Activation gives the focus to the first tab stop; a focus placed by OnInitDialog comes first.
    if (initialFocus != nullptr && ::GetFocus() != initialFocus) ::SetFocus(initialFocus);
    // Painted by the loop: a paint at once might take transparent controls before those that lie beneath them.
}

void CDialog::RunModalLoop() {
    RunMessageLoop(*this, [this] { return ended || GetHandle() == nullptr; });
}

void CDialog::EndDialog(INT_PTR result) {
    if (!modal) {
        DestroyWindow();
        return;
    }
    modalResult = result;
    ended = true;
    ReleaseOwner(); // while the window still shows: with its owner disabled, hiding it would activate another program
    ShowWindow(SW_HIDE);
    PostMessage(WM_NULL); // wakes the loop
}

void CDialog::EndAllLoops() {
    std::vector<CDialog*>& dialogs = Modals().dialogs;
    Modals().ending = !dialogs.empty();
    EndMoving(LetGoOfMouse());
    std::for_each(dialogs.rbegin(), dialogs.rend(), [](CDialog* dialog) { dialog->EndDialog(IDCANCEL); });
    ::EnumThreadWindows(::GetCurrentThreadId(), &EndForeignDialog, 0);
}

bool CDialog::AllLoopsEnd() {
    return Modals().ending;
}

HWND CDialog::FindControl(int id) const {
    const auto found = std::ranges::find(controls, id, &Control::id);
    return found != controls.end() ? found->window : GetDlgItem(id);
}

// The platform has made those that stand in the dialog itself, in the template's order, the first on top; so has it
// each other child beneath those that were there before.
bool CDialog::MakeControls(const std::vector<DialogItem>& items) {
    std::vector<HWND> made;
    ::EnumChildWindows(GetHandle(), &AddToList, reinterpret_cast<LPARAM>(&made));
    std::erase_if(made, [this](HWND window) { return ::GetParent(window) != GetHandle(); }); // parts of a control
    controls.clear();
    auto next = made.begin();
    for (const DialogItem& item : items) {
        const bool isMade = HostOf(item.id) == 0 && next != made.end();
        controls.push_back({item.id, isMade ? *next++ : nullptr, item.IsVisible()});
    }
    // A host may stand behind those that it holds, and in another host.
    std::size_t missing = 0, before = 0;
    do {
        before = std::exchange(missing, 0);
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (controls[i].window != nullptr || HostOf(items[i].id) == 0) continue;
            controls[i].window = MakeHosted(items[i]);
            missing += controls[i].window == nullptr ? 1 : 0;
        }
    } while (missing > 0 && missing != before);
    return missing == 0;
}

HWND CDialog::MakeHosted(const DialogItem& item) const {
    const auto host = std::ranges::find(controls, HostOf(item.id), &Control::id);
    if (host == controls.end() || host->window == nullptr) return nullptr;
    AdmitDialogKeyboard(host->window);
    const auto narrow = [](const std::u16string& text) { return ToNarrow(std::wstring(text.begin(), text.end())); };
    const DWORD style = WS_CHILD | (makesHidden ? item.style & ~DialogItem::visibleStyle : item.style);
    return ::CreateWindowExA(item.extendedStyle | WS_EX_NOPARENTNOTIFY, narrow(item.windowClass).c_str(),
                             narrow(item.caption).c_str(), style, 0, 0, 0, 0, host->window,
                             reinterpret_cast<HMENU>(static_cast<UINT_PTR>(item.id)), ProgramModule(), nullptr);
}

bool CDialog::LayOut() {
    const auto layout = ReadDialogLayout(LoadResourceBytes(MAKEINTRESOURCEA(templateId), RT_DIALOG));
    if (!layout || !MakeControls(layout->items)) return false;
    const auto base = BaseUnitsOf(layout->font);
    if (!base) return true;
    textFont = MakeDialogFont(layout->font, base->height);
    const auto pixels = [&](const DialogPlace& place) {
        return CRect::Sized(ToPixels(place.x, base->width, 4), ToPixels(place.y, base->height, 8),
                            ToPixels(place.width, base->width, 4), ToPixels(place.height, base->height, 8));
    };
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const HWND control = controls[i].window;
        const CRect place = pixels(layout->items[i].place);
        ::SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(textFont.GetHandle()), FALSE);
        if (::GetParent(control) != GetHandle()) continue;    // its place is the dialog's to give
        if (PlaceIn(GetHandle(), control) == place) continue; // mostly, and a call isn't cheap
        ::SetWindowPos(control, nullptr, place.left, place.top, place.Width(), place.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
    PlaceWindow(pixels(layout->place), layout->style);
    return true;
}

void CDialog::PlaceWindow(const CRect& place, DWORD style) {
    const CRect client = GetClientRect();
    if (client.Width() == place.Width() && client.Height() == place.Height()) return;
    CRect outer(0, 0, place.Width(), place.Height());
    ::AdjustWindowRectEx(&outer, GetStyle(), FALSE, static_cast<DWORD>(::GetWindowLongA(GetHandle(), GWL_EXSTYLE)));
    const CSize size(outer.Width(), outer.Height());
    const bool centred = (style & DS_CENTER) != 0;
    const CPoint corner = centred ? CentredCorner(GetHandle(), size) : CPoint(0, 0);
    SetWindowPos(nullptr, corner.x, corner.y, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE | (centred ? 0U : UINT{SWP_NOMOVE}));
}

LRESULT CDialog::OnGetFont(WPARAM, LPARAM) {
    return textFont.IsEmpty() ? Default() : reinterpret_cast<LRESULT>(textFont.GetHandle());
}

bool CDialog::OnInitDialog() {
    RunInitList();
    UpdateData(false);
    return true;
}

void CDialog::RunInitList() {
    for (const DialogInitEntry& entry :
         ParseDialogInit(LoadResourceBytes(MAKEINTRESOURCEA(templateId), dialogInitType))) {
        // The data are zero-ended text; a list that was damaged is not trusted to end it.
        const std::string text(reinterpret_cast<const char*>(entry.data.data()), entry.data.size());
        ::SendDlgItemMessageA(GetHandle(), entry.controlId, TranslateInitMessage(entry.message), 0,
                              reinterpret_cast<LPARAM>(text.c_str()));
    }
}

void CDialog::PostNcDestroy() {
    // A sent message that destroyed the window has not ended the modal loop's wait for a posted one.
    if (modal) ::PostMessageA(nullptr, WM_NULL, 0, 0);
}

bool CDialog::PreTranslateMessage(MSG& message) {
    const bool fromKeyboard = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    return fromKeyboard && ::IsDialogMessageA(GetHandle(), &message) != FALSE;
}

bool CDialog::OnCmdMsg(UINT id, UINT code) {
    if (CWnd::OnCmdMsg(id, code)) return true;
    // OK and Cancel are each dialog's own, and a control's notification concerns its dialog alone.
    if (code != 0 || id == IDOK || id == IDCANCEL) return false;
    CWnd* above = FromHandlePermanent(::GetParent(GetHandle()));
    if (above != nullptr && above->OnCmdMsg(id, code)) return true;
    CWinApp* app = CWinApp::Current();
    return app != nullptr && app->OnCmdMsg(id, code);
}
