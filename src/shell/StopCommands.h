// The end of the traffic on the line, before the program's windows go.
#pragma once

// Stops the worker, drops what is queued and waits for the command in flight, some tenths of a second at most: a driver
// that is stuck must not hold the program. The worker may be inside a call into this thread, so sent messages are served
// meanwhile. From then on no command runs. User-interface thread; may be called again.
void StopCommands();
