// The end of the traffic on the line, before the program's windows go.
#pragma once

// Closes the port, which ends a transfer under way, shuts the queue and waits once for the command in flight, half a
// second at most. The worker may be inside a call into this thread, so sent messages are served meanwhile. A worker
// that is still there afterwards (CCommandQueue::IsRunning) is stuck in a call of the system, and the process can only
// leave it behind. User-interface thread; a second call does nothing.
void StopCommands();
