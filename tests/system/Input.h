// Mouse and keyboard as a user has them: events that the system itself hands to whatever window is there.
#pragma once

#include <string_view>

#include <windows.h>

// Moves the pointer to the position on the screen, and presses and releases the left button.
void ClickAt(POINT position);

// Presses and releases a key, with `held` (a virtual key) held down meanwhile; 0 for none.
void PressKey(WORD key, WORD held = 0);

// Letters and digits only.
void TypeKeys(std::string_view text);
