// What ends a program of the console: Ctrl+C, the console's close button, logging off, shutting down.
#pragma once

#include <windows.h>

class CStopEvent {
public:
    // From here on such a wish ends nothing by itself. Closing and logging off wait for the program's end for as long
    // as the system lets them, about 5 s.
    CStopEvent();

    // Signalled when the program is to end, and stays so.
    HANDLE Event() const;
};
