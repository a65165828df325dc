// The serial port of the platform, and the wait for its input.
#pragma once

#include "port/LineTime.h"

#ifdef _WIN32
#include "port/ComPort.h"
#include "port/StopEvent.h"

using CPlatformPort = CComPort;
using CStopRequest = CStopEvent;
#else
#include "port/SerialDevice.h"
#include "port/StopSignals.h"

using CPlatformPort = CSerialDevice;
using CStopRequest = CStopSignals;
#endif

// Until the port has input or is gone, until `until`, or until the program is to end. A closed port has no input. False
// if the program is to end.
bool AwaitInput(const CPlatformPort& port, const CStopRequest& stop, LineTime until);
