// The program's message box.
#pragma once

#include <string>

// Shows `text` and returns when the user has closed it; messages go on being handled meanwhile. An empty caption stands
// for the product title. `style` 0 offers OK, 1 OK and Cancel. Gives 0 whatever the user pressed.
int ShowMessage(const std::string& text, const std::string& caption, int style);
