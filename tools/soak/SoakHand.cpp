#include "soak/SoakHand.h"

#include <string>

#include "resources/ResourceIds.h"
#include "user/Input.h"

namespace {

// A hand is slower than this, but not much.
constexpr DWORD step = 25;

bool IsLink(HWND window) {
    const int id = ::GetDlgCtrlID(window);
    return id == IDC_ABOUT_WEB_LINK || id == IDC_ABOUT_MAIL_LINK;
}

// "2012-07-02 16:21:20" as the field of a frame; all zero for what isn't such a text.
ClockField FieldOfText(const std::string& text) {
    ClockField field{};
    constexpr std::size_t firstDigit = 2, length = 19;
    if (text.size() != length) return field;
    for (std::size_t i = 0; i < field.size(); ++i)
        field.at(i) =
            static_cast<std::uint8_t>((text[firstDigit + 3 * i] - '0') * 16 + (text[firstDigit + 3 * i + 1] - '0'));
    return field;
}

std::uint8_t NumberOf(const std::string& text) {
    return static_cast<std::uint8_t>(std::strtoul(text.c_str(), nullptr, 10));
}

} // namespace

void CSoakHand::PointAt(POINT place) const {
    ::SetCursorPos(place.x - 1, place.y);
    ::Sleep(step);
    ::SetCursorPos(place.x, place.y);
    ::Sleep(step);
}

void CSoakHand::ClickAt(POINT place) const {
    PointAt(place);
    const HWND there = ::WindowFromPoint(place);
    if (IsLink(there)) return;
    Announce(::GetDlgCtrlID(there));
    MoveButton(MOUSEEVENTF_LEFTDOWN, place);
    ::Sleep(step);
    MoveButton(MOUSEEVENTF_LEFTUP, place);
    ::Sleep(step);
}

void CSoakHand::Click(int id) const {
    const HWND control = program.Control(id);
    if (::IsWindowVisible(control) != FALSE && ::IsIconic(program.Frame()) == FALSE) ClickAt(MiddleOf(control));
}

void CSoakHand::Drag(POINT from, POINT to) const {
    PointAt(from);
    MoveButton(MOUSEEVENTF_LEFTDOWN, from);
    for (int part = 1; part <= 4; ++part) {
        ::SetCursorPos(from.x + (to.x - from.x) * part / 4, from.y + (to.y - from.y) * part / 4);
        ::Sleep(step);
    }
    MoveButton(MOUSEEVENTF_LEFTUP, to);
    ::Sleep(step);
}

void CSoakHand::PressKey(int key, WORD held) const {
    if (key == VK_RETURN) record.PressStart();
    if (key == VK_RETURN || key == VK_SPACE) {
        const HWND focus = InputOf(program.Frame()).hwndFocus;
        if (IsLink(focus)) return;
        Announce(::GetDlgCtrlID(focus));
    }
    ::PressKey(key, held);
    ::Sleep(step);
}

void CSoakHand::Announce(int id) const {
    if (id == IDC_UPDATE) {
        record.PressUpdate(ReadForm());
    } else if (id == IDC_CLEAR) {
        record.PressClear();
    } else if (id == IDC_START) {
        record.PressStart();
    } else if (id == IDC_PORT) {
        record.Disturb();
        record.ExpectPortWork();
    }
}

// None if the window is busy with something else, or polls.
std::optional<UpdateForm> CSoakHand::ReadForm() const {
    if (program.IsPolling() || program.Box() != nullptr) return std::nullopt;
    UpdateForm form{FieldOfText(program.Text(IDC_DATE_PICKER)), NumberOf(program.Text(IDC_SENSITIVITY_EDIT)),
                    NumberOf(program.Text(IDC_SD_PERIOD_EDIT)), NumberOf(program.Text(IDC_ADDRESS_EDIT))};
    // Of two buttons the one in force can't be pressed.
    if (!program.IsEnabled(IDC_LANGUAGE_ENGLISH)) form.settings |= 0x80;
    if (!program.IsEnabled(IDC_DIRECTION_IN)) form.settings |= 0x40;
    if (!program.IsEnabled(IDC_SD_DETECT_NO)) form.settings |= 0x20;
    return form;
}
