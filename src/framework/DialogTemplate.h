// Dialog templates and dialog initialisation lists as bytes: what has to be read from or changed in them before the
// platform sees them. Both formats are documented forms of Win32 resources. Nothing here reads beyond the given bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// Clears WS_VISIBLE in a copy of a template (DLGTEMPLATE or DLGTEMPLATEEX), so that the dialog's window can be shown by
// hand later. A template too short to hold its style comes back unchanged, with false.
bool HideDialogTemplate(std::span<std::byte> dialogTemplate);

// One entry of a dialog initialisation list: a message for a control, with its data.
struct DialogInitEntry {
    std::uint16_t controlId;
    std::uint16_t message;
    std::span<const std::byte> data; // points into the list
};

// The list's entries up to its end mark, a control id of 0. A list that is cut off gives the entries that are whole.
std::vector<DialogInitEntry> ParseDialogInit(std::span<const std::byte> list);
