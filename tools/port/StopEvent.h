// What ends a program of the console: Ctrl+C and the console's close button. Of logging off and shutting down a program
// that uses windows, as the reader does for a title, isn't told: it is ended.
#pragma once

#include <windows.h>

class CStopEvent {
public:
    // From here on such a wish ends nothing by itself. Closing waits for the program's end for as long as the system
    // lets it, about 5 s.
    CStopEvent();

    // Signalled when the program is to end, and stays so.
    HANDLE Event() const;
};
