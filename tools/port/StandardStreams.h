// The standard streams of a program of the host.
#pragma once

#include <fcntl.h>
#include <unistd.h>

// Opens those that the program was started without. Else what it opens first would take their place, and what it says
// would go there: out on the line, say.
inline void OpenStandardStreams() {
    int opened = STDIN_FILENO;
    while (opened >= 0 && opened <= STDERR_FILENO) opened = open("/dev/null", O_RDWR);
    if (opened > STDERR_FILENO) close(opened);
}
