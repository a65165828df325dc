// What the program is, and whom to ask.
#pragma once

// Returns when the user has closed it.
void ShowAbout();
