// Dialog templates and dialog initialisation lists as bytes: what has to be read from or changed in them before the
// platform sees them. Both formats are documented forms of Win32 resources. Nothing here reads beyond the given bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

// Clears WS_VISIBLE in a copy of a template (DLGTEMPLATE or DLGTEMPLATEEX), so that the dialog's window can be shown by
// hand later. A template too short to hold its style comes back unchanged, with false.
bool HideDialogTemplate(std::span<std::byte> dialogTemplate);

// The font that a template describes. Names are UTF-16.
struct DialogFont {
    int pointSize = 0;
    int weight = 0; // 0: no matter
    bool italic = false;
    std::uint8_t characterSet = 1; // as in LOGFONT; 1 is that of the system's language
    std::u16string face;           // empty if the template has no font

    bool operator==(const DialogFont&) const = default;
};

// Place and size in dialog units, in the dialog's client area; for the dialog itself in its parent's.
struct DialogPlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const DialogPlace&) const = default;
};

struct DialogItem {
    DialogPlace place;
    std::uint32_t style = 0;
    std::uint32_t extendedStyle = 0;
    int id = 0;                                   // 16 bits
    std::u16string windowClass;                   // also for one of the classes that templates have numbers for
    std::u16string caption;                       // empty for the number of a picture
    std::size_t begin = 0, styleEnd = 0, end = 0; // in the template

    static constexpr std::uint32_t visibleStyle = 0x10000000; // WS_VISIBLE
    bool IsVisible() const { return (style & visibleStyle) != 0; }

    bool operator==(const DialogItem&) const = default;
};

struct DialogLayout {
    std::uint32_t style = 0;
    DialogPlace place;
    DialogFont font;
    std::vector<DialogItem> items; // in the order in which the platform makes the controls
};

// Reads either form of template; nothing if it is cut off anywhere.
std::optional<DialogLayout> ReadDialogLayout(std::span<const std::byte> dialogTemplate);

// Clears WS_VISIBLE of all controls in a copy of a template; nothing in one that can't be read.
void HideDialogItems(std::span<std::byte> dialogTemplate);

// Takes the controls that `leaves` picks out of a copy of a template; none out of one that can't be read.
void RemoveDialogItems(std::vector<std::byte>& dialogTemplate, const std::function<bool(const DialogItem&)>& leaves);

// Average width and height of a font's letters in pixels: four units in width, eight in height.
struct BaseUnits {
    int width;
    int height;

    bool operator==(const BaseUnits&) const = default;
};

// The classic fonts, which the layouts of this program were drawn for, at 96 dots to the inch: "System" 10 is 8 by 16,
// "MS Sans Serif" 8 is 6 by 13. Nothing for others: those are measured by the platform, as it finds them.
std::optional<BaseUnits> BaseUnitsOf(const DialogFont& font);

// Units to pixels, rounded to the nearest; `unitsPerBase` is 4 for widths and 8 for heights.
int ToPixels(int units, int base, int unitsPerBase);

// One entry of a dialog initialisation list: a message for a control, with its data.
struct DialogInitEntry {
    std::uint16_t controlId;
    std::uint16_t message;
    std::span<const std::byte> data; // points into the list
};

// The list's entries up to its end mark, a control id of 0. A list that is cut off gives the entries that are whole.
std::vector<DialogInitEntry> ParseDialogInit(std::span<const std::byte> list);
